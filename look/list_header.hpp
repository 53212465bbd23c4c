// How the header of a list looks: its colours, lines and the places of its titles.
#pragma once
#include "controls/stroke.hpp"
#include "look/theme.hpp"
#include <span>
#include <vector>

namespace look {

// The ground of a header of this size, the line at the right of every cell and the line along the bottom, in
// the order in which they are filled.
std::vector<ovlib::FilledRect> header_fills(
    const ThemePalette& palette, platform::Size header, std::span<const platform::Rect> cells);

Color header_text_color(const ThemePalette& palette);
// Where the title of a cell stands; without width in a cell that is too narrow.
platform::Rect header_title_rect(const platform::Rect& cell);

} // namespace look
