#include "app/page_note.hpp"

namespace app {

std::optional<PageNote> note_page(const book::Book& book)
{
    const std::size_t index = book.current_index();
    if (index == book::npos)
        return std::nullopt;
    return PageNote{ book.header.position, index, book.revision, book.pages[index].stamp };
}

bool is_same(const PageNote& note, const book::Book& book)
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

bool is_same(const EntryNote& note, const book::Book& book)
{
    return note_entry(book) == note;
}

bool replace_entry(book::Book& book, const EntryNote& note, const std::wstring& path)
{
    if (!is_same(note, book))
        return false;
    book.pages[note.page.index].files[note.place] = path;
    return true;
}

} // namespace app
