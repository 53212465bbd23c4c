// Draws strokes that portable code computed.
#pragma once
#include <span>

#include "controls/stroke.hpp"
#include "ovlib/gui/dc.hpp"

namespace ovlib {

void draw_strokes(const DC& dc, std::span<const Stroke> strokes, int pen_width);

} // namespace ovlib
