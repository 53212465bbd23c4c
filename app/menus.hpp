// The main window's popup menus: their items, and which items are grey. Each picture is found by the command.
#pragma once
#include "controls/menu_rows.hpp"
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace app {

// How each menu is placed at its point, as TPM_ flags.
namespace menu_flags {

inline constexpr std::uint32_t book = 0x10;
inline constexpr std::uint32_t main = 0x10;
inline constexpr std::uint32_t file = 0x10;
inline constexpr std::uint32_t folder = 0x10;
inline constexpr std::uint32_t web = 0;

} // namespace menu_flags

ovlib::MenuRows book_menu(bool has_edits);

struct MainMenuState {
    bool is_busy = false; // the page editor or the replace window is open
    bool accepts_input = true; // no box or dialog is open
    bool is_palette_open = false;
    bool is_file_list_editor_open = false;
    std::int32_t order_mode = 0; // of the Book, with its sign
};
ovlib::MenuRows main_menu(const MainMenuState& state);
// Whether the page editor and the replace window may be opened: they work only on the stored order.
bool may_edit_pages(const MainMenuState& state);

struct FileMenuState {
    std::size_t entry_count = 0;
    std::wstring entry; // the selected one; empty without one
    std::wstring entry_name; // as it is displayed
    bool is_entry_file = false; // an existing regular file
    bool is_file_list_editor_open = false;
    std::int32_t interpolation_command = 0;
};
ovlib::MenuRows file_menu(const FileMenuState& state);

ovlib::MenuRows folder_menu(bool has_folder);

// `labels`: the names of the search engines. Those beyond the range of commands are left out.
ovlib::MenuRows web_menu(const std::vector<std::wstring>& labels);

} // namespace app
