// Replacing a text in pages.
#pragma once
#include "book/page.hpp"
#include "book/search.hpp"
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace book {

// What is searched on a page; combined by |.
using ReplaceTargets = std::uint32_t;
namespace replace_target {

inline constexpr ReplaceTargets boxes = 1;
inline constexpr ReplaceTargets file_list = 2;
inline constexpr ReplaceTargets folder = 4;

} // namespace replace_target

struct ReplaceRequest {
    std::wstring search; // empty: nothing is found
    std::wstring replacement; // empty: occurrences are deleted
    ReplaceTargets targets = 0;
    LetterCase letter_case = LetterCase::exact;
};

// Removes U+0003, which no page contains, from both texts.
void remove_separators(ReplaceRequest& request);

// Replaces the occurrences in the targets and returns how many there were. The search sees the old text only:
// it goes on after the end of the old occurrence, so a replacement that contains the search text is not
// searched again.
//
// Box 2, the entries of the file list and the folder have one line: they get the replacement without CR and
// LF. Box 2 is trimmed if something was replaced in it; an entry that becomes empty stays. The time of the
// last modification changes only for a replacement in a box.
//
// If it throws (std::bad_alloc, std::length_error), no page has changed.
std::size_t replace_in_pages(std::span<Page> pages, const ReplaceRequest& request);
std::size_t replace_in_page(Page& page, const ReplaceRequest& request);

} // namespace book
