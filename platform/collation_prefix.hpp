// How much of a text decides the beginning of its place in the linguistic order.
#pragma once
#include <string_view>

namespace platform {

struct CollationPrefix {
    std::wstring_view text;
    bool is_whole = false; // nothing follows
};

// What stands behind a cut may change the weights of what stands before it: a letter that forms one with the
// next, a vowel sign, one more part of a syllable. No such thing reaches back over so many units of plain
// text.
inline constexpr std::size_t plain_units_at_cut = 8;

// The first units of `text`, up to its first U+0000: `length` or as many more as it takes to cut behind plain
// units.
CollationPrefix collation_prefix(std::wstring_view text, std::size_t length);

} // namespace platform
