// The fast search, compared with the simplest possible search on texts that are hard for it.
#include "book/book.hpp"
#include "book/query_matcher.hpp"
#include "tests/support/naive_search.hpp"
#include "tests/support/random_texts.hpp"
#include <gtest/gtest.h>

namespace {

using test_support::RandomTexts;

TEST(SearchOracle, FindsTheSamePlacesAsPlainSearch)
{
    RandomTexts random(1);
    for (int round = 0; round < 20000; ++round) {
        const std::wstring text = random.text(round % 50 == 0 ? 2500 : 90);
        const std::wstring term = random.term_for(text);
        const std::size_t start = random.below(text.size() + 2);
        for (const bool ignore_case : { false, true }) {
            std::size_t expected = start;
            const bool found = naive::find(text, term, expected, ignore_case);
            std::size_t pos = start;
            ASSERT_EQ(
                ignore_case ? book::find_folded(text, term, pos) : book::find_exact(text, term, pos), found)
                << testing::PrintToString(text) << testing::PrintToString(term) << start;
            ASSERT_EQ(pos, expected) << testing::PrintToString(text) << testing::PrintToString(term) << start;
        }
    }
}

TEST(SearchOracle, MatchesPagesWithTheSameHitsAsPlainSearch)
{
    RandomTexts random(2);
    for (int round = 0; round < 10000; ++round) {
        book::Page page;
        for (std::wstring& text : page.text)
            text = random.text(60);
        for (std::size_t i = random.below(3); i > 0; --i)
            page.files.push_back(random.text(20));
        page.mark = random.coin();
        page.tab_number = random.below(2);
        page.selected = static_cast<book::PageSelection>(random.below(3));
        book::SearchQuery query;
        for (std::size_t i = random.below(6); i > 0; --i)
            query.terms.push_back(random.term_for(page.text[random.below(3)]));
        query.selected_only = random.below(10) == 0;
        query.track_marks = random.below(4) == 0;
        query.track_tabs = random.below(4) == 0;
        query.all_terms = random.coin();
        query.ignore_case = random.coin();
        query.in_file_list = random.coin();

        std::vector<book::SearchHit> expected;
        const bool matches = naive::match_page(page, query, expected);
        std::vector<book::SearchHit> hits{ { L"left over", 1, 2, 3 } };
        ASSERT_EQ(book::match_page(page, query, hits), matches) << round;
        ASSERT_EQ(hits, expected) << round;
        ASSERT_EQ(book::QueryMatcher(query).matches(page), matches) << round;
    }
}

// Long enough that blocks of pages are searched in parallel.
TEST(SearchOracle, StopsAtTheSamePageAsAWalkInEveryOrderAndDirection)
{
    constexpr std::size_t page_count = 9000;
    RandomTexts random(3);
    book::Book book;
    book.pages.resize(page_count);
    for (book::Page& page : book.pages)
        page.text[1] = L"common";
    for (const std::size_t rare : { 5, 2047, 2048, 2049, 2050, 4608, 7000, 8999 })
        book.pages[rare].text[2] = L"rare";
    book::SearchQuery query;
    query.terms = { L"rare" };
    for (const std::int32_t mode : { 2700, -2700, 2702, -2702 }) {
        book.header.order_mode = mode;
        book.rebuild_order();
        for (int round = 0; round < 60; ++round) {
            const int direction = random.coin() ? 1 : -1;
            const std::uint64_t start = round == 0 ? 0
                : round == 1                       ? page_count - 1
                                                   : random.below(page_count);
            std::uint64_t expected = start;
            for (std::uint64_t at = start + static_cast<std::uint64_t>(direction); at < page_count;
                 at += static_cast<std::uint64_t>(direction))
                if (book.pages[book.position_to_index(at)].text[2] == L"rare") {
                    expected = at;
                    break;
                }
            book.header.position = start;
            const book::Page* page = book.find(direction, query);
            ASSERT_EQ(book.header.position, expected) << mode << ' ' << start << ' ' << direction;
            ASSERT_EQ(page, &book.pages[book.position_to_index(expected)]);
            ASSERT_EQ(book.hits.size(), page->text[2] == L"rare" ? 1u : 0u);
        }
    }
}

book::SearchQuery query_for(const std::wstring& term)
{
    book::SearchQuery query;
    query.terms = { term };
    return query;
}

TEST(SearchOracle, SkipsNoPageWhereBlocksMeet)
{
    for (const std::size_t rare :
        { 2047, 2048, 2049, 2050, 2559, 2560, 2561, 2562, 3071, 3072, 3073, 3074, 3999 }) {
        book::Book book;
        book.pages.resize(4000);
        book.pages[rare].text[1] = L"rare";
        EXPECT_EQ(book.find(1, query_for(L"rare")), &book.pages[rare]);
        book.header.order_mode = -2700;
        book.header.position = 0;
        EXPECT_EQ(book.find(1, query_for(L"rare")), &book.pages[rare]);
    }
}

// The nearer one is deep inside its block, so another thread finds the farther one first.
TEST(SearchOracle, StopsAtTheNearerOfTwoPagesFoundAtTheSameTime)
{
    book::Book book;
    book.pages.resize(3200);
    for (book::Page& page : book.pages)
        page.text[2].assign(1000, L'x');
    book.pages[2555].text[0] = L"rare";
    for (const std::size_t farther : { 2562, 2800, 3070 }) {
        book.pages[farther].text[0] = L"rare";
        for (int round = 0; round < 30; ++round) {
            book.header.position = 0;
            ASSERT_EQ(book.find(1, query_for(L"rare")), &book.pages[2555]);
        }
        book.pages[farther].text[0].clear();
    }
}

} // namespace
