#include "book/page_text.hpp"
#include "tools/bok/commands.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/json_book.hpp"
#include "tools/bok/json_reader.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/save.hpp"
#include "tools/bok/tsv.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <ostream>

namespace bok {

namespace {

using Import = void (*)(std::string_view, book::Book&, Progress&);

Import import_from(const std::string& format)
{
    if (format == "tsv")
        return import_tsv;
    if (format == "json")
        return import_json;
    throw UsageError("--from takes tsv or json");
}

void read_pages(
    Import read, const std::string& name, const std::string& text, book::Book& book, Streams& streams)
{
    const std::string shown = name == "-" ? "input" : printable(std::string_view(name));
    // Recognised by its byte order mark, to name the encoding instead of a strange error in line 1.
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
        throw Problem(shown + ": is UTF-16, but bok reads UTF-8");
    Progress progress(streams, "importing");
    try {
        read(text, book, progress);
    } catch (const JsonError& error) {
        throw Problem(shown + ": line " + std::to_string(error.line) + ", column "
            + std::to_string(error.column) + ": " + error.what());
    } catch (const TsvError& error) {
        throw Problem(shown + ": " + error.what());
    }
}

void count_tabs(book::Book& book, Streams& streams)
{
    const auto tabs =
        std::ranges::count_if(book.pages, [](const book::Page& page) { return page.tab_number != 0; });
    book.recount();
    if (tabs > book.tab_count)
        streams.err << "bok: " << tabs - book.tab_count << " tabs beyond " << book::tab_limit
                    << " are dropped\n";
}

} // namespace

int run_import(const Options& options, Streams& streams)
{
    const Import read = import_from(options.value("--from"));
    if (options.value("-o") == "-")
        throw UsageError("a Book can only be written to a file");
    book::Book book;
    { // frees the file's text before the Book is written
        const std::string text = read_all(options.operand(0), streams);
        read_pages(read, options.operand(0), text, book, streams);
    }
    count_tabs(book, streams);
    save_book(book, options.value("-o"));
    return exit_done;
}

} // namespace bok
