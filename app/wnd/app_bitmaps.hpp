// The small pictures of menu items, by command.
#pragma once
#include <cstdint>
#include <windows.h>

namespace app {

// From the resource folder. A file that does not load leaves its command without a picture.
void load_app_bitmaps();
void free_app_bitmaps();

// Null for a command without a picture. The bitmap stays the program's.
HBITMAP app_bitmap(std::int32_t command);

} // namespace app
