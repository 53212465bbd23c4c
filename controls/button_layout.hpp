// The layout of a drawn button.
#pragma once
#include "platform/geometry.hpp"

namespace ovlib {

struct ButtonState {
    bool pressed = false;
    bool disabled = false;
    bool focused = false;
};

// `rect` moved by one pixel to the right and down, as the contents of a pressed button are.
platform::Rect pressed_offset(const platform::Rect& rect);
// The focus rectangle inside a push button.
platform::Rect button_focus_rect(const platform::Rect& item);

// The rectangles in which a push button's text is centred. A disabled button's text has a light shadow, drawn
// first.
struct ButtonTextPlaces {
    platform::Rect text;
    bool has_shadow = false;
    platform::Rect shadow;

    friend bool operator==(const ButtonTextPlaces&, const ButtonTextPlaces&) = default;
};
ButtonTextPlaces button_text_places(const platform::Rect& item, ButtonState state);

} // namespace ovlib
