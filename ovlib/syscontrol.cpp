#include "ovlib/gui/syscontrol.hpp"
#include "wnd_proc.hpp"
#include <commctrl.h>

namespace ovlib {

namespace {

constexpr UINT_PTR subclass_id = 1;

} // namespace

SysControl::SysControl(Wnd* parent, int control_id)
    : ChildWnd(parent, control_id)
{
}

LRESULT SysControl::ask(UINT message, WPARAM wparam, LPARAM lparam) const
{
    return SendMessageW(hwnd(), message, wparam, lparam);
}

void SysControl::destroy()
{
    if (is_subclassed())
        set_subclassed(false);
    ChildWnd::destroy();
}

void SysControl::set_tab_order(std::uint16_t group, std::uint16_t index)
{
    ChildWnd::set_tab_order(group, index);
    if (group != 0 && index != 0)
        set_subclassed(true);
}

std::int64_t SysControl::default_proc(WndMessage& message)
{
    if (message.message == WM_CHAR && message.wparam == VK_TAB && focus_next())
        return 0;
    return DefSubclassProc(message.hwnd, message.message, message.wparam, message.lparam);
}

void SysControl::set_subclassed(bool subclassed)
{
    const BOOL done = subclassed ? SetWindowSubclass(hwnd_, &WndProc::subclass, subclass_id, 0)
                                 : RemoveWindowSubclass(hwnd_, &WndProc::subclass, subclass_id);
    if (done)
        subclassed_ = subclassed ? 1 : 0;
}

bool SysControl::is_subclassed() const
{
    return subclassed_ != 0;
}

} // namespace ovlib
