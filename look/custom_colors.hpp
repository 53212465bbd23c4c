// The custom colours of the system's colour dialog, kept between runs.
#pragma once
#include <array>
#include <cstdint>
#include <string>

namespace look {

// COLORREFs, in the order in which the dialog shows them.
using CustomColors = std::array<std::uint32_t, 16>;

// Colours that the file does not hold are black, all of them if it is missing. Bytes after the first 64 are
// ignored.
CustomColors read_custom_colors(const std::wstring& path);
// Replaces the file. False if it could not be written completely.
bool write_custom_colors(const std::wstring& path, const CustomColors& colors);

} // namespace look
