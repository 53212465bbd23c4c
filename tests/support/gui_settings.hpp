// Uses the settings window from a second thread while it runs its modal loop.
#pragma once
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_pump.hpp"
#include <windows.h>
#include <functional>
#include <string>

namespace gui {

// The visible settings window of a thread, or null.
inline HWND settings_window_of(DWORD thread)
{
    return visible_window_of(thread, L"ovlib_settingwnd[158]");
}

// Waits for the window on a second thread and acts on it there; then it closes the window unless that
// happened already.
class SettingsUser : public ShownDriver {
public:
    explicit SettingsUser(std::function<void(HWND)> act)
        : ShownDriver([act = std::move(act)](DWORD thread) {
            if (!poll_until([&] { return settings_window_of(thread) != nullptr; }))
                return false;
            HWND const window = settings_window_of(thread);
            act(window);
            if (IsWindow(window))
                PostMessageW(window, WM_CLOSE, 0, 0);
            return true;
        })
    {
    }
};

} // namespace gui
