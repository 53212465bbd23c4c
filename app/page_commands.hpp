// What the main window's commands do to the open Book. None of them touches a window or the disk.
#pragma once
#include "book/book.hpp"
#include "look/theme.hpp"
#include <cstddef>

namespace app {

// The page at the Book's position, as a stored index; book::npos without one.
std::size_t current_index(const book::Book& book);

// The mark of the current page, counted anew. False without a page.
bool toggle_mark(book::Book& book);

// Lets the current page change places with the one before (-1) or after it (+1) in display order; the
// position follows the page. False where there is no neighbour.
bool swap_with_neighbour(book::Book& book, int direction);

// Gives every page the colours of a new page.
void color_all_pages(book::Book& book, const look::ThemePalette& palette);

} // namespace app
