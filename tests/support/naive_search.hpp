// The simplest possible search: tries each position, moving by whole code points.
#pragma once
#include "book/page.hpp"
#include "book/search.hpp"
#include "platform/text.hpp"
#include <string_view>
#include <vector>

namespace naive {

inline bool is_pair(std::wstring_view text, std::size_t i)
{
    return i + 1 < text.size() && platform::is_high_surrogate(text[i])
        && platform::is_low_surrogate(text[i + 1]);
}

inline bool same_unit(wchar_t a, wchar_t b, bool ignore_case)
{
    if (!ignore_case || platform::is_surrogate(a) || platform::is_surrogate(b))
        return a == b;
    return platform::to_lower(a) == platform::to_lower(b);
}

inline bool stands_at(std::wstring_view text, std::wstring_view term, std::size_t place, bool ignore_case)
{
    for (std::size_t i = 0; i < term.size(); ++i)
        if (place + i >= text.size() || !same_unit(text[place + i], term[i], ignore_case))
            return false;
    return true;
}

inline bool find(std::wstring_view text, std::wstring_view term, std::size_t& pos, bool ignore_case)
{
    if (!text.empty() && !term.empty())
        for (std::size_t i = pos; i < text.size(); i += is_pair(text, i) ? 2 : 1)
            if (stands_at(text, term, i, ignore_case)) {
                pos = i;
                return true;
            }
    pos = text.size();
    return false;
}

inline bool match_term(const book::Page& page, const std::wstring& term, const book::SearchQuery& query,
    std::vector<book::SearchHit>& hits)
{
    bool found = false;
    const auto add = [&](std::uint64_t place, std::size_t start) {
        hits.push_back({ term, place, start, start + term.size() });
        found = true;
    };
    for (std::size_t box = 0; box < book::box_count; ++box) {
        std::size_t pos = 0;
        while (find(page.text[box], term, pos, query.ignore_case)) {
            add(100 + box, pos);
            pos += term.size();
        }
    }
    if (query.in_file_list)
        for (std::size_t i = 0; i < page.files.size(); ++i) {
            std::size_t pos = 0;
            if (find(page.files[i], term, pos, query.ignore_case))
                add(200 + i, pos);
        }
    return found;
}

inline bool match_page(
    const book::Page& page, const book::SearchQuery& query, std::vector<book::SearchHit>& hits)
{
    hits.clear();
    if (query.selected_only)
        return page.selected == book::PageSelection::selected;
    const bool by_mark = query.track_marks && page.mark != 0;
    const bool by_tab = query.track_tabs && page.tab_number != 0;
    const bool no_filter = !query.track_marks && !query.track_tabs;
    if (query.terms.empty())
        return no_filter || by_mark || by_tab;
    std::size_t matched = 0;
    for (const std::wstring& term : query.terms) {
        if (match_term(page, term, query, hits))
            ++matched;
        else if (query.all_terms)
            break;
    }
    if (query.all_terms ? matched == query.terms.size() : matched > 0)
        return true;
    hits.clear();
    return by_mark || by_tab;
}

} // namespace naive
