#include "controls/menu_rows.hpp"
#include <utility>

namespace ovlib {

MenuRow menu_item(int id, std::wstring_view text, bool enabled)
{
    MenuRow row;
    row.id = id;
    row.text = text;
    row.enabled = enabled;
    return row;
}

MenuRow menu_separator()
{
    MenuRow row;
    row.kind = MenuKind::separator;
    return row;
}

MenuRow submenu(std::wstring_view text, MenuRows rows, bool enabled, int id)
{
    MenuRow row = menu_item(id, text, enabled);
    row.kind = MenuKind::submenu;
    row.rows = std::move(rows);
    return row;
}

MenuRows radio_items(int first, const std::vector<std::wstring>& texts, int chosen)
{
    MenuRows rows;
    for (const std::wstring& text : texts) {
        MenuRow& row = rows.emplace_back(menu_item(first + static_cast<int>(rows.size()), text));
        row.mark = row.id == chosen ? MenuMark::radio : MenuMark::none;
    }
    return rows;
}

std::wstring menu_text(std::wstring_view name)
{
    std::wstring text;
    text.reserve(name.size());
    for (const wchar_t unit : name) {
        if (unit == L'&')
            text += unit;
        text += unit < L' ' ? L' ' : unit;
    }
    return text;
}

platform::Rect menu_picture_rect(const platform::Rect& room)
{
    const int top = room.top + (room.height() - menu_picture_size.height) / 2;
    return { room.left, top, room.left + menu_picture_size.width, top + menu_picture_size.height };
}

std::uint8_t menu_picture_opacity(bool is_greyed)
{
    constexpr std::uint8_t full = 255;
    constexpr std::uint8_t dimmed = 90;
    return is_greyed ? dimmed : full;
}

} // namespace ovlib
