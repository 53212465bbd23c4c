// How tabs and the swatches of their colours are drawn.
#pragma once
#include "look/tab_strip.hpp"
#include "ovlib/gui/dc.hpp"
#include <array>

namespace look {

struct TabStates {
    std::uint64_t current = 0;
    std::uint64_t hover = 0;
};

// The whole strip.
void draw_tabs(const ovlib::DC& dc, platform::Size strip, std::span<const TabItem> items, TabStates states);

// For the marks of a menu. A bitmap that could not be made is empty.
struct Swatch {
    ovlib::GDI::Bitmap unchecked;
    ovlib::GDI::Bitmap checked;
};
using Swatches = std::array<Swatch, named_tab_color_count>;
Swatches make_swatches();

} // namespace look
