// The last field of a page in its file: thirteen tokens in one line.
#pragma once
#include "book/line_writer.hpp"
#include "book/page.hpp"

namespace book {

// The tokens are read as a C++ stream of the classic locale reads them: a number ends before the first unit
// that does not belong to it, one out of range fails, a minus before an unsigned one wraps, and the stamp
// ends at white space. Only ASCII white space divides. The tab token gives tab_number 1 or 0. False when a
// token fails; the page is then of no use.
//
// `current_file` must name the last of `files`: it stays there when the token is past their end.
bool read_numbers(FileText line, Page& page);

void write_numbers(LineWriter& writer, const Page& page);

} // namespace book
