// The size and position of a tip.
#pragma once
#include "platform/geometry.hpp"

namespace ovlib {

// The size of a tip around a text of this size.
platform::Size tip_size(platform::Size text);

// The rectangle of the text inside the tip.
platform::Rect tip_text_rect(platform::Size tip);

// `wanted`, moved to the left as far as needed for the tip's right edge not to pass `right_limit`.
platform::Point tip_place(platform::Point wanted, platform::Size tip, int right_limit);

} // namespace ovlib
