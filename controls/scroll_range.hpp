// The arithmetic of a scroll bar.
#pragma once
#include <cstdint>

namespace ovlib {

struct ScrollRange {
    std::int32_t min = 0;
    std::int32_t max = 0;
    std::uint32_t page = 0; // 0: a bar whose thumb has no size
    std::int32_t pos = 0;
};

// The last position that can be reached.
std::int64_t scroll_top(const ScrollRange& range);
// How far the position is through the range: 0.0 to 1.0; 0.0 where nothing can scroll.
double scroll_fraction(const ScrollRange& range);
// Into the range; its start where nothing can scroll.
std::int32_t clamp_scroll(const ScrollRange& range, std::int32_t pos);

} // namespace ovlib
