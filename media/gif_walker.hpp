// The frames of a GIF, told by its blocks without decoding one.
#pragma once
#include "media/picture_header.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace media {

struct GifWalk {
    PictureSize screen;
    PictureSize covered; // by screen and frames together
    std::vector<std::uint16_t> delays; // hundredths of a second, one for each frame; 0 where none is told

    std::uint32_t frame_count() const { return static_cast<std::uint32_t>(delays.size()); }
};

// None for bytes that begin no GIF. A frame counts when its descriptor is whole: a cut or broken file has the
// frames up to there. One pass over the bytes.
std::optional<GifWalk> walk_gif(std::span<const std::byte> bytes);

} // namespace media
