// Writes complete picture files that every decoder can read, with pixels chosen by the test.
//
// Our own encoders and not a library's: a test decides every byte, so it also knows what a decoder must find,
// and the tests need no imaging library for Windows.
#pragma once
#include "platform/color.hpp"
#include "tests/support/picture_bytes.hpp"
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace test_support {

using FileContents = std::vector<std::byte>;
// The colour of each pixel, counted from the top left.
using Paint = std::function<ovlib::Color(int x, int y)>;

inline Paint plain(ovlib::Color color)
{
    return [color](int, int) { return color; };
}
// Left and right halves.
inline Paint halves(int width, ovlib::Color left, ovlib::Color right)
{
    return [=](int x, int) { return x < width / 2 ? left : right; };
}

namespace detail {

inline std::uint32_t crc(std::span<const std::byte> bytes)
{
    std::uint32_t value = 0xFFFFFFFF;
    for (const std::byte one : bytes) {
        value ^= std::to_integer<std::uint32_t>(one);
        for (int bit = 0; bit < 8; ++bit)
            value = value >> 1 ^ (0xEDB88320u & (0u - (value & 1)));
    }
    return ~value;
}

inline std::uint32_t adler(std::span<const std::byte> bytes)
{
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const std::byte one : bytes) {
        low = (low + std::to_integer<std::uint32_t>(one)) % 65521;
        high = (high + low) % 65521;
    }
    return high << 16 | low;
}

inline void add_part(PictureBytes& out, const FileContents& bytes, std::size_t at, std::size_t count)
{
    for (std::size_t i = at; i < at + count; ++i)
        out.byte(std::to_integer<std::uint32_t>(bytes[i]));
}

// Stored uncompressed, in the blocks that deflate has for that.
inline FileContents deflated(const FileContents& bytes)
{
    constexpr std::size_t most = 65535;
    PictureBytes out;
    out.byte(0x78).byte(0x01);
    for (std::size_t at = 0; at < bytes.size(); at += most) {
        const std::size_t count = std::min(most, bytes.size() - at);
        const auto length = static_cast<std::uint32_t>(count);
        out.byte(at + count == bytes.size() ? 1 : 0).little16(length).little16(~length);
        add_part(out, bytes, at, count);
    }
    return out.big32(adler(bytes)).bytes();
}

inline void add_chunk(PictureBytes& png, std::string_view name, const FileContents& data)
{
    const FileContents named = PictureBytes{}.text(name).append(data).bytes();
    png.big32(static_cast<std::uint32_t>(data.size())).append(named).big32(crc(named));
}

inline void add_pixel(PictureBytes& out, ovlib::Color color)
{
    out.byte(color.blue()).byte(color.green()).byte(color.red());
}

} // namespace detail

inline FileContents png_file(int width, int height, const Paint& paint)
{
    using namespace std::string_view_literals;
    PictureBytes rows;
    for (int y = 0; y < height; ++y) {
        rows.byte(0); // unfiltered
        for (int x = 0; x < width; ++x) {
            const ovlib::Color color = paint(x, y);
            rows.byte(color.red()).byte(color.green()).byte(color.blue());
        }
    }
    PictureBytes header;
    header.big32(static_cast<std::uint32_t>(width)).big32(static_cast<std::uint32_t>(height));
    header.byte(8).byte(2).zeros(3);
    PictureBytes png;
    png.text("\x89PNG\r\n\x1A\n"sv);
    detail::add_chunk(png, "IHDR", header.bytes());
    detail::add_chunk(png, "IDAT", detail::deflated(rows.bytes()));
    detail::add_chunk(png, "IEND", {});
    return png.bytes();
}

inline FileContents bmp_file(int width, int height, const Paint& paint)
{
    const auto padding = static_cast<std::size_t>(width % 4);
    const auto size = (static_cast<std::uint32_t>(width) * 3 + static_cast<std::uint32_t>(padding))
        * static_cast<std::uint32_t>(height);
    PictureBytes bmp;
    bmp.text("BM").little32(54 + size).little32(0).little32(54).little32(40);
    bmp.little32(static_cast<std::uint32_t>(width)).little32(static_cast<std::uint32_t>(height));
    bmp.little16(1).little16(24).little32(0).little32(size).zeros(16);
    for (int y = height; y-- > 0;) {
        for (int x = 0; x < width; ++x)
            detail::add_pixel(bmp, paint(x, y));
        bmp.zeros(padding);
    }
    return bmp.bytes();
}

// Rows of red, green and blue in one strip after the directory.
inline FileContents tiff_file(int width, int height, const Paint& paint)
{
    using namespace std::string_view_literals;
    constexpr std::uint32_t count = 10;
    constexpr std::uint32_t bits_at = 8 + 2 + count * 12 + 4;
    const auto size = static_cast<std::uint32_t>(width * height * 3);
    PictureBytes tiff;
    const auto entry = [&](std::uint32_t tag, std::uint32_t type, std::uint32_t values, std::uint32_t value) {
        tiff.little16(tag).little16(type).little32(values).little32(value);
    };
    constexpr std::uint32_t short_type = 3;
    constexpr std::uint32_t long_type = 4;
    tiff.text("II*\0"sv).little32(8).little16(count);
    entry(256, long_type, 1, static_cast<std::uint32_t>(width));
    entry(257, long_type, 1, static_cast<std::uint32_t>(height));
    entry(258, short_type, 3, bits_at);
    entry(259, short_type, 1, 1); // uncompressed
    entry(262, short_type, 1, 2); // red, green, blue
    entry(273, long_type, 1, bits_at + 6);
    entry(277, short_type, 1, 3);
    entry(278, long_type, 1, static_cast<std::uint32_t>(height));
    entry(279, long_type, 1, size);
    entry(284, short_type, 1, 1);
    tiff.little32(0).little16(8).little16(8).little16(8);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const ovlib::Color color = paint(x, y);
            tiff.byte(color.red()).byte(color.green()).byte(color.blue());
        }
    }
    return tiff.bytes();
}

// One opaque 32-bit picture with its mask. Sides up to 255.
inline FileContents ico_file(int width, int height, const Paint& paint)
{
    const auto mask = static_cast<std::size_t>((width + 31) / 32 * 4 * height);
    const auto size = 40 + static_cast<std::uint32_t>(width * height * 4) + static_cast<std::uint32_t>(mask);
    PictureBytes ico;
    ico.little16(0).little16(1).little16(1);
    ico.byte(static_cast<std::uint32_t>(width)).byte(static_cast<std::uint32_t>(height)).zeros(2);
    ico.little16(1).little16(32).little32(size).little32(22);
    ico.little32(40)
        .little32(static_cast<std::uint32_t>(width))
        .little32(static_cast<std::uint32_t>(height) * 2);
    ico.little16(1).little16(32).zeros(24);
    for (int y = height; y-- > 0;) {
        for (int x = 0; x < width; ++x) {
            detail::add_pixel(ico, paint(x, y));
            ico.byte(255);
        }
    }
    return ico.zeros(mask).bytes();
}

// One shade of grey, from 1 to 64 and from 192 to 255, in blocks that contain only their mean.
inline FileContents jpeg_file(int width, int height, int grey)
{
    using namespace std::string_view_literals;
    PictureBytes jpeg;
    jpeg.text("\xFF\xD8\xFF\xDB"sv).big16(67).byte(0);
    for (int i = 0; i < 64; ++i)
        jpeg.byte(4); // one step of the mean is half a shade
    jpeg.text("\xFF\xC0"sv).big16(11).byte(8);
    jpeg.big16(static_cast<std::uint32_t>(height)).big16(static_cast<std::uint32_t>(width));
    jpeg.byte(1).byte(1).byte(0x11).byte(0);
    // Codes for two lengths of means: zero bits (code of one bit) and eight bits (code of two). One code for
    // the rest: end of block.
    jpeg.text("\xFF\xC4"sv).big16(21).byte(0x00).byte(1).byte(1).zeros(14).byte(0).byte(8);
    jpeg.text("\xFF\xC4"sv).big16(20).byte(0x10).byte(1).zeros(15).byte(0);
    jpeg.text("\xFF\xDA"sv).big16(8).byte(1).byte(1).byte(0x00).byte(0).byte(63).byte(0);
    std::uint32_t bits = 0;
    int held = 0;
    const auto put = [&](std::uint32_t value, int length) {
        for (int i = length; i-- > 0;) {
            bits = bits << 1 | (value >> i & 1);
            if (++held == 8) {
                jpeg.byte(bits);
                if ((bits & 0xFF) == 0xFF)
                    jpeg.byte(0);
                held = 0;
            }
        }
    };
    const int mean = (grey - 128) * 2;
    const int blocks = ((width + 7) / 8) * ((height + 7) / 8);
    for (int block = 0; block < blocks; ++block) {
        if (block == 0) {
            put(0b10, 2);
            put(static_cast<std::uint32_t>(mean > 0 ? mean : mean + 255), 8);
        } else {
            put(0, 1);
        }
        put(0, 1);
    }
    while (held != 0)
        put(1, 1);
    return jpeg.text("\xFF\xD9"sv).bytes();
}

// An animation with frames of one colour each. Its data has one byte per pixel, without compression.
class MovingGif {
public:
    enum Shade : std::uint8_t { black, white, red, green, blue };
    static constexpr std::array<ovlib::Color, 5> colors{ ovlib::Color{ 0x000000 }, ovlib::Color{ 0xFFFFFF },
        ovlib::Color{ 0x0000FF }, ovlib::Color{ 0x00FF00 }, ovlib::Color{ 0xFF0000 } };

    MovingGif(int width, int height)
        : width_(width)
        , height_(height)
    {
        bytes_.text("GIF89a");
        bytes_.little16(static_cast<std::uint32_t>(width)).little16(static_cast<std::uint32_t>(height));
        bytes_.byte(0xF6).zeros(2); // 128 colours
        for (const ovlib::Color color : colors)
            bytes_.byte(color.red()).byte(color.green()).byte(color.blue());
        bytes_.zeros((128 - colors.size()) * 3);
    }
    // The delay in hundredths of a second.
    MovingGif& frame(Shade shade, std::uint32_t delay)
    {
        bytes_.byte(0x21).byte(0xF9).byte(4).byte(0).little16(delay).zeros(2);
        return frame(shade);
    }
    // Without any delay.
    MovingGif& frame(Shade shade)
    {
        bytes_.byte(0x2C).zeros(4);
        bytes_.little16(static_cast<std::uint32_t>(width_)).little16(static_cast<std::uint32_t>(height_));
        bytes_.byte(0).byte(7);
        PictureBytes codes;
        for (int i = 0; i < width_ * height_; ++i) {
            // Clears the code table before codes would need a ninth bit.
            if (i % 100 == 0)
                codes.byte(0x80);
            codes.byte(shade);
        }
        codes.byte(0x81);
        add_pieces(codes.bytes());
        return *this;
    }
    MovingGif& frames(std::size_t count, std::uint32_t delay)
    {
        for (std::size_t i = 0; i < count; ++i)
            frame(static_cast<Shade>(i % colors.size()), delay);
        return *this;
    }
    FileContents bytes() const { return PictureBytes{ bytes_ }.byte(0x3B).bytes(); }

private:
    void add_pieces(const FileContents& data)
    {
        constexpr std::size_t most = 255;
        for (std::size_t at = 0; at < data.size(); at += most) {
            const std::size_t count = std::min(most, data.size() - at);
            bytes_.byte(static_cast<std::uint32_t>(count));
            detail::add_part(bytes_, data, at, count);
        }
        bytes_.byte(0);
    }

    int width_;
    int height_;
    PictureBytes bytes_;
};

} // namespace test_support
