#include "look/wnd/warningwnd.hpp"
#include "look/wnd/fonts.hpp"
#include "ovlib/gui/system_geometry.hpp"
#include "ovlib/gui/text_stream.hpp"
#include "ovlib/win_app.hpp"

namespace look {

namespace {

constexpr std::uintptr_t timer_id = 1;
constexpr WORD program_icon = 1000;
constexpr UINT line_flags = DT_SINGLELINE | DT_NOPREFIX;

struct Line {
    std::wstring text;
    platform::Rect place;
    HFONT font;
    ovlib::Color color;
    UINT flags;
};

void write_line(const ovlib::DC& dc, const Line& line)
{
    ovlib::GDI::TextStream stream(dc);
    stream.font = line.font;
    stream.color = line.color;
    stream.back_mode = TRANSPARENT;
    stream.flags = line_flags | DT_NOCLIP | line.flags;
    stream.draw(line.text, ovlib::to_rect(line.place));
}

} // namespace

WarningWnd::WarningWnd(ovlib::Wnd* parent, int control_id)
    : PassiveWnd(parent, control_id)
{
}

bool WarningWnd::on_message(ovlib::WndMessage& message)
{
    switch (message.message) {
    case WM_CREATE:
        make_font_and_icon();
        return false;
    case WM_DESTROY:
        timer_.stop();
        return false;
    case WM_TIMER:
        on_timer();
        return true;
    case WM_PAINT:
        return on_paint();
    case WM_CLOSE:
        show(L"");
        return true;
    default:
        return PassiveWnd::on_message(message);
    }
}

void WarningWnd::make_font_and_icon()
{
    font_.renew(shared_font(SharedFont::ui_9_bold), ovlib::GDI::Ownership::borrowed);
    icon_.reset(static_cast<HICON>(LoadImageW(
        ovlib::WinApp::instance, MAKEINTRESOURCEW(program_icon), IMAGE_ICON, 16, 16, LR_DEFAULTCOLOR)));
    fade_.reset();
    set_alpha(0);
}

// The window is shown at its current alpha and without activation; the timer changes the alpha from then on.
void WarningWnd::show(const std::wstring& text)
{
    if (!is_window())
        return;
    timer_.stop();
    text_ = banner_text(text);
    if (text_.empty()) {
        hide();
        return;
    }
    const platform::Size size = banner_size(width_of(text_), width_of(banner_title));
    resize(size.width, size.height, false);
    center(parent(), false);
    timer_.start(hwnd(), timer_id, fade_.begin());
    show_cmd(SW_SHOWNA);
    InvalidateRect(hwnd(), nullptr, FALSE);
}

void WarningWnd::hide()
{
    fade_.reset();
    set_alpha(0);
    show_cmd(SW_HIDE);
}

int WarningWnd::width_of(const std::wstring& line) const
{
    const ovlib::MemDC dc;
    const ovlib::ObjectSelection selected(dc, font_);
    RECT rect{};
    DrawTextW(dc.handle(), line.c_str(), -1, &rect, line_flags | DT_CALCRECT);
    return rect.right - rect.left;
}

// A WM_TIMER message may still be in the queue after its timer was stopped.
void WarningWnd::on_timer()
{
    if (!timer_.is_active())
        return;
    const BannerFade::Tick tick = fade_.tick();
    if (tick.alpha_changed)
        set_alpha(static_cast<std::uint8_t>(fade_.alpha()));
    if (tick.next_interval != 0)
        timer_.start(hwnd(), timer_id, tick.next_interval);
    if (tick.is_over)
        send(WM_CLOSE, 0, 0);
}

bool WarningWnd::on_paint()
{
    const ovlib::PaintDC dc(*this);
    const SIZE client = client_size();
    ovlib::BackBuffer buffer;
    if (!buffer.create(client.cx, client.cy))
        return true;
    draw(buffer);
    buffer.copy_to(dc);
    return true;
}

void WarningWnd::draw(const ovlib::BackBuffer& buffer) const
{
    const BannerLayout layout = banner_layout({ buffer.width, buffer.height });
    const BannerColors colors = banner_colors(palette());
    draw_panel(buffer, layout, colors);
    const ovlib::DC& dc = buffer.dc();
    write_line(dc, { banner_title, layout.title, font_.handle(), colors.title, DT_LEFT });
    write_line(dc,
        { banner_headline, layout.headline, shared_font(SharedFont::ui_12_bold), colors.title, DT_CENTER });
    write_line(dc, { text_, layout.text, font_.handle(), colors.text, DT_CENTER });
}

void WarningWnd::draw_panel(
    const ovlib::BackBuffer& buffer, const BannerLayout& layout, const BannerColors& colors) const
{
    const ovlib::DC& dc = buffer.dc();
    const ovlib::GDI::Pen frame_pen(ovlib::GDI::solid_pen(1, colors.frame));
    const ovlib::GDI::Pen line_pen(ovlib::GDI::solid_pen(1, colors.line));
    const ovlib::GDI::Brush fill(ovlib::GDI::solid_brush(colors.fill));
    const ovlib::ObjectSelection brush(dc, fill);
    {
        const ovlib::ObjectSelection pen(dc, frame_pen);
        Rectangle(dc.handle(), 0, 0, buffer.width, buffer.height);
    }
    {
        const ovlib::ObjectSelection pen(dc, line_pen);
        MoveToEx(dc.handle(), layout.line_start.x, layout.line_start.y, nullptr);
        LineTo(dc.handle(), layout.line_end.x, layout.line_end.y);
    }
    if (icon_) {
        const platform::Rect& at = layout.icon;
        DrawIconEx(dc.handle(), at.left, at.top, icon_.get(), at.width(), at.height(), 0, nullptr, DI_NORMAL);
    }
}

} // namespace look
