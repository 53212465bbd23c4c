// The rows, title, commands, icons and positions of the history window.
#include "book/history_view.hpp"
#include <gtest/gtest.h>

namespace {

using book::history_row;
using book::HistoryRow;
using ovlib::Color;

TEST(HistoryRow, SplitsThePathAtItsLastSeparator)
{
    EXPECT_EQ(history_row(L"C:\\本\\日記.bok"), (HistoryRow{ L"日記.bok", L"C:\\本" }));
    EXPECT_EQ(history_row(L"C:/本/日記.bok"), (HistoryRow{ L"日記.bok", L"C:/本" }));
    EXPECT_EQ(history_row(L"C:\\本\\\\日記.bok"), (HistoryRow{ L"日記.bok", L"C:\\本" }));
}

TEST(HistoryRow, KeepsTheRoot)
{
    EXPECT_EQ(history_row(L"C:\\日記.bok"), (HistoryRow{ L"日記.bok", L"C:\\" }));
}

TEST(HistoryRow, OfAPathWithoutASeparatorHasNoFolder)
{
    EXPECT_EQ(history_row(L"日記.bok"), (HistoryRow{ L"日記.bok", L"" }));
}

TEST(HistoryTitle, CountsTheEntries)
{
    EXPECT_EQ(book::history_title(0), L"履歴  [0件]");
    EXPECT_EQ(book::history_title(1000), L"履歴  [1000件]");
}

TEST(HistoryCommand, IsSentForTheRowsOfTheRangeOnly)
{
    EXPECT_EQ(book::history_command(0), 10000);
    EXPECT_EQ(book::history_command(4999), 14999);
    EXPECT_EQ(book::history_command(-1), std::nullopt); // outside the rows
    EXPECT_EQ(book::history_command(5000), std::nullopt);
    EXPECT_EQ(book::history_command(5001), std::nullopt);
}

TEST(HistoryEnabled, NeedsAFreeBookAndOpenInput)
{
    EXPECT_TRUE(book::is_history_enabled(false, true));
    EXPECT_FALSE(book::is_history_enabled(true, true));
    EXPECT_FALSE(book::is_history_enabled(false, false));
    EXPECT_FALSE(book::is_history_enabled(true, false));
}

TEST(HistoryTextColor, IsGreyWhileDisabled)
{
    const Color text{ 0x123456 };
    const Color bright = ovlib::rgb(128, 128, 128);
    const Color dark = ovlib::rgb(127, 127, 127);
    EXPECT_EQ(book::history_text_color(text, bright, true), text);
    EXPECT_EQ(book::history_text_color(text, bright, false), Color{ 0xBFBFBF });
    EXPECT_EQ(book::history_text_color(text, dark, false), Color{ 0x3F3F3F });
}

TEST(HistoryImage, IsTheBookForTheNewestAndTheClockForOthers)
{
    EXPECT_EQ(book::history_image(0), 0);
    EXPECT_EQ(book::history_image(1), 1);
    EXPECT_EQ(book::history_image(999), 1);
}

TEST(HistoryPlace, KeepsAMarginAroundTheList)
{
    EXPECT_EQ(book::history_list_rect({ 350, 400 }), (platform::Rect{ 8, 8, 342, 392 }));
    EXPECT_EQ(book::history_list_rect({ 3, 0 }), (platform::Rect{ 8, 8, 8, 8 }));
}

TEST(HistoryPlace, IsCentredAtTheCursorWithItsTopAbove)
{
    EXPECT_EQ(book::history_corner({ 700, 300 }, 360), (platform::Point{ 520, 236 }));
}

} // namespace
