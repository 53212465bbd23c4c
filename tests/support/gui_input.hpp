// Sends keys and mouse input through the system, as a user's hand does.
#pragma once
#include <windows.h>

namespace gui {

inline void press_key(WORD key)
{
    INPUT inputs[2]{};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
    }
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
}

inline void press_button(DWORD down, DWORD up)
{
    INPUT inputs[2]{};
    inputs[0].type = inputs[1].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags = down;
    inputs[1].mi.dwFlags = up;
    SendInput(2, inputs, sizeof(INPUT));
}

} // namespace gui
