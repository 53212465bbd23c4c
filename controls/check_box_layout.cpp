#include "controls/check_box_layout.hpp"
#include <algorithm>

namespace ovlib {

namespace {

constexpr int box_side = 14;
constexpr int text_left = 18;
constexpr int disabled_shade = 130;

int middle(const platform::Rect& rect)
{
    return rect.top + rect.height() / 2;
}

Color faded(Color color, Color behind)
{
    return color.shade(behind.is_bright() ? disabled_shade : -disabled_shade);
}

} // namespace

platform::Rect check_box_rect(const platform::Rect& item)
{
    const int top = middle(item) - box_side / 2;
    return { item.left, top, item.left + box_side, top + box_side };
}

platform::Point check_tick_place(const platform::Rect& box)
{
    return { box.left + 1, box.top - 3 };
}

platform::Rect check_text_rect(const platform::Rect& item, platform::Size text)
{
    const int left = item.left + text_left;
    const int top = middle(item) - text.height / 2 - 1;
    return { left, top, left + text.width, top + text.height };
}

platform::Rect check_focus_rect(const platform::Rect& item, const platform::Rect& text)
{
    return { text.left - 1, item.top, std::min(item.right, text.right + 1), item.bottom };
}

int check_fit_width(int text_width)
{
    return text_width + text_left;
}

CheckBoxColors disabled_check_colors(CheckBoxColors colors)
{
    colors.text = faded(colors.text, colors.back);
    colors.mark = faded(colors.mark, colors.fill);
    return colors;
}

} // namespace ovlib
