// The logic of a horizontal slider: layout, the mapping of values to positions, mouse handling and drawing.
#pragma once
#include "controls/stroke.hpp"
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstdint>
#include <optional>

namespace ovlib {

using platform::Point;
using platform::Rect;
using platform::Size;

// The notification codes, as the system numbers them.
enum class SliderCode : int { page_up = 2, page_down = 3, thumb_position = 4, thumb_track = 5 };

struct SliderNotice {
    SliderCode code = SliderCode::thumb_track;
    std::int32_t pos = 0;

    friend bool operator==(const SliderNotice&, const SliderNotice&) = default;
};

enum class SliderBorder : std::int32_t { none = 0, sunken = 1, raised = 2 };

// A record. Code that changes the range or the value must move `thumb` and repaint afterwards.
struct SliderModel {
    Color groove;
    Color fill; // 0: no bar, and the thumb takes `back`
    Rect track;
    Color reserved; // never read
    Rect thumb;
    std::int32_t min = 0;
    std::int32_t max = 0;
    std::int32_t value = 0;
    SliderBorder border_style = SliderBorder::none;
    bool pressed = false;
    bool captured = false;
    Color back;
};

// `value` clamped to `min` to `max`; `min` if min > max.
std::int32_t clamp_value(const SliderModel& slider, std::int64_t value);

// The track, centred in the client area.
Rect slider_track(Size client);
// The thumb, centred on `x`, the position of the value.
Rect slider_thumb(const Rect& track, int x);

// For ranges that begin at 0: these do not subtract `min`.
int value_to_x(const SliderModel& slider);
std::int32_t x_to_value(const SliderModel& slider, int x);

enum class SliderPart { none, thumb, track };
SliderPart slider_part(const SliderModel& slider, Point point);

// Mouse handling. Each function updates the record and returns the notification to send to the parent, if
// any. `there` is the value at the mouse position; it may be out of range.
std::optional<SliderNotice> press_slider(SliderModel& slider, SliderPart part, std::int64_t there);
std::optional<SliderNotice> drag_slider(SliderModel& slider, std::int64_t there);
// Ends a drag. May be called for the button's release and for the loss of capture: the second call does
// nothing.
std::optional<SliderNotice> release_slider(SliderModel& slider);
// Call after the parent was notified of a press; true if the mouse must be captured now. False if the parent
// ended the press or the button was released while the parent was busy.
bool begin_slider_drag(SliderModel& slider, bool button_is_down);

// Drawing, on a background in `back`.
inline constexpr int slider_pen_width = 2; // of the frame and of the thumb
inline constexpr int slider_border_width = 1;

// The groove, then the rows of the bar, which are empty without a fill.
std::array<FilledRect, 7> slider_bar(const SliderModel& slider);
std::array<Stroke, 2> slider_frame(const SliderModel& slider);
Color thumb_color(const SliderModel& slider);
std::array<Stroke, 2> thumb_edges(const SliderModel& slider);
// Call only if border_style is not `none`.
std::array<Stroke, 2> slider_border(const SliderModel& slider, Size client);

} // namespace ovlib
