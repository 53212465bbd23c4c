#include "ovlib/gui/tipwnd.hpp"
#include "controls/tip_layout.hpp"
#include "ovlib/gui/text_stream.hpp"

namespace ovlib {

namespace {

constexpr UINT text_flags = DT_NOPREFIX;

} // namespace

TipWnd::TipWnd(Wnd* parent, int control_id)
    : PassiveWnd(parent, control_id)
{
}

bool TipWnd::on_message(WndMessage& message)
{
    switch (message.message) {
    case WM_PAINT:
        return on_paint();
    case WM_CLOSE:
        hide();
        return true;
    case WM_SETFONT:
        font_.renew(reinterpret_cast<HFONT>(message.wparam), GDI::Ownership::borrowed);
        return true;
    case WM_GETFONT:
        message.result = reinterpret_cast<std::intptr_t>(font_.handle());
        return true;
    default:
        return PassiveWnd::on_message(message);
    }
}

void TipWnd::show(const std::wstring& text, POINT position)
{
    if (!is_window())
        return;
    if (text.empty()) {
        hide();
        return;
    }
    text_ = text;
    const SIZE text_size = measure();
    const auto size = tip_size({ text_size.cx, text_size.cy });
    platform::Point place{ position.x, position.y };
    if (!fixed_place_ && parent() != nullptr) {
        RECT around{};
        GetWindowRect(parent()->hwnd(), &around);
        place = tip_place(place, size, around.right);
    }
    if (!buffer_.fit(size.width, size.height)) {
        hide();
        return;
    }
    // The picture is complete before the window moves or appears, so no old content is ever visible.
    draw();
    set_rect({ place.x, place.y, place.x + size.width, place.y + size.height }, false);
    if (!is_visible())
        show_cmd(SW_SHOWNA);
    InvalidateRect(hwnd_, nullptr, FALSE);
    UpdateWindow(hwnd_);
}

void TipWnd::hide()
{
    text_.clear();
    buffer_.release();
    show_cmd(SW_HIDE);
}

SIZE TipWnd::measure() const
{
    const MemDC dc;
    const ObjectSelection selected(dc, font_);
    RECT rect{};
    DrawTextW(dc.handle(), text_.c_str(), -1, &rect, text_flags | DT_CALCRECT);
    return { rect.right - rect.left, rect.bottom - rect.top };
}

void TipWnd::draw()
{
    {
        const GDI::Pen frame(GDI::solid_pen(1, colors_.frame));
        const GDI::Brush back(GDI::solid_brush(colors_.back));
        const ObjectSelection pen(buffer_.dc(), frame);
        const ObjectSelection brush(buffer_.dc(), back);
        Rectangle(buffer_.dc().handle(), 0, 0, buffer_.width, buffer_.height);
    }
    GDI::TextStream stream(buffer_.dc());
    stream.font = font_.handle();
    stream.color = colors_.text;
    stream.back_mode = TRANSPARENT;
    stream.flags = text_flags;
    const auto inside = tip_text_rect({ buffer_.width, buffer_.height });
    stream.draw(text_, { inside.left, inside.top, inside.right, inside.bottom });
}

bool TipWnd::on_paint()
{
    const PaintDC dc(*this);
    if (buffer_.is_created())
        buffer_.copy_to(dc);
    return true;
}

} // namespace ovlib
