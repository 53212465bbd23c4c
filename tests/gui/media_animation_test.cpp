// An animation that plays in the pane: its frames, its pauses, its delay and its bar.
#include "tests/support/gui_animation.hpp"

namespace {

using gui::Animation;
using gui::DecoderCalls;
using gui::ThreadWaits;
using media::PlayState;
using ovlib::Color;
using test_support::MovingGif;

TEST_F(Animation, PlaysItsFramesInOrder)
{
    const DecoderCalls calls;
    show_frames(4, 3);
    ASSERT_TRUE(waited([&] { return calls.frames().size() >= 9; }));
    EXPECT_TRUE(calls.begin_with({ 0, 1, 2, 3, 0, 1, 2, 3, 0 })) << testing::PrintToString(calls.frames());
    EXPECT_EQ(state(), PlayState::playing);
    for (const auto shade : { MovingGif::black, MovingGif::white, MovingGif::red, MovingGif::green })
        EXPECT_TRUE(waited([&] { return is_in_view(shade); })) << shade;
}

TEST_F(Animation, OfOneFrameStaysOnItWithTheThumbAtTheLeft)
{
    const DecoderCalls calls;
    const ThreadWaits waits;
    show({ write(L"a.gif", MovingGif(8, 8).frame(MovingGif::red).bytes()) });
    EXPECT_TRUE(waits.go_on());
    EXPECT_EQ(calls.selected(), 1) << "a frame is decoded once";
    EXPECT_EQ(frame(), 0u);
    EXPECT_TRUE(is_in_view(MovingGif::red));
}

TEST_F(Animation, DecodesEachFrameOncePerPassAndScalesItOnce)
{
    const DecoderCalls calls;
    const ThreadWaits waits;
    show_frames(5, 3);
    ASSERT_TRUE(waited([&] { return waits.begun() > 20; }));
    pane().destroy();
    EXPECT_LE(std::abs(calls.selected() - waits.begun()), 2);
    EXPECT_EQ(calls.drawn(), 5 + 1) << "one more is drawn by the load itself";
}

// What is kept must be the frame itself, without the mark of a pause and without the bar.
TEST_F(Animation, AKeptFrameLooksLikeANewOne)
{
    show_frames(3, 3);
    ASSERT_TRUE(waited([&] { return pane().canvas().kept_frames() == 3; }));
    press(200, 100);
    ASSERT_TRUE(waited([&] { return is_paused_shown(); }));
    press(200, 100);
    EXPECT_TRUE(waited([&] { return !is_paused_shown(); }));
    for (const auto shade : { MovingGif::black, MovingGif::white, MovingGif::red })
        EXPECT_TRUE(waited([&] { return is_in_view(shade); })) << shade;
    show({ write(L"b.gif", MovingGif(8, 8).frame(MovingGif::green).bytes()) });
    EXPECT_TRUE(waited([&] { return is_in_view(MovingGif::green); })) << "another file has other frames";
    EXPECT_TRUE(waited([&] { return pane().canvas().kept_frames() == 1; }));
}

TEST_F(Animation, StartsPausedOnItsFirstFrameIfTheBookDemandsIt)
{
    show_paused({ 3, 3, 3 });
    EXPECT_EQ(state(), PlayState::paused);
    const DecoderCalls calls;
    const ThreadWaits waits;
    EXPECT_TRUE(is_in_view(MovingGif::black));
    ASSERT_TRUE(waits.go_on());
    EXPECT_EQ(calls.drawn(), 0) << "nothing changed, nothing is drawn";
    EXPECT_EQ(frame(), 0u);
}

TEST_F(Animation, AClickOutsideTheBarPausesAndResumes)
{
    show_frames(5, 3);
    press(200, 100);
    EXPECT_EQ(state(), PlayState::paused);
    ASSERT_TRUE(waited([&] { return is_paused_shown(); }));
    const std::uint32_t stood = frame();
    {
        const ThreadWaits waits;
        ASSERT_TRUE(waits.go_on());
    }
    EXPECT_EQ(frame(), stood);
    press(200, 100);
    EXPECT_EQ(state(), PlayState::playing);
    EXPECT_TRUE(waited([&] { return frame() != stood; }));
    EXPECT_TRUE(waited([&] { return !is_paused_shown(); }));
}

TEST_F(Animation, AClickOnTheBarChoosesAFrame)
{
    show_paused({ 3, 3, 3, 3, 3 });
    ASSERT_EQ(bar(), (platform::Rect{ 64, height - 24, width - 64, height - 12 }));
    press_bar(500);
    EXPECT_EQ(frame(), 2u);
    EXPECT_EQ(state(), PlayState::paused) << "a pause stays one";
    EXPECT_TRUE(waited([&] { return is_in_view(MovingGif::red); }));
    press_bar(999);
    EXPECT_TRUE(waited([&] { return is_in_view(MovingGif::blue); }));
    press_bar(0);
    EXPECT_TRUE(waited([&] { return is_in_view(MovingGif::black); })) << "backwards too";
    press(bar().left - 1, bar().top + 3);
    EXPECT_EQ(state(), PlayState::playing) << "beside the bar";
}

TEST_F(Animation, ContinuesFromTheChosenFrame)
{
    DecoderCalls calls;
    show_paused({ 3, 3, 3, 3, 3 });
    press_bar(700);
    ASSERT_TRUE(waited([&] { return is_in_view(MovingGif::green); }));
    calls.forget_frames();
    press(200, 100);
    ASSERT_TRUE(waited([&] { return calls.frames().size() >= 3; }));
    EXPECT_TRUE(calls.begin_with({ 4, 0, 1 })) << testing::PrintToString(calls.frames());
}

TEST_F(Animation, HasNoBarInANarrowPane)
{
    pane().set_rect({ 0, 0, 120, 100 }, false);
    show_frames(3, 3);
    press(60, 80);
    EXPECT_EQ(state(), PlayState::paused);
}

TEST_F(Animation, KeepsItsBarUntilTheNextLoadWhenThePaneChanges)
{
    const DecoderCalls calls;
    show_frames(3, 3);
    const platform::Rect before = bar();
    pane().set_rect({ 0, 0, width / 2, height / 2 }, false);
    const int selected = calls.selected();
    ASSERT_TRUE(waited([&] { return calls.selected() > selected + 3; }));
    EXPECT_EQ(bar(), before) << "the run goes on with its own";
    pane().show_selected_file();
    EXPECT_EQ(bar(), (platform::Rect{ 64, height / 2 - 24, width / 2 - 64, height / 2 - 12 }));
}

TEST_F(Animation, ShowsDelayAndBarWhileTheMouseIsOverIt)
{
    ShowWindow(parent().hwnd(), SW_SHOW);
    show_paused({ 25, 3, 3 });
    const auto ink_of_delay = [&] {
        int ink = 0;
        for (int y = 5; y < 20; ++y) {
            for (int x = 5; x < 48; ++x)
                ink += at(x, y) == ground() ? 0 : 1;
        }
        return ink;
    };
    const auto bar_color = [&] { return at(bar().left + 20, bar().top + 4); };
    EXPECT_EQ(ink_of_delay(), 0);
    const Color bare = bar_color();
    POINT inside{ 200, 100 };
    ClientToScreen(pane().hwnd(), &inside);
    gui::point_at(inside);
    EXPECT_TRUE(waited([&] { return ink_of_delay() > 20; }));
    EXPECT_NE(bar_color(), bare);
    const auto colors = media::seek_bar_colors(look::palette().accent, look::palette().panel_back);
    EXPECT_EQ(at(bar().left, bar().top + 3), colors.left_and_top);
    EXPECT_EQ(at(bar().right - 1, bar().top + 3), colors.right_and_bottom);
    EXPECT_EQ(at(bar().left + 20, bar().bottom - 1), colors.right_and_bottom);
    ASSERT_TRUE(gui::point_at({ 1, 1 }));
    EXPECT_TRUE(waited([&] { return ink_of_delay() == 0; }));
    EXPECT_EQ(bar_color(), bare);
}

// Not the time for which the frame is shown, which is shorter.
TEST_F(Animation, ShowsTheDelayStoredInTheFile)
{
    show_beside_its_delay({ 25, 3 });
    EXPECT_FALSE(is_delay_told(L"delay: 250"));
    point_into_pane();
    EXPECT_TRUE(waited([&] { return is_delay_told(L"delay: 250"); }));
    ASSERT_TRUE(gui::point_at({ 1, 1 }));
}

TEST_F(Animation, ShowsADelayOfZeroForAFrameThatCannotBeSelected)
{
    DecoderCalls calls;
    calls.fail();
    show_beside_its_delay({ 25, 3 });
    point_into_pane();
    EXPECT_TRUE(waited([&] { return is_delay_told(L"delay: 0"); }));
    ASSERT_TRUE(gui::point_at({ 1, 1 }));
}

TEST_F(Animation, ContinuesAtOnceAfterAFrameThatCannotBeSelected)
{
    DecoderCalls calls;
    calls.fail();
    show_frames(3, 6000);
    EXPECT_TRUE(waited([&] { return calls.selected() > 3; })) << "not after a minute";
    EXPECT_TRUE(is_in_view(MovingGif::black)) << "drawn as it stands";
}

TEST_F(Animation, FollowsThemeAndInterpolationWithoutChangingItsFrame)
{
    show_paused({ 3, 3, 3 });
    press_bar(500);
    ASSERT_TRUE(waited([&] { return is_in_view(MovingGif::white); }));
    DeleteFileW(loader().path().c_str());
    look::load_theme(look::theme_blue);
    pane().apply_theme();
    EXPECT_EQ(at(2, height - 2), ground());
    EXPECT_TRUE(is_paused_shown());
    look::load_theme(look::theme_standard);
    EXPECT_TRUE(waited([&] { return at(2, height - 2) == ground(); })) << "the thread sees it by itself";
    core::settings().interpolation_command = 5001;
    pane().scale_anew();
    EXPECT_TRUE(is_in_view(MovingGif::white));
    EXPECT_TRUE(is_paused_shown());
    EXPECT_EQ(frame(), 1u);
    EXPECT_EQ(state(), PlayState::paused);
}

} // namespace
