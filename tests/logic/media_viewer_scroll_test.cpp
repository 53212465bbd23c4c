// The arithmetic of the viewer's scroll bars.
#include "media/viewer_scroll.hpp"
#include <gtest/gtest.h>
#include <limits>

namespace {

using media::Bars;
using media::dragged;
using media::needed_bars;
using media::position_at;
using media::scrolled;
using media::thumb_position;
using media::viewer_range;
using ovlib::ScrollRange;
using platform::Size;

constexpr Size bar{ 17, 15 };

// A decision is right if each bar is shown exactly when the picture does not fit beside the other one.
void expect_right(Size drawn, Size area)
{
    const Bars bars = needed_bars(drawn, area, bar);
    const int client_width = area.width - (bars.vertical ? bar.width : 0);
    const int client_height = area.height - (bars.horizontal ? bar.height : 0);
    EXPECT_EQ(bars.horizontal, drawn.width > client_width) << drawn.width << " x " << drawn.height;
    EXPECT_EQ(bars.vertical, drawn.height > client_height) << drawn.width << " x " << drawn.height;
}

TEST(NeededBars, FitTogetherForAllSizesAroundTheArea)
{
    constexpr Size area{ 60, 50 };
    for (int width = 0; width <= area.width + 2; ++width) {
        for (int height = 0; height <= area.height + 2; ++height)
            expect_right({ width, height }, area);
    }
    expect_right({ 600'000, 600'000 }, area);
    expect_right({ 10, 10 }, { 3, 2 });
    expect_right({ 10, 10 }, { 0, 0 });
}

// A picture of exactly the area's size would fit between no bars, and between both.
TEST(NeededBars, AreNoneForAPictureThatFitsWithoutThem)
{
    EXPECT_EQ(needed_bars({ 492, 472 }, { 492, 472 }, bar), (Bars{}));
    EXPECT_EQ(needed_bars({ 493, 472 }, { 492, 472 }, bar), (Bars{ true, true }));
    EXPECT_EQ(needed_bars({ 493, 457 }, { 492, 472 }, bar), (Bars{ true, false }));
    EXPECT_EQ(needed_bars({ 492, 473 }, { 492, 472 }, bar), (Bars{ true, true }));
    EXPECT_EQ(needed_bars({ 475, 473 }, { 492, 472 }, bar), (Bars{ false, true }));
}

TEST(AreaWithoutBars, AddsTheBarsThatAreShown)
{
    EXPECT_EQ(media::area_without_bars({ 100, 80 }, {}, bar), (Size{ 100, 80 }));
    EXPECT_EQ(media::area_without_bars({ 100, 80 }, { true, false }, bar), (Size{ 100, 95 }));
    EXPECT_EQ(media::area_without_bars({ 100, 80 }, { false, true }, bar), (Size{ 117, 80 }));
    EXPECT_EQ(media::area_without_bars({ 100, 80 }, { true, true }, bar), (Size{ 117, 95 }));
}

TEST(ViewerRange, EndsAtTheLastPixel)
{
    const ScrollRange range = viewer_range(1000, 300);
    EXPECT_EQ(range.min, 0);
    EXPECT_EQ(range.max, 999);
    EXPECT_EQ(range.page, 300u);
    EXPECT_EQ(scroll_top(range), 700);
    EXPECT_EQ(viewer_range(0, 300).max, 0);
    EXPECT_EQ(viewer_range(10, -1).page, 0u);
}

TEST(PositionAtARatio, IsTruncatedAndLimited)
{
    const ScrollRange range = viewer_range(1001, 300);
    EXPECT_EQ(position_at(range, 0), 0);
    EXPECT_EQ(position_at(range, 0.5), 350) << "of 701";
    EXPECT_EQ(position_at(range, 1), 701);
    EXPECT_EQ(position_at(range, 7.0), 701);
    EXPECT_EQ(position_at(range, -1.0), 0);
    EXPECT_EQ(position_at(viewer_range(300, 300), 0.5), 0);
    EXPECT_EQ(position_at(viewer_range(10, 300), 0.5), 0);
}

TEST(PositionAtARatio, KeepsTheSamePlaceAcrossZooms)
{
    for (const double ratio : { 0.0, 0.25, 0.5, 0.9, 1.0 }) {
        for (const int drawn : { 1000, 2000, 80'000, 600'000 }) {
            ScrollRange range = viewer_range(drawn, 300);
            range.pos = position_at(range, ratio);
            EXPECT_NEAR(scroll_fraction(range), ratio, 0.002) << drawn;
        }
    }
}

TEST(ScrollCodes, MoveByLinesAndPagesWithinTheRange)
{
    ScrollRange range = viewer_range(1000, 300);
    range.pos = 400;
    EXPECT_EQ(scrolled(range, 0, 0), 392);
    EXPECT_EQ(scrolled(range, 1, 0), 408);
    EXPECT_EQ(scrolled(range, 2, 0), 144);
    EXPECT_EQ(scrolled(range, 3, 0), 656);
    EXPECT_EQ(scrolled(range, 4, 123), 123);
    EXPECT_EQ(scrolled(range, 5, 5000), 700);
    for (const int code : { 6, 7, 8, -1, 99 })
        EXPECT_EQ(scrolled(range, code, 123), std::nullopt) << code;
    range.pos = 5;
    EXPECT_EQ(scrolled(range, 0, 0), 0);
    EXPECT_EQ(scrolled(range, 2, 0), 0);
    range.pos = 695;
    EXPECT_EQ(scrolled(range, 1, 0), 700);
    EXPECT_EQ(scrolled(range, 3, 0), 700);
}

TEST(ThumbPosition, ComesFromTheMessageOnlyIfItFitsThere)
{
    EXPECT_EQ(thumb_position({ 0, 65'535, 10, 0 }, 18'870, 149'942), 18'870);
    EXPECT_EQ(thumb_position({ 0, 65'536, 10, 0 }, 18'870, 149'942), 149'942);
    EXPECT_EQ(thumb_position({ 0, 199'999, 10, 0 }, 18'870, 149'942), 149'942);
}

TEST(HandDrag, MovesTheViewAgainstTheMouse)
{
    ScrollRange range = viewer_range(1000, 300);
    range.pos = 400;
    EXPECT_EQ(dragged(range, 100, 70), 430);
    EXPECT_EQ(dragged(range, 70, 100), 370);
    EXPECT_EQ(dragged(range, 32'767, -32'768), 700);
    EXPECT_EQ(dragged(range, -32'768, 32'767), 0);
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    EXPECT_EQ(dragged(range, highest, lowest), 700);
    EXPECT_EQ(dragged(range, lowest, highest), 0);
}

} // namespace
