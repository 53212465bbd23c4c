// Painting of the main window's own area, and the colours of its edit controls.
#include "app/page_views.hpp"
#include "app/wnd/appwnd.hpp"
#include "look/theme.hpp"
#include "look/wnd/group_frame.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/owner_drawn.hpp"

namespace app {

namespace {

using look::palette;

look::BoxColors field_colors()
{
    return { palette().list_text, palette().box_back };
}

} // namespace

bool AppWnd::on_erase_background(ovlib::WndMessage& message)
{
    const ovlib::GDI::Brush back{ ovlib::GDI::solid_brush(palette().panel_back) };
    const RECT client = client_rect();
    FillRect(reinterpret_cast<HDC>(static_cast<std::uintptr_t>(message.wparam)), &client, back.handle());
    message.result = 1;
    return true;
}

// Without a page the boxes of the page get the system's colours.
bool AppWnd::on_edit_color(ovlib::WndMessage& message)
{
    if (parts_.desk.box_of(message))
        return parts_.desk.on_color(message, book().current_page(), look::BoxUse::writable);
    return answer_colors(message, field_colors(), edit_brush_);
}

// For the drop-down list of the file combo.
bool AppWnd::on_list_color(ovlib::WndMessage& message)
{
    return answer_colors(message, field_colors(), edit_brush_);
}

// A read-only edit control sends this message instead of WM_CTLCOLOREDIT.
bool AppWnd::on_static_color(ovlib::WndMessage& message)
{
    const bool chooses_colors = parts_.palette.is_open();
    return parts_.desk.on_color(message, book().current_page(),
        chooses_colors ? look::BoxUse::read_only_with_palette : look::BoxUse::read_only);
}

// The controls are tried first, because not every control sets CtlType.
bool AppWnd::on_draw_item(ovlib::WndMessage& message)
{
    return ovlib::route_draw_item(message) || parts_.menu_pictures.on_message(message);
}

// Draws everything into one bitmap, the background included, and copies it once. So a change never needs to
// erase first, which would flicker between the controls. The shifted origin lets the drawing use client
// coordinates in a bitmap of the update area only.
bool AppWnd::on_paint()
{
    const ovlib::PaintDC dc{ *this };
    const RECT& area = dc.update_rect();
    ovlib::BackBuffer buffer;
    if (IsRectEmpty(&area) || !buffer.create(area.right - area.left, area.bottom - area.top))
        return true;
    ovlib::fill_rect(buffer, palette().panel_back, { 0, 0, buffer.width, buffer.height });
    SetViewportOrgEx(buffer.dc().handle(), -area.left, -area.top, nullptr);
    draw(buffer.dc());
    SetViewportOrgEx(buffer.dc().handle(), 0, 0, nullptr);
    buffer.copy_to(dc, { area.left, area.top });
    return true;
}

void AppWnd::draw(const ovlib::DC& dc) const
{
    look::draw_group_line(dc, checks_frame(parts_.layout));
    parts_.file_view.draw_note(dc, parts_.layout, file_counter_text(book()));
}

} // namespace app
