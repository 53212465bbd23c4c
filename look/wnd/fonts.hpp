// Fonts as the system knows them.
#pragma once
#include "book/book_header.hpp"
#include "look/shared_fonts.hpp"
#include <windows.h>

namespace look {

// A font of a Book, for the caller to own; null when the system makes none or the record asks for one that
// nobody can use.
HFONT make_box_font(const book::LogFont& record);

// The interface's own fonts. Made once, lent to controls until they are freed.
void make_shared_fonts(HDC dc);
void free_shared_fonts();
HFONT shared_font(SharedFont font);

} // namespace look
