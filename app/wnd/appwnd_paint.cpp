// What the main window paints by itself.
#include "app/page_views.hpp"
#include "app/wnd/appwnd.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/geometry.hpp"
#include "ovlib/gui/owner_drawn.hpp"
#include "ovlib/gui/text_stream.hpp"

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

void draw_empty_pane(const ovlib::DC& dc, const MainLayout& layout, bool has_files)
{
    const ovlib::GDI::Brush ground{ ovlib::GDI::solid_brush(palette().viewer_back) };
    const ovlib::GDI::Pen edge{ ovlib::GDI::solid_pen(1, palette().viewer_back) };
    const ObjectSelection brush{ dc, ground };
    const ObjectSelection pen{ dc, edge };
    round_rect(dc, layout.file_pane, file_pane_corner);
    if (has_files)
        return;
    const Point place = empty_pane_text(layout);
    ovlib::GDI::TextStream text{ dc };
    text.back_mode = TRANSPARENT;
    text.color = palette().viewer_text;
    text.font = look::shared_font(look::SharedFont::ui_10_bold);
    text.x = place.x;
    text.y = place.y;
    text << L"- No Files -";
}

void draw_file_counter(const ovlib::DC& dc, const MainLayout& layout, const std::wstring& counter)
{
    ovlib::GDI::TextStream text{ dc };
    text.back_mode = TRANSPARENT;
    text.color = palette().list_text;
    text.font = look::shared_font(look::SharedFont::ui_9_bold);
    text.x = layout.file_counter.left;
    text.y = layout.file_counter.top;
    text << counter;
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
    const book::Page* page = book_.current_page();
    draw_checks_frame(dc, layout_);
    draw_empty_pane(dc, layout_, page && !page->files.empty());
    draw_file_counter(dc, layout_, file_counter_text(book_));
    return true;
}

} // namespace app
