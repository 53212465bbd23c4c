// Arithmetic of 32-bit pixels with alpha in the highest byte.
#pragma once
#include <algorithm>
#include <cstdint>

namespace ovlib {

// Undoes the premultiplication of a colour channel, rounded; 0 if alpha is 0.
constexpr std::uint32_t plain_channel(std::uint32_t multiplied, std::uint32_t alpha)
{
    return alpha == 0 ? 0 : std::min<std::uint32_t>((multiplied * 255 + alpha / 2) / alpha, 255);
}

constexpr std::uint32_t plain_pixel(std::uint32_t premultiplied)
{
    const std::uint32_t alpha = premultiplied >> 24;
    const auto channel = [&](int shift) {
        return plain_channel(premultiplied >> shift & 0xFF, alpha) << shift;
    };
    return alpha << 24 | channel(16) | channel(8) | channel(0);
}

} // namespace ovlib
