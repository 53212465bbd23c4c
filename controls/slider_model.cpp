#include "controls/slider_model.hpp"
#include <algorithm>
#include <cmath>

namespace ovlib {

namespace {

constexpr int side_margin = 8;
constexpr int track_height = 13;
constexpr int thumb_reach = 5; // from the value's x to either side
constexpr int thumb_rise = 4; // above the track
constexpr int thumb_growth = 6; // higher than the track
constexpr int bar_overlap = 4; // the bar ends under the thumb

constexpr int frame_dark = -100;
constexpr int frame_light = 120;
constexpr int edge_dark = -100;
constexpr int edge_light = 150;
constexpr int unpressed_shade = -32;

double span_of(const SliderModel& slider)
{
    return static_cast<double>(slider.max) - slider.min;
}

} // namespace

// std::clamp is undefined when min > max, which a caller may set for a moment.
std::int32_t clamp_value(const SliderModel& slider, std::int64_t value)
{
    const std::int64_t at_most = std::min<std::int64_t>(value, slider.max);
    return static_cast<std::int32_t>(std::max<std::int64_t>(at_most, slider.min));
}

Rect slider_track(Size client)
{
    const int width = std::max(client.width - side_margin, side_margin) - side_margin;
    const int left = (client.width - width) / 2;
    const int top = (client.height - track_height) / 2;
    return { left, top, left + width, top + track_height };
}

Rect slider_thumb(const Rect& track, int x)
{
    const int left = x - thumb_reach;
    const int top = track.top - thumb_rise;
    return { left, top, left + 2 * thumb_reach, top + track.height() + thumb_growth };
}

int value_to_x(const SliderModel& slider)
{
    const Rect& track = slider.track;
    if (slider.max == slider.min)
        return track.left;
    // A value outside the range keeps the thumb inside the track.
    const double place = std::round(slider.value / span_of(slider) * track.width() + track.left);
    return static_cast<int>(
        std::max(std::min(place, static_cast<double>(track.right) - 1), static_cast<double>(track.left)));
}

std::int32_t x_to_value(const SliderModel& slider, int x)
{
    const Rect& track = slider.track;
    if (track.right == track.left)
        return 0;
    const double into = std::max(static_cast<double>(x) - track.left, 0.0);
    const double value = std::round(into / track.width() * span_of(slider));
    return static_cast<std::int32_t>(
        std::max(std::min(value, static_cast<double>(slider.max)), static_cast<double>(slider.min)));
}

SliderPart slider_part(const SliderModel& slider, Point point)
{
    if (slider.thumb.contains(point))
        return SliderPart::thumb;
    return slider.track.contains(point) ? SliderPart::track : SliderPart::none;
}

std::optional<SliderNotice> press_slider(SliderModel& slider, SliderPart part, std::int64_t there)
{
    slider.pressed = part != SliderPart::none;
    if (!slider.pressed)
        return {};
    // Unlike the system's trackbar, a press on the track goes straight to the mouse position.
    const std::int32_t old = slider.value;
    slider.value = clamp_value(slider, there);
    if (part == SliderPart::thumb)
        return SliderNotice{ SliderCode::thumb_track, slider.value };
    return SliderNotice{ slider.value < old ? SliderCode::page_up : SliderCode::page_down, 0 };
}

std::optional<SliderNotice> drag_slider(SliderModel& slider, std::int64_t there)
{
    const std::int32_t old = slider.value;
    slider.value = clamp_value(slider, there);
    // No notification while the value is unchanged: the parent may do much work for each.
    if (slider.value == old)
        return {};
    return SliderNotice{ SliderCode::thumb_track, slider.value };
}

std::optional<SliderNotice> release_slider(SliderModel& slider)
{
    if (!slider.captured)
        return {};
    slider.captured = false;
    slider.pressed = false;
    return SliderNotice{ SliderCode::thumb_position, slider.value };
}

bool begin_slider_drag(SliderModel& slider, bool button_is_down)
{
    // The parent handled the press in between: it may have ended it, or the button is up by now.
    slider.pressed = slider.pressed && button_is_down;
    if (!slider.pressed || slider.captured)
        return false;
    slider.captured = true;
    return true;
}

std::array<FilledRect, 7> slider_bar(const SliderModel& slider)
{
    const Rect& track = slider.track;
    std::array<FilledRect, 7> bar{ FilledRect{ track, slider.groove } };
    if (slider.fill.value == 0)
        return bar;
    constexpr std::array<int, 3> shades{ 0, -45, -90 }; // from the middle outwards
    const int right = slider.thumb.left + bar_overlap;
    const int middle = track.top + track.height() / 2;
    for (int out = 0; out < 3; ++out) {
        const auto at = static_cast<std::size_t>(out);
        const Color color = slider.fill.shade(shades[at]);
        const int above = middle - 1 - out;
        const int below = middle + out;
        bar[1 + 2 * at] = { { track.left, above, right, above + 1 }, color };
        bar[2 + 2 * at] = { { track.left, below, right, below + 1 }, color };
    }
    return bar;
}

std::array<Stroke, 2> slider_frame(const SliderModel& slider)
{
    const Rect& track = slider.track;
    const Point top_left{ track.left - 1, track.top - 1 };
    const Point top_right{ track.right, track.top - 1 };
    const Point bottom_right{ track.right, track.bottom };
    const Point bottom_left{ track.left - 1, track.bottom };
    return { Stroke{ { bottom_left, top_left, top_right }, slider.back.shade(frame_dark) },
        Stroke{ { top_right, bottom_right, bottom_left }, slider.back.shade(frame_light) } };
}

Color thumb_color(const SliderModel& slider)
{
    const Color color = slider.fill.value == 0 ? slider.back : slider.fill;
    return slider.pressed ? color : color.shade(unpressed_shade);
}

std::array<Stroke, 2> thumb_edges(const SliderModel& slider)
{
    const Rect& thumb = slider.thumb;
    const Point top_left{ thumb.left, thumb.top };
    const Point top_right{ thumb.right, thumb.top };
    const Point bottom_right{ thumb.right, thumb.bottom };
    const Point bottom_left{ thumb.left, thumb.bottom };
    const Color color = thumb_color(slider);
    return { Stroke{ { top_right, top_left, bottom_left }, color.shade(edge_light) },
        Stroke{ { bottom_left, bottom_right, top_right }, color.shade(edge_dark) } };
}

std::array<Stroke, 2> slider_border(const SliderModel& slider, Size client)
{
    const int right = client.width - 1;
    const int bottom = client.height - 1;
    const Color dark = slider.back.shade(edge_dark);
    const Color light = slider.back.shade(edge_light);
    const bool sunken = slider.border_style == SliderBorder::sunken;
    return { Stroke{ { Point{ 0, client.height }, Point{ 0, 0 }, Point{ right, 0 } }, sunken ? dark : light },
        Stroke{ { Point{ right, 0 }, Point{ right, bottom }, Point{ 0, bottom } }, sunken ? light : dark } };
}

} // namespace ovlib
