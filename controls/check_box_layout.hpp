// A drawn check box: the layout of its box, tick and text, and the colours of its states.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"

namespace ovlib {

struct CheckBoxColors {
    Color text;
    Color back; // the background
    Color mark; // the tick
    Color fill; // of the box
    Color frame; // of the box

    friend bool operator==(const CheckBoxColors&, const CheckBoxColors&) = default;
};

// The square at the left edge, vertically centred in `item`.
platform::Rect check_box_rect(const platform::Rect& item);
// The upper left corner of the tick, which is drawn as a character.
platform::Point check_tick_place(const platform::Rect& box);
// The rectangle of the text, which may be wider than the item.
platform::Rect check_text_rect(const platform::Rect& item, platform::Size text);
// The focus rectangle around the text, as high as the item and clipped at its right edge.
platform::Rect check_focus_rect(const platform::Rect& item, const platform::Rect& text);
// The width of a control that shows a text of this width completely.
int check_fit_width(int text_width);

// The colours of a disabled box: tick and text fade towards their background.
CheckBoxColors disabled_check_colors(CheckBoxColors colors);

} // namespace ovlib
