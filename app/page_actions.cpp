#include "app/page_actions.hpp"
#include "book/page_order.hpp"
#include "book/query.hpp"
#include "core/command_ids.hpp"
#include <algorithm>
#include <utility>

namespace app {

namespace command = core::command;
using core::Outcome;
using core::outcome_of;

namespace {

// A mode that cannot be applied is undone. If it were saved, the Book could never be opened again.
void apply_order(book::Book& book, int id)
{
    const std::int32_t old_mode = book.header.order_mode;
    try {
        switch (id) {
        case command::toggle_random_order:
            return book::toggle_random(book);
        case command::toggle_sorted_order:
            return book::toggle_sorted(book);
        default:
            return book::toggle_reversed(book.header);
        }
    } catch (...) {
        book.header.order_mode = old_mode;
        throw;
    }
}

std::uint64_t position_of(const book::Book& book, std::size_t index)
{
    std::uint64_t position = 0;
    while (position < book.pages.size() && book.position_to_index(position) != index)
        ++position;
    return position;
}

} // namespace

book::PageColors new_page_colors()
{
    return look::page_colors(look::palette());
}

void follow_pages(BookSession& session)
{
    session.forget_shown_page();
    session.book().refresh_counts();
    session.note_content_change();
}

bool toggle_mark(book::Book& book)
{
    book::Page* page = book.current_page();
    if (!page)
        return false;
    page->mark = page->mark == 0 ? 1 : 0;
    book.recount();
    return true;
}

bool toggle_tab(book::Book& book, std::uint32_t color)
{
    book::Page* page = book.current_page();
    if (!page)
        return false;
    page->tab_number = page->tab_number == 0 && book.tab_count < book::tab_limit ? 1 : 0;
    page->tab_color = color;
    book.recount();
    return true;
}

bool remove_tab(book::Book& book, std::size_t index, std::uint32_t color)
{
    if (index >= book.pages.size())
        return false;
    book.pages[index].tab_number = 0;
    book.pages[index].tab_color = color;
    book.recount();
    return true;
}

std::size_t index_of(const book::Book& book, std::uintptr_t address)
{
    const std::uintptr_t offset = address - reinterpret_cast<std::uintptr_t>(book.pages.data());
    const std::size_t index = offset / sizeof(book::Page);
    return offset % sizeof(book::Page) == 0 && index < book.pages.size() ? index : book::npos;
}

bool swap_with_neighbour(book::Book& book, int direction)
{
    const std::size_t index = book.current_index();
    const std::uint64_t position = book.header.position;
    if (index == book::npos || direction == 0 || (direction < 0 && position == 0))
        return false;
    const std::size_t neighbour = book.position_to_index(direction < 0 ? position - 1 : position + 1);
    if (neighbour == book::npos)
        return false;
    book.swap_pages(index, neighbour);
    book.header.position = direction < 0 ? position - 1 : position + 1;
    book.refresh_counts();
    // In a sorted Book the rebuild moves both pages back to their old positions.
    if (book.current_index() != neighbour)
        book.header.position = position_of(book, neighbour);
    return true;
}

void color_all_pages(book::Book& book, const look::ThemePalette& palette)
{
    const book::PageColors colors = look::page_colors(palette);
    for (book::Page& page : book.pages) {
        page.text_color = colors.text;
        page.back_color = colors.back;
    }
}

Outcome turn_page(BookSession& session, int direction)
{
    if (!session.may_leave_page())
        return Outcome::failed;
    const book::Page* from = session.book().current_page();
    const book::Page* to = session.step_page(direction);
    const bool is_alone = to == from;
    session.talk().show_banner(is_alone ? book::failed_search_text(session.search_query()) : std::wstring{});
    return outcome_of(!is_alone);
}

Outcome go_to_first_page(BookSession& session)
{
    if (!session.may_leave_page())
        return Outcome::failed;
    book::go_to_first(session.book());
    return Outcome::done;
}

Outcome go_to_last_page(BookSession& session)
{
    if (!session.may_leave_page())
        return Outcome::failed;
    book::go_to_last(session.book());
    return Outcome::done;
}

Outcome go_to_tab(BookSession& session, std::uint64_t tab_number)
{
    if (!session.may_leave_page())
        return Outcome::failed;
    book::go_to_tab(session.book(), tab_number);
    return Outcome::done;
}

Outcome go_to_position(BookSession& session, std::uint64_t position)
{
    if (!session.may_leave_page() || !book::go_to(session.book(), position))
        return Outcome::failed;
    session.merge(core::refresh::full);
    return Outcome::done;
}

Outcome change_order(BookSession& session, int command)
{
    if (!session.may_leave_page())
        return Outcome::failed;
    apply_order(session.book(), command);
    return Outcome::done;
}

Outcome add_page(BookSession& session, int command)
{
    if (!session.may_leave_page())
        return Outcome::failed;
    book::Book& book = session.book();
    const bool at_end = command == command::add_page_at_end;
    book.new_page(at_end ? book.pages.size() : book.header.position, new_page_colors());
    follow_pages(session);
    session.save(SaveCode::always);
    return Outcome::done;
}

// All pages exist before the Book gets the first one, so a failure leaves it as it was.
Outcome add_pages_of_files(BookSession& session, const std::vector<std::wstring>& files)
{
    if (files.empty() || !session.may_leave_page())
        return Outcome::failed;
    book::Book& book = session.book();
    if (files.size() > book::page_limit - std::min(book.pages.size(), book::page_limit))
        throw book::Book::PageCountOver{};
    std::vector<book::Page> added(files.size(), book::empty_page(new_page_colors()));
    for (std::size_t i = 0; i < files.size(); ++i)
        added[i].files = { files[i] };
    book.pages.reserve(book.pages.size() + added.size());
    for (book::Page& page : added)
        book.insert_page(book.pages.size(), std::move(page));
    follow_pages(session);
    session.merge(core::refresh::full);
    return Outcome::done;
}

void swap_page(BookSession& session, int direction)
{
    if (!session.may_leave_page() || !swap_with_neighbour(session.book(), direction))
        return;
    follow_pages(session);
    session.merge(core::refresh::full);
}

// The boxes contain the text of the deleted page. follow_pages discards it before the save, which would
// otherwise put it into another page.
Outcome delete_page(BookSession& session)
{
    const std::uint64_t position = session.book().header.position;
    if (!session.ask_about_page(book::delete_page_question(position)))
        return Outcome::failed;
    session.book().remove_page_at(position, new_page_colors());
    follow_pages(session);
    session.save(SaveCode::always);
    return Outcome::done;
}

Outcome toggle_mark(BookSession& session)
{
    return outcome_of(toggle_mark(session.book()));
}

Outcome toggle_tracking(BookSession& session, int command)
{
    book::BookHeader& header = session.book().header;
    std::uint8_t& flag = command == command::toggle_mark_tracking ? header.track_marks : header.track_tabs;
    flag = flag == 0;
    return Outcome::done;
}

Outcome toggle_tab(BookSession& session, std::uint32_t color)
{
    return outcome_of(toggle_tab(session.book(), color));
}

// Pages may be inserted or removed while the box is open. The index refers to the same page only while the
// revision is the same.
Outcome remove_tab(BookSession& session, std::uintptr_t address, std::uint32_t color)
{
    book::Book& book = session.book();
    const std::size_t index = index_of(book, address);
    if (index == book::npos)
        return Outcome::failed;
    const std::uint64_t revision = book.revision;
    const std::uint64_t tab = book.pages[index].tab_number;
    if (!session.talk().ask(L"このページのタブを削除しますか？", BoxStyle::question))
        return Outcome::failed;
    const bool is_same = book.revision == revision && book.pages[index].tab_number == tab;
    return outcome_of(is_same && remove_tab(book, index, color));
}

} // namespace app
