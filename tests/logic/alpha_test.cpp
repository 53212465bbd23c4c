// Colours with alpha.
#include "controls/alpha.hpp"
#include <gtest/gtest.h>

namespace {

using ovlib::plain_pixel;

TEST(PlainPixel, IsTheColorItselfWhenOpaque)
{
    EXPECT_EQ(plain_pixel(0xFF123456), 0xFF123456u);
}

TEST(PlainPixel, HasNoColorWithoutAlpha)
{
    EXPECT_EQ(plain_pixel(0x00123456), 0u);
}

TEST(PlainPixel, GetsItsColorBackFromHalfAlpha)
{
    EXPECT_EQ(plain_pixel(0x80804020), 0x80FF8040u);
}

TEST(PlainPixel, StaysInItsChannelWhenAChannelIsAboveItsAlpha)
{
    EXPECT_EQ(plain_pixel(0x10FF0008), 0x10FF0080u);
}

} // namespace
