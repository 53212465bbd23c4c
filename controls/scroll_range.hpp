// The arithmetic of a scroll bar.
#pragma once
#include <cstdint>

namespace ovlib {

struct ScrollRange {
    std::int32_t min = 0;
    std::int32_t max = 0;
    std::uint32_t page = 0; // 0: the thumb has a fixed size
    std::int32_t pos = 0;
};

// The largest position that can be reached. 64 bits, because max - page may not fit in 32.
std::int64_t scroll_top(const ScrollRange& range);
// The position as a fraction of the range, 0.0 to 1.0; 0.0 if nothing can scroll.
double scroll_fraction(const ScrollRange& range);
// `pos` clamped to the range; `min` if nothing can scroll.
std::int32_t clamp_scroll(const ScrollRange& range, std::int32_t pos);

} // namespace ovlib
