// The header of a list: its colours in every theme, its lines and the positions of its titles.
#include "look/list_header.hpp"
#include <gtest/gtest.h>

namespace {

using look::ThemePalette;
using ovlib::FilledRect;
using platform::Rect;

constexpr int first_theme = look::theme_standard;
constexpr int last_theme = look::theme_blue;

TEST(ListHeader, IsFilledWithThePanelAndLinedInItsShade)
{
    for (int theme = first_theme; theme <= last_theme; ++theme) {
        const ThemePalette colors = look::theme_colors(theme);
        const auto fills = look::header_fills(colors, { 200, 24 }, {});
        ASSERT_EQ(fills.size(), 2u) << theme;
        EXPECT_EQ(fills[0], (FilledRect{ { 0, 0, 200, 24 }, colors.panel_back })) << theme;
        const int step = colors.panel_back.luminance() < 128 ? 60 : -60;
        EXPECT_EQ(fills[1], (FilledRect{ { 0, 23, 200, 24 }, colors.panel_back.shade(step) })) << theme;
        EXPECT_EQ(look::header_text_color(colors), colors.list_text) << theme;
    }
}

TEST(ListHeader, TheLineIsLighterOnlyInTheDarkTheme)
{
    for (int theme = first_theme; theme <= last_theme; ++theme) {
        const auto fills = look::header_fills(look::theme_colors(theme), { 9, 9 }, {});
        EXPECT_EQ(fills[1].color.luminance() > fills[0].color.luminance(), theme == look::theme_dark)
            << theme;
    }
}

TEST(ListHeader, EveryCellEndsWithALine)
{
    const ThemePalette colors = look::theme_colors(look::theme_standard);
    const Rect cells[] = { { 0, 0, 80, 24 }, { 80, 0, 140, 24 } };
    const auto fills = look::header_fills(colors, { 200, 24 }, cells);
    ASSERT_EQ(fills.size(), 4u);
    EXPECT_EQ(fills[1], (FilledRect{ { 79, 3, 80, 21 }, colors.panel_line }));
    EXPECT_EQ(fills[2], (FilledRect{ { 139, 3, 140, 21 }, colors.panel_line }));
}

TEST(ListHeader, ATitleDoesNotTouchTheLines)
{
    EXPECT_EQ(look::header_title_rect({ 80, 0, 140, 24 }), (Rect{ 86, 0, 133, 23 }));
}

TEST(ListHeader, ATooNarrowCellHasNoRoomForItsTitle)
{
    for (const int width : { 0, 1, 6, 13 })
        EXPECT_EQ(look::header_title_rect({ 10, 0, 10 + width, 24 }).width(), 0) << width;
    EXPECT_EQ(look::header_title_rect({ 10, 0, 10 + 14, 24 }).width(), 1);
}

} // namespace
