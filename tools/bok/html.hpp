// A Book as one self-contained web page.
#pragma once
#include "book/book.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"

namespace bok {

// Writes the pages in display order, with a table of contents, in the colours of the Book and its pages. No
// text of the Book can become markup, and only web addresses become links.
void export_html(const book::Book& book, Sink& sink, Progress& progress);

} // namespace bok
