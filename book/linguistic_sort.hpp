// Sorting texts in the user's linguistic order.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace book {

// The indices of `texts` in ascending order, as platform::compare_linguistic tells it. Whatever that answers,
// even against itself, the result is a permutation.
std::vector<std::uint64_t> linguistic_order(const std::vector<const std::wstring*>& texts);

} // namespace book
