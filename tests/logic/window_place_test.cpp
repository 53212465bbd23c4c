// Initial positions of top-level windows, and whether one is open.
#include "controls/window_place.hpp"
#include <gtest/gtest.h>

namespace {

using ovlib::brought_into_view;
using ovlib::centered;
using platform::Rect;

constexpr Rect bar_on_top{ 0, 30, 1280, 720 };
constexpr Rect second_screen{ -1366, 100, 0, 868 };

TEST(WindowPlace, CentredLeavesTheSameRoomOnBothSides)
{
    EXPECT_EQ(centered({ 500, 400 }, { 0, 0, 1600, 1000 }), (Rect{ 550, 300, 1050, 700 }));
    EXPECT_EQ(centered({ 100, 50 }, { 200, 300, 400, 380 }), (Rect{ 250, 315, 350, 365 }));
    EXPECT_EQ(centered({ 700, 100 }, { 200, 200, 700, 600 }), (Rect{ 100, 350, 800, 450 }));
}

TEST(WindowPlace, InTheWorkAreaStaysAsItIs)
{
    for (const Rect& inside : { Rect{ 0, 30, 1280, 720 }, Rect{ 100, 100, 300, 200 } })
        EXPECT_EQ(brought_into_view(inside, bar_on_top), inside);
}

TEST(WindowPlace, BeyondAnEdgeIsMovedCompletelyIntoTheWorkArea)
{
    EXPECT_EQ(brought_into_view({ -20, 0, 180, 100 }, bar_on_top), (Rect{ 0, 30, 200, 130 }));
    EXPECT_EQ(brought_into_view({ 1200, 700, 1400, 800 }, bar_on_top), (Rect{ 1080, 620, 1280, 720 }));
    EXPECT_EQ(brought_into_view({ -2000, 50, -1800, 150 }, second_screen), (Rect{ -1366, 100, -1166, 200 }));
    EXPECT_EQ(brought_into_view({ -100, 800, 100, 900 }, second_screen), (Rect{ -200, 768, 0, 868 }));
}

TEST(WindowPlace, LargerThanTheWorkAreaStartsAtItsUpperLeftCorner)
{
    constexpr platform::Size main_window{ 1380, 854 };
    for (const Rect& area : { Rect{ 0, 0, 1280, 720 }, Rect{ 0, 0, 1366, 768 }, bar_on_top, second_screen }) {
        const Rect place = brought_into_view(centered(main_window, area), area);
        EXPECT_EQ(place.left, area.left);
        EXPECT_EQ(place.top, area.top);
        EXPECT_EQ(place.width(), main_window.width);
        EXPECT_EQ(place.height(), main_window.height);
    }
}

TEST(WindowPlace, TooLowOnlyIsStillMovedSideways)
{
    EXPECT_EQ(brought_into_view({ 1200, -67, 1300, 787 }, bar_on_top), (Rect{ 1180, 30, 1280, 884 }));
}

// Hiding by the system is not reported to the state, so a minimised owner changes nothing.
TEST(OpenState, LastsFromOpeningToClosing)
{
    ovlib::OpenState state;
    EXPECT_FALSE(state.is_open());
    EXPECT_FALSE(state.may_return_with_owner());
    state.open();
    EXPECT_TRUE(state.is_open());
    EXPECT_TRUE(state.may_return_with_owner());
    state.close();
    EXPECT_FALSE(state.is_open());
    EXPECT_FALSE(state.may_return_with_owner()) << "closed while its owner was minimised";
}

} // namespace
