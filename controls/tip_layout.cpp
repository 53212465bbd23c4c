#include "controls/tip_layout.hpp"
#include <algorithm>

namespace ovlib {

namespace {

constexpr int side_margin = 8;
constexpr int end_margin = 4;

} // namespace

platform::Size tip_size(platform::Size text)
{
    return { text.width + 2 * side_margin, text.height + 2 * end_margin };
}

platform::Rect tip_text_rect(platform::Size tip)
{
    return { side_margin, end_margin, tip.width - side_margin, tip.height - end_margin };
}

platform::Point tip_place(platform::Point wanted, platform::Size tip, int right_limit)
{
    return { std::min(wanted.x, right_limit - tip.width), wanted.y };
}

} // namespace ovlib
