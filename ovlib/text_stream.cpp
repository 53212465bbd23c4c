#include "ovlib/gui/text_stream.hpp"

namespace ovlib::GDI {

TextStream::TextStream(const DC& target, std::vector<TextRegion>* collected)
    : dc(target.handle())
    , color(GetTextColor(target.handle()))
    , back_color(GetBkColor(target.handle()))
    , back_mode(GetBkMode(target.handle()))
    , font(static_cast<HFONT>(GetCurrentObject(target.handle(), OBJ_FONT)))
    , regions(collected)
{
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.handle(), &metrics);
    line_height = metrics.tmHeight;
    if (regions != nullptr)
        regions->clear();
}

TextStream& TextStream::operator<<(const std::wstring& text)
{
    RECT rect{};
    draw_run(text, rect, Measuring::measured);
    return *this;
}

TextStream& TextStream::operator<<(TextRegion region)
{
    draw_run(region.text, region.rect, Measuring::measured);
    if (regions != nullptr)
        regions->push_back(std::move(region));
    return *this;
}

void TextStream::draw(const std::wstring& text, const RECT& rect)
{
    origin_x = x = rect.left;
    y = rect.top;
    RECT target = rect;
    draw_run(text, target, Measuring::as_given);
}

void TextStream::draw_run(const std::wstring& text, RECT& rect, Measuring measuring)
{
    {
        const ObjectSelection selected(dc, font);
        swap_colors();
        if (measuring == Measuring::measured) {
            rect = { 0, 0, width, 0 };
            DrawTextW(dc.handle(), text.c_str(), -1, &rect, flags | DT_CALCRECT);
            OffsetRect(&rect, x, y);
        }
        DrawTextW(dc.handle(), text.c_str(), -1, &rect, flags);
        swap_colors();
    }
    x += rect.right - rect.left;
    line_height = rect.bottom - rect.top;
    if (underline_next)
        underline(rect);
    underline_next = false;
}

// The setters return the previous values, so a second call restores the device context and the stream.
void TextStream::swap_colors()
{
    color = Color{ SetTextColor(dc.handle(), color.value) };
    back_color = Color{ SetBkColor(dc.handle(), back_color.value) };
    back_mode = SetBkMode(dc.handle(), back_mode);
}

void TextStream::underline(const RECT& rect)
{
    const Pen pen(solid_pen(1, color));
    const ObjectSelection selected(dc, pen);
    MoveToEx(dc.handle(), rect.left, rect.bottom, nullptr);
    LineTo(dc.handle(), rect.right, rect.bottom);
}

} // namespace ovlib::GDI
