#include "book/search.hpp"
#include "book/book.hpp"
#include "platform/text.hpp"

namespace book {

namespace {

bool is_pair_at(std::wstring_view text, std::size_t i)
{
    return i + 1 < text.size() && platform::is_high_surrogate(text[i])
        && platform::is_low_surrogate(text[i + 1]);
}

template <typename Equal>
bool find_by(std::wstring_view text, std::wstring_view term, std::size_t& pos, Equal equal)
{
    if (!term.empty())
        for (std::size_t i = pos; i < text.size() && text.size() - i >= term.size();
             i += is_pair_at(text, i) ? 2 : 1) {
            std::size_t matched = 0;
            while (matched < term.size() && equal(text[i + matched], term[matched]))
                ++matched;
            if (matched == term.size()) {
                pos = i;
                return true;
            }
        }
    pos = text.size();
    return false;
}

bool find_term(std::wstring_view text, std::wstring_view term, LetterCase letter_case, std::size_t& pos)
{
    return letter_case == LetterCase::folded ? find_folded(text, term, pos) : find_exact(text, term, pos);
}

bool match_term(
    const Page& page, const std::wstring& term, const SearchQuery& query, std::vector<SearchHit>& hits)
{
    const LetterCase letter_case = query.ignore_case ? LetterCase::folded : LetterCase::exact;
    const std::size_t hits_before = hits.size();
    for (std::size_t box = 0; box < box_count; ++box)
        for (std::size_t pos = 0; find_term(page.text[box], term, letter_case, pos); pos += term.size())
            hits.push_back({ term, box_place + box, pos, pos + term.size() });
    for (std::size_t i = 0; query.in_file_list && i < page.files.size(); ++i)
        if (std::size_t pos = 0; find_term(page.files[i], term, letter_case, pos))
            hits.push_back({ term, file_place + i, pos, pos + term.size() });
    return hits.size() > hits_before;
}

bool match_terms(const Page& page, const SearchQuery& query, std::vector<SearchHit>& hits)
{
    bool any = false;
    for (const std::wstring& term : query.terms) {
        const bool matched = match_term(page, term, query, hits);
        if (!matched && query.all_terms)
            return false;
        any |= matched;
    }
    return any;
}

} // namespace

bool find_exact(std::wstring_view text, std::wstring_view term, std::size_t& pos)
{
    return find_by(text, term, pos, [](wchar_t a, wchar_t b) { return a == b; });
}

bool find_folded(std::wstring_view text, std::wstring_view term, std::size_t& pos)
{
    return find_by(
        text, term, pos, [](wchar_t a, wchar_t b) { return platform::to_lower(a) == platform::to_lower(b); });
}

bool match_page(const Page& page, const SearchQuery& query, std::vector<SearchHit>& hits)
{
    hits.clear();
    if (query.selected_only)
        return page.selected == PageSelection::selected;
    const bool is_tracked =
        (query.track_marks && page.mark != 0) || (query.track_tabs && page.tab_number != 0);
    if (query.terms.empty())
        return is_tracked || (!query.track_marks && !query.track_tabs);
    if (match_terms(page, query, hits))
        return true;
    hits.clear();
    return is_tracked;
}

Page* Book::find(int direction, const SearchQuery& query)
{
    const std::uint64_t start = header.position;
    if (!current_page()) {
        hits.clear();
        return nullptr;
    }
    while (Page* page = step(direction))
        if (match_page(*page, query, hits))
            return page;
    header.position = start;
    Page* page = current_page();
    match_page(*page, query, hits);
    return page;
}

} // namespace book
