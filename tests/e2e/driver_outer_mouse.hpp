// The mouse as the system outside has it. What a window manager does itself, such as moving a window, follows
// no other; where there is none outside, it is the system's own.
#pragma once
#include <windows.h>

namespace e2e::outer_mouse {

// Each returns when the system inside has the pointer there.
void move(POINT screen);
void press(POINT screen);
void release(POINT screen);

} // namespace e2e::outer_mouse
