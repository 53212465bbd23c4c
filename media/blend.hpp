// Colours laid over the bytes of a bitmap.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <cstdint>
#include <span>

namespace media {

// Bottom-up rows of blue, green and red bytes.
struct PixelRows {
    std::uint8_t* bits = nullptr;
    int stride = 0; // bytes of a row
    int width = 0;
    int height = 0;
};

// `alpha` is the weight of what was there, from 0 to 256. Only the part of `rect` inside the bitmap changes;
// without bits nothing does.
void blend_rect(const PixelRows& rows, ovlib::Color color, int alpha, const platform::Rect& rect);

// Of pixels with 32 bits, alpha last. Where none has any, alpha means nothing: a bitmap without it has 0
// there too.
bool has_any_alpha(std::span<const std::uint8_t> pixels);

} // namespace media
