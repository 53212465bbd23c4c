// The subject of a question. Boxes dispatch messages, so another page or entry may be current when the user
// answers. A note recorded before the question shows whether the answer still applies.
#pragma once
#include "book/book.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace app {

// A page and its position.
struct PageNote {
    std::uint64_t position = 0;
    std::size_t index = 0;
    std::uint64_t revision = 0; // of the Book
    std::wstring stamp;

    friend bool operator==(const PageNote&, const PageNote&) = default;
};

// The current page; nullopt without one.
std::optional<PageNote> note_page(const book::Book& book);
bool is_same(const PageNote& note, const book::Book& book);

// An entry of that page's list.
struct EntryNote {
    PageNote page;
    std::uint64_t place = 0;
    std::wstring text;

    friend bool operator==(const EntryNote&, const EntryNote&) = default;
};

// The selected entry of the current page; nullopt without one.
std::optional<EntryNote> note_entry(const book::Book& book);
bool is_same(const EntryNote& note, const book::Book& book);
// Replaces the recorded entry by `path`; false if it is no longer the selected one. The page's stamp is not
// changed.
bool replace_entry(book::Book& book, const EntryNote& note, const std::wstring& path);

} // namespace app
