#include "app/page_commands.hpp"
#include <utility>

namespace app {

namespace {

std::uint64_t position_of(const book::Book& book, std::size_t index)
{
    std::uint64_t position = 0;
    while (position < book.pages.size() && book.position_to_index(position) != index)
        ++position;
    return position;
}

} // namespace

std::size_t current_index(const book::Book& book)
{
    return book.position_to_index(book.header.position);
}

bool toggle_mark(book::Book& book)
{
    book::Page* page = book.current_page();
    if (!page)
        return false;
    page->mark = page->mark == 0 ? 1 : 0;
    book.recount();
    return true;
}

bool toggle_tab(book::Book& book, std::uint32_t color)
{
    book::Page* page = book.current_page();
    if (!page)
        return false;
    page->tab_number = page->tab_number == 0 && book.tab_count < book::tab_limit ? 1 : 0;
    page->tab_color = color;
    book.recount();
    return true;
}

bool remove_tab(book::Book& book, std::size_t index, std::uint32_t color)
{
    if (index >= book.pages.size())
        return false;
    book.pages[index].tab_number = 0;
    book.pages[index].tab_color = color;
    book.recount();
    return true;
}

std::size_t index_of(const book::Book& book, std::uintptr_t address)
{
    const std::uintptr_t offset = address - reinterpret_cast<std::uintptr_t>(book.pages.data());
    const std::size_t index = offset / sizeof(book::Page);
    return offset % sizeof(book::Page) == 0 && index < book.pages.size() ? index : book::npos;
}

bool swap_with_neighbour(book::Book& book, int direction)
{
    const std::size_t index = current_index(book);
    const std::uint64_t position = book.header.position;
    if (index == book::npos || direction == 0 || (direction < 0 && position == 0))
        return false;
    const std::size_t neighbour = book.position_to_index(direction < 0 ? position - 1 : position + 1);
    if (neighbour == book::npos)
        return false;
    std::swap(book.pages[index], book.pages[neighbour]);
    book.header.position = direction < 0 ? position - 1 : position + 1;
    book.needs_update = true;
    book.refresh_counts();
    // A sorted Book puts both pages back where they were.
    if (current_index(book) != neighbour)
        book.header.position = position_of(book, neighbour);
    return true;
}

void color_all_pages(book::Book& book, const look::ThemePalette& palette)
{
    const book::PageColors colors = look::page_colors(palette);
    for (book::Page& page : book.pages) {
        page.text_color = colors.text;
        page.back_color = colors.back;
    }
}

} // namespace app
