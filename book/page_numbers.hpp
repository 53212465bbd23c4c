// The numbers line, which is the last field of a page in the file: thirteen tokens.
#pragma once
#include "book/line_writer.hpp"
#include "book/page.hpp"

namespace book {

// Reads the tokens as a C++ stream in the classic locale does: a number ends before the first unit that does
// not belong to it, a number out of range fails, a minus before an unsigned number wraps around, and the
// stamp ends at white space. Only ASCII white space separates tokens. The tab token sets tab_number to 1 or
// 0. False if a token fails; the page is then half filled and must be dropped.
//
// On entry `current_file` must be the index of the last of `files`; a token past their end leaves it so.
bool read_numbers(FileText line, Page& page);

void write_numbers(LineWriter& writer, const Page& page);

} // namespace book
