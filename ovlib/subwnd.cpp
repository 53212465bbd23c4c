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

// With its parent still disabled the system would activate a window of another program instead. Without a
// window manager Wine activates whatever comes next on the screen, so the parent comes to the front before
// this window ends.
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
    // Top-level: a control id in the place of the menu would make the creation fail.
    BaseWnd::create_params(params); // NOLINT(bugprone-parent-virtual-call)
}

void SubWnd::run()
{
    if (running_ != 0)
        return;
    SetForegroundWindow(hwnd_);
    Wnd* const above = parent();
    if (above == nullptr || !is_window())
        return;
    WndWatch self(this);
    WndWatch above_alive(above);
    above->enable(false);
    running_.exchange(1);
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

void SubWnd::end_run()
{
    if (running_.exchange(0) != 0)
        PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

} // namespace ovlib
