#include "ovlib/gui/strokes.hpp"

namespace ovlib {

void draw_strokes(const DC& dc, std::span<const Stroke> strokes, int pen_width)
{
    for (const Stroke& stroke : strokes) {
        const GDI::Pen pen(GDI::solid_pen(pen_width, stroke.color));
        const ObjectSelection selected(dc, pen);
        POINT points[std::tuple_size_v<decltype(stroke.points)>] = {};
        for (std::size_t i = 0; i < stroke.points.size(); ++i)
            points[i] = { stroke.points[i].x, stroke.points[i].y };
        Polyline(dc.handle(), points, static_cast<int>(std::size(points)));
    }
}

} // namespace ovlib
