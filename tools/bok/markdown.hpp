// A Book as Markdown (CommonMark).
#pragma once
#include "book/book.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"

namespace bok {

// Writes the pages in display order: box 2 as a heading, box 1 as a quotation, box 3, then the files.
// Characters that would be markup are escaped, and line breaks are kept.
void export_markdown(const book::Book& book, Sink& sink, Progress& progress);

} // namespace bok
