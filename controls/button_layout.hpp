// What stands where on a drawn button.
#pragma once
#include "platform/geometry.hpp"

namespace ovlib {

struct ButtonState {
    bool pressed = false;
    bool disabled = false;
    bool focused = false;
};

// A pressed button moves what it shows by one pixel, right and down.
platform::Rect pressed_offset(const platform::Rect& rect);
// The focus rectangle stands this far inside a push button.
platform::Rect button_focus_rect(const platform::Rect& item);

// Where a push button's text is centred. The text of a disabled one has a light shadow, drawn before it.
struct ButtonTextPlaces {
    platform::Rect text;
    bool has_shadow = false;
    platform::Rect shadow;

    friend bool operator==(const ButtonTextPlaces&, const ButtonTextPlaces&) = default;
};
ButtonTextPlaces button_text_places(const platform::Rect& item, ButtonState state);

} // namespace ovlib
