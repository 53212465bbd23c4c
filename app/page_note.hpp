// What a question was about. Boxes let messages through, so that another page, or another entry, may stand
// there when the answer comes: a note taken before the box tells whether the answer still fits.
#pragma once
#include "book/book.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace app {

// A page at its place.
struct PageNote {
    std::uint64_t position = 0;
    std::size_t index = 0;
    std::uint64_t revision = 0; // of the Book
    std::wstring stamp;

    friend bool operator==(const PageNote&, const PageNote&) = default;
};

// The current page; none without one.
std::optional<PageNote> note_page(const book::Book& book);
bool is_same(const PageNote& note, const book::Book& book);

// An entry of that page's list.
struct EntryNote {
    PageNote page;
    std::uint64_t place = 0;
    std::wstring text;

    friend bool operator==(const EntryNote&, const EntryNote&) = default;
};

// The selected entry of the current page; none without one.
std::optional<EntryNote> note_entry(const book::Book& book);
bool is_same(const EntryNote& note, const book::Book& book);
// Puts `path` in the place of the noted entry; false when that no longer stands. The stamp stays.
bool replace_entry(book::Book& book, const EntryNote& note, const std::wstring& path);

} // namespace app
