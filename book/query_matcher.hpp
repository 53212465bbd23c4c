// A query, prepared for being asked of many pages.
#pragma once
#include "book/page.hpp"
#include "book/search.hpp"
#include "book/term_finder.hpp"
#include <span>
#include <vector>

namespace book {

class QueryMatcher {
public:
    // Looks at `query` as long as it lives.
    explicit QueryMatcher(const SearchQuery& query);

    // Whether `page` matches, answered as soon as it is known.
    bool matches(const Page& page) const;
    // The same, with all its occurrences in `hits`.
    bool collect(const Page& page, std::vector<SearchHit>& hits) const;

private:
    bool matches_without_terms(const Page& page) const;
    bool is_tracked(const Page& page) const;
    bool has_any(const Page& page, std::span<const TermFinder> finders) const;
    bool collect_term(const Page& page, std::size_t term, std::vector<SearchHit>& hits) const;
    bool collect_terms(const Page& page, std::vector<SearchHit>& hits) const;

    const SearchQuery& query_;
    std::vector<TermFinder> finders_; // one a term
};

} // namespace book
