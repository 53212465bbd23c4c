// What the main window's commands do to the open Book. None of them touches a window or the disk.
#pragma once
#include "book/book.hpp"
#include "look/theme.hpp"
#include <cstddef>
#include <cstdint>

namespace app {

// The page at the Book's position, as a stored index; book::npos without one.
std::size_t current_index(const book::Book& book);

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

} // namespace app
