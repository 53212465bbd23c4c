// The look of buttons and check boxes: colours by theme and state, and the position of a picture.
#pragma once
#include "controls/button_layout.hpp"
#include "controls/check_box_layout.hpp"
#include "look/theme.hpp"

namespace look {

struct ImageButtonColors {
    Color back; // outside the rounded corners
    Color fill;
    Color border;
    Color text;
    Color text_shadow; // of a disabled button

    friend bool operator==(const ImageButtonColors&, const ImageButtonColors&) = default;
};
ImageButtonColors image_button_colors(
    const ThemePalette& palette, bool highlighted, ovlib::ButtonState state);

// A sheet holds two pictures of equal size side by side: the left one for an enabled button, the right one
// for a disabled button.
struct SheetPlace {
    platform::Point at; // of the picture, relative to the button
    platform::Rect source; // on the sheet

    friend bool operator==(const SheetPlace&, const SheetPlace&) = default;
};
enum class SheetAlign { center, left };
SheetPlace sheet_place(
    const platform::Rect& item, platform::Size sheet, SheetAlign align, ovlib::ButtonState state);

Color check_text_color(const ThemePalette& palette, bool checked);
ovlib::CheckBoxColors check_box_colors(const ThemePalette& palette, bool checked);

} // namespace look
