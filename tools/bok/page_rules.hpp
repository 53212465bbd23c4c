// The rules that an imported page must meet so that a Book's file can hold it.
#pragma once
#include "book/page.hpp"
#include <cstddef>
#include <optional>
#include <string>

namespace bok {

enum class PageField { box1, box2, box3, files, folder, stamp, current_file };

struct PageFlaw {
    PageField field;
    std::size_t entry; // of the file list, otherwise 0
    std::string reason; // English, one line
};

// "text[0]", "files[3]" and so on.
std::string name_of(const PageFlaw& flaw);

enum class LineEnds { unify, keep };

// Brings a page into the form that the program's own boxes would give it: trims box 2, the folder and the
// file entries, and with LineEnds::unify turns every line break in boxes 1 and 3 into CR LF. Returns the
// first flaw that a Book's file could not hold.
std::optional<PageFlaw> tidy_page(book::Page& page, LineEnds line_ends);

// For a page that was exported from a Book: changes nothing, and returns the first flaw that would come back
// from the file differently.
std::optional<PageFlaw> check_verbatim_page(const book::Page& page);

// Whether tidy_page would accept the page and change nothing but white space at the ends of its texts.
bool is_tidy(const book::Page& page);

} // namespace bok
