// A Book as Markdown (CommonMark).
#pragma once
#include "book/book.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"

namespace bok {

// In display order: box 2 as a heading, box 1 as a quotation, box 3 below, then the files. What would be
// markup in a text is escaped, and lines stay lines.
void export_markdown(const book::Book& book, Sink& sink, Progress& progress);

} // namespace bok
