// Keys as they stand while a message is handled.
#pragma once
#include <windows.h>

namespace look {

// The second counts for a key that was let go before its message came.
inline bool is_shift_down()
{
    return GetAsyncKeyState(VK_SHIFT) < 0 || GetKeyState(VK_SHIFT) < 0;
}

} // namespace look
