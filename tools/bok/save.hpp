// Writing a Book so that it appears whole or not at all.
#pragma once
#include "book/book.hpp"
#include <string>

namespace bok {

// Trims the texts of the pages, as every save does. Throws Problem when not every byte was taken.
void save_book(book::Book& book, const std::string& path);

} // namespace bok
