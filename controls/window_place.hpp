// Where top-level windows come up.
#pragma once
#include "platform/geometry.hpp"
#include <algorithm>

namespace ovlib {

// A window of this size in the middle of `frame`.
constexpr platform::Rect centered(platform::Size window, const platform::Rect& frame)
{
    const int left = frame.left + (frame.width() - window.width) / 2;
    const int top = frame.top + (frame.height() - window.height) / 2;
    return { left, top, left + window.width, top + window.height };
}

// `window` moved into `work_area`, the part of a screen that no bar of the system covers. One that is larger
// begins at the upper left corner: its caption can be reached, and what is cut off is the bottom and the
// right.
constexpr platform::Rect brought_into_view(const platform::Rect& window, const platform::Rect& work_area)
{
    const int left = std::max(std::min(window.left, work_area.right - window.width()), work_area.left);
    const int top = std::max(std::min(window.top, work_area.bottom - window.height()), work_area.top);
    return { left, top, left + window.width(), top + window.height() };
}

} // namespace ovlib
