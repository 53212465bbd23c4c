// What the commands share when they tell about pages to a person.
#pragma once
#include "book/book.hpp"
#include <string>

namespace bok {

// Box 2, or the first line with something in it of box 1 or 3. On one line, cut to a table's width.
std::string title_of(const book::Page& page);

// A stamp's half as "2024-01-02 03:04:05", or as it stands when it is none.
std::string time_of(std::wstring_view half);

// Rebuilds the display order. Throws Problem when a stamp is too short to be sorted by.
void rebuild_order(book::Book& book);

} // namespace bok
