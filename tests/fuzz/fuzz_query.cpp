// Cuts any text into terms and searches any page for them, against the same done in the plainest words.
#include "book/query.hpp"
#include "book/query_matcher.hpp"
#include "platform/text.hpp"
#include "tests/fuzz/parts.hpp"
#include "tests/fuzz/stable.hpp"
#include "tests/support/naive_search.hpp"
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace {

using Input = fuzz::Parts;

// The splitting rules one after the other.
std::vector<std::wstring> split_plainly(const std::wstring& text)
{
    std::vector<std::wstring> terms;
    std::wstring token;
    const auto push = [&](const std::wstring& term) {
        if (!term.empty())
            terms.push_back(term);
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t closing = text[i] == L'"' ? text.find(L'"', i + 1) : std::wstring::npos;
        if (naive::is_pair(text, i)) {
            token += text[i++];
            token += text[i];
        } else if (closing != std::wstring::npos) {
            push(token);
            token.clear();
            push(text.substr(i + 1, closing - i - 1));
            i = closing;
        } else if (text[i] == L' ' || text[i] == L'\u3000' || text[i] == L'\t') {
            push(token);
            token.clear();
        } else {
            token += text[i];
        }
    }
    push(token);
    return terms;
}

book::Page page_of(const Input& input)
{
    book::Page page;
    for (std::size_t box = 0; box < book::box_count; ++box)
        page.text[box] = input.part(1 + box);
    for (std::size_t i = 4; i < input.parts.size(); ++i)
        page.files.push_back(input.parts[i]);
    page.mark = input.is_on(0);
    page.tab_number = input.is_on(1);
    return page;
}

void check_page(const book::Page& page, const book::SearchQuery& query)
{
    std::vector<book::SearchHit> expected;
    std::vector<book::SearchHit> hits;
    const bool matches = naive::match_page(page, query, expected);
    fuzz::require(book::match_page(page, query, hits) == matches);
    fuzz::require(hits == expected);
    fuzz::require(book::QueryMatcher(query).matches(page) == matches);
}

void check_places(const std::wstring& text, const std::wstring& term)
{
    const std::size_t step = 1 + text.size() / 16;
    for (std::size_t start = 0; start <= text.size() + 1; start += step) {
        std::size_t expected = start;
        std::size_t pos = start;
        fuzz::require(book::find_exact(text, term, pos) == naive::find(text, term, expected, false));
        fuzz::require(pos == expected);
        expected = pos = start;
        fuzz::require(book::find_folded(text, term, pos) == naive::find(text, term, expected, true));
        fuzz::require(pos == expected);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Input input = fuzz::read_parts({ data, size });
    const std::wstring text = input.part(0);
    book::SearchQuery query;
    book::split_terms(text, query.terms);
    fuzz::require(query.terms == split_plainly(text));
    query.track_marks = input.is_on(2);
    query.track_tabs = input.is_on(3);
    query.all_terms = input.is_on(4);
    query.ignore_case = input.is_on(5);
    query.in_file_list = input.is_on(6);
    query.selected_only = input.is_on(7);
    fuzz::require(book::condition_text(query).size() <= 2 * 32 + 3 + 2 + 16);

    const book::Page page = page_of(input);
    check_page(page, query);
    check_places(page.text[0], text);
    if (!query.terms.empty())
        check_places(page.text[0], query.terms[0]);
    return 0;
}
