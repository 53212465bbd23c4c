// Draws strokes that portable code computed.
#pragma once
#include "controls/stroke.hpp"
#include "ovlib/gui/dc.hpp"
#include <span>

namespace ovlib {

void draw_strokes(const DC& dc, std::span<const Stroke> strokes, int pen_width);

} // namespace ovlib
