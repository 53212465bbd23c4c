// Books as JSON: the lines of `bok pages`, and the whole Book that export writes and import reads.
#pragma once
#include "book/book.hpp"
#include "tools/bok/json_writer.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"
#include <string_view>

namespace bok {

void write_page_members(JsonWriter& json, const book::Page& page);
// Every member of the record, the fonts by face, height and weight.
void write_header_summary(JsonWriter& json, const book::BookHeader& header);

void export_json(const book::Book& book, Sink& sink, Progress& progress);

// Reads what export_json wrote, or what a person wrote in its form, into an empty Book. Throws JsonError with
// the place in its text. Counts of tabs and marks are left to Book::recount.
void import_json(std::string_view text, book::Book& book, Progress& progress);

} // namespace bok
