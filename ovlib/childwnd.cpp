#include "ovlib/gui/childwnd.hpp"

namespace ovlib {

ChildWnd::ChildWnd(Wnd* parent, int control_id)
    : BaseWnd(parent)
    , control_id_(control_id)
{
}

void ChildWnd::on_destroyed(WndMessage&) { }

int ChildWnd::control_id() const
{
    return control_id_;
}

POINT ChildWnd::position() const
{
    POINT corner = BaseWnd::position();
    if (parent_ != nullptr)
        ScreenToClient(parent_->hwnd(), &corner);
    return corner;
}

RECT ChildWnd::rect() const
{
    const POINT corner = ChildWnd::position();
    const SIZE own = size();
    return { corner.x, corner.y, corner.x + own.cx, corner.y + own.cy };
}

void ChildWnd::on_created() { }

void ChildWnd::create_params(CREATESTRUCTW& params)
{
    BaseWnd::create_params(params);
    params.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    params.hMenu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(control_id_));
}

} // namespace ovlib
