// Menus as data: what a popup menu holds, decided before a window system shows it.
#pragma once
#include "platform/geometry.hpp"
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ovlib {

enum class MenuKind : std::uint8_t { item, separator, submenu };

// A picture is found by the row's id; a row whose id has none shows none.
enum class MenuPicture : std::uint8_t { by_id, none };

// A round dot marks the one of a group that holds now, a tick what holds by itself.
enum class MenuMark : std::uint8_t { none, radio, check };

struct MenuRow {
    MenuKind kind = MenuKind::item;
    int id = 0; // the command of an item; a submenu may have one for its picture
    std::wstring text; // an ampersand underlines what follows it: see menu_text
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
// Items with the ids from `first` on; the one with the id `chosen` is marked.
MenuRows radio_items(int first, const std::vector<std::wstring>& texts, int chosen);

// A name that stands in an item as it is: ampersands doubled, and what a menu would take for an order of its
// own, such as a tab, made blank.
std::wstring menu_text(std::wstring_view name);

inline constexpr platform::Size menu_picture_size{ 16, 16 };
// Where a picture stands in the room that the menu leaves for it: at the left, in the middle of the height.
platform::Rect menu_picture_rect(const platform::Rect& room);
// How much of a picture covers what is under it, of 255.
std::uint8_t menu_picture_opacity(bool is_greyed);

} // namespace ovlib
