#include "media/gif_play.hpp"
#include <algorithm>

namespace media {

using platform::Point;
using platform::Rect;
using platform::Size;

namespace {

constexpr std::uint32_t delay_mask = 0xFFFF;
constexpr std::uint32_t ms_per_unit = 10;
constexpr std::uint32_t default_delay = 100;
constexpr double share_for_waiting = 0.97;

constexpr int bar_margin = 64; // beside the bar
constexpr int bar_top = 24; // above the bottom of the pane
constexpr int bar_bottom = 12;
constexpr int text_margin = 5;

constexpr int darkened = -150;
constexpr int lightened = 100;

// In a pane that is too narrow the bar has width 0.
Rect bar_rect(Size pane)
{
    const int right = pane.width - bar_margin;
    return { std::min(bar_margin, right), pane.height - bar_top, right, pane.height - bar_bottom };
}

} // namespace

std::optional<std::vector<std::uint32_t>> frame_delays(
    std::uint32_t frame_count, std::span<const std::uint32_t> values, bool has_delay_property)
{
    if (frame_count == 0 || (frame_count > 1 && !has_delay_property))
        return std::nullopt;
    std::vector<std::uint32_t> delays(frame_count, default_delay);
    for (std::size_t i = 0; i < std::min<std::size_t>(frame_count, values.size()); ++i)
        if (const std::uint32_t value = values[i] & delay_mask; value != 0)
            delays[i] = value * ms_per_unit;
    return delays;
}

std::uint32_t frame_time(std::uint32_t delay)
{
    return static_cast<std::uint32_t>(std::max(delay, shortest_delay) * share_for_waiting);
}

std::uint32_t wait_time(std::uint32_t frame_time, std::uint32_t elapsed)
{
    return frame_time > elapsed ? frame_time - elapsed : 1;
}

PlayState swapped(PlayState state)
{
    return state == PlayState::paused ? PlayState::playing : PlayState::paused;
}

PlayState first_state(bool autoplay)
{
    return autoplay ? PlayState::playing : PlayState::paused;
}

GifRun::GifRun(Size pane, std::uint32_t frame_count)
    : bar_(bar_rect(pane))
    , frame_count_(std::max(frame_count, 1u))
    // The last frame's thumb is at the right end, so the bar is divided by one less than the number of
    // frames.
    , pixels_per_frame_(frame_count_ == 1 ? 0.0 : static_cast<double>(bar_.width()) / last_frame())
{
}

void GifRun::advance()
{
    current_frame_ = (current_frame_ + 1) % frame_count_;
}

// Each frame has an equal part of the bar. A click inside the bar has a share below 1, so the frame exists.
bool GifRun::seek(Point click)
{
    if (!bar_.contains(click))
        return false;
    const double share = static_cast<double>(click.x - bar_.left) / bar_.width();
    current_frame_ = static_cast<std::uint32_t>(share * frame_count_);
    return true;
}

int GifRun::thumb_x(std::uint32_t frame) const
{
    return static_cast<int>(std::min(frame, last_frame()) * pixels_per_frame_) + bar_.left;
}

std::uint32_t next_selection(std::uint32_t active, std::uint32_t wanted)
{
    // Going back means decoding from the first frame again.
    if (active == wanted)
        return wanted;
    return active < wanted ? active + 1 : 0;
}

bool has_overlay(Size pane, Point cursor)
{
    return Rect{ 0, 0, pane.width, pane.height }.contains(cursor);
}

std::wstring delay_text(std::uint32_t delay)
{
    return L"delay: " + std::to_wstring(delay);
}

Rect delay_text_rect(Size pane)
{
    return { text_margin, text_margin, pane.width - text_margin, pane.height };
}

Point paused_text_place(const Rect& draw_rect)
{
    return { draw_rect.left + text_margin, draw_rect.top + text_margin };
}

SeekBarLook seek_bar_look(const GifRun& run, std::uint32_t frame)
{
    const Rect& bar = run.bar();
    const int x = run.thumb_x(frame);
    return { { bar.left, bar.top, x, bar.bottom }, { x, bar.top, bar.right, bar.bottom }, { x, bar.top + 1 },
        { x, bar.bottom - 1 }, bar };
}

SeekBarColors seek_bar_colors(ovlib::Color accent, ovlib::Color panel_back)
{
    return { accent, accent.shade(darkened), accent.shade(lightened), panel_back.shade(darkened),
        panel_back.shade(lightened) };
}

} // namespace media
