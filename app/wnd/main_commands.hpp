// The handlers of the main window's commands, by topic. The conditions before a command and the refresh after
// it are in the rules.
#pragma once
#include "app/wnd/main_parts.hpp"
#include "core/command_rules.hpp"
#include <cstdint>

namespace app {

struct CommandInput {
    int id = 0;
    int code = 0;
    std::int64_t lparam = 0;
};

using CommandHandler = core::Outcome (*)(MainParts&, const CommandInput&);

// The handler of a command; null if its window does not exist yet.
CommandHandler find_command_handler(int id);

void show_main_menu(MainParts& parts);
// Handles a move of the slider; `code` is its notification code.
void on_slider_move(MainParts& parts, int code);

// The handlers, by topic.
namespace commands {

core::Outcome create_book(MainParts&, const CommandInput&);
core::Outcome open_book(MainParts&, const CommandInput&);
core::Outcome open_history_entry(MainParts&, const CommandInput&);
core::Outcome show_history(MainParts&, const CommandInput&);
core::Outcome save(MainParts&, const CommandInput&);
core::Outcome save_as(MainParts&, const CommandInput&);
core::Outcome restore(MainParts&, const CommandInput&);
core::Outcome back_up(MainParts&, const CommandInput&);
core::Outcome show_book_menu(MainParts&, const CommandInput&);
core::Outcome about(MainParts&, const CommandInput&);
core::Outcome close_program(MainParts&, const CommandInput&);
core::Outcome set_accepting_input(MainParts&, const CommandInput&);
core::Outcome request_refresh(MainParts&, const CommandInput&);
core::Outcome ignore(MainParts&, const CommandInput&);

core::Outcome turn_page(MainParts&, const CommandInput&);
core::Outcome go_to_end_page(MainParts&, const CommandInput&);
core::Outcome go_to_tab(MainParts&, const CommandInput&);
core::Outcome change_order(MainParts&, const CommandInput&);
core::Outcome toggle_mark(MainParts&, const CommandInput&);
core::Outcome toggle_tracking(MainParts&, const CommandInput&);
core::Outcome toggle_tab(MainParts&, const CommandInput&);
core::Outcome remove_tab(MainParts&, const CommandInput&);
core::Outcome add_page(MainParts&, const CommandInput&);
core::Outcome add_dropped_pages(MainParts&, const CommandInput&);
core::Outcome delete_page(MainParts&, const CommandInput&);
core::Outcome note_box_change(MainParts&, const CommandInput&);
core::Outcome renew_edited_mark(MainParts&, const CommandInput&);
core::Outcome search_selection(MainParts&, const CommandInput&);
core::Outcome toggle_search_check(MainParts&, const CommandInput&);
core::Outcome clear_search(MainParts&, const CommandInput&);
core::Outcome note_search_change(MainParts&, const CommandInput&);
core::Outcome toggle_results(MainParts&, const CommandInput&);
core::Outcome choose_result(MainParts&, const CommandInput&);

core::Outcome show_editing_window(MainParts&, const CommandInput&);

core::Outcome show_file_menu(MainParts&, const CommandInput&);
core::Outcome show_file_list_editor(MainParts&, const CommandInput&);
core::Outcome choose_file_in_combo(MainParts&, const CommandInput&);
core::Outcome select_file(MainParts&, const CommandInput&);
core::Outcome move_file(MainParts&, const CommandInput&);
core::Outcome sort_files(MainParts&, const CommandInput&);
core::Outcome add_files(MainParts&, const CommandInput&);
core::Outcome add_dropped_files(MainParts&, const CommandInput&);
core::Outcome remove_file(MainParts&, const CommandInput&);
core::Outcome remove_all_files(MainParts&, const CommandInput&);
core::Outcome duplicate_file(MainParts&, const CommandInput&);
core::Outcome search_moved_file(MainParts&, const CommandInput&);
core::Outcome show_viewer(MainParts&, const CommandInput&);
core::Outcome open_file(MainParts&, const CommandInput&);
core::Outcome show_file_in_folder(MainParts&, const CommandInput&);
core::Outcome choose_interpolation(MainParts&, const CommandInput&);

core::Outcome show_folder_menu(MainParts&, const CommandInput&);
core::Outcome open_folder(MainParts&, const CommandInput&);
core::Outcome choose_folder(MainParts&, const CommandInput&);
core::Outcome clear_folder(MainParts&, const CommandInput&);

core::Outcome show_web_menu(MainParts&, const CommandInput&);
core::Outcome write_mail(MainParts&, const CommandInput&);

core::Outcome show_palette(MainParts&, const CommandInput&);
core::Outcome repaint_box(MainParts&, const CommandInput&);
core::Outcome set_box_font(MainParts&, const CommandInput&);
core::Outcome choose_theme(MainParts&, const CommandInput&);
core::Outcome apply_theme_to_pages(MainParts&, const CommandInput&);
core::Outcome show_settings(MainParts&, const CommandInput&);

} // namespace commands

} // namespace app
