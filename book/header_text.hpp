// A BookHeader as the line of hexadecimal digits in a Book's file.
#pragma once
#include "book/book_header.hpp"
#include <optional>
#include <string>
#include <string_view>

namespace book {

// Two lower-case digits per byte, in memory order.
std::string header_text(const BookHeader& header);

// nullopt unless `digits` is exactly two hexadecimal digits, of either case, per byte of the record.
std::optional<BookHeader> header_from_text(std::wstring_view digits);
std::optional<BookHeader> header_from_text(std::u16string_view digits);

} // namespace book
