// Every state of the file pane on one sheet.
#pragma once
#include <cstdint>
#include <string>

namespace gallery {

// Writes FOLDER/panes-THEME.png. Meanwhile the pane is on the screen and the pointer moves over it.
bool save_pane_sheet(const std::wstring& folder, std::int32_t theme);

} // namespace gallery
