#include "look/banner.hpp"
#include <algorithm>

namespace look {

namespace {

constexpr std::int32_t full_alpha = 230;
constexpr std::int32_t alpha_step = 40;
constexpr std::uint32_t fade_interval = 30;
constexpr std::uint32_t stay_interval = 2000;

constexpr int banner_height = 80;
constexpr int text_room = 30; // beside the text
constexpr int margin = 6;
constexpr int icon_size = 16;
constexpr int line_top = 25;
constexpr int title_left = 24;
constexpr int headline_top = 40;
constexpr int text_top = 62;

} // namespace

// Looks back at the result instead of the input, so a CR LF that forms when one between is removed is removed
// too.
std::wstring banner_text(std::wstring_view text)
{
    std::wstring line;
    line.reserve(text.size());
    for (const wchar_t unit : text) {
        if (unit == L'\n' && line.ends_with(L'\r'))
            line.pop_back();
        else
            line += unit;
    }
    return line;
}

std::uint32_t BannerFade::begin()
{
    state_ = State::fading_in;
    return fade_interval;
}

void BannerFade::reset()
{
    state_ = State::fading_in;
    alpha_ = 0;
}

BannerFade::Tick BannerFade::tick()
{
    switch (state_) {
    case State::fading_in:
        // The interval is 0 while fading: the running timer keeps its 30 ms.
        alpha_ = std::min(alpha_ + alpha_step, full_alpha);
        if (alpha_ < full_alpha)
            return { true, 0, false };
        state_ = State::staying;
        return { true, stay_interval, false };
    case State::staying:
        state_ = State::fading_out;
        return { false, fade_interval, false };
    case State::fading_out:
        alpha_ = std::max(alpha_ - alpha_step, 0);
        return { true, 0, alpha_ == 0 };
    }
    return {};
}

platform::Size banner_size(int text_width, int title_width)
{
    return { std::max(text_width + text_room, title_left + title_width + margin), banner_height };
}

BannerLayout banner_layout(platform::Size client)
{
    BannerLayout layout;
    layout.line_start = { margin, line_top };
    layout.line_end = { client.width - margin, line_top };
    layout.icon = { margin, margin, margin + icon_size, margin + icon_size };
    layout.title = { title_left, margin, client.width - margin, line_top };
    layout.headline = { 0, headline_top, client.width, text_top };
    layout.text = { 0, text_top, client.width, client.height };
    return layout;
}

BannerColors banner_colors(const ThemePalette& palette)
{
    constexpr int lighter = 50;
    constexpr int slightly_lighter = 32;
    const Color fill = palette.viewer_back.shade(lighter);
    return { fill, fill.shade(lighter), fill.shade(slightly_lighter), ovlib::rgb(255, 255, 255),
        palette.accent };
}

} // namespace look
