// Saves a Book completely or not at all.
#pragma once
#include "book/book.hpp"
#include <string>

namespace bok {

// Trims the texts of the pages, as every save does. Throws Problem if a byte could not be written; then the
// old file is unchanged.
void save_book(book::Book& book, const std::string& path);

} // namespace bok
