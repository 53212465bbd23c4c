// Every state of the file pane on one sheet.
#pragma once
#include <cstdint>
#include <string>

namespace gallery {

// Writes FOLDER/panes-THEME.png. The pane stands on the screen meanwhile, and the pointer goes over it.
bool save_pane_sheet(const std::wstring& folder, std::int32_t theme);

} // namespace gallery
