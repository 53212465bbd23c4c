// One of a window's two standard scroll bars.
#pragma once
#include "controls/scroll_range.hpp"
#include "ovlib/gui/wnd.hpp"
#include <optional>

namespace ovlib {

class ScrollBar {
public:
    ScrollBar() = default;
    // `bar` is SB_HORZ or SB_VERT.
    ScrollBar(Wnd* owner, int bar);

    // nullopt if the system reports none.
    std::optional<ScrollRange> range() const;
    // 0 if the system reports no range.
    int pos() const;
    // The fraction that is scrolled: 0.0 to 1.0.
    double fraction() const;
    // Limits `pos` to the scrollable range; unchanged if the system reports no range.
    int clamp(int pos) const;
    // The system limits the position. Only the bar moves; the window gets no notification.
    void scroll_by(int delta);
    bool is_visible() const;

    Wnd* owner = nullptr;
    int bar = SB_VERT;
};

} // namespace ovlib
