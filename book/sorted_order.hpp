// The order of pages under a sort key.
#pragma once
#include "book/page.hpp"
#include <cstdint>
#include <vector>

namespace book {

// The stored indices of `pages`, ascending by `sort_key`; pages that compare equal stand in any order.
// Numbers that are no SortKey order nothing. Throws std::out_of_range as told at Book::rebuild_order.
std::vector<std::uint64_t> sorted_order(const std::vector<Page>& pages, std::int32_t sort_key);

} // namespace book
