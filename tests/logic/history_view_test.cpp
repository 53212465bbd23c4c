// Positions and icons of the history window.
#include "book/history_view.hpp"
#include <gtest/gtest.h>

namespace {

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
