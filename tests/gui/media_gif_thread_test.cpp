// How the thread of an animation starts, waits, stops and ends.
#include "core/locks.hpp"
#include "tests/support/environment.hpp"
#include "tests/support/gui_animation.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_log.hpp"
#include <atomic>
#include <mutex>
#include <process.h>
#include <stdexcept>
#include <thread>

extern "C" void* __imp__beginthreadex;
extern "C" void* __imp_timeBeginPeriod;
extern "C" void* __imp_timeEndPeriod;

namespace {

using gui::Animation;
using gui::DecoderCalls;
using gui::ThreadWaits;
using media::PlayState;
using test_support::MovingGif;

TEST_F(Animation, HoldsTheLoaderLockWhileItPlays)
{
    const auto is_free = [] {
        const std::unique_lock hold{ core::loader_lock(), std::try_to_lock };
        return hold.owns_lock();
    };
    show_frames(3, 3);
    EXPECT_TRUE(waited([&] { return !is_free(); }));
    show({});
    EXPECT_TRUE(is_free());
    EXPECT_FALSE(pane().gif_thread().is_held());
}

// The frame lasts longer than ten minutes, so this test ends only if stop wakes the thread.
TEST_F(Animation, AStopDoesNotWaitForALongFrame)
{
    show_gif({ 65535, 65535 });
    ASSERT_TRUE(waited([&] { return frame() == 1; }));
    show({});
    EXPECT_FALSE(pane().gif_thread().is_held());
    show_gif({ 65535, 65535 });
    end_pane();
}

// A click does not wake the thread, so the wait for the frame's end is still the same one.
TEST_F(Animation, APauseDoesNotEndALongFrame)
{
    const ThreadWaits waits;
    show_gif({ 65535, 3, 3 });
    ASSERT_TRUE(waited([&] { return waits.last_time() > 600'000; }));
    const int begun = waits.begun();
    const int woken = waits.woken();
    press(200, 100);
    press(200, 100);
    EXPECT_EQ(waits.woken(), woken);
    EXPECT_EQ(waits.begun(), begun);
    EXPECT_EQ(frame(), 1u) << "clicks leave its timing alone";
}

// A load that dispatches messages holds the lock, and a message may stop the animation.
TEST_F(Animation, CanBeStoppedWhileItWaitsForTheLoader)
{
    media::ImageLoader loader{ thumbnails, properties, paths };
    ASSERT_TRUE(loader.load(write_gif(L"a.gif", { 3, 3 })));
    media::ImageCanvas canvas{ pane(), loader };
    ASSERT_TRUE(canvas.fit());
    std::atomic<bool> is_held = false;
    std::atomic<bool> may_end = false;
    std::atomic<bool> has_ended = false;
    std::thread loading{ [&] {
        const std::scoped_lock hold{ core::loader_lock() };
        is_held = true;
        gui::poll_until([&] { return may_end.load(); });
        has_ended = true;
    } };
    EXPECT_TRUE(gui::poll_until([&] { return is_held.load(); }));
    const DecoderCalls calls;
    media::GifThread thread;
    {
        const ThreadWaits waits;
        EXPECT_TRUE(thread.play(canvas, PlayState::playing));
        EXPECT_TRUE(gui::poll_until([&] { return waits.begun() > 5; }));
        EXPECT_EQ(calls.selected(), 0) << "nothing is decoded while something loads";
        thread.stop();
    }
    EXPECT_FALSE(has_ended) << "it did not wait for the load to end";
    EXPECT_FALSE(thread.is_held());
    may_end = true;
    loading.join();
}

TEST_F(Animation, ThatCannotBeStartedShowsItsFirstFrameAndIsLogged)
{
    using Begin = std::uintptr_t(void*, unsigned, unsigned(__stdcall*)(void*), void*, unsigned, unsigned*);
    const gui::LogEar ear;
    {
        const gui::ReplacedImport<Begin> none{ &__imp__beginthreadex,
            [](void*, unsigned, unsigned(__stdcall*)(void*), void*, unsigned, unsigned*) -> std::uintptr_t {
                return 0;
            } };
        show_frames(3, 3);
    }
    EXPECT_FALSE(pane().gif_thread().is_held());
    EXPECT_EQ(ear.heard(), L"GifThread の起動に失敗\r\n");
    EXPECT_TRUE(is_in_view(MovingGif::black));
    press(200, 100);
    double_click();
    pane().scale_anew();
    show_frames(3, 3);
    EXPECT_TRUE(pane().gif_thread().is_held());
}

TEST_F(Animation, ThatEndsByAnExceptionKeepsItsFrame)
{
    const gui::LogEar ear;
    DecoderCalls calls;
    calls.throw_next();
    show_frames(3, 3);
    EXPECT_TRUE(waited([&] { return !ear.heard().empty(); }));
    EXPECT_EQ(ear.heard(), L"GifThread: 再生を中断\r\n");
    EXPECT_TRUE(is_in_view(MovingGif::black));
    press(200, 100);
    show({});
    const std::unique_lock hold{ core::loader_lock(), std::try_to_lock };
    EXPECT_TRUE(hold.owns_lock()) << "what it held is given back";
}

TEST_F(Animation, RestoresTheTimersResolution)
{
    static std::atomic<int> periods;
    periods = 0;
    using Period = MMRESULT WINAPI(UINT);
    const gui::ReplacedImport<Period> begin{ &__imp_timeBeginPeriod, [](UINT milliseconds) -> MMRESULT {
                                                periods += milliseconds == 1 ? 1 : 100;
                                                return 0;
                                            } };
    const gui::ReplacedImport<Period> end{ &__imp_timeEndPeriod, [](UINT milliseconds) -> MMRESULT {
                                              periods -= milliseconds == 1 ? 1 : 100;
                                              return 0;
                                          } };
    show_frames(3, 3);
    EXPECT_TRUE(waited([&] { return periods == 1; }));
    show({});
    EXPECT_EQ(periods, 0);
}

TEST_F(Animation, LetsOthersDrawOnTheWayToAFarFrame)
{
    constexpr int frames = 3000;
    book().header.gif_autoplay = 0;
    show_frames(frames, 3);
    ASSERT_TRUE(waited([&] { return is_paused_shown(); }));
    const DecoderCalls calls;
    press_bar(999);
    int turns = 0;
    while (calls.selected() < frames - 10 && turns < 100'000) {
        const std::scoped_lock hold{ core::drawing_lock() };
        ++turns;
    }
    EXPECT_GT(turns, 20);
    EXPECT_TRUE(waited([&] { return calls.drawn() > 0; }));
    const int forward = calls.selected();
    EXPECT_LE(forward, frames) << "no frame twice";
    // It also ends at once if it is stopped on the way back.
    press_bar(900);
    ASSERT_TRUE(waited([&] { return calls.selected() > forward; }));
    show({});
    EXPECT_LT(calls.selected(), forward + frames / 2);
}

TEST_F(Animation, AcceptsClicksThemesAndSizesWhileItPlays)
{
    ShowWindow(parent().hwnd(), SW_SHOW);
    show_frames(50, 1);
    for (int i = 0; i < 120; ++i) {
        press_bar(i * 37 % 1000);
        press(200, 100);
        look::load_theme(look::theme_standard + i % 6);
        pane().apply_theme();
        core::settings().interpolation_command = 5000 + i % 6;
        pane().scale_anew();
        pane().set_rect({ 0, 0, width - i % 3, height - i % 5 }, true);
        gui::pump();
    }
    look::load_theme(look::theme_standard);
    EXPECT_TRUE(pane().gif_thread().is_held());
}

TEST_F(Animation, CanBeStartedAndStoppedThousandsOfTimes)
{
    const auto rounds = static_cast<int>(test_support::number_from_environment("PAGEWICK_SOAK_ROUNDS", 2000));
    show_frames(3, 3);
    media::ImageLoader loader{ thumbnails, properties, paths };
    const std::wstring path = pane().loader().path();
    show({});
    ASSERT_TRUE(loader.load(path));
    media::ImageCanvas canvas{ pane(), loader };
    ASSERT_TRUE(canvas.fit());
    canvas.layout(media::mode_fit, 0);
    media::GifThread thread;
    std::size_t before = 0;
    for (int i = 0; i < rounds; ++i) {
        ASSERT_TRUE(thread.play(canvas, i % 2 == 0 ? PlayState::playing : PlayState::paused));
        if (i % 64 == 0)
            Sleep(1);
        thread.stop();
        ASSERT_FALSE(thread.is_held());
        if (i == 200)
            before = gui::memory_in_use();
    }
    constexpr std::size_t few = 4 << 20;
    EXPECT_LT(gui::memory_in_use(), before + few);
}

TEST_F(Animation, KeepsScaledFramesUpToTheirLimitAndNothingElse)
{
    const DecoderCalls calls;
    show({ write(L"a.gif", MovingGif(200, 200).frames(200, 1).bytes()) });
    press_bar(10);
    ASSERT_TRUE(waited([&] { return calls.selected() > 20; }));
    const std::size_t before = gui::memory_in_use();
    ASSERT_TRUE(waited([&] { return calls.selected() > 420; }));
    constexpr std::size_t ten_decoded_frames = 10 * 200 * 200 * 4;
    EXPECT_LT(gui::memory_in_use(), before + media::FrameCache::limit + ten_decoded_frames);
    const auto frame_bytes = static_cast<std::size_t>(pane().canvas().stride * pane().canvas().height);
    EXPECT_EQ(
        pane().canvas().kept_frames(), std::min<std::size_t>(media::FrameCache::limit / frame_bytes, 200));
    show({});
    EXPECT_EQ(pane().canvas().kept_frames(), 0u);
}

} // namespace
