#include "ovlib/gui/subwnd.hpp"

namespace ovlib {

SubWnd::SubWnd(Wnd* parent, int control_id)
    : ChildWnd(parent, control_id)
{
}

RECT SubWnd::rect() const
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): top-level, so on the screen
    return BaseWnd::rect();
}

// If the parent were still disabled, the system would activate a window of another program. Without a window
// manager Wine activates the next window on the screen, so the parent is brought to the front before this
// window is destroyed.
void SubWnd::destroy()
{
    if (is_running() && parent() != nullptr) {
        parent()->enable(true);
        if (GetActiveWindow() == hwnd_)
            SetForegroundWindow(parent()->hwnd());
    }
    ChildWnd::destroy();
}

void SubWnd::dispatch(MSG& message)
{
    if (parent() != nullptr)
        parent()->dispatch(message);
    else
        ChildWnd::dispatch(message);
}

void SubWnd::create_params(CREATESTRUCTW& params)
{
    // This is a top-level window, so the menu parameter cannot be a control id: the creation would fail.
    BaseWnd::create_params(params); // NOLINT(bugprone-parent-virtual-call)
}

// The modal loop. It ends when end_run clears `running_`, when the window is destroyed, or at WM_QUIT. A
// handler may delete this object or the parent, so both are watched. Messages without a window only wake the
// loop.
void SubWnd::run()
{
    if (running_ != 0)
        return;
    Wnd* const above = parent();
    if (above == nullptr || !is_window())
        return;
    WndWatch self(this);
    WndWatch above_alive(above);
    above->enable(false);
    running_.exchange(1);
    SetForegroundWindow(hwnd_); // messages come meanwhile, and one of them may end the run
    MSG message{};
    while (self && running_ != 0 && is_window()) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0)
            break;
        if (message.hwnd != nullptr)
            dispatch(message);
    }
    if (self)
        running_.exchange(0);
    if (!above_alive)
        return;
    above->enable(true);
    SetForegroundWindow(above->hwnd());
}

// The loop may be waiting in GetMessageW. The empty thread message wakes it, so that it sees the cleared
// flag.
void SubWnd::end_run()
{
    if (running_.exchange(0) != 0)
        PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

} // namespace ovlib
