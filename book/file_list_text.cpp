#include "book/file_list_text.hpp"
#include "book/page_text.hpp"
#include <algorithm>
#include <utility>

namespace book {

namespace {

constexpr std::wstring_view line_end = L"\r\n";

} // namespace

FileListText file_list_text(const Page& page)
{
    std::size_t length = 0;
    for (const std::wstring& entry : page.files)
        length += entry.size() + line_end.size();
    FileListText shown;
    shown.text.reserve(length);
    for (std::size_t line = 0; line < page.files.size(); ++line) {
        const std::size_t start = shown.text.size();
        shown.text += page.files[line];
        if (line == page.current_file) {
            shown.start = start;
            shown.end = shown.text.size();
            shown.line = line;
        }
        shown.text += line_end;
    }
    return shown;
}

// U+0003 goes first: between a CR and an LF it would keep a line end from being seen until the list is
// loaded.
std::vector<std::wstring> file_list_entries(std::wstring text)
{
    remove_separator(text);
    std::vector<std::wstring> entries;
    for (std::wstring_view rest = text; !rest.empty();) {
        const std::size_t end = std::min(rest.find(line_end), rest.size());
        if (const std::wstring_view entry = trimmed(rest.substr(0, end), TrimMode::both); !entry.empty())
            entries.emplace_back(entry);
        rest.remove_prefix(std::min(end + line_end.size(), rest.size()));
    }
    return entries;
}

void set_file_list(Page& page, std::vector<std::wstring> files) noexcept
{
    page.files = std::move(files);
    const std::uint64_t last = page.files.empty() ? 0 : page.files.size() - 1;
    page.current_file = std::min(page.current_file, last);
}

std::size_t file_list_text_limit(std::size_t loaded)
{
    constexpr std::size_t usual = 524288;
    constexpr std::size_t room = 65536;
    return std::max(usual, loaded + room);
}

} // namespace book
