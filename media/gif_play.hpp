// Playing an animation: delays, frames, the seek bar and clicks.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace media {

// The delay of each frame in milliseconds. `values` are hundredths of a second in their low 16 bits; a
// missing or zero value gives 100 ms. nullopt without frames, and for several frames if the decoder has no
// delay property: that is no animation.
std::optional<std::vector<std::uint32_t>> frame_delays(
    std::uint32_t frame_count, std::span<const std::uint32_t> values, bool has_delay_property);

// How long a frame is shown, in milliseconds: at least `shortest_delay`, less 3% for the time that drawing
// takes.
inline constexpr std::uint32_t shortest_delay = 30;
std::uint32_t frame_time(std::uint32_t delay);
// The part of the frame time left after drawing, at least 1 ms.
std::uint32_t wait_time(std::uint32_t frame_time, std::uint32_t elapsed);
inline constexpr std::uint32_t paused_wait = 30;

// The state of the animation thread.
enum class PlayState : std::uint32_t { playing = 0, stopping = 1, paused = 2 };
// The state after a click outside the seek bar.
PlayState swapped(PlayState state);
PlayState first_state(bool autoplay);

// One run of an animation. Everything but the current frame is fixed when it begins.
class GifRun {
public:
    // For a pane of this size. A `frame_count` of 0 counts as 1.
    GifRun(platform::Size pane, std::uint32_t frame_count);

    const platform::Rect& bar() const { return bar_; }
    std::uint32_t frame_count() const { return frame_count_; }
    std::uint32_t first_frame() const { return 0; }
    std::uint32_t last_frame() const { return frame_count_ - 1; }
    double pixels_per_frame() const { return pixels_per_frame_; }
    std::uint32_t current_frame() const { return current_frame_; }

    // Goes to the next frame, after the last one to the first.
    void advance();
    // A click on the bar selects a frame; false if it is outside the bar.
    bool seek(platform::Point click);
    // The thumb position of a frame on the bar.
    int thumb_x(std::uint32_t frame) const;

private:
    platform::Rect bar_;
    std::uint32_t frame_count_;
    double pixels_per_frame_;
    std::uint32_t current_frame_ = 0;
};

// The next frame to select on the way from `active` to `wanted`; `wanted` itself in the last step. Decoding a
// frame needs all frames before it, so a far frame is reached in single steps, with the lock released in
// between.
std::uint32_t next_selection(std::uint32_t active, std::uint32_t wanted);

// The state of the last drawn frame. While paused, a turn of the thread draws only if it has changed.
struct FrameLook {
    std::uint32_t frame = 0;
    bool is_paused = false;
    bool has_overlay = false;
    std::int32_t theme = 0;

    friend bool operator==(const FrameLook&, const FrameLook&) = default;
};

// The overlay is shown while the cursor is over the pane.
bool has_overlay(platform::Size pane, platform::Point cursor);
std::wstring delay_text(std::uint32_t delay);
platform::Rect delay_text_rect(platform::Size pane);

inline constexpr wchar_t paused_text[] = L"||  Paused ";
inline constexpr int paused_text_alpha = 100;
platform::Point paused_text_place(const platform::Rect& draw_rect);

// The parts of the seek bar, in drawing order.
struct SeekBarLook {
    platform::Rect played; // blended
    platform::Rect rest; // blended
    platform::Point thumb_start; // a line one pixel wide; its end point is not drawn
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
