// How a page's boxes look: their colours, and whether a font of the Book can be used.
#pragma once
#include "book/book_header.hpp"
#include "book/page.hpp"
#include "platform/color.hpp"
#include <cstddef>

namespace look {

enum class BoxUse {
    writable,
    read_only,
    read_only_with_palette, // its colours are being chosen, so they show as they are
};

struct BoxColors {
    ovlib::Color text;
    ovlib::Color back;

    friend bool operator==(const BoxColors&, const BoxColors&) = default;
};

// Colours of a page come from its file: only their red, green and blue are used.
BoxColors box_colors(const book::Page& page, std::size_t box, BoxUse use);

// A colour that can still be read on `back` but stands out less.
ovlib::Color dimmed_text(ovlib::Color back);

// False for a font of a size that would take the system long to draw: no text needs it.
bool is_usable_font(const book::LogFont& font);
// The same font with its face name ended by a zero, whatever the file held.
book::LogFont with_ended_name(book::LogFont font);

} // namespace look
