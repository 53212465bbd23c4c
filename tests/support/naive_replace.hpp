// The simplest possible replacement: in place, one occurrence after another.
#pragma once
#include "book/page_text.hpp"
#include "book/replace.hpp"
#include "tests/support/naive_search.hpp"
#include <string>

namespace naive {

inline std::size_t replace(std::wstring& text, const book::ReplaceRequest& request, const std::wstring& by)
{
    std::size_t count = 0;
    for (std::size_t pos = 0;
         find(text, request.search, pos, request.letter_case == book::LetterCase::folded); ++count) {
        text.replace(pos, request.search.size(), by);
        pos += by.size();
    }
    return count;
}

// A text of one line: no replacement may leave a line break in it.
inline std::size_t replace_in_line(
    std::wstring& text, const book::ReplaceRequest& request, const std::wstring& by)
{
    const std::size_t count = replace(text, request, by);
    if (count != 0 && text.find(L"\r\n") != std::wstring::npos)
        std::erase_if(text, [](wchar_t unit) { return unit == L'\r' || unit == L'\n'; });
    return count;
}

inline std::size_t replace_in_page(book::Page& page, const book::ReplaceRequest& request)
{
    std::wstring line = request.replacement;
    std::erase(line, L'\r');
    std::erase(line, L'\n');
    std::size_t count = 0;
    if (request.targets & 1) {
        count += replace(page.text[0], request, request.replacement);
        if (const std::size_t second = replace_in_line(page.text[1], request, line)) {
            count += second;
            book::trim_text(page.text[1], book::TrimMode::both);
        }
        count += replace(page.text[2], request, request.replacement);
    }
    if (request.targets & 2)
        for (std::wstring& entry : page.files)
            count += replace_in_line(entry, request, line);
    if (request.targets & 4)
        count += replace_in_line(page.reference_folder, request, line);
    return count;
}

} // namespace naive
