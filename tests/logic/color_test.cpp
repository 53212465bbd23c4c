#include "platform/color.hpp"
#include <climits>
#include <gtest/gtest.h>

namespace {

using ovlib::Color;
using ovlib::rgb;

TEST(ColorShade, ZeroLeavesTheValueAsItIs)
{
    EXPECT_EQ(rgb(1, 128, 255).shade(0), rgb(1, 128, 255));
    EXPECT_EQ(Color{ 0x12345678 }.shade(0).value, 0x12345678u);
}

TEST(ColorShade, TheLargestDeltaReachesWhiteAndBlack)
{
    for (std::uint32_t c = 0; c < 256; ++c) {
        EXPECT_EQ(rgb(c, c, c).shade(255), rgb(255, 255, 255));
        EXPECT_EQ(rgb(c, c, c).shade(-255), rgb(0, 0, 0));
    }
}

TEST(ColorShade, IsLimitedToTheLargestDelta)
{
    const Color color = rgb(10, 100, 200);
    EXPECT_EQ(color.shade(300), color.shade(255));
    EXPECT_EQ(color.shade(-300), color.shade(-255));
    EXPECT_EQ(color.shade(INT_MAX), color.shade(255));
    EXPECT_EQ(color.shade(INT_MIN), color.shade(-255));
}

TEST(ColorShade, MovesEachChannelByIntegerArithmetic)
{
    for (int c = 0; c < 256; ++c) {
        const Color color = rgb(static_cast<std::uint32_t>(c), 0, 0);
        for (int delta = 1; delta <= 255; ++delta) {
            const int t = 255 - delta;
            EXPECT_EQ(color.shade(delta).red(), (((c - 255) * t) + 65280) >> 8) << c << ' ' << delta;
            EXPECT_EQ(color.shade(-delta).red(), (c * t) >> 8) << c << ' ' << delta;
        }
    }
}

TEST(ColorShade, FixedShadesHaveTheirFixedForms)
{
    for (std::uint32_t c = 0; c < 256; ++c) {
        const Color color = rgb(c, 0, 0);
        EXPECT_EQ(color.shade(150).red(), (c * 105 + 38505) >> 8);
        EXPECT_EQ(color.shade(-80).red(), (c * 175) >> 8);
        EXPECT_EQ(color.shade(50).red(), (c * 205 + 13005) >> 8);
    }
}

TEST(ColorShade, KeepsTheChannelsApart)
{
    const Color shaded = rgb(200, 100, 50).shade(-80);
    EXPECT_EQ(shaded, rgb((200 * 175) >> 8, (100 * 175) >> 8, (50 * 175) >> 8));
}

TEST(ColorShade, IsConstexpr)
{
    static_assert(rgb(0, 0, 0).shade(255) == rgb(255, 255, 255));
    static_assert(Color{}.value == 0);
}

TEST(Color, HasRedInTheLowestByte)
{
    EXPECT_EQ(rgb(0x11, 0x22, 0x33).value, 0x00332211u);
    const Color color{ 0x00332211 };
    EXPECT_EQ(color.red(), 0x11);
    EXPECT_EQ(color.green(), 0x22);
    EXPECT_EQ(color.blue(), 0x33);
}

TEST(Color, CopiesItsValueEvenToItself)
{
    Color color = rgb(1, 2, 3);
    const Color& same = color;
    color = same;
    EXPECT_EQ(color, rgb(1, 2, 3));
}

TEST(ColorLuminance, WeighsGreenMostAndRounds)
{
    EXPECT_EQ(rgb(0, 0, 0).luminance(), 0);
    EXPECT_EQ(rgb(255, 255, 255).luminance(), 255);
    EXPECT_EQ(rgb(255, 0, 0).luminance(), 76);
    EXPECT_EQ(rgb(0, 255, 0).luminance(), 150);
    EXPECT_EQ(rgb(0, 0, 255).luminance(), 29);
    EXPECT_EQ(rgb(128, 128, 128).luminance(), 128);
}

TEST(ColorLuminance, IsBrightFromTheMiddleOn)
{
    EXPECT_FALSE(rgb(127, 127, 127).is_bright());
    EXPECT_TRUE(rgb(128, 128, 128).is_bright());
}

TEST(BlendedChannel, WeighsTheColourBelow)
{
    EXPECT_EQ(ovlib::blended_channel(200, 100, 256), 200);
    EXPECT_EQ(ovlib::blended_channel(200, 100, 0), 100);
    EXPECT_EQ(ovlib::blended_channel(200, 100, 128), 150);
    EXPECT_EQ(ovlib::blended_channel(0, 255, 160), 95);
}

} // namespace
