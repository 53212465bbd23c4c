// Blending colours into the bytes of a bitmap.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <span>

namespace media {

// Bottom-up rows of blue, green and red bytes.
struct PixelRows {
    std::uint8_t* bits = nullptr;
    int stride = 0; // bytes per row
    int width = 0;
    int height = 0;
};

// Blends `color` into `rect`, clipped to the bitmap. `alpha` is the weight of the old pixels, from 0 to 256.
// Does nothing without bits.
void blend_rect(const PixelRows& rows, ovlib::Color color, int alpha, const platform::Rect& rect);

// Whether any of these 32-bit pixels, alpha last, has a non-zero alpha. If none has, the bitmap has no alpha
// channel: bitmaps without one hold 0 there.
bool has_any_alpha(std::span<const std::uint8_t> pixels);

} // namespace media
