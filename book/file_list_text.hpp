// A page's file list as a text to edit, one entry per line.
#pragma once
#include "book/page.hpp"
#include "platform/geometry.hpp"
#include <cstddef>
#include <string>
#include <vector>

namespace book {

inline constexpr platform::Size file_list_client_size{ 680, 400 };
inline constexpr wchar_t file_list_title[] = L"リストの編集";
inline constexpr wchar_t apply_file_list_question[] = L"内容が変更されています．\r\n適用しますか？";

struct FileListText {
    std::wstring text; // each entry with CR LF
    // The selected entry without its CR LF, and its line from 0. All 0 for an empty list.
    std::size_t start = 0;
    std::size_t end = 0;
    std::size_t line = 0;

    friend bool operator==(const FileListText&, const FileListText&) = default;
};
FileListText file_list_text(const Page& page);

// The entries of an edited text. U+0003 is removed. Only CR LF divides lines; a lone CR or LF belongs to its
// entry. Blanks at both ends of a line are removed, and an empty line is no entry.
std::vector<std::wstring> file_list_entries(std::wstring text);
// Replaces the list. The selection keeps its place as far as the new list reaches. The stamp stays.
void set_file_list(Page& page, std::vector<std::wstring> files) noexcept;

// How long a text the user may type when `loaded` units were shown: an edit control whose text is as long as
// its limit refuses every key.
std::size_t file_list_text_limit(std::size_t loaded);

} // namespace book
