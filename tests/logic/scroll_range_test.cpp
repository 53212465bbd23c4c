#include "controls/scroll_range.hpp"
#include <gtest/gtest.h>
#include <limits>

namespace {

using ovlib::clamp_scroll;
using ovlib::scroll_fraction;
using ovlib::ScrollRange;

TEST(ScrollFraction, IsRelativeToTheLastReachablePosition)
{
    EXPECT_DOUBLE_EQ(scroll_fraction({ 0, 99, 20, 40 }), 0.5) << "the last position is 80";
    EXPECT_DOUBLE_EQ(scroll_fraction({ 0, 99, 20, 80 }), 1.0);
    EXPECT_DOUBLE_EQ(scroll_fraction({ 10, 30, 0, 15 }), 0.25)
        << "without a page the last position is the maximum";
}

TEST(ScrollFraction, StaysBetweenZeroAndOne)
{
    EXPECT_EQ(scroll_fraction({ 0, 99, 20, 90 }), 1.0);
    EXPECT_EQ(scroll_fraction({ 10, 99, 20, 0 }), 0.0);
}

TEST(ScrollFraction, IsZeroWhereNothingCanScroll)
{
    EXPECT_EQ(scroll_fraction({ 0, 9, 10, 5 }), 0.0) << "the page fills the range";
    EXPECT_EQ(scroll_fraction({ 0, 9, 500, 5 }), 0.0);
    EXPECT_EQ(scroll_fraction({ 5, 5, 0, 5 }), 0.0);
    EXPECT_EQ(scroll_fraction({}), 0.0);
}

TEST(ScrollFraction, HandlesTheLargestRange)
{
    constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
    constexpr auto highest = std::numeric_limits<std::int32_t>::max();
    EXPECT_DOUBLE_EQ(scroll_fraction({ lowest, highest, 0, highest }), 1.0);
    EXPECT_EQ(scroll_fraction({ 0, lowest, std::numeric_limits<std::uint32_t>::max(), 0 }), 0.0);
}

TEST(ScrollClamp, LimitsAPositionToTheReachableOnes)
{
    const ScrollRange range{ 10, 99, 20, 0 };
    EXPECT_EQ(clamp_scroll(range, 9), 10);
    EXPECT_EQ(clamp_scroll(range, 50), 50);
    EXPECT_EQ(clamp_scroll(range, 81), 80);
    EXPECT_EQ(clamp_scroll({ 10, 99, 0, 0 }, 500), 99);
    EXPECT_EQ(clamp_scroll({ 10, 12, 20, 0 }, 11), 10) << "nothing can scroll";
}

} // namespace
