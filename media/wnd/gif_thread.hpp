// Plays an animation into a pane on a thread of its own.
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

// Its stop flag is the PlayState. Everything but the run itself belongs to the thread of the windows. The run
// holds the loader lock throughout and the drawing lock for the time of one frame at most; it asks the window
// to repaint and waits for nobody, so that it can be joined by the window's thread at any time.
class GifThread : public ovlib::Thread {
public:
    GifThread() = default;
    ~GifThread() override;

    // What plays is in the canvas's loader; both stay as they are until stop. False when no thread can be
    // had, which the log tells, or when there is nothing to play.
    bool play(ImageCanvas& canvas, PlayState first);
    // Wakes a thread that waits out a frame, whatever its delay, and joins it.
    void stop();
    // On the bar it chooses a frame; anywhere else it pauses or goes on. Neither wakes the thread.
    void click(platform::Point at);
    // Draws the frame in view anew, for another way of scaling or other colours.
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
    FrameLook look(bool is_paused) const;

    ovlib::Event wake_{ ovlib::Event::Reset::manual };
    ImageCanvas* canvas_ = nullptr;
    ImageLoader* loader_ = nullptr;
    GifRun run_{ {}, 1 }; // its current frame under the frame lock

    // Under the drawing lock.
    std::optional<std::uint32_t> active_; // the frame that was selected last
    bool is_selected_ = false; // and whether it could be
    std::optional<FrameLook> drawn_;
};

} // namespace media
