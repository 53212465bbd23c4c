// Plays an animation in a pane, on its own thread.
#pragma once
#include "media/gif_play.hpp"
#include "media/wnd/image_canvas.hpp"
#include "ovlib/event.hpp"
#include "ovlib/thread.hpp"
#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>

namespace media {

// The stop flag holds the PlayState. All members except run() and the functions it calls belong to the user
// interface thread. The running thread holds the loader lock all the time, and the drawing lock for at most
// one frame at a time. It invalidates the window and waits for no other thread, so the user interface thread
// can join it at any time.
class GifThread : public ovlib::Thread {
public:
    GifThread() = default;
    ~GifThread() override;

    // Plays the picture in the canvas's loader; both must stay unchanged until stop. False if there is
    // nothing to play, or if no thread could be started, which is logged.
    bool play(ImageCanvas& canvas, PlayState first);
    // Wakes the thread from waiting between frames, whatever the delay, and joins it.
    void stop();
    // A click on the seek bar chooses a frame; elsewhere it pauses or resumes. Neither wakes the thread.
    void click(platform::Point at);
    // Draws the current frame again, for another scaling or other colours.
    void redraw();

    PlayState state() const { return static_cast<PlayState>(stop_flag()); }
    std::uint32_t current_frame() const;
    platform::Rect bar() const { return run_.bar(); }

protected:
    void run() override;

private:
    using Clock = std::chrono::steady_clock;

    bool is_stopping() const { return state() == PlayState::stopping; }
    bool wait_until(Clock::time_point deadline) const;
    bool take_loader(std::unique_lock<std::recursive_mutex>& loader) const;
    void turn();
    bool select_current();
    void select_next(std::uint32_t wanted);
    std::uint32_t draw(bool is_paused);
    FrameLook current_look(bool is_paused) const;

    ovlib::Event wake_{ ovlib::Event::Reset::manual };
    ImageCanvas* canvas_ = nullptr;
    ImageLoader* loader_ = nullptr;
    GifRun run_{ {}, 1 }; // its current frame is guarded by the frame lock

    // Guarded by the drawing lock.
    std::optional<std::uint32_t> active_; // the frame selected last
    bool is_selected_ = false; // whether that frame could be selected
    std::optional<FrameLook> drawn_;
};

} // namespace media
