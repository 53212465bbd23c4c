// What a page from outside must be so that a Book can hold it.
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

// Brings a page into the form that the program's own boxes would give it: box 2, the folder and the file
// entries are trimmed, and with LineEnds::unify any line break of boxes 1 and 3 becomes CR LF. Answers what a
// Book's file could not hold.
std::optional<PageFlaw> tidy_page(book::Page& page, LineEnds line_ends);

// For a page that came out of a Book: changes no character, and answers only what would come back from the
// file as something else.
std::optional<PageFlaw> check_verbatim_page(const book::Page& page);

// True when tidy_page would take the page as it stands, but for white space at the ends of its texts.
bool is_tidy(const book::Page& page);

} // namespace bok
