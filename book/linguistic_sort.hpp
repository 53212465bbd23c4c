// Sorting texts in the user's linguistic order.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace book {

// The indices of `texts` in ascending order by platform::compare_linguistic. The result is a permutation even
// if that comparison is inconsistent.
std::vector<std::uint64_t> linguistic_order(const std::vector<const std::wstring*>& texts);

} // namespace book
