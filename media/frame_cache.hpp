// Scaled frames of an animation: scaling one takes many times as long as copying it.
#pragma once
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace media {

class FrameCache {
public:
    // The largest number of bytes that are kept. Further frames are scaled each time.
    static constexpr std::size_t limit = std::size_t{ 64 } << 20;

    // What a scaled frame depends on besides the file.
    struct Scaling {
        platform::Size area; // of the bitmap
        platform::Rect target; // of the picture in it
        std::int32_t interpolation = 0;
        ovlib::Color ground;

        friend bool operator==(const Scaling&, const Scaling&) = default;
    };

    // Drops all frames that were scaled in another way.
    void use(const Scaling& scaling);
    void clear();
    // The bitmap's bits; empty if the frame is not kept.
    std::span<const std::uint8_t> find(std::uint32_t frame) const;
    void keep(std::uint32_t frame, std::span<const std::uint8_t> bits);
    std::size_t size() const { return frames_.size(); }

private:
    Scaling scaling_;
    std::map<std::uint32_t, std::vector<std::uint8_t>> frames_;
    std::size_t bytes_ = 0;
};

} // namespace media
