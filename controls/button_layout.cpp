#include "controls/button_layout.hpp"

namespace ovlib {

namespace {

constexpr int focus_inset = 3;

} // namespace

platform::Rect pressed_offset(const platform::Rect& rect)
{
    return { rect.left + 1, rect.top + 1, rect.right + 1, rect.bottom + 1 };
}

platform::Rect button_focus_rect(const platform::Rect& item)
{
    return { item.left + focus_inset, item.top + focus_inset, item.right - focus_inset,
        item.bottom - focus_inset };
}

ButtonTextPlaces button_text_places(const platform::Rect& item, ButtonState state)
{
    if (state.disabled)
        return { item, true, pressed_offset(item) };
    return { state.pressed ? pressed_offset(item) : item, false, {} };
}

} // namespace ovlib
