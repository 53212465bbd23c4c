// Which command does what. What holds before and after stands in the rules.
#include "app/page_actions.hpp"
#include "app/wnd/appwnd.hpp"
#include "core/command_ids.hpp"
#include "core/titles.hpp"
#include "look/theme.hpp"
#include <array>

namespace app {

namespace command = core::command;

// Commands whose windows are still to come have their rules already, and no handler here.
struct AppWnd::CommandTable {
    struct Entry {
        core::IdRange ids;
        core::Outcome (AppWnd::*handler)(const CommandInput&);
    };

    static constexpr std::array entries{
        Entry{ command::show_book_menu, &AppWnd::on_book_menu },
        Entry{ command::new_book, &AppWnd::on_new_book },
        Entry{ command::open_book, &AppWnd::on_open_book },
        Entry{ command::save_always, &AppWnd::on_save },
        Entry{ command::save_book_as, &AppWnd::on_save_as },
        Entry{ { command::save_if_changed, command::save_after_question }, &AppWnd::on_save },
        Entry{ command::restore_book, &AppWnd::on_restore },
        Entry{ command::backup_book, &AppWnd::on_backup },
        Entry{ { command::next_page, command::previous_page }, &AppWnd::on_step },
        Entry{ { command::first_page, command::last_page }, &AppWnd::on_end_page },
        Entry{ command::toggle_mark, &AppWnd::on_toggle_mark },
        Entry{ { command::toggle_mark_tracking, command::toggle_tab_tracking }, &AppWnd::on_toggle_tracking },
        Entry{ { command::toggle_random_order, command::toggle_sorted_order }, &AppWnd::on_change_order },
        Entry{ command::search_selection, &AppWnd::on_search_selection },
        Entry{ { command::toggle_all_terms, command::toggle_file_list_search },
            &AppWnd::on_toggle_search_check },
        Entry{ command::clear_search, &AppWnd::on_clear_search },
        Entry{ command::show_web_menu, &AppWnd::on_web_menu },
        Entry{ command::show_folder_menu, &AppWnd::on_folder_menu },
        Entry{ command::about, &AppWnd::on_about },
        Entry{ command::close_program, &AppWnd::on_close_program },
        Entry{ command::request_refresh, &AppWnd::on_request_refresh },
        Entry{ command::go_to_tab, &AppWnd::on_go_to_tab },
        Entry{ { command::box_1, command::box_3 }, &AppWnd::on_box_changed },
        Entry{ command::search_box, &AppWnd::on_search_changed },
        Entry{ command::file_list_box, &AppWnd::on_box_changed },
        Entry{ command::renew_edited_mark, &AppWnd::on_renew_edited_mark },
        Entry{ command::file_combo, &AppWnd::on_file_combo },
        Entry{ command::delete_page, &AppWnd::on_delete_page },
        Entry{ command::set_accepting_input, &AppWnd::on_set_accepting_input },
        Entry{ command::open_reference_folder, &AppWnd::on_open_folder },
        Entry{ command::choose_reference_folder, &AppWnd::on_choose_folder },
        Entry{ command::clear_reference_folder, &AppWnd::on_clear_folder },
        Entry{ command::repaint_box, &AppWnd::on_repaint_box },
        Entry{ command::toggle_tab, &AppWnd::on_toggle_tab },
        Entry{ command::remove_tab, &AppWnd::on_remove_tab },
        Entry{ command::show_file_menu, &AppWnd::on_file_menu },
        Entry{ command::add_files, &AppWnd::on_add_files },
        Entry{ command::remove_file, &AppWnd::on_remove_file },
        Entry{ command::remove_all_files, &AppWnd::on_remove_all_files },
        Entry{ command::add_page_at_end, &AppWnd::on_add_page },
        Entry{ command::add_page_here, &AppWnd::on_add_page },
        Entry{ command::duplicate_file, &AppWnd::on_duplicate_file },
        Entry{ { command::first_file, command::next_file }, &AppWnd::on_select_file },
        Entry{ { command::move_file_up, command::move_file_to_end }, &AppWnd::on_move_file },
        Entry{ { command::sort_files_ascending, command::sort_files_descending }, &AppWnd::on_sort_files },
        Entry{ command::search_moved_file, &AppWnd::on_search_moved_file },
        Entry{ command::open_file, &AppWnd::on_open_file },
        Entry{ command::show_file_in_folder, &AppWnd::on_show_file_in_folder },
        Entry{ command::accelerator_save, &AppWnd::on_ignore },
        Entry{ { command::first_interpolation_command, command::last_interpolation_command },
            &AppWnd::on_interpolation },
        Entry{ { command::first_theme, command::last_theme }, &AppWnd::on_theme },
        Entry{ command::apply_theme_to_pages, &AppWnd::on_theme_to_pages },
        Entry{ { command::first_history_entry, command::last_history_entry }, &AppWnd::on_history_entry },
        Entry{ command::show_history, &AppWnd::on_show_history },
    };
    static_assert(core::is_ordered(std::span<const Entry>{ entries }));
};

bool AppWnd::on_command(const ovlib::WndMessage& message)
{
    const CommandInput input{ LOWORD(message.wparam), HIWORD(message.wparam), message.lparam };
    if (input.code == EN_SETFOCUS)
        note_field_focus(input.id);
    const bool is_click = input.code == BN_CLICKED && is_focused_button(input.lparam);
    if (!is_loading_)
        commands_.run([this, &input] { run_command(input); });
    // A button that was clicked has the keyboard, and nothing to type into.
    if (is_click && is_focused_button(input.lparam))
        set_focus();
    return true;
}

bool AppWnd::is_focused_button(std::int64_t handle) const
{
    HWND const control = reinterpret_cast<HWND>(static_cast<std::intptr_t>(handle));
    return control && control == GetFocus() && dynamic_cast<ovlib::Button*>(from_handle(control));
}

void AppWnd::run_command(const CommandInput& input)
{
    const core::CommandRule* rule = core::find_command(input.id, input.code);
    const auto* entry =
        core::find_row(std::span<const CommandTable::Entry>{ CommandTable::entries }, input.id);
    if (!rule || !entry || core::is_refused(*rule, met_needs()))
        return;
    const core::Outcome outcome = (this->*entry->handler)(input);
    commands_.merge(rule->mask(outcome));
}

core::Needs AppWnd::met_needs() const
{
    return app::met_needs({ is_accepting_input(), is_busy() }, book_);
}

void AppWnd::report_failure(const std::exception_ptr& failure)
{
    const FailureNotice notice = failure_notice(failure, FailedAt::command);
    show_message(notice.text, notice.style);
    if (!notice.ends_program)
        return;
    // The windows that own the Book would refuse the close, and the program run on with half a Book.
    for (ovlib::Wnd* window : editing_windows_)
        window->show(false);
    send(WM_CLOSE, 0, 0);
}

core::Outcome AppWnd::on_close_program(const CommandInput&)
{
    send(WM_CLOSE, 0, 0);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_request_refresh(const CommandInput& input)
{
    commands_.merge(static_cast<core::RefreshMask>(input.lparam));
    return core::Outcome::done;
}

core::Outcome AppWnd::on_box_changed(const CommandInput&)
{
    if (!edited_mark_) {
        edited_mark_ = true;
        update_title();
    }
    return core::Outcome::done;
}

core::Outcome AppWnd::on_renew_edited_mark(const CommandInput&)
{
    edited_mark_ = has_edits();
    update_title();
    return core::Outcome::done;
}

core::Outcome AppWnd::on_set_accepting_input(const CommandInput& input)
{
    input_.set_held(input.lparam == 0);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_ignore(const CommandInput&)
{
    return core::Outcome::done;
}

core::Outcome AppWnd::on_about(const CommandInput&)
{
    show_message(core::about_text(), BoxStyle::plain);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_repaint_box(const CommandInput& input)
{
    InvalidateRect(boxes()[static_cast<std::size_t>(input.code)]->hwnd(), nullptr, TRUE);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_theme(const CommandInput& input)
{
    book_.header.theme = apply_theme(input.id);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_theme_to_pages(const CommandInput&)
{
    color_all_pages(book_, look::palette());
    for (const look::MyBox* box : boxes())
        RedrawWindow(box->hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_FRAME);
    return core::Outcome::done;
}

} // namespace app
