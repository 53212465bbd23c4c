// Books as JSON: the lines of `bok pages`, and the whole Book that export writes and import reads.
#pragma once
#include "book/book.hpp"
#include "tools/bok/json_writer.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"
#include <string_view>

namespace bok {

void write_page_members(JsonWriter& json, const book::Page& page);
// Every member of the record; of a font only face, height and weight.
void write_header_summary(JsonWriter& json, const book::BookHeader& header);

void export_json(const book::Book& book, Sink& sink, Progress& progress);

// Reads the format of export_json, also written by a person, into an empty Book. Throws JsonError with the
// position of the error. Does not count tabs and marks: call Book::recount.
void import_json(std::string_view text, book::Book& book, Progress& progress);

} // namespace bok
