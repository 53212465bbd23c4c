// Reads the size of a picture from its header, before anything decodes it.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace media {

struct PictureSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    constexpr std::uint64_t pixels() const { return std::uint64_t{ width } * height; }
    friend bool operator==(const PictureSize&, const PictureSize&) = default;
};

// What a file claims about its picture.
struct PictureClaim {
    PictureSize size; // the area of all frames together
    std::uint64_t cost = 0; // sum of decoding_cost over all frames

    friend bool operator==(const PictureClaim&, const PictureClaim&) = default;
};

// The cost of decoding a frame, counted in pixels. A side shorter than 64 counts as 64, because every row and
// column has a fixed cost too.
constexpr std::uint64_t decoding_cost(PictureSize frame)
{
    constexpr std::uint32_t shortest_side = 64;
    const auto [shorter, longer] = std::minmax(frame.width, frame.height);
    return std::uint64_t{ longer } * std::max(shorter, shortest_side);
}

// 512 MB of pixels with four bytes each. A larger picture is treated as one that does not decode.
inline constexpr std::uint64_t largest_decoding_cost = (std::uint64_t{ 512 } << 20) / 4;

// The system's drawing code counts the bytes of a picture, four per pixel, in 31 bits and writes out of
// bounds past that. So a larger picture must not be drawn even if it was decoded.
constexpr bool can_be_drawn(PictureSize size)
{
    return size.pixels() < std::uint64_t{ 1 } << 29;
}

constexpr bool can_be_decoded(const PictureClaim& claim)
{
    return claim.size.pixels() != 0 && claim.cost <= largest_decoding_cost;
}

// The size of a PNG, JPEG, GIF, BMP, TIFF, ICO or CUR, recognised by its bytes whatever the file's name. For
// an icon it is the largest picture, for a GIF the area that screen and frames cover together, for a TIFF the
// first page or its tiles if they are larger. nullopt for other bytes, and if the size cannot be read.
std::optional<PictureSize> read_picture_size(std::span<const std::byte> bytes);

// False for a known format whose claim is too large, empty or unreadable, and for a metafile that contains
// such a picture. True for other bytes, which are left to the decoder.
bool can_be_decoded(std::span<const std::byte> bytes);

} // namespace media
