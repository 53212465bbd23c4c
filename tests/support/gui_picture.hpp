// Small generated pictures, and checks of drawn ones.
#pragma once
#include "ovlib/gui/back_buffer.hpp"
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace gui {

inline ovlib::Color pixel(const ovlib::BaseImage& image, int x, int y)
{
    ovlib::finish_drawing();
    const std::uint8_t* at = image.bits + static_cast<std::ptrdiff_t>(image.height - 1 - y) * image.stride
        + std::ptrdiff_t{ x } * 3;
    return ovlib::rgb(at[2], at[1], at[0]);
}

// The number of pixels of this colour in the image.
inline int count_pixels(const ovlib::BaseImage& image, ovlib::Color color)
{
    int count = 0;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x)
            count += pixel(image, x, y) == color ? 1 : 0;
    }
    return count;
}

inline void clear(ovlib::BaseImage& image, ovlib::Color color)
{
    ovlib::fill_rect(image, color, { 0, 0, image.width, image.height });
}

// A 24-bit bitmap file in one colour.
inline std::vector<unsigned char> bmp_file(int width, int height, ovlib::Color color)
{
    const int stride = (width * 3 + 3) / 4 * 4;
    std::vector<unsigned char> bytes;
    const auto number = [&](std::uint32_t value, int length) {
        for (int i = 0; i < length; ++i)
            bytes.push_back(static_cast<unsigned char>(value >> 8 * i));
    };
    const auto size = static_cast<std::uint32_t>(stride * height);
    bytes = { 'B', 'M' };
    number(54 + size, 4);
    number(0, 4);
    number(54, 4);
    number(40, 4);
    number(static_cast<std::uint32_t>(width), 4);
    number(static_cast<std::uint32_t>(height), 4);
    number(1, 2);
    number(24, 2);
    number(0, 4);
    number(size, 4);
    for (int i = 0; i < 4; ++i)
        number(0, 4);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            bytes.insert(bytes.end(), { color.blue(), color.green(), color.red() });
        bytes.resize(bytes.size() + static_cast<std::size_t>(stride - width * 3));
    }
    return bytes;
}

// An animation of one pixel, black in even frames and white in odd ones. Delays are in hundredths of a
// second.
inline std::vector<unsigned char> gif_file(std::span<const int> delays)
{
    std::vector<unsigned char> bytes{ 'G', 'I', 'F', '8', '9', 'a', 1, 0, 1, 0, 0x80, 0, 0, 0, 0, 0, 255, 255,
        255 };
    bool white = false;
    for (const int delay : delays) {
        const std::initializer_list<unsigned char> control{ 0x21, 0xF9, 4, 0,
            static_cast<unsigned char>(delay), static_cast<unsigned char>(delay >> 8), 0, 0 };
        const std::initializer_list<unsigned char> image{ 0x2C, 0, 0, 0, 0, 1, 0, 1, 0, 0 };
        const unsigned char code = white ? 0x4C : 0x44;
        bytes.insert(bytes.end(), control);
        bytes.insert(bytes.end(), image);
        bytes.insert(bytes.end(), { 2, 2, code, 1, 0 });
        white = !white;
    }
    bytes.push_back(0x3B);
    return bytes;
}

} // namespace gui
