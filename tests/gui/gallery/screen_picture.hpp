// Pictures of what is on the screen.
#pragma once
#include <string>
#include <windows.h>

namespace gallery {

// Waits until `area` of the screen holds still, then writes it as a PNG file. Needs a running GDI+.
bool save_screen(const RECT& area, const std::wstring& path);

} // namespace gallery
