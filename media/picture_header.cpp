#include "media/picture_header.hpp"
#include "media/byte_view.hpp"
#include "media/gif_walker.hpp"
#include <algorithm>
#include <array>
#include <string_view>

namespace media {

namespace {

using namespace std::string_view_literals;
using enum ByteOrder;
using Size = std::optional<PictureSize>;

constexpr auto png_signature = "\x89PNG\r\n\x1A\n"sv;

// Signature, length and name of the first chunk, then width and height.
Size png_size(ByteView bytes, std::uint64_t at = 0)
{
    if (!bytes.begins_with("IHDR", at + 12) || !bytes.has(at + 16, 8))
        return std::nullopt;
    return PictureSize{ bytes.number32(at + 16, big), bytes.number32(at + 20, big) };
}

bool starts_frame(std::uint8_t marker)
{
    constexpr std::uint8_t huffman_tables = 0xC4;
    constexpr std::uint8_t reserved = 0xC8;
    constexpr std::uint8_t arithmetic_tables = 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && marker != huffman_tables && marker != reserved
        && marker != arithmetic_tables;
}

bool stands_alone(std::uint8_t marker)
{
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

// Segments, each with its length, up to the first that starts a frame: precision, height, width.
Size jpeg_size(ByteView bytes)
{
    std::uint64_t at = 2;
    while (bytes.has(at, 4) && bytes.byte(at) == 0xFF) {
        const std::uint8_t marker = bytes.byte(at + 1);
        if (marker == 0xFF) {
            ++at;
        } else if (stands_alone(marker)) {
            at += 2;
        } else if (starts_frame(marker)) {
            if (!bytes.has(at + 5, 4))
                return std::nullopt;
            return PictureSize{ bytes.number16(at + 7, big), bytes.number16(at + 5, big) };
        } else {
            at += 2 + std::max<std::uint64_t>(bytes.number16(at + 2, big), 2);
        }
    }
    return std::nullopt;
}

// A negative side counts from the other end.
std::uint32_t length_of(std::uint32_t side)
{
    return (side & 0x80000000) != 0 ? 0 - side : side;
}

// The header that BMP and ICO share; its length tells the old form, which has short numbers.
Size bitmap_size(ByteView bytes, std::uint64_t at)
{
    constexpr std::uint32_t old_header = 12;
    if (!bytes.has(at, old_header))
        return std::nullopt;
    if (bytes.number32(at, little) == old_header)
        return PictureSize{ bytes.number16(at + 4, little), bytes.number16(at + 6, little) };
    return PictureSize{ length_of(bytes.number32(at + 4, little)),
        length_of(bytes.number32(at + 8, little)) };
}

// Colours and mask of an icon stand above each other, so that half its bitmap's height is seen.
PictureSize icon_picture_size(ByteView bytes, std::uint64_t entry)
{
    const std::uint64_t at = bytes.number32(entry + 12, little);
    if (bytes.begins_with(png_signature, at))
        return png_size(bytes, at).value_or(PictureSize{});
    PictureSize size = bitmap_size(bytes, at).value_or(PictureSize{});
    size.height /= 2;
    return size;
}

Size icon_size(ByteView bytes)
{
    constexpr std::uint64_t header = 6;
    constexpr std::uint64_t entry = 16;
    const std::uint64_t told = bytes.number16(4, little);
    const std::uint64_t count = std::min(told, (std::max(bytes.size(), header) - header) / entry);
    Size largest;
    for (std::uint64_t i = 0; i < count; ++i) {
        const PictureSize size = icon_picture_size(bytes, header + i * entry);
        if (!largest || size.pixels() > largest->pixels())
            largest = size;
    }
    return largest;
}

// Of the tags that name a side: one number, short, long or a byte.
std::uint32_t tag_value(ByteView bytes, std::uint64_t entry, ByteOrder order)
{
    switch (bytes.number16(entry + 2, order)) {
    case 1:
        return bytes.byte(entry + 8);
    case 3:
        return bytes.number16(entry + 8, order);
    case 4:
        return bytes.number32(entry + 8, order);
    default:
        return 0;
    }
}

// The first directory only: a still picture shows its first page.
Size tiff_size(ByteView bytes, ByteOrder order)
{
    constexpr std::uint16_t width_tag = 256;
    constexpr std::uint16_t height_tag = 257;
    constexpr std::uint64_t entry = 12;
    const std::uint64_t directory = bytes.number32(4, order);
    if (!bytes.has(directory, 2))
        return std::nullopt;
    PictureSize size;
    const std::uint64_t count = bytes.number16(directory, order);
    for (std::uint64_t i = 0; i < count && bytes.has(directory + 2 + i * entry, entry); ++i) {
        const std::uint64_t at = directory + 2 + i * entry;
        if (bytes.number16(at, order) == width_tag)
            size.width = tag_value(bytes, at, order);
        else if (bytes.number16(at, order) == height_tag)
            size.height = tag_value(bytes, at, order);
    }
    return size;
}

Size gif_size(std::span<const std::byte> bytes)
{
    const std::optional<GifWalk> gif = walk_gif(bytes);
    return gif ? Size{ gif->covered } : std::nullopt;
}

} // namespace

std::optional<PictureSize> read_picture_size(std::span<const std::byte> bytes)
{
    const ByteView view{ bytes };
    if (view.begins_with(png_signature))
        return png_size(view);
    if (view.begins_with("\xFF\xD8"sv))
        return jpeg_size(view);
    if (view.begins_with("GIF8"sv))
        return gif_size(bytes);
    if (view.begins_with("BM"sv))
        return bitmap_size(view, 14);
    if (view.begins_with("II*\0"sv))
        return tiff_size(view, little);
    if (view.begins_with("MM\0*"sv))
        return tiff_size(view, big);
    if (view.begins_with("\0\0\1\0"sv) || view.begins_with("\0\0\2\0"sv))
        return icon_size(view);
    return std::nullopt;
}

bool can_be_decoded(std::span<const std::byte> bytes)
{
    const std::optional<PictureSize> size = read_picture_size(bytes);
    return !size || can_be_drawn(*size);
}

} // namespace media
