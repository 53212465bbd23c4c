#include "look/wnd/my_list_view.hpp"
#include "look/list_header.hpp"
#include "look/wnd/themed.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"

namespace look {

template <class List> bool ThemedList<List>::create(const std::wstring& title)
{
    if (!List::create(title) || !header_.create(L""))
        return false;
    apply_theme();
    return true;
}

template <class List> void ThemedList<List>::apply_theme()
{
    color_list_view(*this);
    InvalidateRect(this->hwnd(), nullptr, TRUE);
    InvalidateRect(header_.hwnd(), nullptr, TRUE);
}

template class ThemedList<ovlib::ReportListView>;
template class ThemedList<ovlib::VirtualList>;

void MyHeader::draw(ovlib::BackBuffer& buffer)
{
    const std::vector<platform::Rect> places = cells();
    for (const ovlib::FilledRect& fill : header_fills(palette(), { buffer.width, buffer.height }, places))
        ovlib::fill_rect(buffer, fill.color, ovlib::to_rect(fill.rect));
    ovlib::GDI::TextStream stream{ buffer.dc() };
    stream.font = font();
    stream.color = header_text_color(palette());
    stream.back_mode = TRANSPARENT;
    stream.flags = DT_SINGLELINE | DT_NOPREFIX | DT_VCENTER | DT_END_ELLIPSIS;
    for (std::size_t i = 0; i < places.size(); ++i)
        stream.draw(title_of(static_cast<int>(i)), ovlib::to_rect(header_title_rect(places[i])));
}

} // namespace look
