#include "look/wnd/myslider.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"

namespace look {

MySlider::MySlider(ovlib::Wnd* parent, int control_id)
    : HorzSlider(parent, control_id)
{
    border_style = ovlib::SliderBorder::sunken;
}

void MySlider::layout()
{
    HorzSlider::layout();
    track = page_slider_track(track);
}

void MySlider::draw_label()
{
    const std::wstring text = page_label(value);
    if (text.empty())
        return;
    const ovlib::ObjectSelection font_selected(buffer.dc(), font());
    ovlib::GDI::TextStream stream(buffer.dc());
    const platform::Point place = page_label_place(track, ovlib::to_size(client_size()), stream.line_height);
    stream.x = place.x;
    stream.y = place.y;
    stream.color = page_label_color(back, fill);
    stream.back_mode = TRANSPARENT;
    stream << text;
}

void MySlider::apply_theme()
{
    groove = palette().slider_groove;
    fill = palette().accent;
    back = palette().slider_back;
    redraw();
    if (hwnd())
        InvalidateRect(hwnd(), nullptr, FALSE);
}

void MySlider::show_page(std::size_t page_count, std::uint64_t position)
{
    set_page_range(*this, page_count, position);
    update_thumb();
    redraw();
    repaint();
}

} // namespace look
