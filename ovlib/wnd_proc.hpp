// The window procedures, which pass the system's messages to the objects.
#pragma once
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

// Both are noexcept: an exception must never unwind through the system's frames. A handler that may throw
// must catch.
struct WndProc {
    static LRESULT CALLBACK window(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static LRESULT CALLBACK subclass(
        HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id, DWORD_PTR data) noexcept;

private:
    static LRESULT on_create(WndMessage& message);
    static LRESULT on_close(Wnd& wnd, WndMessage& message);
    static LRESULT on_destroy(Wnd& wnd, WndMessage& message);
    static LRESULT on_other(Wnd& wnd, WndMessage& message);
    static void on_gone(Wnd& wnd, HWND hwnd);
};

} // namespace ovlib
