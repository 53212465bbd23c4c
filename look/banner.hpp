// The banner that reports a search without result: its fading, layout and colours.
#pragma once
#include "look/theme.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <string>
#include <string_view>

namespace look {

inline constexpr wchar_t banner_title[] = L"Book内検索";
inline constexpr wchar_t banner_headline[] = L"検索終了";

// The text without its CR LFs, as one line.
std::wstring banner_text(std::wstring_view text);

// Fades in, stays for two seconds and fades out, driven by the ticks of a timer.
class BannerFade {
public:
    enum class State : std::int32_t { fading_in = 0, staying = 1, fading_out = 2 };

    // What the window must do after a tick.
    struct Tick {
        bool alpha_changed = false;
        std::uint32_t next_interval = 0; // milliseconds to restart the timer with; 0: leave it running
        bool is_over = false;

        friend bool operator==(const Tick&, const Tick&) = default;
    };

    // Begins to fade in from the current alpha, so a banner shown again while it fades does not jump. Returns
    // the timer's interval in milliseconds.
    std::uint32_t begin();
    // Makes the banner invisible.
    void reset();
    Tick tick();

    State state() const { return state_; }
    std::int32_t alpha() const { return alpha_; } // 0 to 230

private:
    State state_ = State::fading_in;
    std::int32_t alpha_ = 0;
};

// The banner's size for a text and a title of these widths. It is at least wide enough for the title.
platform::Size banner_size(int text_width, int title_width);

struct BannerLayout {
    platform::Point line_start; // of the line under the title
    platform::Point line_end; // exclusive
    platform::Rect icon;
    platform::Rect title;
    platform::Rect headline;
    platform::Rect text;

    friend bool operator==(const BannerLayout&, const BannerLayout&) = default;
};

BannerLayout banner_layout(platform::Size client);

struct BannerColors {
    Color fill;
    Color frame;
    Color line;
    Color title; // and headline
    Color text;

    friend bool operator==(const BannerColors&, const BannerColors&) = default;
};

BannerColors banner_colors(const ThemePalette& palette);

} // namespace look
