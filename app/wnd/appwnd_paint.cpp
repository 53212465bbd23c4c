// What the main window paints by itself.
#include "app/page_views.hpp"
#include "app/wnd/appwnd.hpp"
#include "app/wnd/file_pane.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/owner_drawn.hpp"

namespace app {

namespace {

using look::palette;
using ovlib::ObjectSelection;

void round_rect(const ovlib::DC& dc, const Rect& rect, int corner)
{
    RoundRect(dc.handle(), rect.left, rect.top, rect.right, rect.bottom, corner, corner);
}

void draw_checks_frame(const ovlib::DC& dc, const MainLayout& layout)
{
    const ovlib::GDI::Pen line{ ovlib::GDI::solid_pen(1, palette().panel_line) };
    const ObjectSelection pen{ dc, line };
    const ObjectSelection hollow{ dc, GetStockObject(HOLLOW_BRUSH) };
    round_rect(dc, checks_frame(layout), checks_frame_corner);
}

} // namespace

// Controls are asked first: what kind of item it is, a message does not tell of every one.
bool AppWnd::on_draw_item(ovlib::WndMessage& message)
{
    return ovlib::route_draw_item(message) || menu_pictures_.on_message(message);
}

// In one copy, the ground included: what changes asks for no erasing, which would flash between the controls.
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
    draw_checks_frame(dc, layout_);
    file_pane_->draw_note(dc, layout_, file_counter_text(book_));
}

} // namespace app
