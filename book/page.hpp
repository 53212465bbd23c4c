// One page of a Book.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace book {

inline constexpr std::size_t box_count = 3;
// Digits of each of the two times in a stamp.
inline constexpr std::size_t time_length = 14;

// Colours of the three boxes, as COLORREF.
struct PageColors {
    std::array<std::uint32_t, box_count> text{};
    std::array<std::uint32_t, box_count> back{};
};

enum class PageSelection : std::uint32_t { none = 0, selected = 1, pasted = 2 };

// What the page editor will do with the selected pages when they are pasted.
enum class ClipMode : std::int32_t { none = 0, copy = 1, cut = 2 };

// A record, copied by value. Text is UTF-16 with CR LF between lines and never contains U+0003, which
// separates the fields in a file.
struct Page {
    std::wstring stamp; // creation time, then time of the last modification, 14 digits each
    std::wstring reference_folder;
    std::array<std::wstring, box_count> text; // box 2 has one line, boxes 1 and 3 any number
    std::array<std::uint32_t, box_count> text_color{}; // COLORREF
    std::array<std::uint32_t, box_count> back_color{};
    std::uint32_t tab_color = 0;
    std::uint64_t tab_number = 0; // 0: no tab; otherwise its number in stored order, from 1
    std::int32_t scroll_first = 0; // vertical scroll positions of boxes 1 and 3 when the page was last left
    std::int32_t scroll_third = 0;
    std::int32_t mark = 0; // not 0: marked
    PageSelection selected = PageSelection::none; // in the page editor; not stored in the file
    std::vector<std::wstring> files; // paths or addresses
    std::uint64_t current_file = 0; // index into files

    friend bool operator==(const Page&, const Page&) = default;
};

// The selected entry of the file list; null if there is none.
inline const std::wstring* selected_entry(const Page& page)
{
    return page.current_file < page.files.size() ? &page.files[page.current_file] : nullptr;
}

} // namespace book
