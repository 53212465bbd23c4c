#include "book/text.hpp"
#include "platform/text.hpp"
#include "tools/bok/commands.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/page_rules.hpp"
#include "tools/bok/save.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <istream>
#include <ostream>

namespace bok {

namespace {

// Only a person at a terminal can say yes.
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
                : ": the BookHeader is damaged. Go on with default settings?");
}

class Mender {
public:
    Mender(book::Page& page, std::size_t index, Streams& streams)
        : page_(page)
        , index_(index)
        , streams_(streams)
    {
    }

    // Until a save would give back the page that was loaded.
    void mend()
    {
        mend_stamp();
        while (const auto flaw = check_verbatim_page(page_))
            mend(*flaw);
    }

private:
    void tell(const std::string& what) { streams_.err << "page index " << index_ << ": " << what << '\n'; }

    // The program cannot work with a page that lacks a time: it gets the present one, twice when the creation
    // is lost too.
    void mend_stamp()
    {
        if (page_.stamp.size() >= 2 * book::time_length)
            return;
        const std::wstring now = book::current_time_text();
        const bool has_creation = page_.stamp.size() >= book::time_length;
        std::wstring mended = (has_creation ? page_.stamp.substr(0, book::time_length) : now) + now;
        tell("stamp \"" + printable(std::wstring_view(page_.stamp)) + "\" becomes \""
            + printable(std::wstring_view(mended)) + '"');
        page_.stamp = std::move(mended);
    }

    // A separator that would end its field when it is written: the boxes of the program drop every one.
    void mend(const PageFlaw& flaw)
    {
        std::wstring& text = text_of_field(flaw);
        const std::size_t length = text.size();
        book::remove_separator(text);
        if (text.size() == length)
            throw Problem("page index " + std::to_string(index_) + ": " + name_of(flaw) + ' ' + flaw.reason);
        tell(name_of(flaw) + ' ' + flaw.reason + ": U+0003 is removed");
        if (flaw.field == PageField::stamp)
            mend_stamp();
        if (flaw.field != PageField::files || !book::trimmed(text, book::TrimMode::both).empty())
            return;
        page_.files.erase(page_.files.begin() + static_cast<std::ptrdiff_t>(flaw.entry));
        if (page_.current_file > 0 && page_.current_file >= flaw.entry)
            --page_.current_file;
    }

    std::wstring& text_of_field(const PageFlaw& flaw)
    {
        switch (flaw.field) {
        case PageField::box1:
            return page_.text[0];
        case PageField::box2:
            return page_.text[1];
        case PageField::box3:
            return page_.text[2];
        case PageField::files:
            return page_.files[flaw.entry];
        case PageField::folder:
            return page_.reference_folder;
        case PageField::stamp:
            return page_.stamp;
        default:
            throw Problem("page index " + std::to_string(index_) + ": " + flaw.reason);
        }
    }

    book::Page& page_;
    std::size_t index_;
    Streams& streams_;
};

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
    const auto open = [&] {
        try {
            return open_any_book(path, streams, consent);
        } catch (const Problem&) {
            if (!was_declined)
                throw;
            throw Problem(
                printable(std::string_view(path)) + ": not converted; --yes goes on without a question");
        }
    };
    book::Book book = open();
    for (std::size_t i = 0; i < book.pages.size(); ++i)
        Mender(book.pages[i], i, streams).mend();
    save_book(book, options.value("-o"));
    return exit_done;
}

} // namespace bok
