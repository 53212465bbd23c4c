// Initial positions of top-level windows, and whether one is open.
#pragma once
#include "platform/geometry.hpp"
#include <algorithm>

namespace ovlib {

// The rectangle of a window of this size, centred in `frame`.
constexpr platform::Rect centered(platform::Size window, const platform::Rect& frame)
{
    const int left = frame.left + (frame.width() - window.width) / 2;
    const int top = frame.top + (frame.height() - window.height) / 2;
    return { left, top, left + window.width, top + window.height };
}

// `window` moved into `work_area`, the part of a screen without taskbar. A window that is larger starts at
// the upper left corner, so that its caption can be reached.
constexpr platform::Rect brought_into_view(const platform::Rect& window, const platform::Rect& work_area)
{
    const int left = std::max(std::min(window.left, work_area.right - window.width()), work_area.left);
    const int top = std::max(std::min(window.top, work_area.bottom - window.height()), work_area.top);
    return { left, top, left + window.width(), top + window.height() };
}

// Whether a window was opened and not closed since. That is not the same as visible: the system hides the
// windows of a minimised owner, and when the owner is restored it shows all of them again, even one that was
// closed meanwhile.
class OpenState {
public:
    void open() { is_open_ = true; }
    void close() { is_open_ = false; }
    bool is_open() const { return is_open_; }
    // Whether the system may show the window because its owner is restored.
    bool may_return_with_owner() const { return is_open_; }

private:
    bool is_open_ = false;
};

} // namespace ovlib
