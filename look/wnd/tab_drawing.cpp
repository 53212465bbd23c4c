#include "look/wnd/tab_drawing.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/text_stream.hpp"

namespace look {

namespace {

using ovlib::ObjectSelection;
using platform::Point;
using platform::Rect;

std::vector<POINT> to_points(std::span<const Point> points)
{
    std::vector<POINT> result;
    result.reserve(points.size());
    for (const Point& point : points)
        result.push_back({ point.x, point.y });
    return result;
}

void draw_line(const ovlib::DC& dc, std::span<const Point> line, int width, Color color)
{
    const ovlib::GDI::Pen pen(ovlib::GDI::solid_pen(width, color));
    const ObjectSelection selected(dc, pen);
    const std::vector<POINT> points = to_points(line);
    Polyline(dc.handle(), points.data(), static_cast<int>(points.size()));
}

void draw_background(const ovlib::DC& dc, platform::Size strip)
{
    const StripColors colors = strip_colors(palette());
    const ovlib::GDI::Brush back(ovlib::GDI::solid_brush(colors.back));
    const RECT all{ 0, 0, strip.width, strip.height };
    FillRect(dc.handle(), &all, back.handle());
    const Point corner{ strip.width - 1, strip.height };
    draw_line(dc, std::array{ Point{ -1, strip.height }, corner, Point{ corner.x, 0 } }, 2, colors.edge);
}

// All lines of one font have the same height.
int caption_height(const ovlib::DC& dc)
{
    const ObjectSelection font(dc, shared_font(SharedFont::ui_9_bold));
    SIZE size{};
    GetTextExtentPoint32W(dc.handle(), L"0", 1, &size);
    return size.cy;
}

void draw_caption(const ovlib::DC& dc, const TabItem& item, Color color, int height)
{
    ovlib::GDI::TextStream stream(dc);
    stream.font = shared_font(SharedFont::ui_9_bold);
    stream.color = color;
    stream.back_mode = TRANSPARENT;
    stream.flags |= DT_END_ELLIPSIS;
    const Rect place = tab_caption_rect(item.rect, height);
    stream.draw(item.caption, { place.left, place.top, place.right, place.bottom });
}

void draw_tab(const ovlib::DC& dc, const TabItem& item, bool is_hot, int height)
{
    const TabColors colors = tab_colors(item.color, is_hot, palette());
    const TabOutline outline = tab_outline(item.rect);
    {
        const ovlib::GDI::Pen pen(ovlib::GDI::solid_pen(1, colors.outline));
        const ovlib::GDI::Brush brush(ovlib::GDI::solid_brush(colors.fill));
        const ObjectSelection pen_selected(dc, pen);
        const ObjectSelection brush_selected(dc, brush);
        const std::vector<POINT> points = to_points(outline);
        Polygon(dc.handle(), points.data(), static_cast<int>(points.size()));
    }
    draw_line(dc, tab_edge(outline, is_hot), colors.edge_width, colors.edge);
    draw_caption(dc, item, colors.text, height);
}

ovlib::GDI::Bitmap make_swatch(platform::Size size, Color color, bool is_checked)
{
    ovlib::GDI::Bitmap bitmap;
    bitmap.create(size.width, size.height);
    const ovlib::MemDC dc;
    if (!bitmap || !dc)
        return bitmap;
    const ovlib::GDI::Pen frame(ovlib::GDI::solid_pen(1, swatch_frame(color)));
    const ovlib::GDI::Pen mark_pen(ovlib::GDI::solid_pen(1, Color{ 0xFFFFFF }));
    const ovlib::GDI::Brush fill(ovlib::GDI::solid_brush(color));
    const ObjectSelection image(dc, bitmap);
    {
        const ObjectSelection pen(dc, frame);
        const ObjectSelection brush(dc, fill);
        Rectangle(dc.handle(), 0, 0, size.width, size.height);
    }
    if (is_checked) {
        const ObjectSelection pen(dc, mark_pen);
        const ObjectSelection brush(dc, GetStockObject(NULL_BRUSH));
        const Rect mark = swatch_mark(size);
        Rectangle(dc.handle(), mark.left, mark.top, mark.right, mark.bottom);
    }
    return bitmap;
}

} // namespace

void draw_tabs(const ovlib::DC& dc, platform::Size strip, std::span<const TabItem> items, TabStates states)
{
    draw_background(dc, strip);
    const int height = caption_height(dc);
    for (const TabItem& item : items)
        draw_tab(dc, item, item.number == states.hover || item.number == states.current, height);
}

Swatches make_swatches()
{
    const platform::Size size{ GetSystemMetrics(SM_CXMENUCHECK), GetSystemMetrics(SM_CYMENUCHECK) };
    Swatches swatches;
    for (std::size_t i = 0; i < swatches.size(); ++i) {
        swatches[i].unchecked = make_swatch(size, tab_color(i), false);
        swatches[i].checked = make_swatch(size, tab_color(i), true);
    }
    return swatches;
}

} // namespace look
