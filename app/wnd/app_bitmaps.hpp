// The small pictures of menu items, by command.
#pragma once
#include <windows.h>
#include <cstdint>

namespace app {

// Loads from the resource folder. If a file cannot be loaded, its command has no picture.
void load_app_bitmaps();
void free_app_bitmaps();

// Null for a command without a picture. The caller must not delete the bitmap.
HBITMAP app_bitmap(std::int32_t command);

} // namespace app
