// Commands on pages: turning, order, marks, adding and deleting.
#include "app/command_ids.hpp"
#include "app/page_commands.hpp"
#include "app/wnd/appwnd.hpp"
#include "book/page_order.hpp"

namespace app {

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

// A mode that cannot be applied must not be saved: the Book could never be opened again.
void AppWnd::change_order(int id)
{
    const std::int32_t old_mode = book_.header.order_mode;
    try {
        switch (id) {
        case command::toggle_random_order:
            return book::toggle_random(book_);
        case command::toggle_sorted_order:
            return book::toggle_sorted(book_);
        default:
            return book::toggle_reversed(book_.header);
        }
    } catch (...) {
        book_.header.order_mode = old_mode;
        throw;
    }
}

void AppWnd::on_change_order(const CommandInput& input)
{
    if (!leave_page())
        return;
    change_order(input.id);
    step_page(0);
    commands_.merge(refresh::full);
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
