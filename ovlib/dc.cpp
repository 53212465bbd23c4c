#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/wnd.hpp"

namespace ovlib {

SIZE DC::size() const
{
    return { GetDeviceCaps(hdc_, HORZRES), GetDeviceCaps(hdc_, VERTRES) };
}

PaintDC::PaintDC(const Wnd& wnd)
    : wnd_(wnd)
{
    hdc_ = BeginPaint(wnd.hwnd(), &paint_);
}

PaintDC::~PaintDC()
{
    EndPaint(wnd_.hwnd(), &paint_);
}

ClientDC::ClientDC(const Wnd& wnd)
    : DC(GetDC(wnd.hwnd()))
    , owned_({ wnd.hwnd(), hdc_ })
{
}

MemDC::MemDC(HDC like)
    : DC(CreateCompatibleDC(like))
    , owned_(hdc_)
{
}

SIZE MemDC::size() const
{
    BITMAP bitmap{};
    if (GetObjectW(GetCurrentObject(hdc_, OBJ_BITMAP), sizeof bitmap, &bitmap) == 0)
        return {};
    return { bitmap.bmWidth, bitmap.bmHeight };
}

ObjectSelection::ObjectSelection(const DC& dc, HGDIOBJ object)
    : dc_(&dc)
    , previous_(SelectObject(dc.handle(), object))
{
}

void ObjectSelection::release()
{
    if (previous_ != nullptr)
        SelectObject(dc_->handle(), previous_);
    previous_ = nullptr;
}

} // namespace ovlib
