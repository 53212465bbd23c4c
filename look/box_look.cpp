#include "look/box_look.hpp"

namespace look {

namespace {

// The high byte of a COLORREF selects palette entries instead of a colour.
ovlib::Color plain_color(std::uint32_t colorref)
{
    return ovlib::Color{ colorref & 0xFFFFFF };
}

} // namespace

BoxColors box_colors(const book::Page& page, std::size_t box, BoxUse use)
{
    const BoxColors chosen{ plain_color(page.text_color[box]), plain_color(page.back_color[box]) };
    if (use == BoxUse::read_only)
        return { dimmed_text(chosen.back), chosen.back };
    return chosen;
}

ovlib::Color dimmed_text(ovlib::Color back)
{
    constexpr int step = 180;
    return back.shade(back.luminance() < 128 ? step : -step);
}

bool is_usable_font(const book::LogFont& font)
{
    constexpr std::int32_t limit = 2000;
    const auto is_near = [](std::int32_t size) { return size >= -limit && size <= limit; };
    return is_near(font.height) && is_near(font.width);
}

book::LogFont with_ended_name(book::LogFont font)
{
    font.face_name.back() = 0;
    return font;
}

} // namespace look
