#include "wnd_proc.hpp"
#include "ovlib/gui/syscontrol.hpp"
#include <commctrl.h>
#include <exception>

namespace ovlib {

// Both procedures end the process explicitly. noexcept alone lets an exception pass on this target: if a call
// is directly before the epilogue, the system's unwinder takes the frame for one that was already left.
LRESULT CALLBACK WndProc::window(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept
try {
    WndMessage record{ hwnd, message, wparam, lparam, 0 };
    if (message == WM_CREATE)
        return on_create(record);
    Wnd* wnd = Wnd::from_handle(hwnd);
    if (wnd == nullptr)
        return DefWindowProcW(hwnd, message, wparam, lparam);
    switch (message) {
    case WM_DESTROY:
        return on_destroy(*wnd, record);
    case WM_CLOSE:
        return on_close(*wnd, record);
    default:
        return on_other(*wnd, record);
    }
} catch (...) {
    std::terminate();
}

LRESULT CALLBACK WndProc::subclass(
    HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR) noexcept
try {
    Wnd* wnd = Wnd::from_handle(hwnd);
    if (wnd == nullptr)
        return 0;
    WndMessage record{ hwnd, message, wparam, lparam, 0 };
    WndWatch alive(wnd);
    const bool handled = wnd->on_message(record);
    LRESULT result = record.result;
    if (!handled)
        result = alive ? wnd->default_proc(record) : DefSubclassProc(hwnd, message, wparam, lparam);
    // A subclass must be removed before its window is destroyed; this is the window's last message.
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(hwnd, &WndProc::subclass, id);
        if (alive) {
            static_cast<SysControl*>(wnd)->subclassed_ = 0;
            on_gone(*wnd, hwnd);
        }
    }
    return result;
} catch (...) {
    std::terminate();
}

LRESULT WndProc::on_create(WndMessage& message)
{
    const auto* params = reinterpret_cast<const CREATESTRUCTW*>(message.lparam);
    auto* wnd = static_cast<Wnd*>(params->lpCreateParams);
    if (wnd == nullptr)
        return DefWindowProcW(message.hwnd, message.message, message.wparam, message.lparam);
    // CreateWindowExW has not returned yet, but the handler needs the handle.
    wnd->hwnd_ = message.hwnd;
    return on_other(*wnd, message);
}

// A handler can refuse the close by returning true.
LRESULT WndProc::on_close(Wnd& wnd, WndMessage& message)
{
    WndWatch alive(&wnd);
    if (!wnd.on_message(message) && alive)
        wnd.destroy();
    return 0;
}

LRESULT WndProc::on_destroy(Wnd& wnd, WndMessage& message)
{
    WndWatch alive(&wnd);
    wnd.on_message(message);
    if (alive)
        wnd.on_destroyed(message);
    return 0;
}

LRESULT WndProc::on_other(Wnd& wnd, WndMessage& message)
{
    WndWatch alive(&wnd);
    const bool handled = wnd.on_message(message);
    LRESULT result = message.result;
    if (!handled) {
        result = alive ? wnd.default_proc(message)
                       : DefWindowProcW(message.hwnd, message.message, message.wparam, message.lparam);
    }
    if (message.message == WM_NCDESTROY && alive)
        on_gone(wnd, message.hwnd);
    return result;
}

// Called at the last message of a window. The system may reuse its handle afterwards.
void WndProc::on_gone(Wnd& wnd, HWND hwnd)
{
    wnd.forget_dead_children();
    if (wnd.hwnd_ == hwnd)
        wnd.hwnd_ = nullptr;
}

} // namespace ovlib
