// Going to the next and the previous page that matches.
#include "book/book.hpp"
#include <gtest/gtest.h>

namespace {

using book::Book;
using book::SearchHit;
using book::SearchQuery;

Book book_with(std::initializer_list<std::wstring> texts)
{
    Book book;
    for (const std::wstring& text : texts) {
        book.pages.emplace_back();
        book.pages.back().text[0] = text;
    }
    book.hits = { { L"left over", 1, 2, 3 } };
    return book;
}

SearchQuery query_for(const std::wstring& term)
{
    SearchQuery query;
    query.terms = { term };
    return query;
}

const std::vector<SearchHit> one_hit{ { L"x", 100, 0, 1 } };

TEST(Find, StopsAtTheNearestPageThatMatchesAndKeepsItsHits)
{
    Book book = book_with({ L"x", L"", L"x", L"x", L"" });
    EXPECT_EQ(book.find(1, query_for(L"x")), &book.pages[2]);
    EXPECT_EQ(book.header.position, 2u);
    EXPECT_EQ(book.hits, one_hit);
    EXPECT_EQ(book.find(-1, query_for(L"x")), &book.pages[0]);
    EXPECT_EQ(book.header.position, 0u);
    EXPECT_EQ(book.hits, one_hit);
}

TEST(Find, StaysWhenNothingMatchesAndDoesNotWrap)
{
    Book book = book_with({ L"x", L"", L"" });
    book.header.position = 1;
    EXPECT_EQ(book.find(1, query_for(L"x")), &book.pages[1]);
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_TRUE(book.hits.empty());
    book.header.position = 0;
    EXPECT_EQ(book.find(-1, query_for(L"x")), &book.pages[0]);
    EXPECT_EQ(book.header.position, 0u);
}

TEST(Find, AFailedSearchLeavesTheHitsOfThePageWhereItBegan)
{
    Book book = book_with({ L"x", L"" });
    EXPECT_EQ(book.find(1, query_for(L"x")), &book.pages[0]);
    EXPECT_EQ(book.hits, one_hit);
}

TEST(Find, WithoutDirectionOnlyFindsTheHitsOfThisPage)
{
    Book book = book_with({ L"", L"x", L"x" });
    book.header.position = 1;
    EXPECT_EQ(book.find(0, query_for(L"x")), &book.pages[1]);
    EXPECT_EQ(book.hits, one_hit);
    book.header.position = 0;
    EXPECT_EQ(book.find(0, query_for(L"x")), &book.pages[0]);
    EXPECT_EQ(book.header.position, 0u);
    EXPECT_TRUE(book.hits.empty());
}

TEST(Find, WithoutTermsAndTrackingStepsOnePageAndFailsAtTheEnds)
{
    Book book = book_with({ L"a", L"b" });
    EXPECT_EQ(book.find(1, {}), &book.pages[1]);
    EXPECT_TRUE(book.hits.empty());
    EXPECT_EQ(book.find(1, {}), &book.pages[1]);
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_EQ(book.find(-1, {}), &book.pages[0]);
    EXPECT_EQ(book.find(-1, {}), &book.pages[0]);
    EXPECT_EQ(book.header.position, 0u);
}

TEST(Find, StaysOnTheOnlyPage)
{
    Book book = book_with({ L"x" });
    for (const int direction : { -1, 0, 1 }) {
        EXPECT_EQ(book.find(direction, {}), &book.pages[0]);
        EXPECT_EQ(book.find(direction, query_for(L"x")), &book.pages[0]);
        EXPECT_EQ(book.header.position, 0u);
    }
}

TEST(Find, WithoutACurrentPageClearsTheHitsAndReturnsNone)
{
    Book empty = book_with({});
    EXPECT_EQ(empty.find(1, {}), nullptr);
    EXPECT_TRUE(empty.hits.empty());
    for (const std::uint64_t position : { std::uint64_t{ 1 }, ~std::uint64_t{ 0 } })
        for (const int direction : { -1, 0, 1 }) {
            Book book = book_with({ L"x" });
            book.header.position = position;
            EXPECT_EQ(book.find(direction, query_for(L"x")), nullptr);
            EXPECT_TRUE(book.hits.empty());
            EXPECT_EQ(book.header.position, position);
        }
}

TEST(Find, WalksInDisplayOrder)
{
    Book book = book_with({ L"x", L"x", L"", L"x" });
    book.order = { 2, 3, 0, 1 };
    EXPECT_EQ(book.find(1, query_for(L"x")), &book.pages[3]);
    EXPECT_EQ(book.header.position, 1u);
    book.header.order_mode = -2701; // now 1 0 3 2
    book.header.position = 3;
    EXPECT_EQ(book.find(-1, query_for(L"x")), &book.pages[3]);
    EXPECT_EQ(book.header.position, 2u);
}

TEST(Find, StopsAtTrackedPagesWithoutHits)
{
    Book book = book_with({ L"", L"", L"x" });
    book.pages[1].mark = 1;
    SearchQuery query = query_for(L"x");
    query.track_marks = true;
    EXPECT_EQ(book.find(1, query), &book.pages[1]);
    EXPECT_TRUE(book.hits.empty());
    EXPECT_EQ(book.find(1, query), &book.pages[2]);
    EXPECT_EQ(book.hits, one_hit);
}

} // namespace
