#include "book/search.hpp"
#include "book/book.hpp"
#include "book/nearest_match.hpp"
#include "book/query_matcher.hpp"
#include "book/term_finder.hpp"

namespace book {

bool find_exact(std::wstring_view text, std::wstring_view term, std::size_t& pos)
{
    return TermFinder(term, LetterCase::exact).find(text, pos);
}

bool find_folded(std::wstring_view text, std::wstring_view term, std::size_t& pos)
{
    return TermFinder(term, LetterCase::folded).find(text, pos);
}

bool match_page(const Page& page, const SearchQuery& query, std::vector<SearchHit>& hits)
{
    return QueryMatcher(query).collect(page, hits);
}

Page* Book::find(int direction, const SearchQuery& query)
{
    if (!current_page()) {
        hits.clear();
        return nullptr;
    }
    const QueryMatcher matcher(query);
    if (direction != 0)
        header.position = NearestMatch(*this, matcher).find(direction).value_or(header.position);
    Page* const page = current_page();
    matcher.collect(*page, hits);
    return page;
}

} // namespace book
