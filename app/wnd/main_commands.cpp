// The table from command numbers to handlers, checked at compile time against the table of rules.
#include "app/wnd/main_commands.hpp"
#include "core/command_ids.hpp"
#include <algorithm>
#include <array>
#include <span>

namespace app {

namespace command = core::command;

namespace {

struct Row {
    core::IdRange ids;
    CommandHandler handler = nullptr; // null: the window of this command does not exist yet
};

constexpr std::array rows{
    Row{ command::show_book_menu, commands::show_book_menu },
    Row{ command::new_book, commands::create_book },
    Row{ command::open_book, commands::open_book },
    Row{ command::save_always, commands::save },
    Row{ command::save_book_as, commands::save_as },
    Row{ { command::save_if_changed, command::save_after_question }, commands::save },
    Row{ command::restore_book, commands::restore },
    Row{ command::backup_book, commands::back_up },
    Row{ { command::next_page, command::previous_page }, commands::turn_page },
    Row{ { command::first_page, command::last_page }, commands::go_to_end_page },
    Row{ command::toggle_mark, commands::toggle_mark },
    Row{ { command::toggle_mark_tracking, command::toggle_tab_tracking }, commands::toggle_tracking },
    Row{ { command::toggle_random_order, command::toggle_sorted_order }, commands::change_order },
    Row{ command::search_selection, commands::search_selection },
    Row{ { command::toggle_all_terms, command::toggle_file_list_search }, commands::toggle_search_check },
    Row{ command::clear_search, commands::clear_search },
    Row{ command::write_mail, commands::write_mail },
    Row{ command::show_web_menu, commands::show_web_menu },
    Row{ command::show_folder_menu, commands::show_folder_menu },
    Row{ command::about, commands::about },
    Row{ command::close_program, commands::close_program },
    Row{ command::request_refresh, commands::request_refresh },
    Row{ command::go_to_tab, commands::go_to_tab },
    Row{ { command::box_1, command::box_3 }, commands::note_box_change },
    Row{ command::search_box, commands::note_search_change },
    Row{ command::file_list_box, commands::note_box_change },
    Row{ command::renew_edited_mark, commands::renew_edited_mark },
    Row{ command::file_combo, commands::choose_file_in_combo },
    Row{ command::toggle_results, commands::toggle_results },
    Row{ command::choose_result, commands::choose_result },
    Row{ command::delete_page, commands::delete_page },
    Row{ command::set_accepting_input, commands::set_accepting_input },
    Row{ command::open_reference_folder, commands::open_folder },
    Row{ command::choose_reference_folder, commands::choose_folder },
    Row{ command::clear_reference_folder, commands::clear_folder },
    Row{ command::repaint_box, commands::repaint_box },
    Row{ command::set_box_font, commands::set_box_font },
    Row{ command::toggle_tab, commands::toggle_tab },
    Row{ command::remove_tab, commands::remove_tab },
    Row{ { command::show_book_editor, command::show_replace }, commands::show_editing_window },
    Row{ command::show_palette, commands::show_palette },
    Row{ command::show_file_menu, commands::show_file_menu },
    Row{ command::show_file_list_editor, commands::show_file_list_editor },
    Row{ command::add_files, commands::add_files },
    Row{ command::add_dropped_files, commands::add_dropped_files },
    Row{ command::remove_file, commands::remove_file },
    Row{ command::remove_all_files, commands::remove_all_files },
    Row{ command::add_page_at_end, commands::add_page },
    Row{ command::add_dropped_pages, commands::add_dropped_pages },
    Row{ command::add_page_here, commands::add_page },
    Row{ command::duplicate_file, commands::duplicate_file },
    Row{ { command::first_file, command::next_file }, commands::select_file },
    Row{ { command::move_file_up, command::move_file_to_end }, commands::move_file },
    Row{ { command::sort_files_ascending, command::sort_files_descending }, commands::sort_files },
    Row{ command::search_moved_file, commands::search_moved_file },
    Row{ command::show_viewer, commands::show_viewer },
    Row{ command::open_file, commands::open_file },
    Row{ command::show_file_in_folder, commands::show_file_in_folder },
    Row{ command::accelerator_save, commands::ignore },
    Row{ { command::first_interpolation_command, command::last_interpolation_command },
        commands::choose_interpolation },
    Row{ command::show_web_viewer },
    Row{ { command::first_theme, command::last_theme }, commands::choose_theme },
    Row{ command::apply_theme_to_pages, commands::apply_theme_to_pages },
    Row{ command::show_settings, commands::show_settings },
    Row{ { command::first_history_entry, command::last_history_entry }, commands::open_history_entry },
    Row{ command::show_history, commands::show_history },
    Row{ { command::first_search_engine, command::last_search_engine } },
};
static_assert(core::is_ordered(std::span<const Row>{ rows }));

// Both tables must cover the same numbers. Whether a table covers a number changes only at the ends of its
// ranges, so it is enough to compare the tables at each end of each range and at the number just outside.
constexpr bool covers(std::span<const Row> handlers, std::span<const core::CommandRule> rules, int id)
{
    return (core::find_row(handlers, id) != nullptr) == (core::find_row(rules, id) != nullptr);
}
constexpr bool agree(std::span<const Row> handlers, std::span<const core::CommandRule> rules)
{
    const auto ends_agree = [&](core::IdRange ids) {
        return covers(handlers, rules, ids.first - 1) && covers(handlers, rules, ids.first)
            && covers(handlers, rules, ids.last) && covers(handlers, rules, ids.last + 1);
    };
    return std::ranges::all_of(handlers, ends_agree, &Row::ids)
        && std::ranges::all_of(rules, ends_agree, &core::CommandRule::ids);
}
static_assert(agree(rows, core::command_rules), "a rule without a handler, or a handler without a rule");

} // namespace

CommandHandler find_command_handler(int id)
{
    const Row* row = core::find_row(std::span<const Row>{ rows }, id);
    return row ? row->handler : nullptr;
}

} // namespace app
