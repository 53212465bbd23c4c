// How large a tip is and where it stands.
#pragma once
#include "platform/geometry.hpp"

namespace ovlib {

// Of a tip around a text of this size.
platform::Size tip_size(platform::Size text);

// Where the text stands inside the tip.
platform::Rect tip_text_rect(platform::Size tip);

// The place nearest to `wanted` at which the tip's right edge does not pass `right_limit`. It moves to the
// left only.
platform::Point tip_place(platform::Point wanted, platform::Size tip, int right_limit);

} // namespace ovlib
