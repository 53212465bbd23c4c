// The rows of the search results: the hits of one page, one a row, as texts.
#pragma once
#include "book/search.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace book {

inline constexpr platform::Size results_client_size{ 300, 300 };

struct ResultColumn {
    const wchar_t* title = L"";
    int width = 0;
};
// The last column has no width of its own.
inline constexpr std::array result_columns{ ResultColumn{ L"語句", 80 }, ResultColumn{ L"場所", 60 },
    ResultColumn{ L"行", 60 }, ResultColumn{ L"範囲" } };
enum ResultCell : int { term_cell, place_cell, line_cell, range_cell };

// The width of the last column if the rows are `room` wide, without a scroll bar, and the other columns take
// `others` of it.
int last_result_width(int room, int others);

// "p.1 の検索結果", with the number of rows if there are any.
std::wstring results_title(std::uint64_t position, std::size_t row_count);

// Knows on which line of a box a text position is. All lines and positions count from 0.
class BoxLines {
public:
    virtual ~BoxLines() = default;

    virtual std::size_t line_of(std::size_t box, std::uint64_t position) const = 0;
    virtual std::size_t line_count(std::size_t box) const = 0;
    // Where a line starts.
    virtual std::uint64_t line_start(std::size_t box, std::size_t line) const = 0;
    // The text of a box without wrapping; nullopt if lines are wrapped.
    virtual std::optional<std::wstring> unwrapped_text(std::size_t /*box*/) const { return std::nullopt; }
};

// A copy of hits, so that rows stay what they were when the list was filled. Cells are made when they are
// asked for: any number of rows costs no more than the copy and their line numbers. In a wrapped box with
// thousands of lines a control takes seconds for the lines of all hits. There each line is determined when
// its cell is asked for, in the text that the box has then.
class ResultRows {
public:
    ResultRows() = default;
    // `lines` must outlive the rows.
    ResultRows(std::vector<SearchHit> hits, const BoxLines& lines);

    std::size_t count() const { return hits_.size(); }
    const std::vector<SearchHit>& hits() const { return hits_; }
    // Empty for a row or column that does not exist.
    std::wstring cell(int row, int column) const;
    // What the cells of a row say. nullopt for a row that does not exist.
    std::optional<SearchHit> parse_row(int row) const;

private:
    std::size_t line_of(std::size_t row, std::size_t box) const;

    std::vector<SearchHit> hits_;
    std::vector<std::size_t> lines_; // of each hit; 0 for hits in the file list
    const BoxLines* late_lines_ = nullptr; // for the hits in the boxes below
    std::array<bool, 3> is_late_{}; // whether the lines of a box are determined when they are asked for
};

// Reads a row back from its cells: place and range, without the term. Text that a row never has is refused:
// nullopt.
std::optional<SearchHit> parse_result(std::wstring_view place, std::wstring_view range);

// Why the rows are filled anew.
enum class RefillCause {
    page_shown, // the page was shown, also again
    query_changed, // the search text or one of its switches
    window_opened,
    content_changed, // the page's text when it was saved, its file list, or the wrapping of the boxes
};
// The row to select then, -1 for none: only what the user searched for or turned to may move the selection in
// the boxes and the selected file.
constexpr int row_to_select(RefillCause cause)
{
    const bool selects = cause == RefillCause::page_shown || cause == RefillCause::query_changed
        || cause == RefillCause::window_opened;
    return selects ? 0 : -1;
}

// The hit that choosing its row yields: as its cells describe it, so without the term, and without a range
// for an entry of the file list.
SearchHit chosen_hit(const SearchHit& hit);

// What a refill does with the selection.
struct RefillPlan {
    bool keeps_view = false; // selected row and scroll position stay
    int row = -1; // the row to select, -1 for none
    bool clears_boxes = false; // there is no hit: the selections in the boxes go

    friend bool operator==(const RefillPlan&, const RefillPlan&) = default;
};
// `had_hits`: the refill before had some, also while the window was closed. Without hits then and now, only
// what the user searched for clears the boxes; a page that is shown again keeps the selection that the user
// made.
RefillPlan refill_plan(const std::vector<SearchHit>& old_hits, const std::vector<SearchHit>& new_hits,
    RefillCause cause, bool had_hits);

} // namespace book
