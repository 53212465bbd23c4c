// A search term prepared once for searching many texts.
#pragma once
#include "book/narrow_text.hpp"
#include "book/search.hpp"
#include <cstddef>
#include <span>
#include <string_view>

namespace book {

class TermFinder {
public:
    // `term` must outlive the finder.
    TermFinder(std::wstring_view term, LetterCase letter_case);

    // Same contract as find_exact and find_folded.
    bool find(std::wstring_view text, std::size_t& pos) const;
    std::size_t length() const { return term_.size(); }

    // Whether any of `finders` finds its term in `text`. Narrows the text once for all of them.
    static bool finds_any(std::span<const TermFinder> finders, std::wstring_view text);

private:
    // The first occurrence at or after `from` that starts in `piece`, the part of `text` that begins at
    // `begin`; the text's length if none.
    std::size_t find_in_piece(
        const NarrowText& piece, std::size_t begin, std::wstring_view text, std::size_t from) const;
    bool occurs_at(std::wstring_view text, std::size_t start, std::size_t from) const;

    std::wstring_view term_;
    LetterCase letter_case_;
    // The two rarest units of the term; equal if it has only one unit.
    Probe first_;
    Probe second_;
};

} // namespace book
