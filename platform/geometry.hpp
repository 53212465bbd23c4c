// Points, sizes and rectangles, so that layout is arithmetic without a window.
#pragma once

namespace platform {

struct Point {
    int x = 0;
    int y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    int width = 0;
    int height = 0;

    friend bool operator==(const Size&, const Size&) = default;
};

// `right` and `bottom` are exclusive.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr int width() const { return right - left; }
    constexpr int height() const { return bottom - top; }
    constexpr bool contains(Point point) const
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace platform
