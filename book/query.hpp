// Splits the search box's text into terms, and describes a query to the user.
#pragma once
#include "book/search.hpp"
#include <string>
#include <string_view>
#include <vector>

namespace book {

// Appends the terms of `text` to `terms`. Spaces, tabs and the ideographic space separate terms; text between
// two double quotes is one term with its spaces; an unclosed quote is an ordinary character.
void split_terms(std::wstring_view text, std::vector<std::wstring>& terms);

// The terms of a search box's text. Removes U+0003 first: no page text contains it.
std::vector<std::wstring> query_terms(std::wstring text);

// The condition in words, for the banner and the status bar; empty if every page matches.
std::wstring condition_text(const SearchQuery& query);

// The banner's text after a search that found no other page; empty if the query has no condition.
std::wstring failed_search_text(const SearchQuery& query);

} // namespace book
