// The user's linguistic order of texts.
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace platform {

enum class Ordering { less, equal, greater, unknown };

// Compares both texts up to their first U+0000. `unknown` if the system cannot compare them.
Ordering compare_linguistic(const std::wstring& left, const std::wstring& right);

// Fills `bytes` with the beginning of the text's sort key, and with zeros after its end. If the bytes of two
// texts differ, the texts are ordered as their first differing bytes. Texts with equal bytes may still
// differ. Reads only as much of the text as it needs. False if the system provides no usable key.
bool fill_order_bytes(std::wstring_view text, std::span<std::uint8_t> bytes);

// An index in `text` from which its order bytes may be taken if they are compared only with those of texts
// that share its first `common` units, taken from the same index. 0 if there is no later one.
std::size_t order_bytes_start(std::wstring_view text, std::size_t common);

} // namespace platform
