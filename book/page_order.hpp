// The commands that change the display order or the position in it.
#pragma once
#include "book/book.hpp"
#include <cstdint>
#include <string>

namespace book {

bool is_sorted(const BookHeader& header);
bool is_random(const BookHeader& header);

// Each keeps the direction, and none moves the position: the page shown there changes with the order. They
// throw as Book::rebuild_order does.
void toggle_sorted(Book& book);
void toggle_random(Book& book); // a fresh seed each time it comes on
void toggle_random(Book& book, std::uint32_t fresh_seed);
void toggle_reversed(BookHeader& header);

// Each answers whether there is such a page; the position stays where it is otherwise.
bool go_to(Book& book, std::uint64_t position);
bool go_to_first(Book& book);
bool go_to_last(Book& book);
// To the first page in display order that has `tab_number`.
bool go_to_tab(Book& book, std::uint64_t tab_number);

// What is asked before the page at `position` is deleted.
std::wstring delete_page_question(std::uint64_t position);

} // namespace book
