#include "app/menus.hpp"
#include "book/book_header.hpp"
#include "core/command_ids.hpp"

namespace app {

namespace command = core::command;

namespace {

using ovlib::menu_item;
using ovlib::menu_separator;
using ovlib::menu_text;
using ovlib::MenuRows;
using ovlib::submenu;

MenuRows removal_rows(const FileMenuState& state)
{
    return { menu_item(command::remove_file, L"このファイル"),
        menu_item(command::remove_all_files, L"リスト全体", state.entry_count >= 2) };
}

MenuRows sort_rows()
{
    return { menu_item(command::sort_files_ascending, L"昇順"),
        menu_item(command::sort_files_descending, L"降順"), menu_separator(),
        menu_item(command::move_file_up, L"ひとつ上に移動"),
        menu_item(command::move_file_down, L"ひとつ下に移動"), menu_separator(),
        menu_item(command::move_file_to_top, L"先頭に移動"),
        menu_item(command::move_file_to_end, L"末尾に移動") };
}

MenuRows interpolation_rows(std::int32_t chosen)
{
    const std::vector<std::wstring> texts{ L"(Default)", L"Nearest Neighbor", L"Bilinear",
        L"Bilinear High Quality", L"Bicubic", L"Bicubic High Quality" };
    return ovlib::radio_items(command::first_interpolation_command, texts, chosen);
}

} // namespace

MenuRows book_menu(bool has_edits)
{
    return { menu_item(command::new_book, L"新規作成"), menu_item(command::open_book, L"開く"),
        menu_item(command::save_always, L"保存", has_edits),
        menu_item(command::save_book_as, L"名前を付けて保存"),
        menu_item(command::backup_book, L"バックアップの作成"), menu_separator(),
        menu_item(command::close_program, L"Pagewick を終了する") };
}

bool may_edit_pages(const MainMenuState& state)
{
    return !state.is_busy && !state.is_file_list_editor_open
        && state.order_mode == static_cast<std::int32_t>(book::OrderMode::stored);
}

MenuRows main_menu(const MainMenuState& state)
{
    const bool free = !state.is_busy;
    const bool editable = may_edit_pages(state);
    return { menu_item(command::show_history, L"履歴", free), menu_separator(),
        menu_item(command::add_page_at_end, L"ページの追加 (末尾)", free),
        menu_item(command::add_page_here, L"ページの追加 (現在の位置)", free),
        menu_item(command::delete_page, L"このページを削除", free), menu_separator(),
        menu_item(command::show_book_editor, editable ? L"編集" : L"ソート中は編集不可", editable),
        menu_item(command::show_replace, editable ? L"置換" : L"ソート中は置換不可", editable),
        menu_separator(), menu_item(command::show_web_viewer, L"Chat"),
        menu_item(command::show_palette, L"色 / フォント", !state.is_palette_open),
        menu_item(command::show_settings, L"設定", free && state.accepts_input) };
}

MenuRows file_menu(const FileMenuState& state)
{
    const bool has_text = !state.entry.empty();
    const bool has_several = state.entry_count >= 2;
    return { menu_item(command::add_files, L"ファイルの追加"),
        submenu(L"ファイルの削除", removal_rows(state), state.entry_count >= 1, command::file_removal_menu),
        menu_item(command::duplicate_file, L"ファイルを複製", state.is_entry_file),
        menu_item(command::show_file_in_folder, L"ファイルの場所を開く", state.is_entry_file),
        menu_separator(),
        menu_item(command::show_file_list_editor, L"リストの編集", !state.is_file_list_editor_open),
        submenu(L"リストのソート", sort_rows(), has_several, command::file_sort_menu), menu_separator(),
        menu_item(command::open_file, L"ファイルを既定のアプリで開く", has_text),
        menu_item(
            command::show_viewer, L"画像を Viewer (" + menu_text(state.entry_name) + L") で開く", has_text),
        menu_separator(), submenu(L"画像の補間モード", interpolation_rows(state.interpolation_command)) };
}

MenuRows folder_menu(bool has_folder)
{
    return { menu_item(command::open_reference_folder, L"フォルダを開く", has_folder), menu_separator(),
        menu_item(command::choose_reference_folder, L"フォルダの選択"),
        menu_item(command::clear_reference_folder, L"フォルダの取消", has_folder) };
}

MenuRows web_menu(const std::vector<std::wstring>& labels)
{
    MenuRows rows;
    for (int id = command::first_search_engine; const std::wstring& label : labels) {
        if (id > command::last_search_engine)
            break;
        rows.push_back(menu_item(id++, menu_text(label)));
    }
    rows.push_back(menu_separator());
    rows.push_back(menu_item(command::search_selection, L"Book内"));
    return rows;
}

} // namespace app
