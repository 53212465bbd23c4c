// Loads any bytes as a Book, answering every question with yes. What loads must save, and what was saved must
// load to the same Book and save to the same bytes.
#include "book/book_file.hpp"
#include "book/page_text.hpp"
#include "tests/fuzz/blocks.hpp"
#include "tests/fuzz/stable.hpp"

namespace {

using book::Book;

bool load(Book& book, test_support::MemorySource source)
{
    std::wstring error;
    const bool is_loaded =
        book::load_book(book, source, L"path", error, [](const std::wstring&) { return true; });
    fuzz::require(is_loaded == error.empty());
    fuzz::require(!is_loaded || !book.pages.empty());
    return is_loaded;
}

std::vector<std::byte> saved(Book& book)
{
    test_support::MemorySink sink;
    book::write_book(book, sink);
    return sink.bytes;
}

// A line that would begin with the separator: no text of the program holds one, but a file may bring it in
// behind white space or at the edge of an odd block.
bool divides_the_file(const std::wstring& text)
{
    return text.starts_with(book::separator) || text.find(L"\r\n\3") != std::wstring::npos;
}

bool page_comes_back(const book::Page& page)
{
    return !page.stamp.empty() && !divides_the_file(page.stamp) && !divides_the_file(page.reference_folder)
        && std::ranges::none_of(page.text, divides_the_file)
        && std::ranges::none_of(page.files, divides_the_file);
}

// A byte order mark before the first text goes with every load.
bool comes_back(const Book& book)
{
    return std::ranges::all_of(book.pages, page_comes_back)
        && !book.pages.front().text[0].starts_with(book::byte_order_mark);
}

void check_round(Book& book)
{
    const std::vector<std::byte> first = saved(book);
    if (!comes_back(book))
        return;
    Book again;
    fuzz::require(load(again, test_support::MemorySource(first)));
    fuzz::require(again.header == book.header && again.pages.size() == book.pages.size());
    fuzz::require(again.tab_count == book.tab_count && again.mark_count == book.mark_count);
    fuzz::require(saved(again) == first);
    fuzz::require(again.pages == book.pages);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Book book;
    if (load(book, fuzz::in_blocks(data, size)))
        check_round(book);
    return 0;
}
