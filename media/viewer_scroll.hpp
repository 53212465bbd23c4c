// The arithmetic of the viewer's scroll bars.
#pragma once
#include "controls/scroll_range.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <optional>

namespace media {

struct Bars {
    bool horizontal = false;
    bool vertical = false;

    friend bool operator==(const Bars&, const Bars&) = default;
};

// The client area as it would be without bars. `thickness`: the width of a vertical bar, and the height of a
// horizontal one.
platform::Size area_without_bars(platform::Size client, Bars shown, platform::Size thickness);
// The bars that a picture drawn in this size needs. Both are decided together from the area without bars,
// because each takes room from the other direction.
Bars needed_bars(platform::Size drawn, platform::Size area, platform::Size thickness);

// The range of a bar for `drawn` pixels of which `client` are shown, at position 0.
ovlib::ScrollRange viewer_range(int drawn, int client);
// The position at which this fraction of the range is scrolled.
std::int32_t position_at(const ovlib::ScrollRange& range, double ratio);

// WM_HSCROLL and WM_VSCROLL carry 16 bits of the thumb's position. They are enough for a range that ends
// below 65,536; otherwise it is the position that the system tracked.
std::int32_t thumb_position(
    const ovlib::ScrollRange& range, std::uint16_t from_message, std::int32_t tracked);
// The position after a scroll message with this SB_ code; nullopt if the code changes nothing.
std::optional<std::int32_t> scrolled(const ovlib::ScrollRange& range, int code, std::int32_t thumb);
// The position after the mouse has moved a held picture from one coordinate to another.
std::int32_t dragged(const ovlib::ScrollRange& range, int from, int to);

} // namespace media
