// An animation that plays in the pane: its frames, its pauses, its bar, and how its thread starts and ends.
#include "core/locks.hpp"
#include "ovlib/gui/text_stream.hpp"
#include "tests/support/environment.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_log.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_pane.hpp"
#include <algorithm>
#include <atomic>
#include <mutex>
#include <process.h>
#include <stdexcept>
#include <thread>
#include <vector>

extern "C" void* __imp_GdipDrawImageRectI;
extern "C" void* __imp_GdipImageSelectActiveFrame;
extern "C" void* __imp_SetEvent;
extern "C" void* __imp_WaitForSingleObject;
extern "C" void* __imp__beginthreadex;
extern "C" void* __imp_timeBeginPeriod;
extern "C" void* __imp_timeEndPeriod;

namespace {

using media::PlayState;
using ovlib::Color;
using test_support::MovingGif;

// Counts the calls of the decoder.
class DecoderCalls {
public:
    DecoderCalls()
        : draw_(&__imp_GdipDrawImageRectI, &note_draw)
        , select_(&__imp_GdipImageSelectActiveFrame, &note_select)
    {
        drawn_ = 0;
        selected_ = 0;
        last_ = none;
        frames_.clear();
        fails_ = throws_ = false;
        original_draw_ = draw_.original();
        original_select_ = select_.original();
    }

    int drawn() const { return drawn_; }
    int selected() const { return selected_; }
    // The frames in the order in which they were drawn, starting with the first selection.
    std::vector<UINT> frames() const
    {
        const std::scoped_lock hold{ guard_ };
        return frames_;
    }
    bool begin_with(const std::vector<UINT>& expected) const
    {
        const std::vector<UINT> drawn = frames();
        return drawn.size() >= expected.size() && std::equal(expected.begin(), expected.end(), drawn.begin());
    }
    void forget_frames()
    {
        const std::scoped_lock hold{ guard_ };
        frames_.clear();
    }
    void fail() { fails_ = true; }
    void throw_next() { throws_ = true; }

private:
    using Draw = Gdiplus::GpStatus WINAPI(Gdiplus::GpGraphics*, Gdiplus::GpImage*, INT, INT, INT, INT);
    using Select = Gdiplus::GpStatus WINAPI(Gdiplus::GpImage*, GDIPCONST GUID*, UINT);

    static constexpr UINT none = 0xFFFFFFFF;

    static Gdiplus::GpStatus WINAPI note_draw(
        Gdiplus::GpGraphics* graphics, Gdiplus::GpImage* image, INT x, INT y, INT width, INT height)
    {
        ++drawn_;
        if (const std::scoped_lock hold{ guard_ }; last_ != none)
            frames_.push_back(last_);
        return original_draw_(graphics, image, x, y, width, height);
    }
    static Gdiplus::GpStatus WINAPI note_select(
        Gdiplus::GpImage* image, GDIPCONST GUID* dimension, UINT frame)
    {
        ++selected_;
        last_ = frame;
        if (throws_)
            throw std::runtime_error("a broken frame");
        return fails_ ? Gdiplus::GenericError : original_select_(image, dimension, frame);
    }

    static inline std::atomic<int> drawn_ = 0;
    static inline std::atomic<int> selected_ = 0;
    static inline std::atomic<UINT> last_ = none;
    static inline std::mutex guard_;
    static inline std::vector<UINT> frames_; // guarded by guard_
    static inline std::atomic<bool> fails_ = false;
    static inline std::atomic<bool> throws_ = false;
    static inline Draw* original_draw_ = nullptr;
    static inline Select* original_select_ = nullptr;
    gui::ReplacedImport<Draw> draw_;
    gui::ReplacedImport<Select> select_;
};

// Counts the waits of other threads, and the calls that wake them.
class ThreadWaits {
public:
    ThreadWaits()
        : wait_(&__imp_WaitForSingleObject, &note_wait)
        , set_(&__imp_SetEvent, &note_set)
    {
        own_thread_ = GetCurrentThreadId();
        waits_ = sets_ = 0;
        last_time_ = 0;
        original_wait_ = wait_.original();
        original_set_ = set_.original();
    }

    int begun() const { return waits_; }
    DWORD last_time() const { return last_time_; }
    int woken() const { return sets_; }
    // Waits until the thread has made several more turns.
    bool go_on() const
    {
        constexpr int several = 6;
        const int before = waits_;
        return gui::pump_until([&] { return waits_ >= before + several; });
    }

private:
    using Wait = DWORD WINAPI(HANDLE, DWORD);
    using Set = BOOL WINAPI(HANDLE);

    static DWORD WINAPI note_wait(HANDLE handle, DWORD milliseconds)
    {
        if (GetCurrentThreadId() != own_thread_) {
            last_time_ = milliseconds;
            ++waits_;
        }
        return original_wait_(handle, milliseconds);
    }
    static BOOL WINAPI note_set(HANDLE handle)
    {
        ++sets_;
        return original_set_(handle);
    }

    static inline std::atomic<DWORD> own_thread_ = 0;
    static inline std::atomic<int> waits_ = 0;
    static inline std::atomic<int> sets_ = 0;
    static inline std::atomic<DWORD> last_time_ = 0;
    static inline Wait* original_wait_ = nullptr;
    static inline Set* original_set_ = nullptr;
    gui::ReplacedImport<Wait> wait_;
    gui::ReplacedImport<Set> set_;
};

class Animation : public gui::Pane {
protected:
    // Keeps the pointer off the pane, so that no overlay covers the picture.
    Animation() { gui::point_at({ 1, 1 }); }

    void show_frames(std::size_t frames, std::uint32_t delay)
    {
        show({ write(L"動.gif", MovingGif(8, 8).frames(frames, delay).bytes()) });
    }
    void show_paused(std::initializer_list<int> delays)
    {
        book().header.gif_autoplay = 0;
        show_gif(delays);
        ASSERT_TRUE(waited([&] { return is_paused_shown(); }));
    }
    template <class State> bool waited(State holds) { return gui::pump_until(holds); }
    std::uint32_t frame() { return pane().gif_thread().current_frame(); }
    // Whether this frame is shown; each frame has its own colour.
    bool is_in_view(MovingGif::Shade shade) { return middle() == MovingGif::colors[shade]; }
    // Whether the text or its box is in the corner of the picture, which is 300 x 300 at (50, 0).
    bool is_paused_shown()
    {
        const std::scoped_lock hold{ core::drawing_lock() };
        int ink = 0;
        for (int y = 2; y < 22; ++y) {
            for (int x = 52; x < 120; ++x)
                ink += at(x, y) == middle() ? 0 : 1;
        }
        return ink > 40;
    }
    // Pauses at once, in a pane that is wide enough to show the delay next to the picture.
    void show_beside_its_delay(std::initializer_list<int> delays)
    {
        ShowWindow(parent().hwnd(), SW_SHOW);
        pane().set_rect({ 0, 0, width + 60, height / 2 }, false);
        book().header.gif_autoplay = 0;
        show_gif(delays);
    }
    void point_into_pane()
    {
        POINT inside{ 200, 70 };
        ClientToScreen(pane().hwnd(), &inside);
        gui::point_at(inside);
    }
    bool is_delay_told(const wchar_t* delay)
    {
        ovlib::BackBuffer expected;
        if (!expected.create(140, 30))
            return false;
        gui::clear(expected, ground());
        ovlib::GDI::TextStream text{ expected.dc() };
        text.back_mode = TRANSPARENT;
        text.color = look::palette().viewer_text;
        text.font = look::shared_font(look::SharedFont::ui_9_bold);
        text.draw(delay, { 5, 5, 140, 30 });
        const std::scoped_lock hold{ core::drawing_lock() };
        for (int y = 0; y < expected.height; ++y) {
            for (int x = 0; x < expected.width; ++x) {
                if (at(x, y) != gui::pixel(expected, x, y))
                    return false;
            }
        }
        return true;
    }
    platform::Rect bar() { return pane().gif_thread().bar(); }
    void press_bar(int permille) { press(bar().left + bar().width() * permille / 1000, bar().top + 3); }
};

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
    show({ write(L"a.gif", MovingGif(8, 8).frame(MovingGif::red).bytes()) });
    EXPECT_TRUE(waited([&] { return calls.drawn() > 4; }));
    EXPECT_EQ(calls.selected(), 1) << "a frame is decoded once";
    EXPECT_EQ(frame(), 0u);
    EXPECT_TRUE(is_in_view(MovingGif::red));
}

TEST_F(Animation, DecodesEachFrameOncePerPass)
{
    const DecoderCalls calls;
    show_frames(5, 3);
    ASSERT_TRUE(waited([&] { return calls.drawn() > 20; }));
    pane().destroy();
    EXPECT_LE(std::abs(calls.drawn() - 1 - calls.selected()), 1) << "one more is drawn by the load itself";
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
    ASSERT_TRUE(waited([&] { return calls.frames().size() >= 4; }));
    EXPECT_TRUE(calls.begin_with({ 3, 4, 0, 1 })) << testing::PrintToString(calls.frames());
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
    const int drawn = calls.drawn();
    ASSERT_TRUE(waited([&] { return calls.drawn() > drawn + 3; }));
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

TEST_F(Animation, KeepsNoMemoryForTheFramesItShows)
{
    const DecoderCalls calls;
    show({ write(L"a.gif", MovingGif(200, 200).frames(100, 1).bytes()) });
    press_bar(10);
    ASSERT_TRUE(waited([&] { return calls.drawn() > 20; }));
    const std::size_t before = gui::memory_in_use();
    ASSERT_TRUE(waited([&] { return calls.drawn() > 220; }));
    constexpr std::size_t frames = 10 * 200 * 200 * 4;
    EXPECT_LT(gui::memory_in_use(), before + frames);
}

} // namespace
