// A Book's file, apart from where its bytes lie. docs/file-format.md describes it whole.
//
//     U+0003 U+0003          header marker
//     656 hexadecimal digits the BookHeader
//     U+0003 U+0003          header marker
//     and for each page, in stored order, six fields of lines, each closed by a line that begins with U+0003:
//     box 1, box 2, box 3, the files, the reference folder, the numbers
//
// Every line ends in CR LF. The older format has no header, but a byte order mark.
#pragma once
#include "book/book.hpp"
#include "book/line_reader.hpp"
#include "book/line_writer.hpp"

namespace book {

enum class HeaderStatus { good, unreadable, older_format, damaged };

// Reads the three lines of the header. Writes `header` only if they are good. If they are damaged, the reader
// continues after them.
HeaderStatus read_header(LineReader& reader, BookHeader& header);

// Appends the pages that follow. False if a numbers line cannot be read; the pages before it were appended.
// An incomplete page at the end is dropped.
bool read_pages(LineReader& reader, std::uint64_t file_size, std::vector<Page>& pages);

// Fills a cleared `book` from `source`; `path` becomes the Book's own and is named in questions and in
// `error`. False with the reason in `error`, which stays empty when the user declined a damaged header.
bool load_book(
    Book& book, ByteSource& source, const std::wstring& path, std::wstring& error, const AskUser& ask_user);

// Writes header and pages, and trims the texts of the pages.
void write_book(Book& book, ByteSink& sink);

} // namespace book
