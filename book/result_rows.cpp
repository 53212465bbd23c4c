#include "book/result_rows.hpp"
#include "book/page.hpp"
#include <algorithm>
#include <locale>
#include <sstream>
#include <utility>

namespace book {

namespace {

constexpr std::wstring_view box_word = L"Box";
constexpr std::wstring_view file_word = L"File";

// The box of a hit; nullopt for one in the file list.
std::optional<std::size_t> box_of(const SearchHit& hit)
{
    if (hit.place < box_place || hit.place >= box_place + box_count)
        return std::nullopt;
    return static_cast<std::size_t>(hit.place - box_place);
}

std::wstring place_text(const SearchHit& hit)
{
    if (const auto box = box_of(hit))
        return std::wstring(box_word) + L' ' + std::to_wstring(*box + 1);
    return std::wstring(file_word) + L' ' + std::to_wstring(hit.place - file_place + 1);
}

// Where the lines of a text start that is not wrapped. Empty for a text with a line feed that follows no
// carriage return: systems differ about it.
std::vector<std::uint64_t> line_starts(const std::wstring& text)
{
    std::vector<std::uint64_t> starts{ 0 };
    for (std::size_t at = text.find(L'\n'); at != std::wstring::npos; at = text.find(L'\n', at + 1)) {
        if (at == 0 || text[at - 1] != L'\r')
            return {};
        starts.push_back(at + 1);
    }
    return starts;
}

// The lines of the hits in one box. A control goes through its lines for each question. So for many hits all
// line starts are taken once, and if possible from the text itself, because the control needs a time for all
// starts that grows with the square of their number.
class LinesOfBox {
    static constexpr std::size_t many = 8;

public:
    LinesOfBox(const std::vector<SearchHit>& hits, std::size_t box, const BoxLines& lines)
        : box_(box)
        , lines_(lines)
    {
        const auto count =
            static_cast<std::size_t>(std::ranges::count(hits, box_place + box, &SearchHit::place));
        if (count == 0)
            return;
        if (count > many) {
            if (const std::optional<std::wstring> text = lines.unwrapped_text(box))
                starts_ = line_starts(*text);
            if (!starts_.empty())
                return;
        }
        const std::size_t line_count = lines.line_count(box);
        constexpr std::size_t many_lines = 4'096;
        is_late_ = count > many && line_count > many_lines;
        if (is_late_ || count <= line_count)
            return;
        starts_.reserve(line_count);
        for (std::size_t line = 0; line < line_count; ++line)
            starts_.push_back(lines.line_start(box, line));
    }

    bool is_late() const { return is_late_; }
    std::size_t line_of(std::uint64_t position) const
    {
        if (starts_.empty())
            return lines_.line_of(box_, position);
        const auto after = std::ranges::upper_bound(starts_, position);
        return after == starts_.begin() ? 0 : static_cast<std::size_t>(after - starts_.begin()) - 1;
    }

private:
    std::size_t box_;
    const BoxLines& lines_;
    std::vector<std::uint64_t> starts_; // empty: the control is asked for each hit
    bool is_late_ = false; // the control would need too long
};

// A number in plain digits; nullopt for anything else.
std::optional<std::uint64_t> read_number(std::wstring_view digits)
{
    constexpr std::size_t most_digits = 18; // fit into 64 bits
    if (digits.empty() || digits.size() > most_digits)
        return std::nullopt;
    std::uint64_t number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9')
            return std::nullopt;
        number = number * 10 + static_cast<std::uint64_t>(digit - L'0');
    }
    return number;
}

// Two numbers with a hyphen between them.
bool read_range(std::wstring_view text, SearchHit& hit)
{
    const std::size_t hyphen = std::min(text.find(L'-'), text.size());
    const auto start = read_number(text.substr(0, hyphen));
    const auto end = read_number(text.substr(std::min(hyphen + 1, text.size())));
    if (!start || !end)
        return false;
    hit.start = *start;
    hit.end = *end;
    return true;
}

} // namespace

int last_result_width(int room, int others)
{
    constexpr int least = 100;
    return std::max(room - others, least);
}

std::wstring results_title(std::uint64_t position, std::size_t row_count)
{
    std::wstring title = L"p." + std::to_wstring(position + 1) + L" の検索結果";
    if (row_count != 0)
        title += L"  [" + std::to_wstring(row_count) + L"件]";
    return title;
}

ResultRows::ResultRows(std::vector<SearchHit> hits, const BoxLines& lines)
    : hits_(std::move(hits))
    , lines_(hits_.size())
    , late_lines_(&lines)
{
    const std::array boxes{ LinesOfBox(hits_, 0, lines), LinesOfBox(hits_, 1, lines),
        LinesOfBox(hits_, 2, lines) };
    static_assert(boxes.size() == box_count);
    for (std::size_t box = 0; box < boxes.size(); ++box)
        is_late_[box] = boxes[box].is_late();
    for (std::size_t row = 0; row < hits_.size(); ++row) {
        const auto box = box_of(hits_[row]);
        if (box && !is_late_[*box])
            lines_[row] = boxes[*box].line_of(hits_[row].start);
    }
}

std::size_t ResultRows::line_of(std::size_t row, std::size_t box) const
{
    return is_late_[box] ? late_lines_->line_of(box, hits_[row].start) : lines_[row];
}

std::wstring ResultRows::cell(int row, int column) const
{
    if (row < 0 || static_cast<std::size_t>(row) >= hits_.size())
        return {};
    const SearchHit& hit = hits_[static_cast<std::size_t>(row)];
    if (column == term_cell)
        return hit.term;
    if (column == place_cell)
        return place_text(hit);
    const std::optional<std::size_t> box = box_of(hit);
    if (!box)
        return {};
    if (column == line_cell)
        return std::to_wstring(line_of(static_cast<std::size_t>(row), *box) + 1);
    if (column == range_cell)
        return std::to_wstring(hit.start) + L'-' + std::to_wstring(hit.end);
    return {};
}

std::optional<SearchHit> ResultRows::parse_row(int row) const
{
    return parse_result(cell(row, place_cell), cell(row, range_cell));
}

std::optional<SearchHit> parse_result(std::wstring_view place, std::wstring_view range)
{
    std::wistringstream stream{ std::wstring(place) };
    stream.imbue(std::locale::classic());
    std::wstring word;
    std::int64_t number = 0;
    if (!(stream >> word >> number) || number < 1)
        return std::nullopt;
    SearchHit hit;
    const auto ordinal = static_cast<std::uint64_t>(number) - 1;
    if (word == file_word) {
        hit.place = file_place + ordinal;
        return hit;
    }
    if (word != box_word || ordinal >= box_count || !read_range(range, hit))
        return std::nullopt;
    hit.place = box_place + ordinal;
    return hit;
}

SearchHit chosen_hit(const SearchHit& hit)
{
    SearchHit chosen;
    chosen.place = hit.place;
    if (box_of(hit)) {
        chosen.start = hit.start;
        chosen.end = hit.end;
    }
    return chosen;
}

RefillPlan refill_plan(const std::vector<SearchHit>& old_hits, const std::vector<SearchHit>& new_hits,
    RefillCause cause, bool had_hits)
{
    const bool is_searched = cause == RefillCause::query_changed || cause == RefillCause::window_opened;
    if (new_hits.empty())
        return { .clears_boxes = had_hits || is_searched };
    const int select_row = row_to_select(cause);
    if (select_row >= 0)
        return { .row = static_cast<std::size_t>(select_row) < new_hits.size() ? select_row : -1 };
    return { .keeps_view = old_hits == new_hits };
}

} // namespace book
