#include "look/box_menu.hpp"
#include "core/command_ids.hpp"

namespace look {

namespace command = core::command;

ovlib::MenuRows box_menu()
{
    using ovlib::menu_item;
    using ovlib::menu_separator;
    return {
        menu_item(core::command::box_search, L"検索"),
        menu_item(core::command::box_look, L"色/フォント"),
        menu_separator(),
        menu_item(core::command::box_undo, L"元に戻す(U)"),
        menu_separator(),
        menu_item(core::command::box_cut, L"切り取り(T)"),
        menu_item(core::command::box_copy, L"コピー(C)"),
        menu_item(core::command::box_paste, L"貼り付け(P)"),
        menu_item(core::command::box_delete, L"削除(D)"),
        menu_separator(),
        menu_item(core::command::box_select_all, L"すべて選択(A) "),
    };
}

bool is_box_item_enabled(int id, const BoxMenuState& state)
{
    switch (id) {
    case core::command::box_search:
    case core::command::box_cut:
    case core::command::box_copy:
    case core::command::box_delete:
        return state.has_selection;
    case core::command::box_look:
        return !state.is_palette_visible;
    case core::command::box_undo:
        return state.can_undo;
    case core::command::box_paste:
        return state.can_paste;
    case core::command::box_select_all:
        return state.has_text;
    default:
        return true;
    }
}

} // namespace look
