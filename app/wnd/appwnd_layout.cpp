// Where the children are, the boundary between the boxes, and how the window is moved by its background.
#include "app/wnd/appwnd.hpp"
#include "app/wnd/file_pane.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include <windowsx.h>

namespace app {

using ovlib::to_rect;

void AppWnd::lay_out()
{
    const SIZE client = client_size();
    layout_ = main_layout({ client.cx, client.cy });
    place_boxes();
    controls_.place(layout_);
    file_pane_->place(layout_);
    for (look::MyBox* box : boxes())
        box->show(true);
}

void AppWnd::place_boxes()
{
    q_box_.set_rect(to_rect(layout_.boxes.first), false);
    a_box_.set_rect(to_rect(layout_.boxes.second), false);
    d_box_.set_rect(to_rect(layout_.boxes.third), false);
}

int AppWnd::set_divider(int y)
{
    layout_.boxes = with_divider(layout_.boxes, y);
    place_boxes();
    for (const look::MyBox* box : boxes())
        RedrawWindow(box->hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_FRAME);
    for (const BoxGap gap : { BoxGap::upper, BoxGap::lower }) {
        const RECT rect = to_rect(gap_rect(layout_.boxes, gap));
        InvalidateRect(hwnd(), &rect, FALSE);
    }
    return layout_.boxes.first.bottom;
}

// The background is the window's caption; over a gap the window sees the mouse as in a client area.
bool AppWnd::on_hit_test(ovlib::WndMessage& message)
{
    message.result = default_proc(message);
    if (message.result != HTCLIENT)
        return true;
    const auto lparam = static_cast<LPARAM>(message.lparam);
    POINT point{ GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam) };
    ScreenToClient(hwnd(), &point);
    if (gap_under({ point.x, point.y }) == BoxGap::none)
        message.result = HTCAPTION;
    return true;
}

// Before each move of the mouse: the class's arrow would flicker in between.
bool AppWnd::on_set_cursor(ovlib::WndMessage& message)
{
    const bool is_over_window = reinterpret_cast<HWND>(message.wparam) == hwnd();
    if (!is_over_window || LOWORD(message.lparam) != HTCLIENT)
        return false;
    const POINT at = cursor_pos();
    show_cursor({ at.x, at.y });
    message.result = TRUE;
    return true;
}

void AppWnd::show_cursor(Point point) const
{
    const bool over_gap = dragged_gap_ != BoxGap::none || (!grip_ && gap_under(point) != BoxGap::none);
    SetCursor(LoadCursorW(nullptr, over_gap ? IDC_SIZENS : IDC_ARROW));
}

bool AppWnd::on_press(Point point)
{
    dragged_gap_ = gap_under(point);
    if (dragged_gap_ == BoxGap::none)
        return false;
    SetCapture(hwnd());
    return true;
}

// The background moves the window as a caption does, but not by the system's own loop: that puts a window
// back whose top was carried above the screen, and on a low screen this is the way to its bottom.
bool AppWnd::on_background_grip(const ovlib::WndMessage& message)
{
    const auto lparam = static_cast<LPARAM>(message.lparam);
    const POINT mouse{ GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam) };
    POINT inside = mouse;
    ScreenToClient(hwnd(), &inside);
    const RECT client = client_rect();
    if (message.wparam != HTCAPTION || !PtInRect(&client, inside))
        return false;
    SetForegroundWindow(hwnd());
    const POINT corner = position();
    grip_ = Point{ static_cast<int>(mouse.x - corner.x), static_cast<int>(mouse.y - corner.y) };
    SetCapture(hwnd());
    return true;
}

bool AppWnd::on_mouse_move(Point point)
{
    show_cursor(point);
    if (grip_) {
        POINT mouse{ point.x, point.y };
        ClientToScreen(hwnd(), &mouse);
        move(mouse.x - grip_->x, mouse.y - grip_->y, true);
    } else if (dragged_gap_ != BoxGap::none) {
        book_.header.divider = set_divider(dragged_divider(dragged_gap_, point.y));
    }
    return true;
}

bool AppWnd::on_release()
{
    dragged_gap_ = BoxGap::none;
    grip_.reset();
    // Another window may have taken the mouse: then it is no longer this one's to release.
    if (GetCapture() == hwnd())
        ReleaseCapture();
    return false;
}

BoxGap AppWnd::gap_under(Point point) const
{
    return gap_at(layout_.boxes, point);
}

} // namespace app
