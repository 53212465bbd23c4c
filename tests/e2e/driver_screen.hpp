// Reads the screen.
#pragma once
#include "driver_dialog.hpp"
#include <filesystem>
#include <vector>

namespace e2e {

// The whole screen as a bitmap file.
void save_screenshot(const std::filesystem::path& file);
COLORREF color_on_screen(POINT place);
// The pixels from `top` downwards.
std::vector<COLORREF> column_on_screen(POINT top, int height);
// The icon that a message box shows, compared with the system's own.
Icon icon_on_screen(Window box);

} // namespace e2e
