#include "book/query_matcher.hpp"
#include <algorithm>

namespace book {

QueryMatcher::QueryMatcher(const SearchQuery& query)
    : query_(query)
{
    finders_.reserve(query.terms.size());
    for (const std::wstring& term : query.terms)
        finders_.emplace_back(term, query.ignore_case ? LetterCase::folded : LetterCase::exact);
}

bool QueryMatcher::matches(const Page& page) const
{
    if (query_.selected_only || query_.terms.empty())
        return matches_without_terms(page);
    // Each of all terms may be in another text of the page, so they are searched one by one. For any term,
    // one pass over the texts searches all terms at once.
    const bool has_terms = query_.all_terms ? std::all_of(finders_.begin(), finders_.end(),
                               [&](const TermFinder& finder) {
                                   return has_any(page, { &finder, 1 });
                               })
                                            : has_any(page, finders_);
    return has_terms || is_tracked(page);
}

bool QueryMatcher::collect(const Page& page, std::vector<SearchHit>& hits) const
{
    hits.clear();
    if (query_.selected_only || query_.terms.empty())
        return matches_without_terms(page);
    if (collect_terms(page, hits))
        return true;
    // Hits of some terms do not count when another one is missing.
    hits.clear();
    return is_tracked(page);
}

bool QueryMatcher::matches_without_terms(const Page& page) const
{
    if (query_.selected_only)
        return page.selected == PageSelection::selected;
    return is_tracked(page) || (!query_.track_marks && !query_.track_tabs);
}

bool QueryMatcher::is_tracked(const Page& page) const
{
    return (query_.track_marks && page.mark != 0) || (query_.track_tabs && page.tab_number != 0);
}

bool QueryMatcher::has_any(const Page& page, std::span<const TermFinder> finders) const
{
    const auto is_in = [&](const std::wstring& text) { return TermFinder::finds_any(finders, text); };
    return std::any_of(page.text.begin(), page.text.end(), is_in)
        || (query_.in_file_list && std::any_of(page.files.begin(), page.files.end(), is_in));
}

bool QueryMatcher::collect_term(const Page& page, std::size_t term, std::vector<SearchHit>& hits) const
{
    const TermFinder& finder = finders_[term];
    const std::size_t hits_before = hits.size();
    const auto add_hit = [&](std::uint64_t place, std::size_t start) {
        hits.push_back({ query_.terms[term], place, start, start + finder.length() });
    };
    for (std::size_t box = 0; box < box_count; ++box)
        finder.for_each(page.text[box], [&](std::size_t start) { add_hit(box_place + box, start); });
    // Unlike a box, an entry of the file list gives at most one hit.
    for (std::size_t i = 0; query_.in_file_list && i < page.files.size(); ++i)
        if (std::size_t pos = 0; finder.find(page.files[i], pos))
            add_hit(file_place + i, pos);
    return hits.size() > hits_before;
}

bool QueryMatcher::collect_terms(const Page& page, std::vector<SearchHit>& hits) const
{
    bool any = false;
    for (std::size_t term = 0; term < finders_.size(); ++term) {
        const bool is_on_page = collect_term(page, term, hits);
        if (!is_on_page && query_.all_terms)
            return false;
        any |= is_on_page;
    }
    return any;
}

} // namespace book
