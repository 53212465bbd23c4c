// Fonts as handles of the system.
#pragma once
#include "book/book_header.hpp"
#include "look/shared_fonts.hpp"
#include <windows.h>

namespace look {

// A font of a Book, owned by the caller. Null if the system cannot create it or the record describes an
// unusable font.
HFONT make_box_font(const book::LogFont& record);

// The fonts of the interface. Created once; controls borrow them until they are freed.
void make_shared_fonts(HDC dc);
void free_shared_fonts();
HFONT shared_font(SharedFont font);

} // namespace look
