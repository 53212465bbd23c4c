// The look of a page's boxes: their colours, and whether a font of the Book can be used.
#pragma once
#include "book/book_header.hpp"
#include "book/page.hpp"
#include "platform/color.hpp"
#include <cstddef>

namespace look {

enum class BoxUse {
    writable,
    read_only,
    read_only_with_palette, // the user is choosing its colours, so they are shown undimmed
};

struct BoxColors {
    ovlib::Color text;
    ovlib::Color back;

    friend bool operator==(const BoxColors&, const BoxColors&) = default;
};

// The page's colours are read from a file without checks: only their red, green and blue are used.
BoxColors box_colors(const book::Page& page, std::size_t box, BoxUse use);

// A text colour that is still readable on `back` but less prominent.
ovlib::Color dimmed_text(ovlib::Color back);

// False for a font so large that drawing it would block the window. The size comes from a file without
// checks.
bool is_usable_font(const book::LogFont& font);
// The same font with its face name zero-terminated, which a file may leave out.
book::LogFont with_ended_name(book::LogFont font);

} // namespace look
