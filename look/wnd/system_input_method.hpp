// The input method (IME) of the system.
#pragma once
#include <windows.h>

namespace look {

// Opens the input method of a control that got the focus, if the settings demand it. Never closes it.
void open_input_method(HWND hwnd);

} // namespace look
