// The window's background, the colours of its edit controls, and its theme.
#include "app/page_actions.hpp"
#include "app/wnd/appwnd.hpp"
#include "look/box_look.hpp"
#include "look/theme.hpp"
#include "look/wnd/themed.hpp"

namespace app {

namespace {

HDC dc_of(const ovlib::WndMessage& message)
{
    return reinterpret_cast<HDC>(static_cast<std::uintptr_t>(message.wparam));
}

HWND control_of(const ovlib::WndMessage& message)
{
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(message.lparam));
}

// The answer to a colour message: the brush, which lives until the next one.
bool answer_colors(ovlib::WndMessage& message, look::BoxColors colors, ovlib::GDI::Brush& brush)
{
    HDC const dc = dc_of(message);
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, colors.back.value);
    SetTextColor(dc, colors.text.value);
    brush.renew(ovlib::GDI::solid_brush(colors.back));
    message.result = reinterpret_cast<std::intptr_t>(brush.handle());
    return true;
}

} // namespace

bool AppWnd::on_erase_background(ovlib::WndMessage& message)
{
    const ovlib::GDI::Brush back{ ovlib::GDI::solid_brush(look::palette().panel_back) };
    const RECT client = client_rect();
    FillRect(dc_of(message), &client, back.handle());
    message.result = 1;
    return true;
}

bool AppWnd::on_edit_color(ovlib::WndMessage& message)
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        if (boxes()[box]->hwnd() == control_of(message))
            return color_page_box(message, box, true);
    }
    return answer_colors(message, { look::palette().list_text, look::palette().box_back }, edit_brush_);
}

// The list that drops from the file combo.
bool AppWnd::on_list_color(ovlib::WndMessage& message)
{
    return answer_colors(message, { look::palette().list_text, look::palette().box_back }, edit_brush_);
}

// A read-only edit control asks with this message instead.
bool AppWnd::on_static_color(ovlib::WndMessage& message)
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        if (boxes()[box]->hwnd() == control_of(message))
            return color_page_box(message, box, false);
    }
    return false;
}

bool AppWnd::color_page_box(ovlib::WndMessage& message, std::size_t box, bool is_writable)
{
    const book::Page* page = book_.current_page();
    if (!page)
        return false;
    const auto use = is_writable ? look::BoxUse::writable : look::BoxUse::read_only;
    return answer_colors(message, look::box_colors(*page, box, use), box_brushes_[box]);
}

std::int32_t AppWnd::apply_theme(std::int32_t identifier)
{
    const std::int32_t stored = look::load_theme(identifier);
    look::apply_theme_to_windows();
    return stored;
}

} // namespace app
