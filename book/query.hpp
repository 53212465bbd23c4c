// The search box's text, cut into terms, and told back to the user.
#pragma once
#include "book/search.hpp"
#include <string>
#include <string_view>
#include <vector>

namespace book {

// Appends the terms of `text` to `terms`. Blanks, tabs and the ideographic space divide; a closed pair of
// double quotes keeps its blanks; an unclosed quote is an ordinary character.
void split_terms(std::wstring_view text, std::vector<std::wstring>& terms);

// The terms of a search box's text, without separators of the file.
std::vector<std::wstring> query_terms(std::wstring text);

// The condition in words, as the banner and the status bar show it; empty when every page matches.
std::wstring condition_text(const SearchQuery& query);

// What the banner says when a search found no other page; empty when there was no condition to tell.
std::wstring failed_search_text(const SearchQuery& query);

} // namespace book
