// The real pointer, moved and pressed as a user's hand does. The window under it must be this process's own.
#pragma once
#include "tests/support/gui_pump.hpp"
#include <initializer_list>
#include <vector>
#include <windows.h>

namespace gui {

class Mouse {
public:
    // Waits until the window is to be seen where it says it is: a window manager may move a new one about.
    explicit Mouse(HWND hwnd)
        : hwnd_(hwnd)
    {
        pump_until([&] { return WindowFromPoint(screen_place()) == hwnd_; });
    }
    Mouse(const Mouse&) = delete;
    Mouse& operator=(const Mouse&) = delete;
    ~Mouse()
    {
        if (is_down_)
            release();
    }

    // To a place of the window's client area, and until the moves have been served. The call that sets the
    // position takes the screen's own pointer along: left behind, it would carry this one back later.
    bool move(POINT client)
    {
        place_ = client;
        constexpr std::chrono::milliseconds last_report{ 60 }; // an older place may come in between
        auto there_since = std::chrono::steady_clock::now();
        bool was_there = false;
        return pump_until([&] {
            if (was_there && is_there())
                return std::chrono::steady_clock::now() - there_since >= last_report;
            const POINT screen = screen_place();
            SetCursorPos(screen.x, screen.y);
            send({ move_input() });
            pump();
            was_there = is_there();
            there_since = std::chrono::steady_clock::now();
            return false;
        });
    }
    // Without serving the press.
    void push()
    {
        is_down_ = true;
        send({ move_input(), button_input(MOUSEEVENTF_LEFTDOWN) });
    }
    bool press()
    {
        push();
        return pump_until([] { return GetKeyState(VK_LBUTTON) < 0; });
    }
    bool release()
    {
        is_down_ = false;
        send({ move_input(), button_input(MOUSEEVENTF_LEFTUP) });
        return pump_until([] { return GetKeyState(VK_LBUTTON) >= 0; });
    }

private:
    static INPUT button_input(DWORD what)
    {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = what;
        return input;
    }
    INPUT move_input() const
    {
        const auto absolute = [](LONG place, int extent) { return (place * 65536 + 32768) / extent; };
        const POINT screen = screen_place();
        INPUT input = button_input(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
        input.mi.dx = absolute(screen.x, GetSystemMetrics(SM_CXSCREEN));
        input.mi.dy = absolute(screen.y, GetSystemMetrics(SM_CYSCREEN));
        return input;
    }
    static void send(std::initializer_list<INPUT> inputs)
    {
        std::vector<INPUT> batch(inputs);
        SendInput(static_cast<UINT>(batch.size()), batch.data(), sizeof(INPUT));
    }
    bool is_there() const
    {
        const POINT wanted = screen_place();
        POINT now{};
        GetCursorPos(&now);
        return now.x == wanted.x && now.y == wanted.y;
    }
    POINT screen_place() const
    {
        POINT screen = place_;
        ClientToScreen(hwnd_, &screen);
        return screen;
    }

    HWND hwnd_;
    POINT place_{ 1, 1 }; // in the client area
    bool is_down_ = false;
};

} // namespace gui
