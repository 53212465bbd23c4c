// A Book as one web page that needs nothing beside it.
#pragma once
#include "book/book.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"

namespace bok {

// In display order, with a table of contents, in the colours of the Book and its pages. No text of the Book
// can become markup, and only web addresses become links.
void export_html(const book::Book& book, Sink& sink, Progress& progress);

} // namespace bok
