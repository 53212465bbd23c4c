#include "look/wnd/group_frame.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/text_stream.hpp"

namespace look {

void draw_group_frame(const ovlib::DC& dc, const platform::Rect& frame, const std::wstring& title)
{
    constexpr int corner = 8;
    constexpr int title_indent = 10;
    constexpr int half_title_height = 7;
    {
        const ovlib::GDI::Pen pen{ ovlib::GDI::solid_pen(1, palette().panel_line) };
        const ovlib::ObjectSelection with_pen{ dc, pen };
        const ovlib::ObjectSelection without_brush{ dc, GetStockObject(NULL_BRUSH) };
        RoundRect(dc.handle(), frame.left, frame.top, frame.right, frame.bottom, corner, corner);
    }
    ovlib::GDI::TextStream text{ dc };
    text.font = shared_font(SharedFont::ui_9);
    text.color = palette().list_text;
    text.back_color = palette().panel_back;
    text.back_mode = OPAQUE;
    text.x = frame.left + title_indent;
    text.y = frame.top - half_title_height;
    text << title;
}

} // namespace look
