// The size of a picture, told by its first bytes before anything decodes it.
#pragma once
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

// Of PNG, JPEG, GIF, BMP, TIFF, ICO and CUR, told apart by their bytes, whatever the file's name. Of the
// pictures in an icon the largest; of a GIF the area that screen and frames cover together. None for other
// and for broken bytes, which says nothing of whether they decode.
std::optional<PictureSize> read_picture_size(std::span<const std::byte> bytes);

// The system's decoder counts the bytes of a picture, four a pixel, in 31 bits and writes elsewhere beyond
// them: what is larger must not reach it.
constexpr bool can_be_drawn(PictureSize size)
{
    return size.pixels() < std::uint64_t{ 1 } << 29;
}

// False for bytes whose header claims more than can be drawn.
bool can_be_decoded(std::span<const std::byte> bytes);

} // namespace media
