// Walks any bytes as a GIF. More bytes never take a frame away.
#include "media/gif_play.hpp"
#include "media/gif_walker.hpp"
#include "tests/fuzz/stable.hpp"
#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t smallest_frame = 10;
    const std::span bytes = std::as_bytes(std::span{ data, size });
    const auto walk = media::walk_gif(bytes);
    if (!walk)
        return 0;
    fuzz::require(walk->frame_count() <= size / smallest_frame);
    fuzz::require(walk->covered.width >= walk->screen.width && walk->covered.height >= walk->screen.height);

    const auto cut = media::walk_gif(bytes.first(size - size / 4));
    fuzz::require(!cut || cut->frame_count() <= walk->frame_count());
    fuzz::require(!cut || std::equal(cut->delays.begin(), cut->delays.end(), walk->delays.begin()));

    const std::vector<std::uint32_t> values{ walk->delays.begin(), walk->delays.end() };
    const auto delays = media::frame_delays(walk->frame_count(), values, true);
    fuzz::require(delays.has_value() == (walk->frame_count() != 0));
    for (const std::uint32_t delay : delays.value_or(std::vector<std::uint32_t>{}))
        fuzz::require(delay != 0 && media::frame_time(delay) >= 29 && media::frame_time(delay) <= 635689);
    return 0;
}
