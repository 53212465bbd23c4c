// Finding terms in texts and pages.
#pragma once
#include "book/page.hpp"
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace book {

struct SearchQuery {
    std::vector<std::wstring> terms;
    bool selected_only = false; // only pages selected in the page editor match
    bool track_marks = false; // marked pages match whatever the terms are
    bool track_tabs = false; // likewise pages with a tab
    bool all_terms = false; // every term must match; otherwise any
    bool ignore_case = false;
    bool in_file_list = false; // the page's file list is searched too

    friend bool operator==(const SearchQuery&, const SearchQuery&) = default;
};

enum class LetterCase { exact, folded };

// Where on a page: 100, 101, 102 are the boxes, 200 + i is entry i of the file list.
inline constexpr std::uint64_t box_place = 100;
inline constexpr std::uint64_t file_place = 200;

struct SearchHit {
    std::wstring term; // as in the query
    std::uint64_t place = 0;
    std::uint64_t start = 0; // in code units; `end` is one past the last
    std::uint64_t end = 0;

    friend bool operator==(const SearchHit&, const SearchHit&) = default;
};

// Searches `text` for `term` from the code unit `pos` on. Found: true, with `pos` at the occurrence. Not
// found: false, with `pos` at the end of `text`. An empty text or term, or a `pos` at or past the end, finds
// nothing. An occurrence never starts on the low half of a surrogate pair that begins at or after `pos`.
bool find_exact(std::wstring_view text, std::wstring_view term, std::size_t& pos);
// The same, comparing lower-cased units. Surrogates are compared exactly.
bool find_folded(std::wstring_view text, std::wstring_view term, std::size_t& pos);

// Whether `page` matches. Replaces `hits` by the occurrences found on the page.
bool match_page(const Page& page, const SearchQuery& query, std::vector<SearchHit>& hits);

} // namespace book
