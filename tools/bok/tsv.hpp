// Books as tables: one page per line, five columns separated by tabs.
//
// The columns are box 1, box 2, box 3, the files (separated by `|`) and the folder, in UTF-8. Lines end with
// LF or CR LF. In the boxes a backslash begins an escape: \n is a line break, \t a tab, \\ a backslash and
// \u{H} the code unit or code point with the hexadecimal number H. The files and the folder hold paths, so
// there a backslash is an ordinary character and \u{H} is the only escape.
#pragma once
#include "book/book.hpp"
#include "tools/bok/progress.hpp"
#include "tools/bok/sink.hpp"
#include <stdexcept>
#include <string_view>

namespace bok {

// The text begins with the line and column of the error.
class TsvError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Writes the pages in stored order. Texts are trimmed as a save trims them.
void export_tsv(const book::Book& book, Sink& sink, Progress& progress);

// Reads the pages of a table into an empty Book, stamped now, in the standard colours. Throws TsvError.
void import_tsv(std::string_view table, book::Book& book, Progress& progress);

} // namespace bok
