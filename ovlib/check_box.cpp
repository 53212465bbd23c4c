#include "ovlib/gui/check_box.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"
#include "platform/screen.hpp"
#include <algorithm>

namespace ovlib {

namespace {

constexpr wchar_t tick[] = L"\u2714";
constexpr wchar_t tick_face[] = L"Arial";
constexpr int tick_points = 10;
constexpr int points_per_inch = 72;
constexpr float corner_radius = 3.0f;

HFONT tick_font()
{
    const int height = platform::mul_div(tick_points, platform::pixels_per_inch(), points_per_inch);
    return CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
        CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, tick_face);
}

CheckBoxColors system_colors()
{
    const auto system = [](int index) { return Color{ GetSysColor(index) }; };
    return {
        .text = system(COLOR_BTNTEXT),
        .back = system(COLOR_BTNFACE),
        .mark = system(COLOR_WINDOWTEXT),
        .fill = system(COLOR_WINDOW),
        .frame = system(COLOR_WINDOWFRAME),
    };
}

SIZE text_size(const DC& dc, HFONT font, const std::wstring& text)
{
    const ObjectSelection selection(dc, font);
    SIZE size{};
    GetTextExtentPoint32W(dc.handle(), text.c_str(), static_cast<int>(text.size()), &size);
    return size;
}

} // namespace

CustomCheckBox::CustomCheckBox(Wnd* parent, int control_id)
    : CustomButton(parent, control_id)
    , colors_(system_colors())
{
}

void CustomCheckBox::create_params(CREATESTRUCTW& params)
{
    CustomButton::create_params(params);
    params.style |= BS_FLAT;
}

CheckBoxColors CustomCheckBox::shown_colors() const
{
    return state().disabled ? disabled_check_colors(colors_) : colors_;
}

void CustomCheckBox::draw_background()
{
    fill_rect(canvas(), colors_.back, item().rcItem);
    draw_box();
}

void CustomCheckBox::draw_box()
{
    const platform::Rect box = check_box_rect(area());
    {
        GDIP gdip(canvas().dc().handle());
        gdip.set_smoothing(Gdiplus::SmoothingModeAntiAlias);
        gdip.round_rect(to_rect(box), corner_radius, corner_radius, colors_.frame, 1.0f, colors_.fill);
    }
    if (is_checked())
        draw_tick(box);
}

void CustomCheckBox::draw_tick(const platform::Rect& box)
{
    const GDI::Font font(tick_font());
    const platform::Point place = check_tick_place(box);
    GDI::TextStream stream(canvas().dc());
    stream.font = font.handle();
    stream.back_mode = TRANSPARENT;
    stream.color = shown_colors().mark;
    stream.x = place.x;
    stream.y = place.y;
    stream << tick;
}

// The focus rectangle surrounds the text and is drawn first, so both compute the place.
void CustomCheckBox::place_text()
{
    const DC target(item().hDC);
    text_rect_ = check_text_rect(area(), to_size(text_size(target, label_font(target), label())));
}

void CustomCheckBox::draw_text()
{
    place_text();
    GDI::TextStream stream{ DC(item().hDC) };
    stream.font = label_font(stream.dc);
    stream.back_mode = TRANSPARENT;
    stream.color = shown_colors().text;
    stream.draw(label(), to_rect(text_rect_));
}

void CustomCheckBox::draw_focus()
{
    place_text();
    const RECT round = to_rect(check_focus_rect(area(), text_rect_));
    DrawFocusRect(canvas().dc().handle(), &round);
}

void CustomCheckBox::draw_frame() { }

void CustomCheckBox::fit_to_text()
{
    const SIZE wanted = text_size(ClientDC(*this), font(), text());
    resize(check_fit_width(wanted.cx), std::max(size().cy, wanted.cy), true);
}

void CustomCheckBox::set_checked(bool checked)
{
    if (is_checked() == checked)
        return;
    checked_ = checked ? 1 : 0;
    repaint();
}

void CustomCheckBox::toggle()
{
    set_checked(!is_checked());
}

bool CustomCheckBox::is_checked() const
{
    return checked_ != 0;
}

void CustomCheckBox::set_colors(const CheckBoxColors& colors)
{
    colors_ = colors;
    repaint();
}

} // namespace ovlib
