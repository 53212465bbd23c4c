// Pictures of what is on the screen.
#pragma once
#include "ovlib/gui/back_buffer.hpp"
#include <string>
#include <windows.h>

namespace gallery {

// Waits until `area` of the screen holds still, then writes it as a PNG file. Needs a running GDI+.
bool save_screen(const RECT& area, const std::wstring& path);
// Writes a picture of the program's own.
bool save_picture(const ovlib::BackBuffer& picture, const std::wstring& path);

} // namespace gallery
