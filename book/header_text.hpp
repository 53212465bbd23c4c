// A BookHeader as the line of hexadecimal digits that stands in a Book's file.
#pragma once
#include "book/book_header.hpp"
#include <optional>
#include <string>
#include <string_view>

namespace book {

// Two lower-case digits for each byte, in memory order.
std::string header_text(const BookHeader& header);

// Nothing unless `digits` holds exactly two hexadecimal digits, of either case, for each byte of the record.
std::optional<BookHeader> header_from_text(std::wstring_view digits);
std::optional<BookHeader> header_from_text(std::u16string_view digits);

} // namespace book
