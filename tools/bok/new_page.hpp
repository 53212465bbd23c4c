// New pages for imported text, which has no colours and times of its own.
#pragma once
#include "book/book_header.hpp"
#include "book/page.hpp"

namespace bok {

// An empty page in the colours of the header's theme, stamped now.
book::Page new_page(const book::BookHeader& header);

} // namespace bok
