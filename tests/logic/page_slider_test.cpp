#include "look/page_slider.hpp"
#include "look/theme.hpp"
#include <gtest/gtest.h>
#include <limits>

namespace {

using look::page_move;
using look::PageMove;
using ovlib::Color;
using platform::Rect;

constexpr int page_up = 2;
constexpr int page_down = 3;
constexpr int thumb_position = 4;
constexpr int thumb_track = 5;

TEST(PageSlider, LeavesRoomForTheNumber)
{
    EXPECT_EQ(look::page_slider_track(ovlib::slider_track({ 355, 30 })), (Rect{ 48, 8, 277, 21 }));
}

TEST(PageSlider, TheLabelCountsPagesFromOne)
{
    EXPECT_EQ(look::page_label(0), L"1");
    EXPECT_EQ(look::page_label(99999), L"100000");
    EXPECT_EQ(look::page_label(std::numeric_limits<std::int32_t>::max()), L"2147483648");
}

TEST(PageSlider, TheLabelIsCentredBesideTheTrack)
{
    EXPECT_EQ(look::page_label_place({ 48, 8, 277, 21 }, { 355, 30 }, 14), (platform::Point{ 283, 8 }));
}

TEST(PageSlider, TheLabelIsLightOnADarkBackgroundAndDarkOnALightOne)
{
    const Color fill{ 0x64B4FF };
    EXPECT_EQ(look::page_label_color(Color{ 0x7F7F7F }, fill), fill.shade(180));
    EXPECT_EQ(look::page_label_color(Color{ 0x808080 }, fill), fill.shade(-180));
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        const look::ThemePalette colors = look::theme_colors(theme);
        const bool is_dark = theme == look::theme_dark;
        EXPECT_EQ(look::page_label_color(colors.slider_back, colors.accent),
            colors.accent.shade(is_dark ? 180 : -180))
            << theme;
    }
}

TEST(PageSlider, TakesItsRangeFromTheBook)
{
    ovlib::SliderModel slider;
    slider.min = 3;
    look::set_page_range(slider, 1000, 41);
    EXPECT_EQ(slider.min, 0);
    EXPECT_EQ(slider.max, 999);
    EXPECT_EQ(slider.value, 41);
    look::set_page_range(slider, 10, 41);
    EXPECT_EQ(slider.value, 9) << "a position past the end";
    look::set_page_range(slider, 10, std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(slider.value, 9);
}

TEST(PageSlider, OfAnEmptyBookOrOfOnePageHasTheEmptyRange)
{
    for (const std::size_t pages : { std::size_t{ 0 }, std::size_t{ 1 } }) {
        ovlib::SliderModel slider;
        slider.max = slider.value = 8;
        slider.track = look::page_slider_track(ovlib::slider_track({ 355, 30 }));
        look::set_page_range(slider, pages, 5);
        EXPECT_EQ(slider.max, 0);
        EXPECT_EQ(slider.value, 0);
        EXPECT_EQ(ovlib::value_to_x(slider), slider.track.left);
        EXPECT_EQ(look::page_label(slider.value), L"1");
    }
}

TEST(PageMoveTest, TrackingAndPagingTurnToTheValue)
{
    for (const int code : { thumb_track, page_up, page_down })
        EXPECT_EQ(page_move(code, 7, 3, 10), PageMove::turn) << code;
}

TEST(PageMoveTest, NoOtherCodeDoes)
{
    for (int code = 0; code <= 20; ++code) {
        const bool moves = code == thumb_track || code == page_up || code == page_down;
        EXPECT_EQ(page_move(code, 7, 3, 10) != PageMove::none, moves) << code;
    }
    EXPECT_EQ(page_move(thumb_position, 7, 3, 10), PageMove::none) << "tracking has moved the page already";
}

TEST(PageMoveTest, ToTheCurrentPageIsNothing)
{
    EXPECT_EQ(page_move(thumb_track, 3, 3, 10), PageMove::none);
}

TEST(PageMoveTest, PastTheEndShowsTheCurrentPageAgain)
{
    EXPECT_EQ(page_move(thumb_track, 9, 3, 10), PageMove::turn);
    EXPECT_EQ(page_move(thumb_track, 10, 3, 10), PageMove::show_again);
    EXPECT_EQ(page_move(thumb_track, 0, 3, 0), PageMove::show_again);
    EXPECT_EQ(page_move(thumb_track, -1, 3, 10), PageMove::show_again);
}

} // namespace
