// Size and position of a tip.
#include "controls/tip_layout.hpp"
#include <gtest/gtest.h>

namespace {

using platform::Point;
using platform::Rect;
using platform::Size;

TEST(TipLayout, IsLargerThanItsTextBySixteenAndEight)
{
    EXPECT_EQ(ovlib::tip_size({ 100, 14 }), (Size{ 116, 22 }));
}

TEST(TipLayout, HasItsTextEightFromTheLeftAndFourFromTheTop)
{
    EXPECT_EQ(ovlib::tip_text_rect({ 116, 22 }), (Rect{ 8, 4, 108, 18 }));
}

TEST(TipLayout, IsAtTheWantedPositionUpToTheLimit)
{
    EXPECT_EQ(ovlib::tip_place({ 10, 20 }, { 116, 22 }, 500), (Point{ 10, 20 }));
    EXPECT_EQ(ovlib::tip_place({ 384, 20 }, { 116, 22 }, 500), (Point{ 384, 20 }));
}

TEST(TipLayout, MovesLeftUntilTheRightEdgesMeet)
{
    EXPECT_EQ(ovlib::tip_place({ 385, 20 }, { 116, 22 }, 500), (Point{ 384, 20 }));
    EXPECT_EQ(ovlib::tip_place({ 700, -5 }, { 600, 22 }, 500), (Point{ -100, -5 }));
}

} // namespace
