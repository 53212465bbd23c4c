#include "media/wnd/gif_thread.hpp"
#include "core/locks.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/system_time.hpp"
#include "platform/process_log.hpp"
#include <algorithm>
#include <mutex>
#include <system_error>

namespace media {

using std::chrono::milliseconds;

namespace {

constexpr std::uint32_t timer_period = 1;
constexpr milliseconds shortest_wait{ 1 };
// For how long frames are skipped at most on the way to a far frame, before other threads certainly get the
// lock.
constexpr milliseconds longest_stride{ 8 };

// Called when playing ends; a log that cannot be written is ignored.
void log(const wchar_t* line) noexcept
try {
    ovlib::WinApp::process_log() << line;
} catch (...) {
    return;
}

bool is_cursor_over(const ImageCanvas& canvas)
{
    POINT cursor{};
    return GetCursorPos(&cursor) && ScreenToClient(canvas.owner().hwnd(), &cursor)
        && has_overlay(canvas.area(), ovlib::to_point(cursor));
}

} // namespace

GifThread::~GifThread()
{
    stop();
}

bool GifThread::play(ImageCanvas& canvas, PlayState first)
{
    stop();
    const std::uint32_t frames = canvas.loader().frame_count();
    if (frames == 0 || !canvas.is_created() || !wake_.handle())
        return false;
    canvas_ = &canvas;
    loader_ = &canvas.loader();
    run_ = GifRun{ canvas.area(), frames };
    active_.reset();
    drawn_.reset();
    wake_.reset();
    try {
        return start(nullptr, static_cast<std::uint32_t>(first));
    } catch (const std::system_error&) {
        log(L"GifThread の起動に失敗\r\n");
        return false;
    }
}

// The flag is stored before the event is set: a woken thread must find the flag.
void GifThread::stop()
{
    exchange_stop_flag(static_cast<std::uint32_t>(PlayState::stopping));
    wake_.set();
    Thread::stop();
}

void GifThread::click(platform::Point at)
{
    if (!is_held())
        return;
    {
        const std::scoped_lock hold{ core::frame_lock() };
        if (run_.seek(at))
            return;
    }
    exchange_stop_flag(static_cast<std::uint32_t>(swapped(state())));
}

void GifThread::redraw()
{
    const std::scoped_lock hold{ core::drawing_lock() };
    if (is_held() && active_)
        draw(state() == PlayState::paused);
}

std::uint32_t GifThread::current_frame() const
{
    const std::scoped_lock hold{ core::frame_lock() };
    return run_.current_frame();
}

// An exception ends the animation, and its last frame stays visible.
void GifThread::run()
try {
    std::unique_lock loader{ core::loader_lock(), std::defer_lock };
    if (!take_loader(loader))
        return;
    const ovlib::SystemTime fine{ timer_period };
    while (!is_stopping())
        turn();
} catch (...) {
    log(L"GifThread: 再生を中断\r\n");
}

// A load holds this lock while it dispatches messages, and one of them may stop this thread. So the thread
// polls for the lock: blocking on it could not be interrupted.
bool GifThread::take_loader(std::unique_lock<std::recursive_mutex>& loader) const
{
    while (!loader.try_lock())
        if (!wait_until(Clock::now() + shortest_wait))
            return false;
    return true;
}

// False if the thread was stopped.
bool GifThread::wait_until(Clock::time_point deadline) const
{
    for (;;) {
        if (is_stopping())
            return false;
        const Clock::duration rest = deadline - Clock::now();
        if (rest <= Clock::duration::zero())
            return true;
        wake_.wait(static_cast<std::uint32_t>(std::chrono::ceil<milliseconds>(rest).count()));
    }
}

// One turn shows one frame: it selects the frame, draws it, and waits for the rest of its time. While paused,
// a turn draws only if something visible has changed. The clock starts before decoding, so a slow frame
// shortens its own wait and the animation keeps its speed.
void GifThread::turn()
{
    const bool is_paused = state() == PlayState::paused;
    const Clock::time_point begin = Clock::now();
    if (!select_current())
        return;
    std::uint32_t time = paused_wait;
    if (std::unique_lock hold{ core::drawing_lock() }; !is_paused || drawn_ != current_look(is_paused)) {
        time = draw(is_paused);
        hold.unlock();
        InvalidateRect(canvas_->owner().hwnd(), nullptr, TRUE);
    }
    if (is_paused) {
        wait_until(Clock::now() + milliseconds{ time });
        return;
    }
    {
        const std::scoped_lock hold{ core::frame_lock() };
        run_.advance();
    }
    const auto elapsed = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
    wait_until(
        begin + elapsed + milliseconds{ wait_time(time, static_cast<std::uint32_t>(elapsed.count())) });
}

// Selects one frame at a time and releases the lock in between. The wanted frame may change meanwhile,
// because a click can choose another one. A mutex is not fair: a thread that releases it and takes it again
// at once usually gets it back. So the thread sleeps briefly after each stride, and the window can paint.
// False if the thread was stopped.
bool GifThread::select_current()
{
    Clock::time_point breath = Clock::now() + longest_stride;
    for (std::uint32_t wanted = current_frame(); active_ != wanted; wanted = current_frame()) {
        if (is_stopping())
            return false;
        select_next(wanted);
        if (active_ != wanted && Clock::now() >= breath) {
            wait_until(Clock::now() + shortest_wait);
            breath = Clock::now() + longest_stride;
        }
    }
    return !is_stopping();
}

void GifThread::select_next(std::uint32_t wanted)
{
    const std::scoped_lock hold{ core::drawing_lock() };
    const std::uint32_t next = active_ ? next_selection(*active_, wanted) : 0;
    active_ = next;
    is_selected_ = loader_->select_frame(next);
}

std::uint32_t GifThread::draw(bool is_paused)
{
    drawn_ = current_look(is_paused);
    const std::uint32_t delay = is_selected_ ? loader_->delays()[*active_] : 0;
    return canvas_->draw_animation_step(
        { run_, drawn_->frame, delay, drawn_->is_paused, drawn_->has_overlay, is_selected_ });
}

FrameLook GifThread::current_look(bool is_paused) const
{
    return { *active_, is_paused, is_cursor_over(*canvas_), look::palette().current_theme };
}

} // namespace media
