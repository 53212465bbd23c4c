// Moves and presses the real pointer as a user would. The window under it must belong to this process.
#pragma once
#include "tests/support/gui_pump.hpp"
#include <windows.h>
#include <initializer_list>
#include <vector>

namespace gui {

// Moves the pointer and serves the message. On the screens of the tests nothing else moves the pointer.
inline bool point_at(POINT screen)
{
    SetCursorPos(screen.x, screen.y);
    pump();
    POINT now{};
    return GetCursorPos(&now) && now.x == screen.x && now.y == screen.y;
}

class Mouse {
public:
    // Waits until the window is visible at the position it reports: a window manager may still move a new
    // window.
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

    // Moves to a point of the window's client area.
    bool move(POINT client)
    {
        place_ = client;
        return point_at(screen_place());
    }
    // Presses without serving the message.
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
