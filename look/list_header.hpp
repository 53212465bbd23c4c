// The look of a list's header: its colours, lines and title positions.
#pragma once
#include "controls/stroke.hpp"
#include "look/theme.hpp"
#include <span>
#include <vector>

namespace look {

// The background of a header of this size, the line at the right of every cell and the line along the bottom,
// in drawing order.
std::vector<ovlib::FilledRect> header_fills(
    const ThemePalette& palette, platform::Size header, std::span<const platform::Rect> cells);

Color header_text_color(const ThemePalette& palette);
// The rectangle of a cell's title; its width is 0 in a cell that is too narrow.
platform::Rect header_title_rect(const platform::Rect& cell);

} // namespace look
