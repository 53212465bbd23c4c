// One of a window's own two scroll bars.
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

    // 0 where the system does not tell.
    int pos() const;
    // How far it is scrolled: 0.0 to 1.0.
    double fraction() const;
    // Into what can be scrolled to; unchanged where the system does not tell.
    int clamp(int pos) const;
    // The system keeps the position inside. The window's content stays: it is told of nothing.
    void scroll_by(int delta);
    bool is_visible() const;

    Wnd* owner = nullptr;
    int bar = SB_VERT;

private:
    std::optional<ScrollRange> range() const;
};

} // namespace ovlib
