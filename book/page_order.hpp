// The commands that change the display order or the position in it.
#pragma once
#include "book/book.hpp"
#include <cstdint>
#include <string>

namespace book {

bool is_sorted(const BookHeader& header);
bool is_random(const BookHeader& header);

// These keep the position, so another page may be shown there afterwards. All but toggle_reversed keep the
// direction, rebuild the order and throw what Book::rebuild_order throws.
void toggle_sorted(Book& book);
void toggle_random(Book& book); // takes a new seed whenever it switches on
void toggle_random(Book& book, std::uint32_t fresh_seed);
void toggle_reversed(BookHeader& header);

// These return false and keep the position if there is no such page.
bool go_to(Book& book, std::uint64_t position);
bool go_to_first(Book& book);
bool go_to_last(Book& book);
// To the first page in display order that has `tab_number`.
bool go_to_tab(Book& book, std::uint64_t tab_number);

// The question shown before the page at `position` is deleted.
std::wstring delete_page_question(std::uint64_t position);

} // namespace book
