// The colour type for all drawing. Only arithmetic, so that logic and window library can share it.
#pragma once
#include <cstdint>

namespace ovlib {

// A COLORREF: 0x00BBGGRR.
class Color {
public:
    constexpr Color() = default;
    constexpr explicit Color(std::uint32_t colorref)
        : value(colorref)
    {
    }

    constexpr std::uint8_t red() const { return static_cast<std::uint8_t>(value); }
    constexpr std::uint8_t green() const { return static_cast<std::uint8_t>(value >> 8); }
    constexpr std::uint8_t blue() const { return static_cast<std::uint8_t>(value >> 16); }
    // 0.299 R + 0.587 G + 0.114 B, rounded to a byte.
    constexpr std::uint8_t luminance() const;
    // Whether text on it should be dark.
    constexpr bool is_bright() const;
    // Towards white for a positive `delta`, towards black for a negative one. 255 and beyond give pure white
    // or black.
    constexpr Color shade(int delta) const;

    friend constexpr bool operator==(Color, Color) = default;

    std::uint32_t value = 0;
};

constexpr Color rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return Color{ red | green << 8 | blue << 16 };
}

constexpr std::uint8_t Color::luminance() const
{
    return static_cast<std::uint8_t>((299u * red() + 587u * green() + 114u * blue() + 500u) / 1000u);
}

constexpr bool Color::is_bright() const
{
    constexpr std::uint8_t bright = 128;
    return luminance() >= bright;
}

constexpr Color Color::shade(int delta) const
{
    if (delta == 0)
        return *this;
    const int limited = delta < -255 ? -255 : (delta > 255 ? 255 : delta);
    const auto rest = static_cast<std::uint32_t>(255 - (limited < 0 ? -limited : limited));
    const auto lift = limited > 0 ? 255u * (256u - rest) : 0u;
    const auto channel = [&](std::uint32_t c) { return (c * rest + lift) >> 8; };
    return rgb(channel(red()), channel(green()), channel(blue()));
}

// One channel of the mixture of `under`, with weight `under_weight` of 256, and `over`, with the rest.
constexpr std::uint8_t blended_channel(std::uint8_t under, std::uint8_t over, int under_weight)
{
    return static_cast<std::uint8_t>(((under - over) * under_weight + (over << 8)) >> 8);
}

} // namespace ovlib
