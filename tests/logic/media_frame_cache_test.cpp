// The scaled frames of an animation that are kept.
#include "media/frame_cache.hpp"
#include <gtest/gtest.h>

namespace {

using media::FrameCache;
using Bits = std::vector<std::uint8_t>;

constexpr FrameCache::Scaling usual{ { 10, 20 }, { 1, 2, 9, 18 }, 7, ovlib::rgb(1, 2, 3) };

Bits found(const FrameCache& cache, std::uint32_t frame)
{
    const auto bits = cache.find(frame);
    return { bits.begin(), bits.end() };
}

TEST(FrameCache, FindsWhatWasKept)
{
    FrameCache cache;
    cache.use(usual);
    cache.keep(3, Bits{ 1, 2 });
    cache.keep(0, Bits{ 3 });
    cache.keep(3, Bits{ 9 });
    EXPECT_EQ(found(cache, 3), (Bits{ 1, 2 }));
    EXPECT_EQ(found(cache, 0), Bits{ 3 });
    EXPECT_TRUE(cache.find(1).empty());
    cache.use(usual);
    EXPECT_EQ(cache.size(), 2u);
    cache.clear();
    EXPECT_TRUE(cache.find(3).empty());
}

TEST(FrameCache, DropsFramesThatWereScaledInAnotherWay)
{
    std::vector<FrameCache::Scaling> others(4, usual);
    others[0].area.width = 11;
    others[1].target.left = 0;
    others[2].interpolation = 6;
    others[3].ground = ovlib::rgb(1, 2, 4);
    for (const FrameCache::Scaling& other : others) {
        FrameCache cache;
        cache.use(usual);
        cache.keep(0, Bits{ 1 });
        cache.use(other);
        EXPECT_EQ(cache.size(), 0u) << &other - others.data();
    }
}

TEST(FrameCache, KeepsNoMoreThanItsLimit)
{
    FrameCache cache;
    cache.use(usual);
    const Bits half(FrameCache::limit / 2);
    for (std::uint32_t frame = 0; frame < 3; ++frame)
        cache.keep(frame, half);
    EXPECT_EQ(cache.size(), 2u);
    EXPECT_TRUE(cache.find(2).empty());
    cache.clear();
    cache.keep(2, half);
    EXPECT_FALSE(cache.find(2).empty()) << "there is room again";
}

} // namespace
