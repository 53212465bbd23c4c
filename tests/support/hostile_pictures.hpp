// Complete pictures that hide their size from readers that do not parse them as a decoder does. With a small
// size they decode like any other picture.
#pragma once
#include "tests/support/picture_bytes.hpp"
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace test_support {

// How the sides of a TIFF are encoded.
struct TiffSides {
    static constexpr std::uint32_t unsigned_long = 4;
    static constexpr std::uint32_t signed_long = 9;

    std::uint32_t type = unsigned_long;
    bool has_second = false; // repeats each tag with a side of 8
};

// Four channels. Every row is a separate strip, and all strips share the same bytes.
inline std::vector<std::byte> square_tiff(std::uint32_t side, TiffSides sides)
{
    using namespace std::string_view_literals;
    constexpr std::uint32_t short_type = 3;
    constexpr std::uint32_t long_type = TiffSides::unsigned_long;
    const std::uint32_t count = sides.has_second ? 13 : 11;
    const std::uint32_t bits_at = 8 + 2 + count * 12 + 4;
    const std::uint32_t offsets_at = bits_at + 8;
    const std::uint32_t counts_at = offsets_at + 4 * side;
    const std::uint32_t row_at = counts_at + 4 * side;
    PictureBytes tiff;
    const auto entry = [&](std::uint32_t tag, std::uint32_t type, std::uint32_t values, std::uint32_t value) {
        tiff.little16(tag).little16(type).little32(values).little32(value);
    };
    tiff.text("II*\0"sv).little32(8).little16(count);
    for (const std::uint32_t tag : { 256u, 257u }) {
        entry(tag, sides.type, 1, side);
        if (sides.has_second)
            entry(tag, sides.type, 1, 8);
    }
    entry(258, short_type, 4, bits_at);
    entry(259, short_type, 1, 1); // uncompressed
    entry(262, short_type, 1, 2); // red, green, blue
    entry(273, long_type, side, offsets_at);
    entry(277, short_type, 1, 4);
    entry(278, long_type, 1, 1);
    entry(279, long_type, side, counts_at);
    entry(284, short_type, 1, 1);
    entry(338, short_type, 1, 2); // the fourth is alpha
    tiff.little32(0).little16(8).little16(8).little16(8).little16(8);
    for (std::uint32_t row = 0; row < side; ++row)
        tiff.little32(row_at);
    for (std::uint32_t row = 0; row < side; ++row)
        tiff.little32(4 * side);
    return tiff.zeros(std::size_t{ 4 } * side).bytes();
}

// Four channels of one shade, with bytes before the frame that belong to no segment. Each block is two zero
// bits, so one byte holds the four channels of 8 x 8 pixels; at most `most` of these bytes are written.
inline std::vector<std::byte> padded_jpeg(std::uint32_t side, std::size_t most)
{
    using namespace std::string_view_literals;
    PictureBytes jpeg;
    jpeg.text("\xFF\xD8\xFF\xDB"sv).big16(67).byte(0);
    for (int i = 0; i < 64; ++i)
        jpeg.byte(1);
    jpeg.zeros(3).byte(0xFF).byte(0x00).byte(0x5A);
    jpeg.text("\xFF\xC0"sv).big16(20).byte(8).big16(side).big16(side).byte(4);
    for (std::uint32_t channel = 1; channel <= 4; ++channel)
        jpeg.byte(channel).byte(0x11).byte(0);
    // One code of one bit in each table: no difference, and end of block.
    for (const std::uint32_t table : { 0x00u, 0x10u })
        jpeg.text("\xFF\xC4"sv).big16(20).byte(table).byte(1).zeros(15).byte(0);
    jpeg.text("\xFF\xDA"sv).big16(14).byte(4);
    for (std::uint32_t channel = 1; channel <= 4; ++channel)
        jpeg.byte(channel).byte(0x00);
    jpeg.byte(0).byte(63).byte(0);
    const std::size_t squares = std::size_t{ (side + 7) / 8 } * ((side + 7) / 8);
    return jpeg.zeros(squares < most ? squares : most).text("\xFF\xD9"sv).bytes();
}

// A metafile of 64 x 64 pixels that contains this encoded picture and draws it.
inline std::vector<std::byte> metafile_with(const std::vector<std::byte>& picture)
{
    constexpr std::uint32_t side = 64;
    constexpr std::uint32_t side_as_real = 0x42800000;
    constexpr std::uint32_t version = 0xDBC01002;
    PictureBytes object;
    object.little32(version).little32(1).zeros(16).little32(1); // a bitmap, encoded
    object.append(picture).zeros((4 - picture.size() % 4) % 4);
    const auto object_size = static_cast<std::uint32_t>(object.bytes().size());

    PictureBytes plus;
    plus.text("EMF+").little16(0x4001).little16(0).little32(28).little32(16);
    plus.little32(version).little32(0).little32(96).little32(96);
    plus.little16(0x4008).little16(0x0500).little32(12 + object_size).little32(object_size);
    plus.append(object.bytes());
    plus.little16(0x401A).little16(0).little32(12 + 40).little32(40).little32(1).little32(
        2); // all of it, in pixels
    for (int rect = 0; rect < 2; ++rect)
        plus.zeros(8).little32(side_as_real).little32(side_as_real);
    plus.little16(0x4002).little16(0).little32(12).little32(0);
    const auto plus_size = static_cast<std::uint32_t>(plus.bytes().size());

    PictureBytes emf;
    emf.little32(1).little32(88).zeros(8).little32(side - 1).little32(side - 1);
    emf.zeros(8).little32(2000).little32(2000).text(" EMF").little32(0x10000);
    emf.little32(88 + 12 + plus_size + 20).little32(3).little16(1).zeros(14);
    emf.little32(1024).little32(768).little32(320).little32(240);
    emf.little32(70).little32(12 + plus_size).little32(plus_size).append(plus.bytes());
    return emf.little32(14).little32(20).little32(0).little32(16).little32(20).bytes();
}

struct HostilePicture {
    const wchar_t* name;
    std::vector<std::byte> bytes;
};

inline std::vector<HostilePicture> pictures_hiding_their_side(std::uint32_t side)
{
    constexpr std::size_t enough = 256 << 10;
    return { { L"signed.tif", square_tiff(side, { TiffSides::signed_long, false }) },
        { L"twice.tif", square_tiff(side, { TiffSides::unsigned_long, true }) },
        { L"padded.jpg", padded_jpeg(side, enough) } };
}

} // namespace test_support
