// The members of a Book's records by name, listed once for all code that reads or writes them as JSON.
#pragma once
#include "book/book_header.hpp"
#include "book/page.hpp"

namespace bok {

// Marks a number as a COLORREF, which JSON may also give as "#rrggbb".
template <class Number> struct ColorMember {
    Number& value;
};
template <class Number> ColorMember(Number&) -> ColorMember<Number>;

// Calls `visit(name, member)` for each member, in the order of the JSON text.
template <class Page, class Visit> void visit_page(Page& page, Visit&& visit)
{
    visit("stamp", page.stamp);
    visit("text", page.text);
    visit("files", page.files);
    visit("current_file", page.current_file);
    visit("reference_folder", page.reference_folder);
    visit("tab_number", page.tab_number);
    visit("mark", page.mark);
    visit("text_color", ColorMember{ page.text_color });
    visit("back_color", ColorMember{ page.back_color });
    visit("tab_color", ColorMember{ page.tab_color });
    visit("scroll_first", page.scroll_first);
    visit("scroll_third", page.scroll_third);
}

template <class Header, class Visit> void visit_header(Header& header, Visit&& visit)
{
    visit("version", header.version);
    visit("position", header.position);
    visit("seed", header.seed);
    visit("wrap_text", header.wrap_text);
    visit("track_tabs", header.track_tabs);
    visit("track_marks", header.track_marks);
    visit("auto_file_search", header.auto_file_search);
    visit("gif_autoplay", header.gif_autoplay);
    visit("order_mode", header.order_mode);
    visit("sort_key", header.sort_key);
    visit("tab_label_box", header.tab_label_box);
    visit("divider", header.divider);
    visit("theme", header.theme);
}

// Bytes of the record without a meaning, which a save keeps.
template <class Header, class Visit> void visit_reserved(Header& header, Visit&& visit)
{
    visit("reserved_0", header.reserved_0);
    visit("reserved_1", header.reserved_1);
    visit("reserved_2", header.reserved_2);
}

template <class Font, class Visit> void visit_font_sizes(Font& font, Visit&& visit)
{
    visit("height", font.height);
    visit("weight", font.weight);
}

template <class Font, class Visit> void visit_font_rest(Font& font, Visit&& visit)
{
    visit("width", font.width);
    visit("escapement", font.escapement);
    visit("orientation", font.orientation);
    visit("italic", font.italic);
    visit("underline", font.underline);
    visit("strike_out", font.strike_out);
    visit("char_set", font.char_set);
    visit("out_precision", font.out_precision);
    visit("clip_precision", font.clip_precision);
    visit("quality", font.quality);
    visit("pitch_and_family", font.pitch_and_family);
}

} // namespace bok
