// The order of pages by a sort key.
#pragma once
#include "book/page.hpp"
#include <cstdint>
#include <vector>

namespace book {

// The stored indices of `pages`, ascending by `sort_key`; pages that compare equal are in any order. A number
// that is no SortKey gives the stored order. Throws what Book::rebuild_order throws.
std::vector<std::uint64_t> sorted_order(const std::vector<Page>& pages, std::int32_t sort_key);

} // namespace book
