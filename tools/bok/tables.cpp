#include "tools/bok/tables.hpp"
#include "book/page_text.hpp"
#include "tools/bok/streams.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <array>
#include <stdexcept>

namespace bok {

namespace {

constexpr std::size_t title_length = 48;

std::wstring_view first_line(std::wstring_view text)
{
    text = book::trimmed(text, book::TrimMode::both);
    return book::trimmed(text.substr(0, text.find_first_of(L"\r\n")), book::TrimMode::right);
}

} // namespace

std::string title_of(const book::Page& page)
{
    // Box 2 is the page's heading.
    for (const std::size_t box : std::array<std::size_t, 3>{ 1, 0, 2 }) {
        if (const std::wstring_view line = first_line(page.text[box]); !line.empty())
            return printable(line, title_length);
    }
    return {};
}

std::string time_of(std::wstring_view half)
{
    const bool is_time = half.size() == book::time_length
        && std::ranges::all_of(half, [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; });
    std::string text = printable(half);
    if (!is_time)
        return text;
    for (const auto& [place, divider] :
        { std::pair{ 4, '-' }, { 7, '-' }, { 10, ' ' }, { 13, ':' }, { 16, ':' } })
        text.insert(text.begin() + place, divider);
    return text;
}

void rebuild_order(book::Book& book)
{
    try {
        book.rebuild_order();
    } catch (const std::out_of_range&) {
        throw Problem(printable(book.path)
            + ": the stamp of a page has no modification time to sort by; `bok check` names the "
              "page");
    }
}

} // namespace bok
