// Position, size and visibility of a window.
#include "controls/window_place.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

namespace {

constexpr UINT redraw_flag(bool repaint)
{
    return repaint ? 0 : SWP_NOREDRAW;
}

RECT window_rect(HWND hwnd)
{
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    return rect;
}

// The work area of the screen that contains most of `place`, or is nearest to it.
platform::Rect work_area(const platform::Rect& place)
{
    const RECT rect = to_rect(place);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &monitor))
        return place;
    return from_rect(monitor.rcWork);
}

} // namespace

void Wnd::set_topmost(bool topmost)
{
    SetWindowPos(
        hwnd_, topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
}

void Wnd::center(const Wnd* over, bool repaint)
{
    RECT frame{ 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN) };
    if (over != nullptr)
        frame = window_rect(over->hwnd_);
    const platform::Rect place = centered(to_size(size()), from_rect(frame));
    set_rect(to_rect(is_top_level() ? brought_into_view(place, work_area(place)) : place), repaint);
}

void Wnd::bring_into_view(bool repaint)
{
    const platform::Rect own = from_rect(window_rect(hwnd_));
    const platform::Rect place = brought_into_view(own, work_area(own));
    if (place != own)
        Wnd::move(place.left, place.top, repaint);
}

bool Wnd::is_top_level() const
{
    return (GetWindowLongW(hwnd_, GWL_STYLE) & WS_CHILD) == 0;
}

void Wnd::move(POINT point, bool repaint)
{
    move(point.x, point.y, repaint);
}

void Wnd::move(int x, int y, bool repaint)
{
    SetWindowPos(hwnd_, nullptr, x, y, 0, 0,
        SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER | redraw_flag(repaint));
}

POINT Wnd::position() const
{
    const RECT own = window_rect(hwnd_);
    return { own.left, own.top };
}

void Wnd::resize(SIZE size, bool repaint)
{
    resize(size.cx, size.cy, repaint);
}

void Wnd::resize(int width, int height, bool repaint)
{
    SetWindowPos(hwnd_, nullptr, 0, 0, width, height,
        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER | redraw_flag(repaint));
}

SIZE Wnd::size() const
{
    const RECT own = window_rect(hwnd_);
    return { own.right - own.left, own.bottom - own.top };
}

void Wnd::set_rect(const RECT& rect, bool repaint)
{
    move(rect.left, rect.top, repaint);
    resize(rect.right - rect.left, rect.bottom - rect.top, repaint);
}

RECT Wnd::rect() const
{
    return window_rect(hwnd_);
}

RECT Wnd::client_rect() const
{
    RECT client{};
    GetClientRect(hwnd_, &client);
    return client;
}

SIZE Wnd::client_size() const
{
    const RECT client = client_rect();
    return { client.right - client.left, client.bottom - client.top };
}

POINT Wnd::cursor_pos() const
{
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(hwnd_, &point);
    return point;
}

void Wnd::show(bool visible)
{
    if (!visible) {
        ShowWindow(hwnd_, SW_HIDE);
        return;
    }
    ShowWindow(hwnd_, SW_SHOW);
    InvalidateRect(hwnd_, nullptr, TRUE);
    UpdateWindow(hwnd_);
}

void Wnd::show_cmd(int command)
{
    ShowWindow(hwnd_, command);
}

bool Wnd::is_visible() const
{
    return IsWindowVisible(hwnd_) != FALSE;
}

// An opaque window needs no layered style, so 255 removes it.
void Wnd::set_alpha(std::uint8_t alpha)
{
    const LONG style = GetWindowLongW(hwnd_, GWL_EXSTYLE);
    const bool layered = (style & WS_EX_LAYERED) != 0;
    if (alpha == 255) {
        SetWindowLongW(hwnd_, GWL_EXSTYLE, style & ~WS_EX_LAYERED);
        return;
    }
    if (!layered)
        SetWindowLongW(hwnd_, GWL_EXSTYLE, style | WS_EX_LAYERED);
    SetLayeredWindowAttributes(hwnd_, 0, alpha, LWA_ALPHA);
}

void Wnd::minimize()
{
    send(WM_SYSCOMMAND, SC_MINIMIZE, 0);
}

void Wnd::maximize()
{
    send(WM_SYSCOMMAND, SC_MAXIMIZE, 0);
}

void Wnd::restore()
{
    send(WM_SYSCOMMAND, SC_RESTORE, 0);
}

bool Wnd::is_minimized() const
{
    return IsIconic(hwnd_) != FALSE;
}

bool Wnd::is_maximized() const
{
    return IsZoomed(hwnd_) != FALSE;
}

} // namespace ovlib
