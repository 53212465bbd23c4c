#include "look/page_slider.hpp"
#include <algorithm>
#include <limits>

namespace look {

namespace {

constexpr int room_left = 40;
constexpr int room_right = 70; // for the number
constexpr int label_gap = 6;
constexpr int label_shade = 180;

bool moves_page(int code)
{
    using enum ovlib::SliderCode;
    return code == static_cast<int>(thumb_track) || code == static_cast<int>(page_up)
        || code == static_cast<int>(page_down);
}

} // namespace

platform::Rect page_slider_track(const platform::Rect& track)
{
    return { track.left + room_left, track.top, track.right - room_right, track.bottom };
}

std::wstring page_label(std::int32_t value)
{
    // The value may be the largest 32-bit number.
    return std::to_wstring(std::int64_t{ value } + 1);
}

ovlib::Color page_label_color(ovlib::Color back, ovlib::Color fill)
{
    return fill.shade(back.is_bright() ? -label_shade : label_shade);
}

platform::Point page_label_place(const platform::Rect& track, platform::Size client, int height)
{
    return { track.right + label_gap, (client.height - height) / 2 };
}

void set_page_range(ovlib::SliderModel& slider, std::size_t page_count, std::uint64_t position)
{
    // A slider counts in 32 bits, and the position comes from a file without checks.
    constexpr std::size_t largest = std::numeric_limits<std::int32_t>::max();
    const std::size_t last = std::min(page_count == 0 ? 0 : page_count - 1, largest);
    slider.min = 0;
    slider.max = static_cast<std::int32_t>(last);
    slider.value = static_cast<std::int32_t>(std::min<std::uint64_t>(position, last));
}

PageMove page_move(int code, std::int32_t value, std::uint64_t position, std::size_t page_count)
{
    const auto wanted = static_cast<std::uint64_t>(value);
    if (!moves_page(code) || wanted == position)
        return PageMove::none;
    return wanted < page_count ? PageMove::turn : PageMove::show_again;
}

} // namespace look
