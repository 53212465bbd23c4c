// The rule of each command: the notification codes it accepts, the state it requires and the views that must
// be refreshed after it.
#pragma once
#include "core/command_ids.hpp"
#include "core/command_table.hpp"
#include "core/refresh.hpp"
#include <array>
#include <cstdint>
#include <span>

namespace core {

// The program state that a command requires; combined by |.
enum class Needs : std::uint32_t {
    nothing = 0,
    input = 1, // no message box or dialog is open, and no window blocks the input
    free_book = 2, // neither the page editor nor the replace window is open
    page = 4, // there is a current page
    entry = 8, // its selected file entry is not empty
    folder = 16, // it has a reference folder
    pages = 32, // the Book has pages, even if the position is past their end
};
constexpr Needs operator|(Needs a, Needs b)
{
    return static_cast<Needs>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr bool covers(Needs met, Needs asked)
{
    return (static_cast<std::uint32_t>(asked) & ~static_cast<std::uint32_t>(met)) == 0;
}

enum class Outcome { done, failed };
constexpr Outcome outcome_of(bool done)
{
    return done ? Outcome::done : Outcome::failed;
}

struct CommandRule {
    IdRange ids;
    RefreshMask done = 0; // the views to refresh, at least, after success
    RefreshMask failed = 0; // and after failure
    Needs needs = Needs::nothing;
    CodeRule codes = plain_code;

    constexpr RefreshMask mask(Outcome outcome) const { return outcome == Outcome::done ? done : failed; }
};

// Notifications that some commands act on.
inline constexpr CodeRule text_changed = only_code(command::edit_changed);
inline constexpr CodeRule choice_made = only_code(command::combo_chosen);
inline constexpr CodeRule box_number = code_below(3);

// Every command of the main window. Columns: commands, views to refresh after success and after failure,
// requirements, notification codes. Ascending, because find_row searches by halves; the assertion below
// checks it.
inline constexpr std::array command_rules{
    CommandRule{ command::show_book_menu, 0, 0, Needs::free_book },
    CommandRule{
        { command::new_book, command::open_book }, refresh::full, refresh::controls, Needs::free_book },
    CommandRule{ command::save_always, refresh::full_but_page },
    CommandRule{ command::save_book_as, refresh::full, refresh::full, Needs::free_book },
    CommandRule{ { command::save_if_changed, command::save_after_question }, refresh::full_but_page },
    CommandRule{ command::restore_book, refresh::full, refresh::full },
    CommandRule{ command::backup_book },
    CommandRule{ { command::next_page, command::previous_page }, refresh::full, 0, Needs::input },
    CommandRule{ { command::first_page, command::last_page }, refresh::full, 0, Needs::input | Needs::pages },
    CommandRule{ command::toggle_mark, refresh::controls, 0, Needs::free_book | Needs::page },
    CommandRule{
        { command::toggle_mark_tracking, command::toggle_tab_tracking }, refresh::full, 0, Needs::free_book },
    CommandRule{
        { command::toggle_random_order, command::toggle_sorted_order }, refresh::full, 0, Needs::free_book },
    CommandRule{ { command::search_selection, command::clear_search } },
    CommandRule{ { command::write_mail, command::show_web_menu } },
    CommandRule{ command::show_folder_menu, 0, 0, Needs::page },
    CommandRule{ { command::about, command::close_program } },
    CommandRule{ command::request_refresh }, // the message carries the mask
    CommandRule{ command::go_to_tab, refresh::full },
    CommandRule{ { command::box_1, command::box_3 }, 0, 0, Needs::nothing, text_changed },
    CommandRule{ command::search_box, 0, 0, Needs::nothing, text_changed },
    CommandRule{ command::file_list_box, 0, 0, Needs::nothing, text_changed },
    CommandRule{ command::renew_edited_mark },
    CommandRule{ command::file_combo, refresh::file_choice, 0, Needs::page, choice_made },
    CommandRule{ command::toggle_results },
    CommandRule{ command::choose_result, refresh::file_choice_from_results, 0, Needs::nothing, any_code },
    CommandRule{ command::delete_page, refresh::full, 0, Needs::free_book | Needs::page },
    CommandRule{ command::set_accepting_input },
    CommandRule{ command::open_reference_folder, 0, 0, Needs::page | Needs::folder },
    CommandRule{ command::choose_reference_folder, refresh::folder_button, 0, Needs::page },
    CommandRule{ command::clear_reference_folder, refresh::folder_button, 0, Needs::page | Needs::folder },
    CommandRule{ { command::repaint_box, command::set_box_font }, 0, 0, Needs::nothing, box_number },
    CommandRule{ command::toggle_tab, refresh::tabs, 0, Needs::free_book | Needs::page },
    CommandRule{ command::remove_tab, refresh::tabs },
    CommandRule{ { command::show_book_editor, command::show_replace }, refresh::controls_and_enable, 0,
        Needs::free_book },
    CommandRule{ command::show_palette },
    CommandRule{ command::show_file_menu, 0, 0, Needs::free_book | Needs::page },
    CommandRule{ command::show_file_list_editor, 0, 0, Needs::free_book },
    CommandRule{ { command::add_files, command::add_dropped_files }, refresh::file_list, 0, Needs::page },
    CommandRule{ command::remove_file, refresh::file_list, 0, Needs::page | Needs::entry },
    CommandRule{ command::remove_all_files, refresh::file_list, 0, Needs::page },
    CommandRule{ command::add_page_at_end, refresh::full, 0, Needs::free_book },
    CommandRule{ command::add_dropped_pages, refresh::file_list, 0, Needs::free_book },
    CommandRule{ command::add_page_here, refresh::full, 0, Needs::free_book },
    CommandRule{ command::duplicate_file, 0, 0, Needs::input | Needs::page | Needs::entry },
    CommandRule{ { command::first_file, command::next_file }, refresh::file_choice, 0, Needs::page },
    CommandRule{ { command::move_file_up, command::move_file_to_end }, refresh::file_list, 0, Needs::page },
    CommandRule{ { command::sort_files_ascending, command::sort_files_descending }, refresh::file_list, 0,
        Needs::page },
    CommandRule{ command::search_moved_file, refresh::file_choice, 0,
        Needs::page }, // the handler reports an empty entry
    CommandRule{ { command::show_viewer, command::show_file_in_folder }, 0, 0, Needs::page | Needs::entry },
    CommandRule{
        command::accelerator_save, 0, 0, Needs::nothing, any_code }, // handled by the focused control
    CommandRule{ { command::first_interpolation_command, command::last_interpolation_command } },
    CommandRule{ command::show_web_viewer },
    CommandRule{ { command::first_theme, command::last_theme } },
    CommandRule{ command::apply_theme_to_pages },
    CommandRule{ command::show_settings, refresh::full_but_page, 0, Needs::input | Needs::free_book },
    CommandRule{ { command::first_history_entry, command::last_history_entry }, refresh::full,
        refresh::controls, Needs::free_book },
    CommandRule{ command::show_history, 0, 0, Needs::free_book },
    CommandRule{ { command::first_search_engine, command::last_search_engine } },
};
static_assert(is_ordered(std::span<const CommandRule>{ command_rules }));

// The command's rule; null if the command is unknown or does not accept this notification code.
const CommandRule* find_command(int id, int code);

// Whether the command is refused in a state that meets only `met`.
constexpr bool is_refused(const CommandRule& rule, Needs met)
{
    return !covers(met, rule.needs);
}

} // namespace core
