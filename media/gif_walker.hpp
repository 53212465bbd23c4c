// The frames of a GIF, told by its blocks without decoding one.
#pragma once
#include "media/picture_header.hpp"
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace media {

struct GifWalk {
    PictureSize screen;
    PictureSize covered; // by screen and frames together
    std::uint64_t frames_cost = 0; // of decoding all of them
    std::vector<std::uint16_t> delays; // hundredths of a second, one for each frame; 0 where none is told

    PictureClaim claim() const { return { covered, std::max(frames_cost, decoding_cost(covered)) }; }
    std::uint32_t frame_count() const { return static_cast<std::uint32_t>(delays.size()); }
};

// None for bytes that begin no GIF. A frame counts when its descriptor is whole: a cut or broken file has the
// frames up to there, while what decoders may find behind a break counts as claimed. One pass over the bytes.
std::optional<GifWalk> walk_gif(std::span<const std::byte> bytes);

} // namespace media
