#include "tools/bok/commands.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/json_book.hpp"
#include "tools/bok/tables.hpp"
#include <algorithm>
#include <limits>

namespace bok {

namespace {

// A range of positions; both ends are included.
struct Range {
    std::uint64_t first = 0;
    std::uint64_t last = std::numeric_limits<std::uint64_t>::max();
};

Range parse_range(const std::string& text)
{
    if (text.empty())
        return {};
    const std::size_t dash = text.find('-');
    const auto first = parse_number(std::string_view(text).substr(0, dash));
    const auto last = dash == text.npos ? first
        : dash + 1 == text.size()       ? Range{}.last
                                        : parse_number(std::string_view(text).substr(dash + 1));
    if (!first || !last || *last < *first)
        throw UsageError("--range takes two positions, as in 0-9, the smaller one first");
    return { *first, *last };
}

void write_json(const book::Page& page, std::uint64_t position, std::size_t index, std::string& out)
{
    JsonWriter json(out);
    json.open('{');
    json.key("position");
    json.value(position);
    json.key("index");
    json.value(index);
    write_page_members(json, page);
    json.close('}');
    out.push_back('\n');
}

void write_row(const book::Page& page, std::uint64_t position, std::size_t index, std::string& out)
{
    const std::wstring_view stamp = page.stamp;
    const auto cell = [&](std::string text, std::size_t width) {
        text.insert(0, width - std::min(width, text.size()), ' ');
        out += text + "  ";
    };
    cell(std::to_string(position), 8);
    cell(std::to_string(index), 8);
    cell(time_of(stamp.substr(std::min(stamp.size(), book::time_length))), 19);
    cell(page.tab_number != 0 ? std::to_string(page.tab_number) : "-", 3);
    cell(page.mark != 0 ? "*" : "-", 4);
    cell(std::to_string(page.files.size()), 5);
    out += title_of(page) + '\n';
}

} // namespace

int run_pages(const Options& options, Streams& streams)
{
    const bool is_json = options.has("--json");
    // An empty value is more likely a mistake in a script than a request for all pages.
    if (options.has("--range") && options.value("--range").empty())
        throw UsageError("--range takes two positions, as in 0-9, the smaller one first");
    const Range range = parse_range(options.value("--range"));
    book::Book book = open_book(options.operand(0), streams);
    rebuild_order(book);
    const auto sink = open_sink(streams.out);
    if (!is_json)
        sink->text() += "position     index             modified  tab  mark  files  title\n";
    for (std::uint64_t position = range.first; position < book.pages.size() && position <= range.last;
         ++position) {
        const std::size_t index = book.position_to_index(position);
        (is_json ? write_json : write_row)(book.pages[index], position, index, sink->text());
        sink->pass_on();
    }
    sink->finish();
    return exit_done;
}

} // namespace bok
