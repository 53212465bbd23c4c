// The frames of a GIF and their playback.
#include "media/gif_play.hpp"
#include "media/gif_walker.hpp"
#include "tests/support/picture_bytes.hpp"
#include <gtest/gtest.h>

namespace {

using media::frame_delays;
using media::frame_time;
using media::GifRun;
using media::GifWalk;
using media::PictureSize;
using media::PlayState;
using media::walk_gif;
using platform::Point;
using platform::Rect;
using platform::Size;
using test_support::GifBytes;
using test_support::PictureBytes;
using Delays = std::vector<std::uint16_t>;
using Milliseconds = std::vector<std::uint32_t>;

std::optional<Delays> delays_of(const std::vector<std::byte>& bytes)
{
    const std::optional<GifWalk> walk = walk_gif(bytes);
    return walk ? std::optional{ walk->delays } : std::nullopt;
}

TEST(GifWalker, GivesEachFrameTheDelayBeforeIt)
{
    GifBytes gif{ 4, 3 };
    gif.delay(10).frame(0, 0, 4, 3).comment("x").delay(0).frame(0, 0, 1, 1).delay(65535).comment("a comment");
    gif.frame(0, 0, 1, 1).frame(0, 0, 1, 1);
    EXPECT_EQ(delays_of(gif.bytes()), (Delays{ 10, 0, 65535, 0 }));
    EXPECT_EQ(walk_gif(gif.bytes())->screen, (PictureSize{ 4, 3 }));
    EXPECT_EQ(walk_gif(gif.bytes())->frame_count(), 4u);
}

TEST(GifWalker, SkipsColourTables)
{
    const GifBytes gif =
        GifBytes{ 4, 3, 0x87 }.delay(7).frame(0, 0, 4, 3, 0x80).delay(8).frame(0, 0, 4, 3, 0x87);
    EXPECT_EQ(delays_of(gif.bytes()), (Delays{ 7, 8 }));
}

TEST(GifWalker, FindsAFrameWithoutADelay)
{
    EXPECT_EQ(delays_of(GifBytes{ 1, 1 }.frame(0, 0, 1, 1).bytes()), (Delays{ 0 }));
    EXPECT_EQ(delays_of(GifBytes{ 1, 1 }.bytes()), Delays{});
}

TEST(GifWalker, KeepsTheFramesBeforeTruncationOrDamage)
{
    const GifBytes two = GifBytes{ 1, 1 }.delay(5).frame(0, 0, 1, 1).delay(6).frame(0, 0, 1, 1);
    EXPECT_EQ(delays_of(two.bytes_without_end()), (Delays{ 5, 6 }));
    std::vector<std::byte> cut = two.bytes_without_end();
    cut.resize(cut.size() - 3);
    EXPECT_EQ(delays_of(cut), (Delays{ 5, 6 }));
    cut.resize(cut.size() - 10);
    EXPECT_EQ(delays_of(cut), (Delays{ 5 }));
    PictureBytes broken;
    broken.append(two.bytes_without_end()).byte(0x77).append(GifBytes{ 1, 1 }.frames(1).bytes());
    EXPECT_EQ(delays_of(broken.bytes()), (Delays{ 5, 6 }));
}

TEST(GifWalker, RejectsOtherBytes)
{
    EXPECT_EQ(walk_gif({}), std::nullopt);
    EXPECT_EQ(delays_of(PictureBytes{}.text("GIF88a").zeros(20).bytes()), std::nullopt);
    EXPECT_EQ(delays_of(PictureBytes{}.text("GIF87a").zeros(6).bytes()), std::nullopt);
    EXPECT_EQ(delays_of(PictureBytes{}.text("GIF87a").zeros(7).bytes()), Delays{});
}

TEST(GifWalker, WalksManyThousandFrames)
{
    EXPECT_EQ(walk_gif(GifBytes{ 1, 1 }.frames(20000).bytes())->frame_count(), 20000u);
}

TEST(FrameDelays, AreTenTimesTheValueAndAHundredForNone)
{
    EXPECT_EQ(frame_delays(3, Milliseconds{ 1, 0, 10 }, true), (Milliseconds{ 10, 100, 100 }));
    EXPECT_EQ(frame_delays(2, Milliseconds{ 65535, 0xFFFFFFFF }, true), (Milliseconds{ 655350, 655350 }));
    EXPECT_EQ(frame_delays(2, Milliseconds{ 0x10003, 0x10000 }, true), (Milliseconds{ 30, 100 }));
}

TEST(FrameDelays, FillInValuesThatTheFileOmits)
{
    EXPECT_EQ(frame_delays(3, Milliseconds{ 5 }, true), (Milliseconds{ 50, 100, 100 }));
    EXPECT_EQ(frame_delays(1, Milliseconds{ 5, 6, 7 }, true), (Milliseconds{ 50 }));
}

TEST(FrameDelays, AreRequiredForSeveralFramesOnly)
{
    EXPECT_EQ(frame_delays(1, {}, false), (Milliseconds{ 100 }));
    EXPECT_EQ(frame_delays(2, {}, false), std::nullopt);
    EXPECT_EQ(frame_delays(0, {}, true), std::nullopt);
}

TEST(FrameTime, IsThreePercentShorterAndHasAMinimum)
{
    EXPECT_EQ(frame_time(0), 29u);
    EXPECT_EQ(frame_time(10), 29u);
    EXPECT_EQ(frame_time(30), 29u);
    EXPECT_EQ(frame_time(31), 30u);
    EXPECT_EQ(frame_time(100), 97u);
    EXPECT_EQ(frame_time(655350), 635689u);
}

TEST(FrameTime, IsWaitedForMinusTheDrawing)
{
    EXPECT_EQ(media::wait_time(97, 0), 97u);
    EXPECT_EQ(media::wait_time(97, 40), 57u);
    EXPECT_EQ(media::wait_time(97, 96), 1u);
    EXPECT_EQ(media::wait_time(97, 97), 1u);
    EXPECT_EQ(media::wait_time(97, 5000), 1u);
    EXPECT_EQ(media::paused_wait, 30u);
}

TEST(PlayState, SwapsBetweenPlayingAndPaused)
{
    EXPECT_EQ(media::swapped(PlayState::playing), PlayState::paused);
    EXPECT_EQ(media::swapped(PlayState::paused), PlayState::playing);
    EXPECT_EQ(media::swapped(PlayState::stopping), PlayState::paused);
    EXPECT_EQ(media::swapped(media::swapped(PlayState::playing)), PlayState::playing);
    EXPECT_EQ(static_cast<int>(media::first_state(true)), 0);
    EXPECT_EQ(static_cast<int>(PlayState::stopping), 1);
    EXPECT_EQ(static_cast<int>(media::first_state(false)), 2);
}

TEST(GifRun, WrapsAround)
{
    GifRun run{ { 650, 676 }, 3 };
    std::vector<std::uint32_t> shown;
    for (int i = 0; i < 5; ++i, run.advance())
        shown.push_back(run.current_frame());
    EXPECT_EQ(shown, (std::vector<std::uint32_t>{ 0, 1, 2, 0, 1 }));
    EXPECT_EQ(run.first_frame(), 0u);
    EXPECT_EQ(run.last_frame(), 2u);
}

TEST(GifRun, HasItsBarAtTheBottom)
{
    const GifRun run{ { 650, 676 }, 11 };
    EXPECT_EQ(run.bar(), (Rect{ 64, 652, 586, 664 }));
    EXPECT_DOUBLE_EQ(run.pixels_per_frame(), 52.2);
    EXPECT_EQ(run.thumb_x(0), 64);
    EXPECT_EQ(run.thumb_x(1), 116);
    EXPECT_EQ(run.thumb_x(10), 586);
}

TEST(GifRun, OfOneFrameKeepsItsThumbAtTheLeft)
{
    GifRun run{ { 650, 676 }, 1 };
    EXPECT_EQ(run.pixels_per_frame(), 0.0);
    EXPECT_EQ(run.thumb_x(0), 64);
    run.advance();
    EXPECT_EQ(run.current_frame(), 0u);
    EXPECT_TRUE(run.seek({ 585, 652 }));
    EXPECT_EQ(run.current_frame(), 0u);
}

TEST(GifRun, SeeksWhereTheBarIsClicked)
{
    GifRun run{ { 650, 676 }, 100 };
    EXPECT_TRUE(run.seek({ 64 + 261, 655 }));
    EXPECT_EQ(run.current_frame(), 50u);
    EXPECT_TRUE(run.seek({ 585, 663 }));
    EXPECT_EQ(run.current_frame(), 99u);
    EXPECT_TRUE(run.seek({ 64, 652 }));
    EXPECT_EQ(run.current_frame(), 0u);
    EXPECT_TRUE(run.seek({ 64 + 5, 652 }));
    EXPECT_EQ(run.current_frame(), 0u);
    EXPECT_TRUE(run.seek({ 64 + 6, 652 }));
    EXPECT_EQ(run.current_frame(), 1u);
}

TEST(GifRun, IgnoresAClickOutsideTheBar)
{
    GifRun run{ { 650, 676 }, 100 };
    run.advance();
    for (const Point click : { Point{ 63, 655 }, Point{ 586, 655 }, Point{ 300, 651 }, Point{ 300, 664 } })
        EXPECT_FALSE(run.seek(click));
    EXPECT_EQ(run.current_frame(), 1u);
}

TEST(GifRun, HasNoBarInANarrowPane)
{
    GifRun run{ { 127, 50 }, 9 };
    EXPECT_EQ(run.bar(), (Rect{ 63, 26, 63, 38 }));
    EXPECT_FALSE(run.seek({ 63, 30 }));
    EXPECT_EQ(run.thumb_x(5), 63);
    EXPECT_EQ((GifRun{ { 128, 50 }, 9 }.bar()), (Rect{ 64, 26, 64, 38 }));
    EXPECT_EQ((GifRun{ { 0, 0 }, 9 }.bar().width()), 0);
}

TEST(GifRun, HandlesTheLargestCounts)
{
    GifRun run{ { 30000, 676 }, 0xFFFFFFFF };
    EXPECT_TRUE(run.seek({ 29935, 660 }));
    EXPECT_LT(run.current_frame(), run.frame_count());
    EXPECT_EQ(run.thumb_x(run.last_frame()), 29936);
    EXPECT_EQ((GifRun{ { 650, 676 }, 0 }.frame_count()), 1u);
}

TEST(NextSelection, GoesForwardOneByOneAndBackFromTheStart)
{
    EXPECT_EQ(media::next_selection(4, 4), 4u);
    EXPECT_EQ(media::next_selection(4, 5), 5u);
    EXPECT_EQ(media::next_selection(4, 4000), 5u);
    EXPECT_EQ(media::next_selection(4, 3), 0u);
    int steps = 0;
    for (std::uint32_t at = 10; at != 7; ++steps)
        at = media::next_selection(at, 7);
    EXPECT_EQ(steps, 8);
}

TEST(FrameLook, ChangesWithFrameOverlayAndTheme)
{
    const media::FrameLook look{ 3, true, false, 6000 };
    EXPECT_EQ(look, (media::FrameLook{ 3, true, false, 6000 }));
    EXPECT_NE(look, (media::FrameLook{ 4, true, false, 6000 }));
    EXPECT_NE(look, (media::FrameLook{ 3, false, false, 6000 }));
    EXPECT_NE(look, (media::FrameLook{ 3, true, true, 6000 }));
    EXPECT_NE(look, (media::FrameLook{ 3, true, false, 6002 }));
}

TEST(Overlay, IsShownWhileTheCursorIsInside)
{
    constexpr Size pane{ 650, 676 };
    EXPECT_TRUE(media::has_overlay(pane, { 0, 0 }));
    EXPECT_TRUE(media::has_overlay(pane, { 649, 675 }));
    EXPECT_FALSE(media::has_overlay(pane, { 650, 0 }));
    EXPECT_FALSE(media::has_overlay(pane, { 0, 676 }));
    EXPECT_FALSE(media::has_overlay(pane, { -1, 0 }));
    EXPECT_FALSE(media::has_overlay(pane, { 0, -1 }));
}

TEST(Overlay, ShowsTheStoredDelay)
{
    EXPECT_EQ(media::delay_text(10), L"delay: 10");
    EXPECT_EQ(media::delay_text(0), L"delay: 0");
    EXPECT_EQ(media::delay_text_rect({ 650, 676 }), (Rect{ 5, 5, 645, 676 }));
}

TEST(Overlay, ShowsPausedInTheCornerOfThePicture)
{
    EXPECT_STREQ(media::paused_text, L"||  Paused ");
    EXPECT_EQ(media::paused_text_alpha, 100);
    EXPECT_EQ(media::paused_text_place({ 30, 40, 100, 100 }), (Point{ 35, 45 }));
}

TEST(SeekBar, IsPlayedUpToItsThumb)
{
    const GifRun run{ { 650, 676 }, 11 };
    EXPECT_EQ(media::seek_bar_look(run, 1),
        (media::SeekBarLook{ { 64, 652, 116, 664 }, { 116, 652, 586, 664 }, { 116, 653 }, { 116, 663 },
            { 64, 652, 586, 664 } }));
    EXPECT_EQ(media::seek_bar_alpha, 120);
}

TEST(SeekBar, IsShadedFromTheTheme)
{
    using ovlib::rgb;
    const media::SeekBarColors colors = media::seek_bar_colors(rgb(200, 100, 0), rgb(255, 40, 10));
    EXPECT_EQ(colors.played, rgb(200, 100, 0));
    EXPECT_EQ(colors.rest, rgb((200 * 105) >> 8, (100 * 105) >> 8, 0));
    EXPECT_EQ(colors.thumb, rgb((200 * 155 + 25755) >> 8, (100 * 155 + 25755) >> 8, 25755 >> 8));
    EXPECT_EQ(colors.left_and_top, rgb((255 * 105) >> 8, (40 * 105) >> 8, (10 * 105) >> 8));
    EXPECT_EQ(colors.right_and_bottom,
        rgb((255 * 155 + 25755) >> 8, (40 * 155 + 25755) >> 8, (10 * 155 + 25755) >> 8));
}

} // namespace
