// The size of a picture, told by its first bytes before anything decodes it.
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

// What a header says of the picture, before anything is decoded.
struct PictureClaim {
    PictureSize size; // the outline of all that is drawn together
    std::uint64_t cost = 0; // of decoding every frame

    friend bool operator==(const PictureClaim&, const PictureClaim&) = default;
};

// What a frame costs to decode, counted in pixels: each row and each column has a price of its own, however
// short it is.
constexpr std::uint64_t decoding_cost(PictureSize frame)
{
    constexpr std::uint32_t shortest_side = 64;
    const auto [shorter, longer] = std::minmax(frame.width, frame.height);
    return std::uint64_t{ longer } * std::max(shorter, shortest_side);
}

// 512 MB of pixels with four bytes each. A picture beyond counts as one that does not decode.
inline constexpr std::uint64_t largest_decoding_cost = (std::uint64_t{ 512 } << 20) / 4;

// The system's decoder counts the bytes of a picture, four a pixel, in 31 bits and writes elsewhere beyond
// them: what is larger must not be drawn, even if it was decoded.
constexpr bool can_be_drawn(PictureSize size)
{
    return size.pixels() < std::uint64_t{ 1 } << 29;
}

constexpr bool can_be_decoded(const PictureClaim& claim)
{
    return claim.size.pixels() != 0 && claim.cost <= largest_decoding_cost;
}

// Of PNG, JPEG, GIF, BMP, TIFF, ICO and CUR, told apart by their bytes, whatever the file's name. Of the
// pictures in an icon the largest; of a GIF the area that screen and frames cover together; of a TIFF the
// first page, and its tiles where they are larger. None for other bytes, and where a size cannot be read.
std::optional<PictureSize> read_picture_size(std::span<const std::byte> bytes);

// False for bytes of a known kind whose header claims too much, nothing, or what cannot be read, and for a
// metafile with such a picture in it. Other bytes are the decoder's to judge.
bool can_be_decoded(std::span<const std::byte> bytes);

} // namespace media
