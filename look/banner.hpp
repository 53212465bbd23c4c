// The banner that tells of a search without result: how it fades, where its parts lie and its colours.
#pragma once
#include "look/theme.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <string>
#include <string_view>

namespace look {

inline constexpr wchar_t banner_title[] = L"Book内検索";
inline constexpr wchar_t banner_headline[] = L"検索終了";

// The text in one line.
std::wstring banner_text(std::wstring_view text);

// Fades in, stays for two seconds and fades out, one tick of a timer after the other.
class BannerFade {
public:
    enum class State : std::int32_t { fading_in = 0, staying = 1, fading_out = 2 };

    // What one tick asks for.
    struct Tick {
        bool alpha_changed = false;
        std::uint32_t next_interval = 0; // milliseconds for the timer to start anew with; 0: it runs on
        bool is_over = false;

        friend bool operator==(const Tick&, const Tick&) = default;
    };

    // Begins to fade in, from whatever alpha there is. Returns the timer's interval.
    std::uint32_t begin();
    // Back to where nothing is seen.
    void reset();
    Tick tick();

    State state() const { return state_; }
    std::int32_t alpha() const { return alpha_; } // 0 to 230

private:
    State state_ = State::fading_in;
    std::int32_t alpha_ = 0;
};

// For a text and a title of these widths. A banner with a short text is wide enough for its title.
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
