#include "ovlib/gui/slider.hpp"
#include "ovlib/gui/strokes.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace ovlib {

namespace {

constexpr std::uint32_t pos_shift = 16;

// GetKeyState reflects the messages that the thread has already retrieved. A release that is still in the
// queue ends the drag when it arrives.
bool is_left_button_down()
{
    return GetKeyState(VK_LBUTTON) < 0;
}

} // namespace

Slider::Slider(Wnd* parent, int control_id)
    : ChildWnd(parent, control_id)
{
}

void Slider::create_params(CREATESTRUCTW& params)
{
    ChildWnd::create_params(params);
    params.x = params.y = params.cx = params.cy = 0;
}

bool Slider::on_message(WndMessage& message)
{
    switch (message.message) {
    case WM_CREATE:
        return true;
    case WM_DESTROY:
        on_destroy();
        return true;
    case WM_SIZE:
        on_size();
        return true;
    case WM_SETFONT:
        set_font(reinterpret_cast<HFONT>(message.wparam));
        return true;
    case WM_GETFONT:
        message.result = reinterpret_cast<std::intptr_t>(font());
        return true;
    case WM_KILLFOCUS:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        on_release();
        return true;
    case WM_ERASEBKGND:
        message.result = 1;
        return true;
    case WM_PAINT:
        on_paint();
        return true;
    case WM_LBUTTONDOWN:
        on_press(cursor_pos());
        return true;
    case WM_MOUSEMOVE:
        if ((message.wparam & MK_LBUTTON) != 0)
            on_drag(cursor_pos());
        else
            on_release(); // the button was released over another window
        return true;
    default:
        return false;
    }
}

void Slider::set_font(HFONT font)
{
    font_.renew(font, GDI::Ownership::borrowed);
}

HFONT Slider::font() const
{
    return font_.handle();
}

void Slider::on_size()
{
    const SIZE client = client_size();
    if (!buffer.fit(static_cast<int>(client.cx), static_cast<int>(client.cy))) {
        send(WM_CLOSE, 0, 0);
        return;
    }
    layout();
    redraw();
    repaint();
}

void Slider::on_destroy()
{
    release_slider(*this);
    let_mouse_go();
    buffer.release();
}

void Slider::on_paint()
{
    const PaintDC dc(*this);
    buffer.copy_to(dc);
}

void Slider::on_press(POINT point)
{
    const SliderPart part = slider_part(*this, to_point(point));
    const auto notice = press_slider(*this, part, x_to_value(point));
    if (!notice)
        return;
    WndWatch alive(this);
    show_value();
    tell(*notice);
    if (!alive || !is_window())
        return;
    if (begin_slider_drag(*this, is_left_button_down())) {
        SetCapture(hwnd());
        return;
    }
    redraw();
    repaint();
}

void Slider::on_drag(POINT point)
{
    if (!captured)
        return;
    const auto notice = drag_slider(*this, x_to_value(point));
    show_value();
    if (notice)
        tell(*notice);
}

// The state changes before the capture is released: ReleaseCapture sends WM_CAPTURECHANGED at once, which
// must find no drag to end.
void Slider::on_release()
{
    const auto notice = release_slider(*this);
    if (!notice)
        return;
    let_mouse_go();
    redraw();
    repaint();
    tell(*notice);
}

// Another window may have taken the capture, and keeps it.
void Slider::let_mouse_go()
{
    if (GetCapture() == hwnd())
        ReleaseCapture();
}

void Slider::refuse_move(std::int32_t old_value)
{
    release_slider(*this);
    pressed = false;
    let_mouse_go();
    value = clamp_value(*this, old_value);
    show_value();
}

void Slider::show_value()
{
    update_thumb();
    redraw();
    repaint();
}

void Slider::repaint()
{
    if (hwnd() == nullptr)
        return; // InvalidateRect with a null handle would invalidate all windows
    InvalidateRect(hwnd(), nullptr, FALSE);
    UpdateWindow(hwnd());
}

void Slider::tell(const SliderNotice& notice)
{
    notify(static_cast<int>(notice.code), notice.pos);
}

void Slider::notify(int code, int pos)
{
    if (parent() == nullptr)
        return;
    const auto wparam = static_cast<std::uint64_t>(code)
        | static_cast<std::uint64_t>(static_cast<std::uint32_t>(pos)) << pos_shift;
    parent()->send(WM_HSCROLL, wparam, reinterpret_cast<std::intptr_t>(hwnd()));
}

void Slider::redraw()
{
    if (!buffer.is_created())
        return;
    fill_rect(buffer, back, { 0, 0, buffer.width, buffer.height });
    draw_label();
    draw_track();
    draw_track_frame();
    draw_thumb();
    draw_border();
}

void Slider::draw_label() { }

void Slider::draw_track_frame()
{
    draw_strokes(buffer.dc(), slider_frame(*this), slider_pen_width);
}

void Slider::draw_border()
{
    if (border_style != SliderBorder::none)
        draw_strokes(buffer.dc(), slider_border(*this, to_size(client_size())), slider_border_width);
}

HorzSlider::HorzSlider(Wnd* parent, int control_id)
    : Slider(parent, control_id)
{
}

void HorzSlider::layout()
{
    track = slider_track(to_size(client_size()));
    update_thumb();
}

void HorzSlider::update_thumb()
{
    thumb = slider_thumb(track, value_to_x());
}

int HorzSlider::value_to_x() const
{
    return ovlib::value_to_x(*this);
}

int HorzSlider::x_to_value(POINT point) const
{
    return ovlib::x_to_value(*this, static_cast<int>(point.x));
}

void HorzSlider::draw_track()
{
    for (const FilledRect& part : slider_bar(*this))
        fill_rect(buffer, part.color, to_rect(part.rect));
}

void HorzSlider::draw_thumb()
{
    fill_rect(buffer, thumb_color(*this), to_rect(thumb));
    draw_strokes(buffer.dc(), thumb_edges(*this), slider_pen_width);
}

} // namespace ovlib
