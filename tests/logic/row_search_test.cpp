// Searching the rows of a list by what was typed.
#include "controls/row_search.hpp"
#include <gtest/gtest.h>
#include <vector>

namespace {

using ovlib::find_row;
using ovlib::row_matches;
using ovlib::RowMatch;
using ovlib::RowRange;

TEST(RowMatches, ABeginningIsFoundWhateverItsCase)
{
    EXPECT_TRUE(row_matches(L"Pagewick", L"pAG", RowMatch::beginning));
    EXPECT_TRUE(row_matches(L"Ａｂｃ", L"ａ", RowMatch::beginning));
    EXPECT_TRUE(row_matches(L"語句", L"語句", RowMatch::beginning));
    EXPECT_TRUE(row_matches(L"語句", L"", RowMatch::beginning));
    EXPECT_FALSE(row_matches(L"Pagewick", L"age", RowMatch::beginning));
    EXPECT_FALSE(row_matches(L"Pa", L"Pag", RowMatch::beginning)) << "longer than the row";
    EXPECT_FALSE(row_matches(L"", L"P", RowMatch::beginning));
}

TEST(RowMatches, AWholeRowIsNoMoreAndNoLess)
{
    EXPECT_TRUE(row_matches(L"Page", L"PAGE", RowMatch::whole));
    EXPECT_FALSE(row_matches(L"Pages", L"Page", RowMatch::whole));
    EXPECT_FALSE(row_matches(L"Page", L"Pages", RowMatch::whole));
}

std::vector<int> asked_rows(const RowRange& range)
{
    std::vector<int> rows;
    EXPECT_EQ(find_row(range,
                  [&](int row) {
                      rows.push_back(row);
                      return false;
                  }),
        -1);
    return rows;
}

TEST(FindRow, AsksFromTheStartToTheEnd)
{
    EXPECT_EQ(asked_rows({ .count = 5, .start = 2 }), (std::vector{ 2, 3, 4 }));
    EXPECT_EQ(asked_rows({ .count = 3, .start = -7 }), (std::vector{ 0, 1, 2 }));
    EXPECT_TRUE(asked_rows({ .count = 3, .start = 3 }).empty());
    EXPECT_TRUE(asked_rows({}).empty());
}

TEST(FindRow, WrapsToTheRowsBeforeTheStart)
{
    EXPECT_EQ(asked_rows({ .count = 5, .start = 2, .wraps = true }), (std::vector{ 2, 3, 4, 0, 1 }));
    EXPECT_EQ(asked_rows({ .count = 2, .start = 9, .wraps = true }), (std::vector{ 0, 1 })) << "each once";
    EXPECT_EQ(asked_rows({ .count = 2, .start = 0, .wraps = true }), (std::vector{ 0, 1 }));
}

TEST(FindRow, TheFirstMatchAfterTheStartWins)
{
    const auto is_even = [](int row) { return row % 2 == 0; };
    EXPECT_EQ(find_row({ .count = 9, .start = 3 }, is_even), 4);
    EXPECT_EQ(find_row({ .count = 6, .start = 5 }, is_even), -1);
    EXPECT_EQ(find_row({ .count = 6, .start = 5, .wraps = true }, is_even), 0);
}

} // namespace
