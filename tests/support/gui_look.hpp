// The theme and shared fonts that the program's windows need for drawing.
#pragma once
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/dc.hpp"

namespace gui {

// Declare it before the windows, so that it outlives them.
class Look {
public:
    Look()
    {
        look::load_theme(look::theme_standard);
        const ovlib::MemDC dc;
        look::make_shared_fonts(dc.handle());
    }
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;
    ~Look()
    {
        look::free_shared_fonts();
        look::load_theme(look::theme_standard);
    }
};

} // namespace gui
