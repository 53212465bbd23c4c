// Commands on pages: turning, order, marks, adding and deleting.
#include "app/page_actions.hpp"
#include "app/page_note.hpp"
#include "app/wnd/appwnd.hpp"
#include "book/page_order.hpp"
#include "book/query.hpp"
#include "core/command_ids.hpp"
#include "look/theme.hpp"
#include "ovlib/gui/system_geometry.hpp"

namespace app {

namespace command = core::command;
namespace refresh = core::refresh;

core::Outcome AppWnd::on_step(const CommandInput& input)
{
    if (!leave_page())
        return core::Outcome::failed;
    const book::Page* from = book_.current_page();
    const book::Page* to = step_page(input.id == command::next_page ? 1 : -1);
    const bool has_failed = to == from;
    banner_.show(has_failed ? book::failed_search_text(search_query()) : std::wstring{});
    return has_failed ? core::Outcome::failed : core::Outcome::done;
}

core::Outcome AppWnd::on_end_page(const CommandInput& input)
{
    if (!leave_page())
        return core::Outcome::failed;
    if (input.id == command::first_page)
        book::go_to_first(book_);
    else
        book::go_to_last(book_);
    step_page(0);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_go_to_tab(const CommandInput& input)
{
    if (!leave_page())
        return core::Outcome::failed;
    book::go_to_tab(book_, static_cast<std::uint64_t>(input.lparam));
    step_page(0);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_toggle_mark(const CommandInput&)
{
    return toggle_mark(book_) ? core::Outcome::done : core::Outcome::failed;
}

core::Outcome AppWnd::on_toggle_tracking(const CommandInput& input)
{
    std::uint8_t& flag =
        input.id == command::toggle_mark_tracking ? book_.header.track_marks : book_.header.track_tabs;
    flag = flag == 0;
    step_page(0);
    return core::Outcome::done;
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

core::Outcome AppWnd::on_change_order(const CommandInput& input)
{
    if (!leave_page())
        return core::Outcome::failed;
    change_order(input.id);
    step_page(0);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_delete_page(const CommandInput&)
{
    const std::optional<PageNote> asked = note_page(book_);
    if (!asked)
        return core::Outcome::failed;
    const int answer = show_message(book::delete_page_question(asked->position), BoxStyle::question);
    if (answer != answer_yes || !still_stands(*asked, book_))
        return core::Outcome::failed;
    book_.remove_page_at(asked->position, look::page_colors(look::palette()));
    // What the boxes hold belongs to the page that is gone: a save must not take it into another.
    forget_shown_page();
    book_.refresh_counts();
    step_page(0);
    save_book(SaveCode::always);
    return core::Outcome::done;
}

core::Outcome AppWnd::on_add_page(const CommandInput& input)
{
    if (!leave_page())
        return core::Outcome::failed;
    const bool at_end = input.id == command::add_page_at_end;
    book_.new_page(at_end ? book_.pages.size() : book_.header.position, look::page_colors(look::palette()));
    forget_shown_page();
    book_.refresh_counts();
    step_page(0);
    save_book(SaveCode::always);
    return core::Outcome::done;
}

bool AppWnd::on_wheel(const ovlib::WndMessage& message)
{
    if (!is_accepting_input())
        return true;
    const int step = ovlib::wheel_step(wheel_, message);
    if (step == 0)
        return true;
    const bool forward = step < 0;
    if ((GET_KEYSTATE_WPARAM(message.wparam) & MK_CONTROL) && !is_busy())
        commands_.run([this, forward] { swap_page(forward ? 1 : -1); });
    else
        send_command(forward ? command::next_page : command::previous_page, 0, 0);
    return true;
}

core::Outcome AppWnd::on_toggle_tab(const CommandInput&)
{
    return toggle_tab(book_, tab_color_) ? core::Outcome::done : core::Outcome::failed;
}

// The strip names the page by its address; the box lets pages come and go.
core::Outcome AppWnd::on_remove_tab(const CommandInput& input)
{
    const std::size_t index = index_of(book_, static_cast<std::uintptr_t>(input.lparam));
    if (index == book::npos)
        return core::Outcome::failed;
    const std::size_t count = book_.pages.size();
    const book::Page asked = book_.pages[index];
    if (show_message(L"このページのタブを削除しますか？", BoxStyle::question) != answer_yes)
        return core::Outcome::failed;
    const bool still_stands = book_.pages.size() == count && book_.pages[index].stamp == asked.stamp
        && book_.pages[index].tab_number == asked.tab_number;
    return still_stands && remove_tab(book_, index, tab_color_) ? core::Outcome::done : core::Outcome::failed;
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
