#include "media/blend.hpp"
#include <algorithm>
#include <array>
#include <cstddef>

namespace media {

void blend_rect(const PixelRows& rows, ovlib::Color color, int alpha, const platform::Rect& rect)
{
    const int left = std::max(rect.left, 0);
    const int right = std::min(rect.right, rows.width);
    const int top = std::max(rect.top, 0);
    const int bottom = std::min(rect.bottom, rows.height);
    if (rows.bits == nullptr || left >= right)
        return;
    const std::array<std::uint8_t, 3> channels{ color.blue(), color.green(), color.red() };
    // The last row of the image is the first in memory.
    for (int y = top; y < bottom; ++y) {
        const std::ptrdiff_t row = std::ptrdiff_t{ rows.height - 1 - y } * rows.stride;
        std::uint8_t* pixel = rows.bits + row + std::ptrdiff_t{ left } * 3;
        for (int x = left; x < right; ++x)
            for (const std::uint8_t channel : channels) {
                *pixel = ovlib::blended_channel(*pixel, channel, alpha);
                ++pixel;
            }
    }
}

bool has_any_alpha(std::span<const std::uint8_t> pixels)
{
    constexpr std::size_t pixel = 4;
    for (std::size_t alpha = pixel - 1; alpha < pixels.size(); alpha += pixel)
        if (pixels[alpha] != 0)
            return true;
    return false;
}

} // namespace media
