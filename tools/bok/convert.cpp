#include "tools/bok/commands.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/mend.hpp"
#include "tools/bok/save.hpp"
#include "tools/bok/utf8.hpp"
#include <istream>
#include <ostream>

namespace bok {

namespace {

// Asks only if a person can see the question and answer it; otherwise the answer is no.
bool ask(Streams& streams, const std::string& question)
{
    if (!streams.in_is_terminal || !streams.err_is_terminal)
        return false;
    streams.err << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(streams.in, answer);
    return answer.starts_with('y') || answer.starts_with('Y');
}

std::string question_for(Consent consent, const std::string& path)
{
    return printable(std::string_view(path))
        + (consent == Consent::older_format
                ? ": the older format, or no Book at all. Read it as the older format?"
                : ": the BookHeader is damaged. Continue with default settings?");
}

} // namespace

int run_convert(const Options& options, Streams& streams)
{
    const std::string path = options.operand(0);
    bool was_declined = false;
    const auto consent = [&](Consent about) {
        const bool agreed = options.has("--yes") || ask(streams, question_for(about, path));
        was_declined = !agreed;
        return agreed;
    };
    // A declined question ends in the loader's message, which does not mention --yes.
    const auto open = [&] {
        try {
            return open_any_book(path, streams, consent);
        } catch (const Problem&) {
            if (!was_declined)
                throw;
            throw Problem(printable(std::string_view(path))
                + ": not converted; use --yes to convert without a question");
        }
    };
    book::Book book = open();
    for (std::size_t i = 0; i < book.pages.size(); ++i)
        mend_page(book.pages[i],
            [&](const std::string& what) { streams.err << "page index " << i << ": " << what << '\n'; });
    save_book(book, options.value("-o"));
    return exit_done;
}

} // namespace bok
