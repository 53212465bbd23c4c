// Menus as data, so that logic decides the contents of a popup menu and tests see them without a window.
#pragma once
#include "platform/geometry.hpp"
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ovlib {

enum class MenuKind : std::uint8_t { item, separator, submenu };

// by_id: the picture registered for the row's id, if there is one.
enum class MenuPicture : std::uint8_t { by_id, none };

// radio: a dot for the selected item of a group. check: a tick for an option that is on.
enum class MenuMark : std::uint8_t { none, radio, check };

struct MenuRow {
    MenuKind kind = MenuKind::item;
    int id = 0; // the command of an item; a submenu may have one for its picture
    std::wstring text; // an ampersand underlines the next character: see menu_text
    MenuPicture picture = MenuPicture::by_id;
    bool enabled = true;
    MenuMark mark = MenuMark::none;
    bool is_default = false; // shown in bold
    std::vector<MenuRow> rows; // of a submenu

    friend bool operator==(const MenuRow&, const MenuRow&) = default;
};

using MenuRows = std::vector<MenuRow>;

MenuRow menu_item(int id, std::wstring_view text, bool enabled = true);
MenuRow menu_separator();
MenuRow submenu(std::wstring_view text, MenuRows rows, bool enabled = true, int id = 0);
// Items with consecutive ids from `first` on; the one with the id `chosen` is marked.
MenuRows radio_items(int first, const std::vector<std::wstring>& texts, int chosen);

// A name escaped so that a menu item shows it literally: ampersands are doubled, and control characters that
// a menu would interpret, such as a tab, become spaces.
std::wstring menu_text(std::wstring_view name);

inline constexpr platform::Size menu_picture_size{ 16, 16 };
// The rectangle of a picture in the room that the menu has for it: left-aligned and vertically centred.
platform::Rect menu_picture_rect(const platform::Rect& room);
// The opacity of a picture, from 0 to 255.
std::uint8_t menu_picture_opacity(bool is_greyed);

} // namespace ovlib
