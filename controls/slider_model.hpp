// What a horizontal slider decides: where its parts stand, which value a place means, what the mouse does to
// it and what is drawn where.
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

// A record: whoever changes the range or the value moves the thumb and draws anew afterwards.
struct SliderModel {
    Color groove;
    Color fill; // 0: no bar, and the thumb takes `back`
    Rect track;
    Color reserved; // read by nobody
    Rect thumb;
    std::int32_t min = 0;
    std::int32_t max = 0;
    std::int32_t value = 0;
    SliderBorder border_style = SliderBorder::none;
    bool pressed = false;
    bool captured = false;
    Color back;
};

// Into `min` to `max`; `min` when they are crossed.
std::int32_t clamp_value(const SliderModel& slider, std::int64_t value);

// Centred in the client area.
Rect slider_track(Size client);
// Around `x`, the place of the value.
Rect slider_thumb(const Rect& track, int x);

// Made for ranges that begin at 0: `min` is not taken off the value.
int value_to_x(const SliderModel& slider);
std::int32_t x_to_value(const SliderModel& slider, int x);

enum class SliderPart { none, thumb, track };
SliderPart slider_part(const SliderModel& slider, Point point);

// The mouse. Each changes the record first and returns what the parent is to be told then; `there` is the
// value under the mouse, in or out of the range.
std::optional<SliderNotice> press_slider(SliderModel& slider, SliderPart part, std::int64_t there);
std::optional<SliderNotice> drag_slider(SliderModel& slider, std::int64_t there);
// The end of a drag, by whichever of its signs comes first; the others find nothing left to end.
std::optional<SliderNotice> release_slider(SliderModel& slider);
// After the parent has been told of a press: true when the mouse is to be captured. The parent may have ended
// the press, or the button have come up while it was busy; then the press is over.
bool begin_slider_drag(SliderModel& slider, bool button_is_down);

// What is drawn, beyond the ground in `back`.
inline constexpr int slider_pen_width = 2; // of the frame and of the thumb
inline constexpr int slider_border_width = 1;

// The groove, then the rows of the bar; without a fill the rows are empty.
std::array<FilledRect, 7> slider_bar(const SliderModel& slider);
std::array<Stroke, 2> slider_frame(const SliderModel& slider);
Color thumb_color(const SliderModel& slider);
std::array<Stroke, 2> thumb_edges(const SliderModel& slider);
// Not for a slider without a border.
std::array<Stroke, 2> slider_border(const SliderModel& slider, Size client);

} // namespace ovlib
