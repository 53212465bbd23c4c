#include "media/frame_cache.hpp"

namespace media {

void FrameCache::use(const Scaling& scaling)
{
    if (scaling_ == scaling)
        return;
    clear();
    scaling_ = scaling;
}

void FrameCache::clear()
{
    frames_.clear();
    bytes_ = 0;
}

std::span<const std::uint8_t> FrameCache::find(std::uint32_t frame) const
{
    const auto kept = frames_.find(frame);
    return kept == frames_.end() ? std::span<const std::uint8_t>{} : kept->second;
}

void FrameCache::keep(std::uint32_t frame, std::span<const std::uint8_t> bits)
{
    if (frames_.contains(frame) || bits.size() > limit - bytes_)
        return;
    frames_.emplace(frame, std::vector<std::uint8_t>{ bits.begin(), bits.end() });
    bytes_ += bits.size();
}

} // namespace media
