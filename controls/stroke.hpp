// Filled rectangles and two-line strokes, of which drawn controls are made.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <array>

namespace ovlib {

struct FilledRect {
    platform::Rect rect;
    Color color;

    friend bool operator==(const FilledRect&, const FilledRect&) = default;
};

// A line from the first point through the second to the third.
struct Stroke {
    std::array<platform::Point, 3> points;
    Color color;

    friend bool operator==(const Stroke&, const Stroke&) = default;
};

} // namespace ovlib
