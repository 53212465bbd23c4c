// How an animation plays: its delays, its frames, the seek bar and what a click does.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace media {

// Milliseconds of each frame, of values in hundredths of a second, of which the low 16 bits count: 100 where
// the value is 0 or missing. An animation of several frames for which the decoder knows no delays at all is
// none; one frame always plays.
std::optional<std::vector<std::uint32_t>> frame_delays(
    std::uint32_t frame_count, std::span<const std::uint32_t> values, bool has_delay_property);

// How long a frame is meant to stay: no shorter than the floor, and 3% less for the work of drawing.
inline constexpr std::uint32_t shortest_delay = 30;
std::uint32_t frame_time(std::uint32_t delay);
// What is left of it after drawing; never nothing.
std::uint32_t wait_time(std::uint32_t frame_time, std::uint32_t elapsed);
inline constexpr std::uint32_t paused_wait = 30;

// The state of the thread that plays.
enum class PlayState : std::uint32_t { playing = 0, stopping = 1, paused = 2 };
// What a click beside the bar makes of a state.
PlayState swapped(PlayState state);
PlayState first_state(bool autoplay);

// Where one run stands. All is fixed when it begins but the current frame.
class GifRun {
public:
    // Of at least one frame, in a pane of this size.
    GifRun(platform::Size pane, std::uint32_t frame_count);

    const platform::Rect& bar() const { return bar_; }
    std::uint32_t frame_count() const { return frame_count_; }
    std::uint32_t first_frame() const { return 0; }
    std::uint32_t last_frame() const { return frame_count_ - 1; }
    double pixels_per_frame() const { return pixels_per_frame_; }
    std::uint32_t current_frame() const { return current_frame_; }

    // After a frame was drawn while playing.
    void advance();
    // A click on the bar chooses a frame; false beside it.
    bool seek(platform::Point click);
    // Of a frame on the bar.
    int thumb_x(std::uint32_t frame) const;

private:
    platform::Rect bar_;
    std::uint32_t frame_count_;
    double pixels_per_frame_;
    std::uint32_t current_frame_ = 0;
};

// Decoding a frame needs all before it, so a frame far off is reached one selection at a time: the next one
// to select on the way from the `active` frame. Equal to `wanted` at the last step.
std::uint32_t next_selection(std::uint32_t active, std::uint32_t wanted);

// What a drawn frame looked like; a paused turn draws only what differs.
struct FrameLook {
    std::uint32_t frame = 0;
    bool is_paused = false;
    bool has_overlay = false;
    std::int32_t theme = 0;

    friend bool operator==(const FrameLook&, const FrameLook&) = default;
};

// The overlay stands while the cursor is over the pane.
bool has_overlay(platform::Size pane, platform::Point cursor);
std::wstring delay_text(std::uint32_t delay);
platform::Rect delay_text_rect(platform::Size pane);

inline constexpr wchar_t paused_text[] = L"||  Paused ";
inline constexpr int paused_text_alpha = 100;
platform::Point paused_text_place(const platform::Rect& draw_rect);

// The bar as it is drawn, in this order.
struct SeekBarLook {
    platform::Rect played; // blended
    platform::Rect rest; // blended
    platform::Point thumb_start; // a line of one pixel, its end left out
    platform::Point thumb_end;
    platform::Rect outline;

    friend bool operator==(const SeekBarLook&, const SeekBarLook&) = default;
};

inline constexpr int seek_bar_alpha = 120;
SeekBarLook seek_bar_look(const GifRun& run, std::uint32_t frame);

struct SeekBarColors {
    ovlib::Color played;
    ovlib::Color rest;
    ovlib::Color thumb;
    ovlib::Color left_and_top;
    ovlib::Color right_and_bottom;

    friend bool operator==(const SeekBarColors&, const SeekBarColors&) = default;
};

SeekBarColors seek_bar_colors(ovlib::Color accent, ovlib::Color panel_back);

} // namespace media
