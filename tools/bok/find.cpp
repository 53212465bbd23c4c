#include "book/page_text.hpp"
#include "book/query.hpp"
#include "book/search.hpp"
#include "tools/bok/commands.hpp"
#include "tools/bok/input.hpp"
#include "tools/bok/json_writer.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"
#include "tools/bok/tables.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>

namespace bok {

namespace {

struct Match {
    std::uint64_t position;
    std::size_t index;
    const book::Page& page;
    const std::vector<book::SearchHit>& hits;
};

book::SearchQuery parse_query(const Options& options)
{
    std::wstring text = platform::from_utf8(options.operand(1));
    book::remove_separator(text);
    book::SearchQuery query;
    book::split_terms(text, query.terms);
    query.all_terms = options.has("--all");
    query.ignore_case = options.has("--ignore-case");
    query.in_file_list = options.has("--files");
    query.track_marks = options.has("--track-marks");
    query.track_tabs = options.has("--track-tabs");
    return query;
}

void write_json(const Match& match, std::string& out)
{
    JsonWriter json(out);
    json.open('{');
    json.key("position");
    json.value(match.position);
    json.key("index");
    json.value(match.index);
    json.key("hits");
    json.open('[');
    for (const book::SearchHit& hit : match.hits) {
        json.open('{');
        json.key("term");
        json.value(std::wstring_view(hit.term));
        json.key("place");
        json.value(hit.place);
        json.key("start");
        json.value(hit.start);
        json.key("end");
        json.value(hit.end);
        json.close('}');
    }
    json.close(']');
    json.close('}');
    out.push_back('\n');
}

std::wstring_view text_at(const book::Page& page, std::uint64_t place)
{
    return place < book::file_place ? page.text[place - book::box_place]
                                    : page.files[place - book::file_place];
}

std::string name_of(std::uint64_t place)
{
    return place < book::file_place ? "box " + std::to_string(place - book::box_place + 1)
                                    : "file " + std::to_string(place - book::file_place + 1);
}

// The hit with up to 20 units of context on either side, on its line only. Never cuts a surrogate pair.
std::string surroundings(std::wstring_view text, const book::SearchHit& hit)
{
    constexpr std::size_t reach = 20;
    const std::size_t line_start = text.find_last_of(L"\r\n", hit.start == 0 ? 0 : hit.start - 1);
    std::size_t start = hit.start > reach ? hit.start - reach : 0;
    if (line_start != text.npos && line_start < hit.start)
        start = std::max(start, line_start + 1);
    const std::size_t line_end = std::min(text.find_first_of(L"\r\n", hit.end), text.size());
    std::size_t end = std::min(hit.end + reach, line_end);
    if (start > 0 && start < hit.start && platform::is_low_surrogate(text[start]))
        --start;
    if (end < text.size() && platform::is_low_surrogate(text[end]))
        ++end;
    return printable(text.substr(start, end - start));
}

void write_rows(const Match& match, std::string& out)
{
    out += std::to_string(match.position) + "  [" + std::to_string(match.index) + "]  " + title_of(match.page)
        + '\n';
    for (const book::SearchHit& hit : match.hits) {
        out += "    " + name_of(hit.place) + "  " + std::to_string(hit.start) + "-" + std::to_string(hit.end)
            + "  " + surroundings(text_at(match.page, hit.place), hit) + '\n';
    }
}

} // namespace

int run_find(const Options& options, Streams& streams)
{
    const book::SearchQuery query = parse_query(options);
    book::Book book = open_book(options.operand(0), streams);
    rebuild_order(book);
    const auto write = options.has("--json") ? write_json : write_rows;
    const auto sink = open_sink(streams.out);
    Progress progress(streams, "searching");
    for (std::uint64_t position = 0; position < book.pages.size(); ++position) {
        const std::size_t index = book.position_to_index(position);
        const book::Page& page = book.pages[index];
        if (book::match_page(page, query, book.hits))
            write({ position, index, page, book.hits }, sink->text());
        sink->pass_on();
        progress.show(position, book.pages.size());
    }
    sink->finish();
    return exit_done;
}

} // namespace bok
