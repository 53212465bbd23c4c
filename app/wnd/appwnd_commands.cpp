// Which command does what.
#include "app/command_ids.hpp"
#include "app/command_table.hpp"
#include "app/page_commands.hpp"
#include "app/wnd/appwnd.hpp"
#include "look/theme.hpp"

namespace app {

struct AppWnd::CommandTable {
    using Entry = CommandEntry<void (AppWnd::*)(const CommandInput&)>;

    static constexpr std::array entries{
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
        Entry{ command::close_program, &AppWnd::on_close_program },
        Entry{ command::request_refresh, &AppWnd::on_request_refresh },
        Entry{ command::go_to_tab, &AppWnd::on_go_to_tab },
        Entry{
            { command::box_1, command::box_3 }, &AppWnd::on_box_changed, only_code(command::edit_changed) },
        Entry{ command::renew_edited_mark, &AppWnd::on_renew_edited_mark },
        Entry{ command::delete_page, &AppWnd::on_delete_page },
        Entry{ command::set_accepting_input, &AppWnd::on_set_accepting_input },
        Entry{ command::add_page_at_end, &AppWnd::on_add_page },
        Entry{ command::add_page_here, &AppWnd::on_add_page },
        Entry{ command::accelerator_save, &AppWnd::on_ignore, any_code },
        Entry{ { command::first_theme, command::last_theme }, &AppWnd::on_theme },
        Entry{ command::apply_theme_to_pages, &AppWnd::on_theme_to_pages },
        Entry{ { command::first_history_entry, command::last_history_entry }, &AppWnd::on_history_entry },
    };
    static_assert(is_ordered(std::span<const Entry>{ entries }));

    static auto find(const CommandInput& input)
    {
        return find_handler(std::span<const Entry>{ entries }, input.id, input.code);
    }
};

bool AppWnd::on_command(const ovlib::WndMessage& message)
{
    const CommandInput input{ LOWORD(message.wparam), HIWORD(message.wparam), message.lparam };
    if (is_loading_)
        return true;
    commands_.run([this, &input] {
        if (const auto* handler = CommandTable::find(input))
            (this->**handler)(input);
    });
    return true;
}

void AppWnd::report_failure(const std::exception_ptr& failure)
{
    const FailureNotice notice = failure_notice(failure, FailedAt::command);
    show_message(notice.text, notice.style);
    if (notice.ends_program)
        send(WM_CLOSE, 0, 0);
}

void AppWnd::on_close_program(const CommandInput&)
{
    send(WM_CLOSE, 0, 0);
}

void AppWnd::on_request_refresh(const CommandInput& input)
{
    commands_.merge(static_cast<RefreshMask>(input.lparam));
}

void AppWnd::on_box_changed(const CommandInput&)
{
    if (edited_mark_)
        return;
    edited_mark_ = true;
    update_title();
}

void AppWnd::on_renew_edited_mark(const CommandInput&)
{
    edited_mark_ = has_edits();
    update_title();
}

void AppWnd::on_set_accepting_input(const CommandInput& input)
{
    input_.set_held(input.lparam == 0);
}

void AppWnd::on_ignore(const CommandInput&) { }

void AppWnd::on_theme(const CommandInput& input)
{
    book_.header.theme = apply_theme(input.id);
}

void AppWnd::on_theme_to_pages(const CommandInput&)
{
    color_all_pages(book_, look::palette());
    for (const look::MyBox* box : boxes())
        RedrawWindow(box->hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_FRAME);
}

} // namespace app
