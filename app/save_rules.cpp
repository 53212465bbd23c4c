#include "app/save_rules.hpp"
#include "book/page_text.hpp"
#include <utility>

namespace app {

namespace {

// A line break in this box would move every later line of the file.
std::wstring one_line(std::wstring_view text)
{
    const std::wstring_view line = book::first_line(book::trimmed(text, book::TrimMode::both));
    return std::wstring{ book::trimmed(line, book::TrimMode::right) };
}

} // namespace

void commit_edits(BoxEdits edits, book::Page& page)
{
    for (std::size_t box = 0; box < edits.size(); ++box) {
        if (!edits[box])
            continue;
        if (box == single_line_box)
            *edits[box] = one_line(*edits[box]);
        book::remove_separator(*edits[box]);
        page.text[box] = std::move(*edits[box]);
    }
}

std::wstring save_failure_text(const std::wstring& path, std::uint32_t attributes)
{
    // 0xFFFFFFFF, the value for a file that cannot be examined, has this bit too. Such a file is reported as
    // read-only.
    constexpr std::uint32_t read_only = 1;
    std::wstring text = L"Error: Book の保存に失敗\r\n" + path;
    if (attributes & read_only)
        text += L"\r\n\r\nこのファイルは読取り専用";
    return text;
}

} // namespace app
