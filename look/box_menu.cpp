#include "look/box_menu.hpp"
#include "app/command_ids.hpp"

namespace look {

namespace command = app::command;

ovlib::MenuRows box_menu()
{
    using ovlib::menu_item;
    using ovlib::menu_separator;
    return {
        menu_item(command::box_search, L"検索"),
        menu_item(command::box_look, L"色/フォント"),
        menu_separator(),
        menu_item(command::box_undo, L"元に戻す(U)"),
        menu_separator(),
        menu_item(command::box_cut, L"切り取り(T)"),
        menu_item(command::box_copy, L"コピー(C)"),
        menu_item(command::box_paste, L"貼り付け(P)"),
        menu_item(command::box_delete, L"削除(D)"),
        menu_separator(),
        menu_item(command::box_select_all, L"すべて選択(A) "),
    };
}

bool is_box_item_enabled(int id, const BoxMenuState& state)
{
    switch (id) {
    case command::box_search:
    case command::box_cut:
    case command::box_copy:
    case command::box_delete:
        return state.has_selection;
    case command::box_look:
        return !state.is_palette_visible;
    case command::box_undo:
        return state.can_undo;
    case command::box_paste:
        return state.can_paste;
    case command::box_select_all:
        return state.has_text;
    default:
        return true;
    }
}

} // namespace look
