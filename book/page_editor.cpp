#include "book/page_editor.hpp"
#include "book/page_selection.hpp"
#include <algorithm>

namespace book {

PageEditor::PageEditor(Book& book)
    : book_(book)
{
}

void PageEditor::reset()
{
    reset_range();
    clip_mode_ = ClipMode::none;
    is_dragging_ = false;
    has_changed_ = false;
    recount();
}

void PageEditor::update(KeepRange keep, bool is_shift_down)
{
    if (!book_.current_page())
        return;
    range_end_ = book_.header.position;
    if (jumped_to_ != range_end_)
        jumped_to_.reset();
    if (keep == KeepRange::yes || is_shift_down || is_dragging_ || jumped_to_)
        return;
    range_anchor_ = range_end_;
    is_range_selected_ = false;
}

PageRange PageEditor::range() const
{
    const auto [first, last] = std::minmax({ range_anchor(), range_end() });
    return { first, last };
}

void PageEditor::select_current_page(bool on)
{
    if (Page* page = book_.current_page())
        page->selected = on ? PageSelection::selected : PageSelection::none;
    end_selecting();
}

void PageEditor::select_range(bool on)
{
    is_range_selected_ = on;
    const PageRange pages = range();
    select_pages(book_.pages, pages.first, pages.last, on);
    end_selecting();
}

void PageEditor::clear_selection()
{
    book::clear_selection(book_.pages);
    end_selecting();
}

void PageEditor::reset_range()
{
    range_end_ = book_.header.position;
    range_anchor_ = range_end_;
    is_range_selected_ = false;
    jumped_to_.reset();
}

std::optional<std::uint64_t> PageEditor::begin_drag(int x, int width)
{
    is_dragging_ = true;
    jumped_to_.reset();
    return drag_to(x, width);
}

std::optional<std::uint64_t> PageEditor::drag_to(int x, int width) const
{
    return is_dragging_ ? if_not_current(position_on_strip(x, width, book_.pages.size())) : std::nullopt;
}

std::optional<std::uint64_t> PageEditor::jump(RangeSide side)
{
    const std::optional<std::uint64_t> target =
        if_not_current(side == RangeSide::first ? range().first : range().last);
    if (target) {
        range_anchor_ = range_end();
        jumped_to_ = target;
    }
    return target;
}

std::optional<PasteRequest> PageEditor::paste_request(PastePlace place)
{
    recount();
    if (selected_count_ == 0 || clip_mode_ == ClipMode::none)
        return std::nullopt;
    const std::size_t index = place == PastePlace::at_end ? book_.pages.size() : book_.header.position;
    return PasteRequest{ place, index, clip_mode_, selected_count_, book_.revision };
}

std::optional<DeleteRequest> PageEditor::delete_request()
{
    recount();
    if (selected_count_ == 0)
        return std::nullopt;
    return DeleteRequest{ selected_count_, book_.revision };
}

EditResult PageEditor::paste(const PasteRequest& request)
{
    if (paste_request(request.place) != request)
        return EditResult::none;
    if (!book_.paste_selected(request.index, request.mode))
        return EditResult::failed;
    note_change();
    return EditResult::done;
}

EditResult PageEditor::remove(const DeleteRequest& request, const PageColors& colors)
{
    if (delete_request() != request)
        return EditResult::none;
    if (!book_.delete_selected(colors))
        return EditResult::failed;
    note_change();
    return EditResult::done;
}

std::uint64_t PageEditor::clamped(std::uint64_t position) const
{
    return book_.pages.empty() ? 0 : std::min<std::uint64_t>(position, book_.pages.size() - 1);
}

std::optional<std::uint64_t> PageEditor::if_not_current(std::uint64_t position) const
{
    return position == book_.header.position ? std::nullopt : std::optional{ position };
}

void PageEditor::recount()
{
    selected_count_ = count_selected(book_.pages);
}

void PageEditor::end_selecting()
{
    clip_mode_ = ClipMode::none;
    recount();
}

bool PageEditor::set_clip(ClipMode mode)
{
    recount();
    if (selected_count_ == 0)
        return false;
    clip_mode_ = mode;
    return true;
}

void PageEditor::note_change()
{
    has_changed_ = true;
    clip_mode_ = ClipMode::none;
    jumped_to_.reset();
    recount();
}

// Multiplied first: the other way round every place would be page 0 in whole numbers.
std::uint64_t position_on_strip(int x, int width, std::size_t page_count)
{
    if (page_count == 0 || width <= 0)
        return 0;
    const auto offset = static_cast<std::uint64_t>(std::clamp(x, 0, width));
    return std::min<std::uint64_t>(offset * page_count / static_cast<std::uint64_t>(width), page_count - 1);
}

} // namespace book
