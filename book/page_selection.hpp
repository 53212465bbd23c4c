// The pages that are selected in the page editor. What is done with them is in book.hpp: paste_selected,
// delete_selected and remove_selected.
#pragma once
#include "book/book.hpp"
#include <cstddef>
#include <vector>

namespace book {

// Exactly `selected`: pasted copies do not count.
std::size_t count_selected(const std::vector<Page>& pages);
// Writes `selected` or `none` to the stored indices `first` to `last`, as far as there are pages.
void select_pages(std::vector<Page>& pages, std::size_t first, std::size_t last, bool on);
// Pasted copies become ordinary pages too.
void clear_selection(std::vector<Page>& pages);

} // namespace book
