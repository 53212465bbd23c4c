#include "app/tracked_files.hpp"

namespace app {

std::vector<std::wstring> every_entry(const book::Book& book)
{
    constexpr std::size_t expected = 200000; // no Book of any likely size makes the list move
    std::vector<std::wstring> entries;
    entries.reserve(expected);
    for (const book::Page& page : book.pages)
        entries.insert(entries.end(), page.files.begin(), page.files.end());
    return entries;
}

bool replace_entry(book::Book& book, const EntryNote& note, const std::wstring& path)
{
    if (!still_stands(note, book))
        return false;
    book.pages[note.page.index].files[note.place] = path;
    return true;
}

} // namespace app
