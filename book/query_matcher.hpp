// A query prepared once for matching many pages.
#pragma once
#include "book/page.hpp"
#include "book/search.hpp"
#include "book/term_finder.hpp"
#include <span>
#include <vector>

namespace book {

class QueryMatcher {
public:
    // `query` must outlive the matcher.
    explicit QueryMatcher(const SearchQuery& query);

    // Whether `page` matches. Stops at the first occurrence that decides.
    bool matches(const Page& page) const;
    // The same, and replaces `hits` by all occurrences on the page.
    bool collect(const Page& page, std::vector<SearchHit>& hits) const;

private:
    bool matches_without_terms(const Page& page) const;
    bool is_tracked(const Page& page) const;
    bool has_any(const Page& page, std::span<const TermFinder> finders) const;
    bool collect_term(const Page& page, std::size_t term, std::vector<SearchHit>& hits) const;
    bool collect_terms(const Page& page, std::vector<SearchHit>& hits) const;

    const SearchQuery& query_;
    std::vector<TermFinder> finders_; // one per term
};

} // namespace book
