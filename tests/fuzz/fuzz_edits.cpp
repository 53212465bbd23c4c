// Replaces any text in any page, and makes a file list of any text, against the same done in the plainest
// words. The parts are the search text, its replacement, the three boxes, and the files, of which the last is
// the folder.
#include "book/file_list_text.hpp"
#include "book/page_text.hpp"
#include "book/replace.hpp"
#include "tests/fuzz/parts.hpp"
#include "tests/support/naive_replace.hpp"
#include <cstdlib>

namespace {

using fuzz::Parts;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

book::Page page_of(const Parts& input)
{
    book::Page page;
    for (std::size_t box = 0; box < book::box_count; ++box)
        page.text[box] = input.part(2 + box);
    for (std::size_t i = 5; i < input.parts.size(); ++i)
        page.files.push_back(input.parts[i]);
    page.reference_folder = input.parts.back();
    return page;
}

void check_replacing(const Parts& input)
{
    book::ReplaceRequest request{ .search = input.part(0),
        .replacement = input.part(1),
        .targets = input.switches & 7U,
        .letter_case = input.is_on(3) ? book::LetterCase::folded : book::LetterCase::exact };
    book::Page page = page_of(input);
    book::Page naive_page = page;
    const std::size_t count = book::replace_in_page(page, request);
    require(count == naive::replace_in_page(naive_page, request));
    require(page.text == naive_page.text && page.files == naive_page.files
        && page.reference_folder == naive_page.reference_folder);
}

std::vector<std::wstring> plain_entries(std::wstring text)
{
    std::erase(text, wchar_t{ 3 });
    std::vector<std::wstring> entries;
    std::wstring line;
    text += L"\r\n";
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') {
            book::trim_text(line, book::TrimMode::both);
            if (!line.empty())
                entries.push_back(line);
            line.clear();
            ++i;
        } else {
            line += text[i];
        }
    }
    return entries;
}

void check_list(const std::wstring& text)
{
    const std::vector<std::wstring> entries = book::file_list_entries(text);
    require(entries == plain_entries(text));
    // The text of a list gives the same list again.
    book::Page page;
    book::set_file_list(page, entries);
    require(book::file_list_entries(book::file_list_text(page).text) == entries);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Parts input = fuzz::read_parts({ data, size });
    check_replacing(input);
    check_list(input.part(2));
    return 0;
}
