// The state of keys while a message is handled.
#pragma once
#include <windows.h>

namespace look {

// Checks the current state and the state at the time of the message: the key may have been released in
// between.
inline bool is_shift_down()
{
    return GetAsyncKeyState(VK_SHIFT) < 0 || GetKeyState(VK_SHIFT) < 0;
}

} // namespace look
