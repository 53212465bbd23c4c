// A search term prepared once for searching many texts.
#pragma once
#include "book/narrow_text.hpp"
#include "book/search.hpp"
#include <algorithm>
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
    // Calls `visit(start)` for each occurrence from the beginning on, each searched after the end of the one
    // before. Many occurrences cost one pass over the text.
    template <class Visit> void for_each(std::wstring_view text, Visit visit) const;
    std::size_t length() const { return term_.size(); }

    // Whether any of `finders` finds its term in `text`. Narrows the text once for all of them.
    static bool finds_any(std::span<const TermFinder> finders, std::wstring_view text);

private:
    // Calls `accept(start)` for the places in `piece`, the part of `text` that begins at `begin`, where an
    // occurrence may start, until it returns true; returns that place, or the text's length.
    template <class Accept>
    std::size_t look_in_piece(
        const NarrowText& piece, std::size_t begin, std::wstring_view text, Accept accept) const;
    // The first occurrence at or after `from` that starts in `piece`; the text's length if none.
    std::size_t find_in_piece(
        const NarrowText& piece, std::size_t begin, std::wstring_view text, std::size_t from) const
    {
        return look_in_piece(
            piece, begin, text, [&](std::size_t start) { return occurs_at(text, start, from); });
    }
    bool occurs_at(std::wstring_view text, std::size_t start, std::size_t from) const;

    std::wstring_view term_;
    LetterCase letter_case_;
    // The two rarest units of the term; equal if it has only one unit.
    Probe first_;
    Probe second_;
};

template <class Accept>
std::size_t TermFinder::look_in_piece(
    const NarrowText& piece, std::size_t begin, std::wstring_view text, Accept accept) const
{
    if (term_.empty() || text.size() - begin < term_.size())
        return text.size();
    const std::size_t starts = std::min(text.size() - begin - term_.size() + 1, NarrowText::most_starts);
    const std::size_t found =
        piece.find(first_, second_, starts, [&](std::size_t start) { return accept(begin + start); });
    return found == starts ? text.size() : begin + found;
}

template <class Visit> void TermFinder::for_each(std::wstring_view text, Visit visit) const
{
    std::size_t from = 0;
    const auto take = [&](std::size_t start) {
        if (start >= from && occurs_at(text, start, from)) {
            visit(start);
            from = start + term_.size();
        }
        return false;
    };
    for (std::size_t begin = 0; begin < text.size(); begin += NarrowText::most_starts)
        look_in_piece(NarrowText(text.substr(begin)), begin, text, take);
}

} // namespace book
