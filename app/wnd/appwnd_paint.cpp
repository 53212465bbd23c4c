// What the main window paints by itself.
#include "app/page_views.hpp"
#include "app/wnd/appwnd.hpp"
#include "app/wnd/file_pane.hpp"
#include "look/theme.hpp"
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

bool AppWnd::on_paint()
{
    const ovlib::PaintDC dc{ *this };
    draw_checks_frame(dc, layout_);
    file_pane_->draw_note(dc, layout_, file_counter_text(book_));
    return true;
}

} // namespace app
