// The rows of the search results: cells, and what is read back from them.
#include "book/page.hpp"
#include "book/result_rows.hpp"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using book::parse_result;
using book::RefillCause;
using book::RefillPlan;
using book::ResultRows;
using book::SearchHit;

// Lines of the same length in each box. Counts what it is asked.
class EvenLines final : public book::BoxLines {
public:
    EvenLines(std::uint64_t length, std::size_t count)
        : length_(length)
        , count_(count)
    {
    }
    std::size_t line_of(std::size_t box, std::uint64_t position) const override
    {
        ++questions[box];
        return static_cast<std::size_t>(std::min<std::uint64_t>(position / length_, count_ - 1));
    }
    std::size_t line_count(std::size_t) const override { return count_; }
    std::uint64_t line_start(std::size_t box, std::size_t line) const override
    {
        ++starts[box];
        return line * length_;
    }

    mutable std::array<int, 3> questions{};
    mutable std::array<int, 3> starts{};

private:
    std::uint64_t length_;
    std::size_t count_;
};

const EvenLines ten_lines{ 10, 10 };

std::vector<std::wstring> cells(const ResultRows& rows, int row)
{
    return { rows.cell(row, 0), rows.cell(row, 1), rows.cell(row, 2), rows.cell(row, 3) };
}

using Cells = std::vector<std::wstring>;

// Knows the text of its boxes.
class LinesOfText final : public book::BoxLines {
public:
    explicit LinesOfText(std::wstring text)
        : text_(std::move(text))
    {
    }
    std::size_t line_of(std::size_t, std::uint64_t) const override { return 1'000; }
    std::size_t line_count(std::size_t) const override { return 2'000; }
    std::uint64_t line_start(std::size_t, std::size_t) const override { return 0; }
    std::optional<std::wstring> unwrapped_text(std::size_t) const override { return text_; }

private:
    std::wstring text_;
};

TEST(ResultRows, CountTheLinesOfManyHitsInTheText)
{
    std::vector<SearchHit> hits;
    const std::uint64_t starts[] = { 0, 1, 3, 4, 6, 8, 10, 13, 14, 99 };
    const wchar_t* const lines[] = { L"1", L"1", L"1", L"2", L"3", L"3", L"3", L"3", L"4", L"4" };
    for (const std::uint64_t start : starts)
        hits.push_back({ L"x", 100, start, start + 1 });
    const ResultRows many(hits, LinesOfText{ L"ab\r\n\r\nc\rd-e\r\r\nf" });
    for (int row = 0; row < 10; ++row)
        EXPECT_EQ(many.cell(row, book::line_cell), lines[row]) << row;
    const ResultRows unclear(hits, LinesOfText{ L"ab\r\n\r\nc\rd\ne\r\r\nf" });
    EXPECT_EQ(unclear.cell(0, book::line_cell), L"1001") << "a lone line feed";
    hits.resize(2);
    const ResultRows few(hits, LinesOfText{ L"ab\r\n" });
    EXPECT_EQ(few.cell(0, book::line_cell), L"1001");
}

TEST(ResultRows, DetermineTheLinesOfManyHitsLateInABoxWithThousandsOfLines)
{
    std::vector<SearchHit> hits;
    for (std::uint64_t i = 0; i < 6'000; ++i)
        hits.push_back({ L"x", 100, i * 10 + 3, i * 10 + 4 });
    const EvenLines long_box{ 10, 6'000 };
    const ResultRows late(hits, long_box);
    EXPECT_EQ(long_box.questions[0] + long_box.starts[0], 0);
    EXPECT_EQ(late.cell(4'999, book::line_cell), L"5000");
    EXPECT_EQ(long_box.questions[0], 1);
    hits.resize(8);
    const ResultRows early(hits, long_box);
    EXPECT_EQ(long_box.questions[0], 9) << "few hits are determined at once";
    EXPECT_EQ(early.cell(7, book::line_cell), L"8");
    EXPECT_EQ(long_box.questions[0], 9);
}

TEST(ResultRows, AChosenHitIsWhatItsCellsDescribe)
{
    const std::vector<SearchHit> hits{ { L"word", 100, 0, 4 }, { L"b", 102, 12, 16 }, { L"a", 200, 3, 4 },
        { L"c", 10199, 0, 1 } };
    const ResultRows rows(hits, ten_lines);
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(book::chosen_hit(hits[static_cast<std::size_t>(row)]), rows.parse_row(row)) << row;
}

TEST(ResultRows, ShowTermPlaceLineAndRange)
{
    const ResultRows rows({ { L"word", 100, 0, 4 }, { L"Wörd", 101, 12, 16 }, { L"語", 102, 99, 100 },
                              { L"a", 200, 3, 4 }, { L"b", 10199, 0, 1 } },
        ten_lines);
    ASSERT_EQ(rows.count(), 5u);
    EXPECT_EQ(cells(rows, 0), (Cells{ L"word", L"Box 1", L"1", L"0-4" }));
    EXPECT_EQ(cells(rows, 1), (Cells{ L"Wörd", L"Box 2", L"2", L"12-16" }));
    EXPECT_EQ(cells(rows, 2), (Cells{ L"語", L"Box 3", L"10", L"99-100" }));
    EXPECT_EQ(cells(rows, 3), (Cells{ L"a", L"File 1", L"", L"" }));
    EXPECT_EQ(cells(rows, 4), (Cells{ L"b", L"File 10000", L"", L"" }));
}

TEST(ResultRows, AreEmptyOutside)
{
    const ResultRows rows({ { L"word", 100, 0, 4 } }, ten_lines);
    for (const int row : { -1, 1, 1000 }) {
        EXPECT_EQ(cells(rows, row), (Cells{ L"", L"", L"", L"" }));
        EXPECT_EQ(rows.parse_row(row), std::nullopt);
    }
    EXPECT_EQ(rows.cell(0, -1), L"");
    EXPECT_EQ(rows.cell(0, 4), L"");
    EXPECT_EQ(ResultRows().count(), 0u);
    EXPECT_EQ(ResultRows().parse_row(0), std::nullopt);
}

TEST(ResultRows, ShowTheTermAsTypedAndOneRowPerOccurrence)
{
    book::Page page;
    page.text = { L"Word word", L"x", L"" };
    page.files = { L"WORD word" };
    book::SearchQuery query;
    query.terms = { L"wOrd", L"x" };
    query.ignore_case = true;
    query.in_file_list = true;
    std::vector<SearchHit> hits;
    ASSERT_TRUE(match_page(page, query, hits));
    const ResultRows rows(hits, ten_lines);
    ASSERT_EQ(rows.count(), 4u);
    EXPECT_EQ(cells(rows, 0), (Cells{ L"wOrd", L"Box 1", L"1", L"0-4" }));
    EXPECT_EQ(cells(rows, 1), (Cells{ L"wOrd", L"Box 1", L"1", L"5-9" }));
    EXPECT_EQ(cells(rows, 2), (Cells{ L"wOrd", L"File 1", L"", L"" }));
    EXPECT_EQ(cells(rows, 3), (Cells{ L"x", L"Box 2", L"1", L"0-1" }));
}

TEST(ResultRows, ReadBackGiveThePlaceAndRangeOfTheHit)
{
    const std::vector<SearchHit> hits{ { L"word", 100, 0, 4 }, { L"word", 102, 99999, 100003 },
        { L"word", 200, 0, 4 }, { L"word", 10199, 7, 9 } };
    const ResultRows rows(hits, ten_lines);
    for (int row = 0; row < 4; ++row) {
        SearchHit expected = hits[static_cast<std::size_t>(row)];
        expected.term.clear();
        if (expected.place >= book::file_place)
            expected.start = expected.end = 0;
        EXPECT_EQ(rows.parse_row(row), expected) << row;
    }
}

// One question per hit while they are few; all line starts once when they are many.
TEST(ResultRows, AskForLinesByTheCheaperWay)
{
    for (const std::size_t count : { 0u, 1u, 10u, 11u, 5000u }) {
        std::vector<SearchHit> hits;
        for (std::size_t i = 0; i < count; ++i)
            hits.push_back({ L"w", 101, i * 100 / count, i });
        const EvenLines lines{ 10, 10 };
        const ResultRows rows(hits, lines);
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(rows.cell(static_cast<int>(i), 2), std::to_wstring(i * 100 / count / 10 + 1));
        const bool are_many = count > 10;
        EXPECT_EQ(lines.questions[1], are_many ? 0 : static_cast<int>(count));
        EXPECT_EQ(lines.starts[1], are_many ? 10 : 0);
        EXPECT_EQ(lines.questions[0] + lines.questions[2] + lines.starts[0] + lines.starts[2], 0);
    }
}

TEST(ResultRows, KeepTheLastLineForPositionsBeyondIt)
{
    const std::vector<SearchHit> hits(20, SearchHit{ L"w", 100, 100000, 100001 });
    EXPECT_EQ(ResultRows(hits, ten_lines).cell(0, 2), L"10");
}

TEST(ParseResult, ReadsWordAndNumber)
{
    EXPECT_EQ(parse_result(L"Box 1", L"3-7"), (SearchHit{ L"", 100, 3, 7 }));
    EXPECT_EQ(parse_result(L" Box\t3 ", L"0-100000"), (SearchHit{ L"", 102, 0, 100000 }));
    EXPECT_EQ(parse_result(L"File 1", L""), (SearchHit{ L"", 200, 0, 0 }));
    EXPECT_EQ(parse_result(L"File 12", L"x"), (SearchHit{ L"", 211, 0, 0 }));
    EXPECT_EQ(parse_result(L"Box 2", L"010-0011"), (SearchHit{ L"", 101, 10, 11 }));
}

TEST(ParseResult, RefusesWhatNoRowHas)
{
    for (const wchar_t* place : { L"", L"Box", L"Box x", L"Box 0", L"Box 4", L"Box -1", L"box 1", L"File",
             L"File 0", L"File -1", L"1 Box", L"Folder 1", L"File 99999999999999999999", L"Box1" })
        EXPECT_EQ(parse_result(place, L"0-1"), std::nullopt) << testing::PrintToString(place);
    for (const wchar_t* range :
        { L"", L"1", L"1-2-3", L"--", L"-1-2", L"x-y", L"0x10-11", L" 1-2", L"1-9999999999999999999" })
        EXPECT_EQ(parse_result(L"Box 1", range), std::nullopt) << testing::PrintToString(range);
}

TEST(ResultsTitle, CountsRowsIfThereAreAny)
{
    EXPECT_EQ(book::results_title(0, 0), L"p.1 の検索結果");
    EXPECT_EQ(book::results_title(41, 1), L"p.42 の検索結果  [1件]");
    EXPECT_EQ(book::results_title(99999, 100000), L"p.100000 の検索結果  [100000件]");
}

TEST(ResultColumns, HaveTheirTitlesAndWidths)
{
    EXPECT_EQ(book::results_client_size, (platform::Size{ 300, 300 }));
    const wchar_t* const titles[] = { L"語句", L"場所", L"行", L"範囲" };
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_STREQ(book::result_columns[i].title, titles[i]);
    EXPECT_EQ(book::last_result_width(283, 200), 100) << "the least";
    EXPECT_EQ(book::last_result_width(301, 200), 101);
    EXPECT_EQ(book::last_result_width(301, 150), 151);
    EXPECT_EQ(book::last_result_width(0, 200), 100);
}

TEST(RowToSelect, IsTheFirstForWhatTheUserSearchedOrTurnedTo)
{
    for (const RefillCause cause :
        { RefillCause::page_shown, RefillCause::query_changed, RefillCause::window_opened })
        EXPECT_EQ(row_to_select(cause), 0);
    EXPECT_EQ(row_to_select(RefillCause::content_changed), -1);
}

TEST(RefillPlan, SelectsKeepsOrClears)
{
    const std::vector<SearchHit> hits{ { L"a", 100, 0, 1 }, { L"a", 100, 5, 6 } };
    const std::vector<SearchHit> others{ { L"a", 100, 1, 2 } };
    EXPECT_EQ(
        book::refill_plan(hits, {}, RefillCause::page_shown, true), (RefillPlan{ .clears_boxes = true }));
    for (const RefillCause searched : { RefillCause::query_changed, RefillCause::window_opened })
        EXPECT_EQ(book::refill_plan({}, {}, searched, false), (RefillPlan{ .clears_boxes = true }));
    for (const RefillCause other : { RefillCause::page_shown, RefillCause::content_changed })
        EXPECT_EQ(book::refill_plan({}, {}, other, false), RefillPlan{}) << "the user's own selection stays";
    EXPECT_EQ(book::refill_plan(hits, hits, RefillCause::page_shown, true), (RefillPlan{ .row = 0 }));
    EXPECT_EQ(book::refill_plan(hits, hits, RefillCause::content_changed, true),
        (RefillPlan{ .keeps_view = true }));
    EXPECT_EQ(book::refill_plan(hits, others, RefillCause::content_changed, true), RefillPlan{});
}

} // namespace
