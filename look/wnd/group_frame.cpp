#include "look/wnd/group_frame.hpp"
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"
#include <string_view>

namespace look {

namespace {

constexpr int corner = 8;
constexpr int caption_offset = 12;
constexpr int caption_lift = 2; // above the middle of the line, away from the controls below

void draw_text(const ovlib::DC& dc, HFONT font, platform::Point place, const wchar_t* text, int back_mode)
{
    ovlib::GDI::TextStream stream{ dc };
    stream.font = font;
    stream.color = palette().list_text;
    stream.back_color = palette().panel_back;
    stream.back_mode = back_mode;
    stream.x = place.x;
    stream.y = place.y;
    stream << text;
}

} // namespace

void draw_group_line(const ovlib::DC& dc, const platform::Rect& frame)
{
    const ovlib::GDI::Pen line{ ovlib::GDI::solid_pen(1, palette().panel_line) };
    const ovlib::ObjectSelection pen{ dc, line };
    const ovlib::ObjectSelection hollow{ dc, GetStockObject(HOLLOW_BRUSH) };
    RoundRect(dc.handle(), frame.left, frame.top, frame.right, frame.bottom, corner, corner);
}

void draw_group(const ovlib::DC& dc, const platform::Rect& frame, const wchar_t* caption)
{
    draw_group_line(dc, frame);
    HFONT const font = shared_font(SharedFont::ui_8);
    const int height = text_size(dc, font, caption).height;
    const int top = frame.top - height / 2 - caption_lift;
    draw_text(dc, font, { frame.left + caption_offset, top }, caption, OPAQUE);
}

void draw_label(const ovlib::DC& dc, HFONT font, platform::Point place, const wchar_t* text)
{
    draw_text(dc, font, place, text, TRANSPARENT);
}

platform::Size text_size(const ovlib::DC& dc, HFONT font, const wchar_t* text)
{
    const ovlib::ObjectSelection selection{ dc, font };
    const std::wstring_view view{ text };
    SIZE size{};
    GetTextExtentPoint32W(dc.handle(), view.data(), static_cast<int>(view.size()), &size);
    return ovlib::to_size(size);
}

} // namespace look
