// What the main window's commands do to pages: turning, order, marks, tabs, adding and deleting. The first
// half changes a Book alone; the second half is the commands themselves, with their questions and saves.
#pragma once
#include "app/book_session.hpp"
#include "book/book.hpp"
#include "look/theme.hpp"
#include <cstddef>
#include <cstdint>

namespace app {

// The mark of the current page, counted anew. False without a page.
bool toggle_mark(book::Book& book);

// Gives the current page a tab or takes it away, and counts anew; a Book with all its tabs gives no more. The
// page takes `color` in any case. False without a page.
bool toggle_tab(book::Book& book, std::uint32_t color);
// Takes the tab of the page at a stored index away. False when there is none such.
bool remove_tab(book::Book& book, std::size_t index, std::uint32_t color);
// The stored index of a page named by its address, which may be that of a page long gone; book::npos then.
std::size_t index_of(const book::Book& book, std::uintptr_t address);

// Lets the current page change places with the one before (-1) or after it (+1) in display order; the
// position follows the page. False where there is no neighbour.
bool swap_with_neighbour(book::Book& book, int direction);

// Gives every page the colours of a new page.
void color_all_pages(book::Book& book, const look::ThemePalette& palette);

// Each leaves the page on the desk first and fails when that is refused.
core::Outcome turn_page(BookSession& session, int direction); // 1 or -1; with the banner
core::Outcome go_to_first_page(BookSession& session);
core::Outcome go_to_last_page(BookSession& session);
core::Outcome go_to_tab(BookSession& session, std::uint64_t tab_number);
// For the slider, to a position in display order. Asks for the refresh itself.
core::Outcome go_to_position(BookSession& session, std::uint64_t position);
// `command`: 1018 to 1020.
core::Outcome change_order(BookSession& session, int command);
core::Outcome add_page(BookSession& session, int command); // 2528 or 2530
// Also asks for the refresh itself, because the wheel is no command.
void swap_page(BookSession& session, int direction);

core::Outcome delete_page(BookSession& session);
core::Outcome toggle_mark(BookSession& session);
core::Outcome toggle_tracking(BookSession& session, int command); // 1015 or 1016
core::Outcome toggle_tab(BookSession& session, std::uint32_t color);
// `address`: of the page, good for the time of the call. Asks first.
core::Outcome remove_tab(BookSession& session, std::uintptr_t address, std::uint32_t color);

} // namespace app
