#include "look/list_header.hpp"
#include <algorithm>

namespace look {

namespace {

constexpr int line_width = 1;
constexpr int line_inset = 3; // of the lines between cells, above and below
constexpr int title_margin = 6;

} // namespace

std::vector<ovlib::FilledRect> header_fills(
    const ThemePalette& palette, platform::Size header, std::span<const platform::Rect> cells)
{
    std::vector<ovlib::FilledRect> fills{ { { 0, 0, header.width, header.height }, palette.panel_back } };
    for (const platform::Rect& cell : cells) {
        const platform::Rect line{ cell.right - line_width, cell.top + line_inset, cell.right,
            cell.bottom - line_inset };
        fills.push_back({ line, palette.panel_line });
    }
    const platform::Rect bottom{ 0, header.height - line_width, header.width, header.height };
    fills.push_back({ bottom, palette.panel_line });
    return fills;
}

Color header_text_color(const ThemePalette& palette)
{
    return palette.list_text;
}

platform::Rect header_title_rect(const platform::Rect& cell)
{
    const int left = cell.left + title_margin;
    const int right = std::max(left, cell.right - line_width - title_margin);
    return { left, cell.top, right, cell.bottom - line_width };
}

} // namespace look
