#include "media/viewer_scroll.hpp"
#include <algorithm>
#include <limits>

namespace media {

using ovlib::ScrollRange;
using platform::Size;

namespace {

constexpr std::int64_t line_step = 8; // pixels
constexpr std::int64_t page_step = 256;
constexpr std::int32_t largest_in_message = 0xFFFF;

std::int32_t moved(const ScrollRange& range, std::int64_t by)
{
    constexpr std::int64_t least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    return clamp_scroll(range, static_cast<std::int32_t>(std::clamp(range.pos + by, least, most)));
}

} // namespace

Size area_without_bars(Size client, Bars shown, Size thickness)
{
    return { client.width + (shown.vertical ? thickness.width : 0),
        client.height + (shown.horizontal ? thickness.height : 0) };
}

Bars needed_bars(Size drawn, Size area, Size thickness)
{
    Bars bars{ drawn.width > area.width, drawn.height > area.height };
    if (bars.horizontal)
        bars.vertical = drawn.height > area.height - thickness.height;
    if (bars.vertical)
        bars.horizontal = drawn.width > area.width - thickness.width;
    return bars;
}

ScrollRange viewer_range(int drawn, int client)
{
    return { 0, std::max(drawn - 1, 0), static_cast<std::uint32_t>(std::max(client, 0)), 0 };
}

std::int32_t position_at(const ScrollRange& range, double ratio)
{
    const auto whole = static_cast<double>(scroll_top(range) - range.min);
    const std::int64_t into = whole > 0 ? static_cast<std::int64_t>(std::clamp(ratio, 0.0, 1.0) * whole) : 0;
    return clamp_scroll(range, static_cast<std::int32_t>(range.min + into));
}

std::int32_t thumb_position(const ScrollRange& range, std::uint16_t from_message, std::int32_t tracked)
{
    return range.max <= largest_in_message ? std::int32_t{ from_message } : tracked;
}

std::optional<std::int32_t> scrolled(const ScrollRange& range, int code, std::int32_t thumb)
{
    switch (code) {
    case 0: // SB_LINEUP, SB_LINELEFT
        return moved(range, -line_step);
    case 1:
        return moved(range, line_step);
    case 2: // SB_PAGEUP, SB_PAGELEFT
        return moved(range, -page_step);
    case 3:
        return moved(range, page_step);
    case 4: // SB_THUMBPOSITION
    case 5: // SB_THUMBTRACK
        return clamp_scroll(range, thumb);
    default:
        return std::nullopt;
    }
}

std::int32_t dragged(const ScrollRange& range, int from, int to)
{
    return moved(range, std::int64_t{ from } - to);
}

} // namespace media
