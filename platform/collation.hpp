// The user's linguistic order of texts.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace platform {

enum class Ordering { less, equal, greater, unknown };

// Both texts count up to their first U+0000. `unknown` when the system cannot compare them.
Ordering compare_linguistic(const std::wstring& left, const std::wstring& right);

// Fills `bytes` with the beginning of the text's place in that order, and with zeros behind its end. Where
// the bytes of two texts first differ, the texts are ordered as the bytes are; texts with equal bytes may
// still differ. Looks only at as much of the text as it takes. False when the system cannot tell.
bool fill_order_bytes(std::wstring_view text, std::span<std::uint8_t> bytes);

// A place in `text` from which on its order bytes may be taken when they are held only against those of texts
// that have the first `common` units alike, taken from the same place. 0 when there is no better one.
std::size_t order_bytes_start(std::wstring_view text, std::size_t common);

} // namespace platform
