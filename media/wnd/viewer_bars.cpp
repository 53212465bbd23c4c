#include "media/wnd/viewer_bars.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace media {

using ovlib::ScrollRange;
using platform::Point;
using platform::Size;

namespace {

constexpr double middle = 0.5;

Size bar_thickness()
{
    return { GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL) };
}

SCROLLINFO scroll_info(UINT mask)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

void set_range_of(const ovlib::ScrollBar& bar, const ScrollRange& range)
{
    SCROLLINFO info = scroll_info(SIF_RANGE | SIF_PAGE | SIF_POS);
    info.nMin = range.min;
    info.nMax = range.max;
    info.nPage = range.page;
    info.nPos = range.pos;
    SetScrollInfo(bar.owner->hwnd(), bar.bar, &info, TRUE);
}

std::int32_t tracked_position(const ovlib::ScrollBar& bar)
{
    SCROLLINFO info = scroll_info(SIF_TRACKPOS);
    return GetScrollInfo(bar.owner->hwnd(), bar.bar, &info) ? info.nTrackPos : 0;
}

} // namespace

ViewerBars::ViewerBars(ovlib::Wnd* owner)
    : owner_(owner)
    , across_{ { owner, SB_HORZ } }
    , down_{ { owner, SB_VERT } }
{
}

void ViewerBars::center()
{
    across_.ratio = down_.ratio = middle;
}

void ViewerBars::fit(Size drawn, KeepView keep)
{
    const Size thickness = bar_thickness();
    const Size area = area_without_bars(ovlib::to_size(owner_->client_size()), shown(), thickness);
    const Bars needed = needed_bars(drawn, area, thickness);
    const Bars before = shown();
    show(across_, needed.horizontal);
    show(down_, needed.vertical);
    const Size client = ovlib::to_size(owner_->client_size());
    set_range(across_, drawn.width, client.width, before.horizontal ? keep : KeepView::ratio);
    set_range(down_, drawn.height, client.height, before.vertical ? keep : KeepView::ratio);
}

void ViewerBars::show(Bar& bar, bool shown)
{
    if (bar.is_shown == shown)
        return;
    bar.is_shown = shown;
    if (!shown) {
        bar.ratio = middle;
        set_range_of(bar.bar, {});
    }
    ShowScrollBar(bar.bar.owner->hwnd(), bar.bar.bar, shown);
}

void ViewerBars::set_range(Bar& bar, int drawn, int client, KeepView keep)
{
    if (!bar.is_shown)
        return;
    ScrollRange range = viewer_range(drawn, client);
    range.pos = keep == KeepView::ratio ? position_at(range, bar.ratio) : clamp_scroll(range, bar.bar.pos());
    set_range_of(bar.bar, range);
}

bool ViewerBars::move_to(Bar& bar, int position)
{
    const int before = bar.bar.pos();
    bar.bar.scroll_by(position - before);
    bar.ratio = bar.bar.fraction();
    return bar.bar.pos() != before;
}

bool ViewerBars::scroll(int bar, int code, std::uint16_t thumb)
{
    Bar& scrolled_bar = bar == SB_HORZ ? across_ : down_;
    if (!scrolled_bar.is_shown)
        return false;
    const ScrollRange range = scrolled_bar.bar.range().value_or(ScrollRange{});
    const auto position =
        scrolled(range, code, thumb_position(range, thumb, tracked_position(scrolled_bar.bar)));
    return position && move_to(scrolled_bar, *position);
}

bool ViewerBars::drag_bar(Bar& bar, int from, int to)
{
    return bar.is_shown && from != to
        && move_to(bar, dragged(bar.bar.range().value_or(ScrollRange{}), from, to));
}

bool ViewerBars::drag(Point from, Point to)
{
    const bool moved_across = drag_bar(across_, from.x, to.x);
    const bool moved_down = drag_bar(down_, from.y, to.y);
    return moved_across || moved_down;
}

Point ViewerBars::position() const
{
    return { across_.is_shown ? across_.bar.pos() : 0, down_.is_shown ? down_.bar.pos() : 0 };
}

} // namespace media
