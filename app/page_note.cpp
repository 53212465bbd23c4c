#include "app/page_note.hpp"

namespace app {

std::optional<PageNote> note_page(const book::Book& book)
{
    const std::size_t index = book.position_to_index(book.header.position);
    if (index == book::npos)
        return std::nullopt;
    return PageNote{ book.header.position, index, book.pages.size(), book.pages[index].stamp };
}

bool still_stands(const PageNote& note, const book::Book& book)
{
    return note_page(book) == note;
}

std::optional<EntryNote> note_entry(const book::Book& book)
{
    const std::optional<PageNote> page = note_page(book);
    if (!page)
        return std::nullopt;
    const book::Page& current = book.pages[page->index];
    if (current.current_file >= current.files.size())
        return std::nullopt;
    return EntryNote{ *page, current.current_file, current.files[current.current_file] };
}

bool still_stands(const EntryNote& note, const book::Book& book)
{
    return note_entry(book) == note;
}

bool replace_entry(book::Book& book, const EntryNote& note, const std::wstring& path)
{
    if (!still_stands(note, book))
        return false;
    book.pages[note.page.index].files[note.place] = path;
    return true;
}

} // namespace app
