// The part of a text that decides the beginning of its sort key.
#pragma once
#include <string_view>

namespace platform {

struct CollationPrefix {
    std::wstring_view text;
    bool is_whole = false; // the text ends there
};

// Units after a cut may change the weights of units before it: a letter that combines with the next one, a
// vowel sign, a further part of a syllable. No such rule reaches back over this many plain units.
inline constexpr std::size_t plain_units_at_cut = 8;

// The first units of `text`, up to its first U+0000: `length` of them, or as many more as are needed so that
// the cut follows plain units.
CollationPrefix collation_prefix(std::wstring_view text, std::size_t length);

} // namespace platform
