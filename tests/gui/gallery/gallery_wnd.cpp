#include "gallery_wnd.hpp"
#include "app/wnd/app_bitmaps.hpp"
#include "look/box_look.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/owner_drawn.hpp"
#include "ovlib/gui/text_stream.hpp"

namespace gallery {

namespace {

constexpr SIZE window_size{ 1580, 960 };

HDC dc_of(const ovlib::WndMessage& message)
{
    return reinterpret_cast<HDC>(static_cast<std::uintptr_t>(message.wparam));
}

} // namespace

GalleryWnd::GalleryWnd()
    : menu_pictures_([](int id) { return app::app_bitmap(id); })
{
}

GalleryWnd::~GalleryWnd()
{
    while (!exhibits_.empty())
        exhibits_.pop_back();
}

std::wstring GalleryWnd::class_info(WNDCLASSEXW& info)
{
    BaseWnd::class_info(info);
    return ovlib::window_class_name(L"tests/gui/gallery", 1);
}

void GalleryWnd::create_params(CREATESTRUCTW& params)
{
    BaseWnd::create_params(params);
    params.style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
    params.x = params.y = 8;
    params.cx = window_size.cx;
    params.cy = window_size.cy;
}

bool GalleryWnd::on_message(ovlib::WndMessage& message)
{
    if (menu_pictures_.on_message(message))
        return true;
    switch (message.message) {
    case WM_ERASEBKGND:
        return on_erase(message);
    case WM_PAINT:
        return on_paint();
    case WM_DRAWITEM:
        return on_draw_item(message);
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
        return on_field_color(message, false);
    case WM_CTLCOLORSTATIC:
        return on_field_color(message, true);
    default:
        return false;
    }
}

void GalleryWnd::apply_theme()
{
    panel_brush_.renew(ovlib::GDI::solid_brush(look::palette().panel_back));
    box_brush_.renew(ovlib::GDI::solid_brush(look::palette().box_back));
}

void GalleryWnd::write(const RECT& place, const std::wstring& text, SharedFont font)
{
    labels_.push_back({ place, text, font });
}

bool GalleryWnd::on_erase(ovlib::WndMessage& message) const
{
    const RECT client = client_rect();
    FillRect(dc_of(message), &client, panel_brush_.handle());
    message.result = 1;
    return true;
}

bool GalleryWnd::on_paint() const
{
    const ovlib::PaintDC dc{ *this };
    ovlib::GDI::TextStream stream{ dc };
    stream.back_mode = TRANSPARENT;
    stream.color = look::palette().list_text;
    for (const Label& label : labels_) {
        stream.font = shared_font(label.font);
        stream.draw(label.text, label.place);
    }
    for (const auto& drawing : drawings_)
        drawing(dc.handle());
    return true;
}

bool GalleryWnd::on_draw_item(ovlib::WndMessage& message) const
{
    auto& item = *reinterpret_cast<DRAWITEMSTRUCT*>(message.lparam);
    const auto shown = shown_states_.find(item.hwndItem);
    if (shown != shown_states_.end())
        item.itemState |= shown->second;
    return ovlib::route_draw_item(message);
}

// For edit controls and the lists of combo boxes. Read-only edit controls are dimmed.
bool GalleryWnd::on_field_color(ovlib::WndMessage& message, bool is_dimmed) const
{
    const look::ThemePalette& colors = look::palette();
    const ovlib::Color text = is_dimmed ? look::dimmed_text(colors.box_back) : colors.list_text;
    SetTextColor(dc_of(message), text.value);
    SetBkColor(dc_of(message), colors.box_back.value);
    message.result = reinterpret_cast<std::intptr_t>(box_brush_.handle());
    return true;
}

} // namespace gallery
