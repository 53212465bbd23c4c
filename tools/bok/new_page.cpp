#include "tools/bok/new_page.hpp"
#include "book/page_text.hpp"
#include "look/theme.hpp"

namespace bok {

book::Page new_page(const book::BookHeader& header)
{
    const look::ThemePalette colors = look::theme_colors(header.theme);
    book::Page page;
    page.stamp = book::current_time_text();
    page.stamp += page.stamp;
    page.text_color = { colors.box1_text.value, colors.box2_text.value, colors.box3_text.value };
    page.back_color.fill(colors.box_back.value);
    return page;
}

} // namespace bok
