// Drawing of the tabs and of the swatches of their colours.
#pragma once
#include "look/tab_strip.hpp"
#include "ovlib/gui/dc.hpp"
#include <array>

namespace look {

struct TabStates {
    std::uint64_t current = 0;
    std::uint64_t hover = 0;
};

// Draws the whole strip.
void draw_tabs(const ovlib::DC& dc, platform::Size strip, std::span<const TabItem> items, TabStates states);

// The check bitmaps of a menu item. A bitmap that could not be created is empty.
struct Swatch {
    ovlib::GDI::Bitmap unchecked;
    ovlib::GDI::Bitmap checked;
};
using Swatches = std::array<Swatch, named_tab_color_count>;
Swatches make_swatches();

} // namespace look
