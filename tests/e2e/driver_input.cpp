#include "driver_input.hpp"
#include "driver_wait.hpp"
#include <vector>

namespace e2e {

namespace {

using Inputs = std::vector<INPUT>;

void send(Inputs& inputs)
{
    const auto count = static_cast<UINT>(inputs.size());
    if (SendInput(count, inputs.data(), sizeof(INPUT)) != count)
        throw DriverError("the system refused input");
}

INPUT key_input(WORD key, WORD unit, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = unit;
    input.ki.dwFlags = flags;
    return input;
}

INPUT mouse_input(DWORD flags, DWORD data = 0)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    return input;
}

// Absolute positions are from 0 to 65535 across the screen, whatever its size.
INPUT input_at(POINT screen, DWORD flags = 0)
{
    const auto scaled = [](LONG place, int extent) { return (place * 65536 + 32768) / extent; };
    INPUT input = mouse_input(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | flags);
    input.mi.dx = scaled(screen.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = scaled(screen.y, GetSystemMetrics(SM_CYSCREEN));
    return input;
}

void send_clicks(POINT screen, int count)
{
    Inputs inputs{ input_at(screen) };
    for (int i = 0; i < count; ++i) {
        inputs.push_back(input_at(screen, MOUSEEVENTF_LEFTDOWN));
        inputs.push_back(input_at(screen, MOUSEEVENTF_LEFTUP));
    }
    send(inputs);
}

bool is_mouse_at(POINT screen)
{
    POINT now{};
    return GetCursorPos(&now) && now.x == screen.x && now.y == screen.y;
}

} // namespace

void type_text(std::wstring_view text)
{
    Inputs inputs;
    for (const wchar_t unit : text) {
        inputs.push_back(key_input(0, static_cast<WORD>(unit), KEYEVENTF_UNICODE));
        inputs.push_back(key_input(0, static_cast<WORD>(unit), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP));
    }
    send(inputs);
}

void press(WORD key)
{
    chord({ key });
}

void chord(std::initializer_list<WORD> keys)
{
    Inputs inputs;
    for (const WORD key : keys)
        inputs.push_back(key_input(key, 0, 0));
    for (auto key = keys.end(); key != keys.begin();)
        inputs.push_back(key_input(*--key, 0, KEYEVENTF_KEYUP));
    send(inputs);
}

// A window that the pointer has just entered takes over the state of the real keyboard, where nothing is
// pressed. Wine repeats its last answer about a key for 50 ms, so only a "down" that lasts longer is
// reliable.
HeldKey::HeldKey(WORD key)
    : key_(key)
{
    constexpr milliseconds longer_than_an_answer{ 60 };
    const auto is_down = [&] { return GetAsyncKeyState(key_) < 0; };
    require("a key stays down", [&] {
        Inputs inputs{ key_input(key_, 0, 0) };
        send(inputs);
        return wait_until(is_down, longer_than_an_answer) && keeps(is_down, longer_than_an_answer);
    });
}

HeldKey::~HeldKey()
{
    INPUT input = key_input(key_, 0, KEYEVENTF_KEYUP);
    SendInput(1, &input, sizeof(input));
}

void move_mouse(POINT screen)
{
    Inputs inputs{ input_at(screen) };
    send(inputs);
    require("the pointer is at " + std::to_string(screen.x) + "," + std::to_string(screen.y),
        [&] { return is_mouse_at(screen); });
}

void click(POINT screen)
{
    send_clicks(screen, 1);
}

void press_mouse(POINT screen)
{
    Inputs inputs{ input_at(screen), input_at(screen, MOUSEEVENTF_LEFTDOWN) };
    send(inputs);
}

void release_mouse(POINT screen)
{
    Inputs inputs{ input_at(screen, MOUSEEVENTF_LEFTUP) };
    send(inputs);
}

void double_click(POINT screen)
{
    send_clicks(screen, 2);
}

void right_click(POINT screen)
{
    Inputs inputs{ input_at(screen), input_at(screen, MOUSEEVENTF_RIGHTDOWN),
        input_at(screen, MOUSEEVENTF_RIGHTUP) };
    send(inputs);
}

void lead_mouse(POINT from, POINT to)
{
    constexpr int steps = 8;
    for (int step = 1; step <= steps; ++step) {
        const POINT place{ from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps };
        move_mouse(place);
    }
}

void turn_wheel(POINT screen, int notches)
{
    move_mouse(screen);
    Inputs inputs{ mouse_input(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA)) };
    send(inputs);
}

void stroke_touchpad(POINT screen, int delta, int turns)
{
    move_mouse(screen);
    Inputs inputs(static_cast<std::size_t>(turns), mouse_input(MOUSEEVENTF_WHEEL, static_cast<DWORD>(delta)));
    send(inputs);
}

} // namespace e2e
