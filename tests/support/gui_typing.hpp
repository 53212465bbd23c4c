// Typing and clicking into a window of this process, as a user does.
#pragma once
#include "ovlib/gui/wnd.hpp"
#include "tests/support/gui_menu.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_pump.hpp"
#include <windows.h>
#include <string_view>
#include <vector>

namespace gui {

inline bool bring_to_front(const ovlib::Wnd& wnd)
{
    SetForegroundWindow(wnd.hwnd());
    return pump_until([&] { return GetForegroundWindow() == wnd.hwnd(); });
}

// Types every unit as a separate key, including the halves of a surrogate pair.
inline void type_text(std::wstring_view text)
{
    std::vector<INPUT> inputs;
    for (const wchar_t unit : text) {
        for (const DWORD release : { 0ul, static_cast<unsigned long>(KEYEVENTF_KEYUP) }) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = static_cast<WORD>(unit);
            input.ki.dwFlags = KEYEVENTF_UNICODE | release;
            inputs.push_back(input);
        }
    }
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

// Holds a key down during its lifetime. A window that the pointer has just entered takes over the state of
// the real keyboard, where nothing is pressed, and Wine repeats its last answer about a key for 50 ms. So the
// key counts as down only after it was reported so for longer.
class HeldKey {
public:
    explicit HeldKey(WORD key)
        : key_(key)
    {
        pump_until([&] {
            change(0);
            Sleep(60);
            return GetAsyncKeyState(key_) < 0;
        });
    }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey()
    {
        change(KEYEVENTF_KEYUP);
        pump_until([&] { return GetAsyncKeyState(key_) >= 0; });
    }

private:
    void change(DWORD flags) const
    {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key_;
        input.ki.dwFlags = flags;
        SendInput(1, &input, sizeof(INPUT));
    }

    WORD key_;
};

// The screen position of a point in the client area.
inline POINT on_screen(const ovlib::Wnd& wnd, POINT point)
{
    ClientToScreen(wnd.hwnd(), &point);
    return point;
}

inline void click_at(POINT screen)
{
    point_at(screen);
    press_button(MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
}

inline void right_click_at(POINT screen)
{
    point_at(screen);
    press_button(MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP);
}

} // namespace gui
