// The system's input method.
#pragma once
#include <windows.h>

namespace look {

// Opens the input method of a control that got the focus, when the settings say so. Never closes it.
void open_input_method(HWND hwnd);

} // namespace look
