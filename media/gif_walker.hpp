// Finds the frames of a GIF by its blocks, without decoding any.
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
    PictureSize covered; // by the screen and all frames together
    std::uint64_t frames_cost = 0; // sum of decoding_cost over all frames
    std::vector<std::uint16_t> delays; // hundredths of a second, one per frame; 0 where the file gives none

    PictureClaim claim() const { return { covered, std::max(frames_cost, decoding_cost(covered)) }; }
    std::uint32_t frame_count() const { return static_cast<std::uint32_t>(delays.size()); }
};

// nullopt if the bytes are no GIF. A frame counts if its descriptor is complete. `delays` covers the frames
// before the first damaged block; the claim also includes frames that some decoder may find after it. Takes
// one pass over the bytes.
std::optional<GifWalk> walk_gif(std::span<const std::byte> bytes);

} // namespace media
