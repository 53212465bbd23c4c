// Shows the main window's popup menus.
#pragma once
#include "app/wnd/main_parts.hpp"
#include "controls/menu_rows.hpp"
#include "ovlib/gui/menu.hpp"
#include <cstdint>

namespace app {

inline void show_menu(MainParts& parts, const ovlib::MenuRows& rows, std::uint32_t flags, POINT point)
{
    ovlib::Menu menu;
    menu.add_rows(rows, &parts.menu_pictures);
    menu.show_at(parts.window, flags, point);
}

} // namespace app
