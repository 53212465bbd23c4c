// A drawn check box: where its box, tick and text stand, and the colours of its states.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"

namespace ovlib {

struct CheckBoxColors {
    Color text;
    Color back; // behind everything
    Color mark; // the tick
    Color fill; // of the box
    Color frame; // of the box

    friend bool operator==(const CheckBoxColors&, const CheckBoxColors&) = default;
};

// The square at the left edge, in the middle of `item`'s height.
platform::Rect check_box_rect(const platform::Rect& item);
// Where the tick's character begins.
platform::Point check_tick_place(const platform::Rect& box);
// The text's own rectangle, which may be wider than the item.
platform::Rect check_text_rect(const platform::Rect& item, platform::Size text);
// Round the text, as high as the item and no further than its right edge.
platform::Rect check_focus_rect(const platform::Rect& item, const platform::Rect& text);
// The width of a control that shows text of this width whole.
int check_fit_width(int text_width);

// The colours of a disabled box: tick and text fade towards what lies behind them.
CheckBoxColors disabled_check_colors(CheckBoxColors colors);

} // namespace ovlib
