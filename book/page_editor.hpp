// The page editor: the range of pages, the pages to copy or cut, and what may be done with them.
//
// Positions serve as stored indices here: the editor is meant for the stored order, and where it is opened in
// another one, the pages that it selects need not be those seen on the way.
#pragma once
#include "book/book.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace book {

enum class PastePlace { at_end, here };

// What the user is asked about. It is done only if it still holds when the answer comes.
struct PasteRequest {
    PastePlace place = PastePlace::at_end;
    std::size_t index = 0; // where the pages go
    ClipMode mode = ClipMode::none;
    std::size_t count = 0; // selected pages
    std::uint64_t revision = 0; // of the Book

    friend bool operator==(const PasteRequest&, const PasteRequest&) = default;
};
struct DeleteRequest {
    std::size_t count = 0;
    std::uint64_t revision = 0;

    friend bool operator==(const DeleteRequest&, const DeleteRequest&) = default;
};

// `none`: nothing is to be done, or it was reported already.
enum class EditResult { none, done, failed };

// The ends of the range in ascending order.
struct PageRange {
    std::uint64_t first = 0;
    std::uint64_t last = 0;

    friend bool operator==(const PageRange&, const PageRange&) = default;
};
enum class RangeSide { first, last };

class PageEditor {
public:
    enum class KeepRange { no, yes };

    // `book` must outlive the editor. Another one may be loaded into it.
    explicit PageEditor(Book& book);

    // When the window opens, and after the Book was loaded again: the range is the current page, nothing is
    // to be pasted, nothing has changed. The selection stays as it is.
    void reset();
    // After any movement. The current page becomes one end of the range. Unless the range is to be kept, the
    // strip is dragged, Shift is down or `jump` led here, it becomes the other end too.
    void update(KeepRange keep, bool is_shift_down);

    // Both ends are pages of the Book, whatever was removed; 0 without pages.
    PageRange range() const;
    std::uint64_t range_anchor() const { return clamped(range_anchor_); }
    std::uint64_t range_end() const { return clamped(range_end_); }
    bool is_range_selected() const { return is_range_selected_; } // the state of its check box
    std::size_t selected_count() const { return selected_count_; }
    ClipMode clip_mode() const { return clip_mode_; }
    bool has_changed() const { return has_changed_; }
    bool is_dragging() const { return is_dragging_; }

    // Each gives up a pending copy or cut.
    void select_current_page(bool on);
    void select_range(bool on);
    void clear_selection();
    // The range becomes the current page.
    void reset_range();

    // Pressing the strip, and moving after that. `x`: from the left edge of a strip of this width. Returns
    // the position to show, nullopt if it is the current one.
    std::optional<std::uint64_t> begin_drag(int x, int width);
    std::optional<std::uint64_t> drag_to(int x, int width) const;
    void end_drag() { is_dragging_ = false; }

    // Goes to an end of the range and keeps it: the page that was current becomes the anchor. Returns the
    // position to show, nullopt if it is the current one.
    std::optional<std::uint64_t> jump(RangeSide side);

    // The selected pages are to be pasted later. False if none is selected.
    bool copy() { return set_clip(ClipMode::copy); }
    bool cut() { return set_clip(ClipMode::cut); }

    // nullopt if nothing is selected or nothing is to be pasted.
    std::optional<PasteRequest> paste_request(PastePlace place);
    std::optional<DeleteRequest> delete_request();
    // Do what was asked about, if it still holds. The Book's pages have changed if and only if the result is
    // `done`. They throw what Book::paste_selected and Book::delete_selected throw.
    EditResult paste(const PasteRequest& request);
    EditResult remove(const DeleteRequest& request, const PageColors& colors);

private:
    std::uint64_t clamped(std::uint64_t position) const;
    std::optional<std::uint64_t> if_not_current(std::uint64_t position) const;
    void recount();
    void end_selecting();
    bool set_clip(ClipMode mode);
    void note_change();

    Book& book_;
    std::uint64_t range_anchor_ = 0; // where the range began
    std::uint64_t range_end_ = 0; // the page on the screen
    std::optional<std::uint64_t> jumped_to_; // the range is kept while this is the position
    std::size_t selected_count_ = 0;
    ClipMode clip_mode_ = ClipMode::none;
    bool is_range_selected_ = false;
    bool is_dragging_ = false;
    bool has_changed_ = false; // since the Book was last in agreement with its file
};

// The position of the page at `x` of a strip that shows `page_count` pages; the first or the last for an `x`
// beyond the strip. 0 without pages.
std::uint64_t position_on_strip(int x, int width, std::size_t page_count);

} // namespace book
