#include "app/wnd/background.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include <utility>
#include <windowsx.h>

namespace app {

Background::Background(ovlib::BaseWnd& window, BoxDesk& desk, std::function<void(int)> divider_moved)
    : window_(window)
    , desk_(desk)
    , divider_moved_(std::move(divider_moved))
{
}

// Reports the whole client area except the gaps as a caption, so that the window can be dragged by its
// background. Over a gap the window gets normal mouse messages, which move the divider.
bool Background::on_hit_test(ovlib::WndMessage& message)
{
    message.result = window_.default_proc(message);
    if (message.result != HTCLIENT)
        return true;
    const auto lparam = static_cast<LPARAM>(message.lparam);
    POINT point{ GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam) };
    ScreenToClient(window_.hwnd(), &point);
    if (gap_under({ point.x, point.y }) == BoxGap::none)
        message.result = HTCAPTION;
    return true;
}

// Windows sends WM_SETCURSOR before each mouse move. If the default processing set the arrow of the class
// here, the cursor would flicker over a gap.
bool Background::on_set_cursor(ovlib::WndMessage& message)
{
    const bool is_over_window = reinterpret_cast<HWND>(message.wparam) == window_.hwnd();
    if (!is_over_window || LOWORD(message.lparam) != HTCLIENT)
        return false;
    const POINT at = window_.cursor_pos();
    show_cursor({ at.x, at.y });
    message.result = TRUE;
    return true;
}

void Background::show_cursor(Point point) const
{
    const bool over_gap = dragged_gap_ != BoxGap::none || (!grip_ && gap_under(point) != BoxGap::none);
    SetCursor(LoadCursorW(nullptr, over_gap ? IDC_SIZENS : IDC_ARROW));
}

bool Background::on_press(Point point)
{
    dragged_gap_ = gap_under(point);
    if (dragged_gap_ == BoxGap::none)
        return false;
    SetCapture(window_.hwnd());
    return true;
}

// The window is moved here and not by the system's move loop. That loop puts a window back whose top was
// dragged above the screen, but on a screen lower than the window this is the way to reach its bottom. A
// press on the real title bar is left to the system.
bool Background::on_caption_press(const ovlib::WndMessage& message)
{
    const auto lparam = static_cast<LPARAM>(message.lparam);
    const POINT mouse{ GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam) };
    POINT inside = mouse;
    ScreenToClient(window_.hwnd(), &inside);
    const RECT client = window_.client_rect();
    if (message.wparam != HTCAPTION || !PtInRect(&client, inside))
        return false;
    SetForegroundWindow(window_.hwnd());
    const POINT corner = window_.position();
    grip_ = Point{ static_cast<int>(mouse.x - corner.x), static_cast<int>(mouse.y - corner.y) };
    SetCapture(window_.hwnd());
    return true;
}

bool Background::on_mouse_move(Point point)
{
    show_cursor(point);
    drag_to(point);
    return true;
}

void Background::drag_to(Point point)
{
    if (grip_) {
        // The grip, measured on the screen, stays the same: so the window follows the mouse.
        POINT mouse{ point.x, point.y };
        ClientToScreen(window_.hwnd(), &mouse);
        window_.move(mouse.x - grip_->x, mouse.y - grip_->y, true);
    } else if (dragged_gap_ != BoxGap::none) {
        divider_moved_(desk_.set_divider(dragged_divider(dragged_gap_, point.y)));
    }
}

// The release counts as a last move: the system does not always send one before it.
bool Background::on_release(Point point)
{
    drag_to(point);
    return on_drag_end();
}

bool Background::on_drag_end()
{
    dragged_gap_ = BoxGap::none;
    grip_.reset();
    // Another window may have taken the capture. Then it is not this window's to release.
    if (GetCapture() == window_.hwnd())
        ReleaseCapture();
    return false;
}

} // namespace app
