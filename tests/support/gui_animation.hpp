// A pane that shows an animation, and counters for what its thread asks of the decoder and waits for.
#pragma once
#include "core/locks.hpp"
#include "ovlib/gui/text_stream.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_pane.hpp"
#include <algorithm>
#include <atomic>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

extern "C" void* __imp_GdipDrawImageRectI;
extern "C" void* __imp_GdipImageSelectActiveFrame;
extern "C" void* __imp_SetEvent;
extern "C" void* __imp_WaitForSingleObject;

namespace gui {

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
        frames_.clear();
        fails_ = throws_ = false;
        original_draw_ = draw_.original();
        original_select_ = select_.original();
    }

    int drawn() const { return drawn_; }
    int selected() const { return selected_; }
    // The frames in the order in which they were selected.
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

    static Gdiplus::GpStatus WINAPI note_draw(
        Gdiplus::GpGraphics* graphics, Gdiplus::GpImage* image, INT x, INT y, INT width, INT height)
    {
        ++drawn_;
        return original_draw_(graphics, image, x, y, width, height);
    }
    static Gdiplus::GpStatus WINAPI note_select(
        Gdiplus::GpImage* image, GDIPCONST GUID* dimension, UINT frame)
    {
        ++selected_;
        {
            const std::scoped_lock hold{ guard_ };
            frames_.push_back(frame);
        }
        if (throws_)
            throw std::runtime_error("a broken frame");
        return fails_ ? Gdiplus::GenericError : original_select_(image, dimension, frame);
    }

    static inline std::atomic<int> drawn_ = 0;
    static inline std::atomic<int> selected_ = 0;
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

} // namespace gui
