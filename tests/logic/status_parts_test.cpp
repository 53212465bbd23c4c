#include "look/status_parts.hpp"
#include <gtest/gtest.h>

namespace {

using look::SharedFont;
using look::status_part;
using look::StatusPart;
using look::StatusRun;
using look::StatusTone;

constexpr auto label = StatusTone::label;
constexpr auto value = StatusTone::value;

book::Book book_of(std::size_t count)
{
    book::Book book;
    book.pages.resize(count);
    for (book::Page& page : book.pages)
        page.stamp = L"2024010203040520251112131415";
    return book;
}

TEST(StatusParts, EndAtTheirEdges)
{
    EXPECT_EQ(look::status_right_edges, (std::array<int, 5>{ 120, 330, 530, 930, -1 }));
}

TEST(StatusParts, ThePageNumberIsLargerThanTheCount)
{
    book::Book book = book_of(8);
    book.header.position = 2;
    const StatusPart part = status_part(book, 0);
    EXPECT_EQ(part.left, 5);
    EXPECT_EQ(part.runs,
        (std::vector<StatusRun>{
            { L"3", value, SharedFont::ui_11_bold, 0 }, { L"/8", label, SharedFont::ui_8_bold, 3 } }));
}

TEST(StatusParts, ThePageNumberIsAPositionInDisplayOrder)
{
    book::Book book = book_of(3);
    book.order = { 2, 1, 0 };
    book.header.position = 0;
    EXPECT_EQ(status_part(book, 0).runs[0].text, L"1");
}

TEST(StatusParts, MarksHaveAPercentage)
{
    book::Book book = book_of(8);
    book.mark_count = 3;
    book.tab_count = 12;
    const StatusPart part = status_part(book, 1);
    EXPECT_EQ(part.left, 3);
    EXPECT_EQ(part.runs,
        (std::vector<StatusRun>{
            { L"Marks: 3", value }, { L" [37.5%]", label }, { L"   Tabs: 12", value } }));
    EXPECT_EQ(part.runs[0].font, SharedFont::ui_8_bold);
    EXPECT_EQ(part.runs[0].top, 2);
}

TEST(StatusParts, ThePercentageHasOneDecimal)
{
    book::Book book = book_of(3);
    EXPECT_EQ(status_part(book, 1).runs[1].text, L" [0.0%]");
    book.mark_count = 2;
    EXPECT_EQ(status_part(book, 1).runs[1].text, L" [66.7%]");
    book.mark_count = 3;
    EXPECT_EQ(status_part(book, 1).runs[1].text, L" [100.0%]");
}

TEST(StatusParts, TheSizeOfAPageCountsAllItsTextTwice)
{
    book::Book book = book_of(2);
    book.header.position = 1;
    book.pages[1].reference_folder = L"abc";
    book.pages[1].text = { L"12345", L"1", L"日本" };
    book.pages[1].files = { L"12", L"345" };
    book.file_size = 1536;
    EXPECT_EQ(
        status_part(book, 2).runs, (std::vector<StatusRun>{ { L"32 Bytes", value }, { L"/1.5 KB", label } }));
}

TEST(StatusParts, DatesAreReadable)
{
    EXPECT_EQ(status_part(book_of(1), 3).runs,
        (std::vector<StatusRun>{ { L"created ", label }, { L"2024.01.02 03:04:05", value },
            { L"    modified ", label }, { L"2025.11.12 13:14:15", value } }));
}

TEST(StatusParts, AStampWithoutTwoCompleteDatesShowsNone)
{
    book::Book book = book_of(1);
    const std::wstring whole = book.pages[0].stamp;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        book.pages[0].stamp = whole.substr(0, length);
        EXPECT_TRUE(status_part(book, 3).runs.empty()) << length;
    }
}

TEST(StatusParts, ThePathIsShortenedInItsMiddle)
{
    book::Book book = book_of(1);
    book.path = L"C:\\本\\a & b.book";
    const StatusPart part = status_part(book, 4);
    EXPECT_TRUE(part.is_path);
    EXPECT_EQ(part.runs, (std::vector<StatusRun>{ { L"C:\\本\\a & b.book", value } }));
    for (int index = 0; index < 4; ++index)
        EXPECT_FALSE(status_part(book, index).is_path) << index;
}

TEST(StatusParts, OfAnEmptyBookHaveOnlyThePath)
{
    book::Book book;
    book.path = L"empty.book";
    for (int index = 0; index < 4; ++index)
        EXPECT_TRUE(status_part(book, index).runs.empty()) << index;
    EXPECT_EQ(status_part(book, 4).runs.size(), 1u);
}

TEST(StatusParts, WithoutACurrentPageShowOnlyTheCounts)
{
    book::Book book = book_of(2);
    book.header.position = 2;
    EXPECT_TRUE(status_part(book, 0).runs.empty());
    EXPECT_EQ(status_part(book, 1).runs.size(), 3u);
    EXPECT_TRUE(status_part(book, 2).runs.empty());
    EXPECT_TRUE(status_part(book, 3).runs.empty());
}

TEST(StatusParts, OutOfRangeAreEmpty)
{
    const book::Book book = book_of(1);
    EXPECT_TRUE(status_part(book, 5).runs.empty());
    EXPECT_TRUE(status_part(book, -1).runs.empty());
}

} // namespace
