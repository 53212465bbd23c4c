#include "app/save_rules.hpp"
#include "book/page_text.hpp"
#include <utility>

namespace app {

void commit_edits(BoxEdits edits, book::Page& page)
{
    constexpr std::size_t single_line_box = 1;
    for (std::size_t box = 0; box < edits.size(); ++box) {
        if (!edits[box])
            continue;
        if (box == single_line_box)
            book::trim_text(*edits[box], book::TrimMode::both);
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
