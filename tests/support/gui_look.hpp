// The theme and the fonts that a window of the program draws with, as the program has them while it runs.
#pragma once
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/dc.hpp"

namespace gui {

// Declared before the windows, and so there until they are gone.
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
