#include "ovlib/gui/passive_wnd.hpp"

namespace ovlib {

PassiveWnd::PassiveWnd(Wnd* parent, int control_id)
    : SubWnd(parent, control_id)
{
}

void PassiveWnd::create_params(CREATESTRUCTW& params)
{
    SubWnd::create_params(params);
    params.style = static_cast<LONG>(WS_POPUP);
    params.dwExStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
    params.x = params.y = params.cx = params.cy = 0;
}

bool PassiveWnd::on_message(WndMessage& message)
{
    switch (message.message) {
    case WM_ERASEBKGND:
        message.result = 1;
        return true;
    case WM_MOUSEACTIVATE:
        message.result = MA_NOACTIVATE;
        return true;
    default:
        return false;
    }
}

void PassiveWnd::show(bool) { }

} // namespace ovlib
