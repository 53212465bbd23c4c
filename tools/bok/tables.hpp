// Shared by the commands that list pages for people.
#pragma once
#include "book/book.hpp"
#include <string>

namespace bok {

// The first line of box 2, 1 or 3, in this order, that is not blank; cut to a table's width.
std::string title_of(const book::Page& page);

// Half of a stamp as "2024-01-02 03:04:05", or unchanged if it is no time.
std::string time_of(std::wstring_view half);

// Rebuilds the display order. Throws Problem if a stamp is too short to sort by.
void rebuild_order(book::Book& book);

} // namespace bok
