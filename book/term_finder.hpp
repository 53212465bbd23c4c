// Terms, prepared for being found in many texts.
#pragma once
#include "book/narrow_text.hpp"
#include "book/search.hpp"
#include <cstddef>
#include <span>
#include <string_view>

namespace book {

class TermFinder {
public:
    // Looks at `term` as long as it lives.
    TermFinder(std::wstring_view term, LetterCase letter_case);

    // As find_exact and find_folded.
    bool find(std::wstring_view text, std::size_t& pos) const;
    std::size_t length() const { return term_.size(); }

    // Whether any of `finders` finds its term in `text`.
    static bool finds_any(std::span<const TermFinder> finders, std::wstring_view text);

private:
    // The first occurrence in a search from `from` on that starts in `piece`, which begins at `begin`.
    std::size_t find_in_piece(
        const NarrowText& piece, std::size_t begin, std::wstring_view text, std::size_t from) const;
    bool occurs_at(std::wstring_view text, std::size_t start, std::size_t from) const;

    std::wstring_view term_;
    LetterCase letter_case_;
    // The two units of the term that are least expected in a text.
    Probe first_;
    Probe second_;
};

} // namespace book
