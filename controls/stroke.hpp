// Filled places and two-line strokes, of which the edges of drawn controls are made.
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

// From the first point over the second to the third.
struct Stroke {
    std::array<platform::Point, 3> points;
    Color color;

    friend bool operator==(const Stroke&, const Stroke&) = default;
};

} // namespace ovlib
