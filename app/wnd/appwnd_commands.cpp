// Which command does what.
#include "app/command_ids.hpp"
#include "app/command_table.hpp"
#include "app/page_commands.hpp"
#include "app/wnd/appwnd.hpp"
#include "book/page_order.hpp"
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

void AppWnd::end_book_command(bool loaded)
{
    commands_.merge(loaded ? refresh::full : refresh::controls);
}

void AppWnd::on_new_book(const CommandInput&)
{
    end_book_command(new_book());
}

void AppWnd::on_open_book(const CommandInput&)
{
    std::wstring path;
    end_book_command(open_book(path));
}

void AppWnd::on_history_entry(const CommandInput& input)
{
    const auto place = static_cast<std::size_t>(input.id - command::first_history_entry);
    std::wstring path = place < history_.entries().size() ? history_.entries()[place] : std::wstring{};
    end_book_command(open_book(path));
}

void AppWnd::on_save(const CommandInput& input)
{
    if (save_book(static_cast<SaveCode>(input.id)))
        commands_.merge(refresh::full_but_page);
}

void AppWnd::on_save_as(const CommandInput&)
{
    save_book_as();
}

void AppWnd::on_restore(const CommandInput&)
{
    load_book(book_.path);
    commands_.merge(refresh::full);
}

void AppWnd::on_backup(const CommandInput&)
{
    std::wstring result;
    backup_book(&result);
    if (!result.empty())
        show_message(result, BoxStyle::plain);
}

void AppWnd::on_step(const CommandInput& input)
{
    if (!is_accepting_input() || !leave_page())
        return;
    const book::Page* from = book_.current_page();
    const book::Page* to = step_page(input.id == command::next_page ? 1 : -1);
    if (to != from)
        commands_.merge(refresh::full);
}

void AppWnd::on_end_page(const CommandInput& input)
{
    if (!is_accepting_input() || book_.pages.empty() || !leave_page())
        return;
    if (input.id == command::first_page)
        book::go_to_first(book_);
    else
        book::go_to_last(book_);
    step_page(0);
    commands_.merge(refresh::full);
}

void AppWnd::on_go_to_tab(const CommandInput& input)
{
    if (!leave_page())
        return;
    book::go_to_tab(book_, static_cast<std::uint64_t>(input.lparam));
    step_page(0);
    commands_.merge(refresh::full);
}

void AppWnd::on_toggle_mark(const CommandInput&)
{
    toggle_mark(book_);
    commands_.merge(refresh::controls);
}

void AppWnd::on_toggle_tracking(const CommandInput& input)
{
    std::uint8_t& flag =
        input.id == command::toggle_mark_tracking ? book_.header.track_marks : book_.header.track_tabs;
    flag = flag == 0;
    step_page(0);
    commands_.merge(refresh::full);
}

void AppWnd::on_change_order(const CommandInput& input)
{
    if (!leave_page())
        return;
    switch (input.id) {
    case command::toggle_random_order:
        book::toggle_random(book_);
        break;
    case command::toggle_sorted_order:
        book::toggle_sorted(book_);
        break;
    default:
        book::toggle_reversed(book_.header);
        break;
    }
    step_page(0);
    commands_.merge(refresh::full);
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

void AppWnd::on_delete_page(const CommandInput&)
{
    const std::uint64_t position = book_.header.position;
    const std::size_t index = current_index(book_);
    const std::size_t count = book_.pages.size();
    if (index == book::npos)
        return;
    if (show_message(book::delete_page_question(position), BoxStyle::question) != answer_yes)
        return;
    // Only the page that was asked about goes.
    if (book_.header.position != position || current_index(book_) != index || book_.pages.size() != count)
        return;
    book_.remove_page_at(position);
    forget_shown_page();
    book_.refresh_counts();
    step_page(0);
    save_book(SaveCode::always);
    commands_.merge(refresh::full);
}

void AppWnd::on_add_page(const CommandInput& input)
{
    if (!leave_page())
        return;
    book_.new_page(input.id == command::add_page_at_end ? book_.pages.size() : book_.header.position);
    forget_shown_page();
    book_.refresh_counts();
    step_page(0);
    save_book(SaveCode::always);
    commands_.merge(refresh::full);
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

bool AppWnd::on_wheel(const ovlib::WndMessage& message)
{
    const int delta = GET_WHEEL_DELTA_WPARAM(message.wparam);
    if (!is_accepting_input() || delta == 0)
        return true;
    const bool forward = delta < 0;
    if ((GET_KEYSTATE_WPARAM(message.wparam) & MK_CONTROL) && !is_busy())
        commands_.run([this, forward] { swap_page(forward ? 1 : -1); });
    else
        send_command(forward ? command::next_page : command::previous_page, 0, 0);
    return true;
}

void AppWnd::swap_page(int direction)
{
    if (!leave_page() || !swap_with_neighbour(book_, direction))
        return;
    forget_shown_page();
    step_page(0);
    commands_.merge(refresh::full);
}

} // namespace app
