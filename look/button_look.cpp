#include "look/button_look.hpp"

namespace look {

namespace {

constexpr int pressed_shade = 80;
constexpr int border_shade = -130;
constexpr int text_shadow_shade = 150;
constexpr int left_margin = 6;

} // namespace

ImageButtonColors image_button_colors(const ThemePalette& palette, bool highlighted, ovlib::ButtonState state)
{
    const Color fill = highlighted ? palette.accent : palette.button_face;
    return {
        .back = palette.panel_back,
        .fill = state.pressed ? fill.shade(pressed_shade) : fill,
        .border = palette.button_face.shade(border_shade),
        .text = state.disabled ? palette.button_disabled_text : palette.button_text,
        .text_shadow = palette.button_face.shade(text_shadow_shade),
    };
}

SheetPlace sheet_place(
    const platform::Rect& item, platform::Size sheet, SheetAlign align, ovlib::ButtonState state)
{
    // A pressed picture moves by one pixel, as the system's push buttons do.
    const int width = sheet.width / 2;
    const int offset = state.pressed ? 1 : 0;
    const int left = align == SheetAlign::left ? left_margin : (item.width() - width) / 2;
    const int top = (item.height() - sheet.height) / 2;
    const int source = state.disabled ? width : 0;
    return {
        .at = { item.left + left + offset, item.top + top + offset },
        .source = { source, 0, source + width, sheet.height },
    };
}

Color check_text_color(const ThemePalette& palette, bool checked)
{
    return checked ? palette.check_text_on : palette.check_text;
}

ovlib::CheckBoxColors check_box_colors(const ThemePalette& palette, bool checked)
{
    return {
        .text = check_text_color(palette, checked),
        .back = palette.check_back,
        .mark = palette.check_mark,
        .fill = palette.check_fill,
        .frame = palette.check_frame,
    };
}

} // namespace look
