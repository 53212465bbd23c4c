#include "controls/scroll_range.hpp"
#include <algorithm>

namespace ovlib {

std::int64_t scroll_top(const ScrollRange& range)
{
    return range.page != 0 ? std::int64_t{ range.max } - range.page + 1 : range.max;
}

double scroll_fraction(const ScrollRange& range)
{
    const std::int64_t top = scroll_top(range);
    if (range.min >= top)
        return 0.0;
    const double into = static_cast<double>(std::int64_t{ range.pos } - range.min);
    return std::clamp(into / static_cast<double>(top - range.min), 0.0, 1.0);
}

std::int32_t clamp_scroll(const ScrollRange& range, std::int32_t pos)
{
    const std::int64_t at_most = std::min<std::int64_t>(pos, scroll_top(range));
    return static_cast<std::int32_t>(std::max<std::int64_t>(at_most, range.min));
}

} // namespace ovlib
