// The user's linguistic order of texts.
#pragma once
#include <string_view>

namespace platform {

enum class Ordering { less, equal, greater, unknown };

// Both texts count up to their first U+0000. `unknown` when the system cannot compare them.
Ordering compare_linguistic(std::wstring_view left, std::wstring_view right);

} // namespace platform
