// The main window's commands on pages: turning, order, marks, tabs, adding and deleting. The functions of the
// first half change only a Book. The functions of the second half are the commands themselves, with their
// questions and saves.
#pragma once
#include "app/book_session.hpp"
#include "book/book.hpp"
#include "look/theme.hpp"
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace app {

// Toggles the mark of the current page and recounts. False without a page.
bool toggle_mark(book::Book& book);

// Gives the current page a tab or removes it, and recounts. If the Book has the maximum of tabs, no further
// one is added. The page gets `color` in any case. False without a page.
bool toggle_tab(book::Book& book, std::uint32_t color);
// Removes the tab of the page at this stored index. False if there is no such page.
bool remove_tab(book::Book& book, std::size_t index, std::uint32_t color);
// The stored index of the page at this address; book::npos if no page is there any more.
std::size_t index_of(const book::Book& book, std::uintptr_t address);

// Swaps the current page with the one before it (-1) or after it (+1) in display order; the position follows
// the page. False if there is no neighbour.
bool swap_with_neighbour(book::Book& book, int direction);

// Gives every page the colours of a new page.
void color_all_pages(book::Book& book, const look::ThemePalette& palette);

// The colours of the current theme.
book::PageColors new_page_colors();
// To be called after pages were inserted, removed or moved. Until the current page is shown again, the boxes
// contain the text of no page.
void follow_pages(BookSession& session);

// Each leaves the page on the desk first, and fails if the user or an error prevents that.
core::Outcome turn_page(BookSession& session, int direction); // 1 or -1; with the banner
core::Outcome go_to_first_page(BookSession& session);
core::Outcome go_to_last_page(BookSession& session);
core::Outcome go_to_tab(BookSession& session, std::uint64_t tab_number);
// For the slider: goes to a position in display order. Requests the refresh itself.
core::Outcome go_to_position(BookSession& session, std::uint64_t position);
// `command`: 1018 to 1020.
core::Outcome change_order(BookSession& session, int command);
core::Outcome add_page(BookSession& session, int command); // 2528 or 2530
// Adds one page at the end for each of these files. The last one becomes current; nothing is saved. Throws
// PageCountOver before the first page if the Book has no room for all of them.
core::Outcome add_pages_of_files(BookSession& session, const std::vector<std::wstring>& files);
// Requests the refresh itself too, because the wheel is not a command.
void swap_page(BookSession& session, int direction);

core::Outcome delete_page(BookSession& session);
core::Outcome toggle_mark(BookSession& session);
core::Outcome toggle_tracking(BookSession& session, int command); // 1015 or 1016
core::Outcome toggle_tab(BookSession& session, std::uint32_t color);
// `address`: of the page; only valid at the time of the call. Asks first.
core::Outcome remove_tab(BookSession& session, std::uintptr_t address, std::uint32_t color);

} // namespace app
