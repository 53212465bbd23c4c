// The colours that the user has put together in the system's colour dialog.
#pragma once
#include <array>
#include <cstdint>
#include <string>

namespace look {

// COLORREFs, in the order of the dialog's boxes.
using CustomColors = std::array<std::uint32_t, 16>;

// A missing file leaves every colour black, a short one the rest; what follows 64 bytes is not read.
CustomColors read_custom_colors(const std::wstring& path);
// Replaces the file. False when it could not be written whole.
bool write_custom_colors(const std::wstring& path, const CustomColors& colors);

} // namespace look
