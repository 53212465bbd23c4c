// Colours and fonts of a page's boxes.
#include "look/box_look.hpp"
#include "look/shared_fonts.hpp"
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

using look::BoxUse;
using ovlib::Color;

book::Page page_with(std::uint32_t text, std::uint32_t back)
{
    book::Page page;
    page.text_color[1] = text;
    page.back_color[1] = back;
    return page;
}

TEST(BoxColors, OfAWritableBoxAreThePagesOwn)
{
    const auto colors = look::box_colors(page_with(0x112233, 0x445566), 1, BoxUse::writable);
    EXPECT_EQ(colors, (look::BoxColors{ Color{ 0x112233 }, Color{ 0x445566 } }));
}

TEST(BoxColors, IgnoreTheByteThatSelectsAPaletteEntry)
{
    const auto colors = look::box_colors(page_with(0x01112233, 0xFF445566), 1, BoxUse::writable);
    EXPECT_EQ(colors, (look::BoxColors{ Color{ 0x112233 }, Color{ 0x445566 } }));
}

TEST(BoxColors, OfAReadOnlyBoxDarkenALightBackgroundForTheText)
{
    const auto colors = look::box_colors(page_with(0x0000FF, 0xFFFFFF), 1, BoxUse::read_only);
    EXPECT_EQ(colors, (look::BoxColors{ ovlib::rgb(74, 74, 74), Color{ 0xFFFFFF } }));
}

TEST(BoxColors, OfAReadOnlyBoxLightenADarkBackgroundForTheText)
{
    const auto colors = look::box_colors(page_with(0xFFFFFF, 0x141414), 1, BoxUse::read_only);
    EXPECT_EQ(colors, (look::BoxColors{ ovlib::rgb(186, 186, 186), Color{ 0x141414 } }));
}

TEST(BoxColors, AreNotDimmedWhileTheyAreChosen)
{
    const auto colors = look::box_colors(page_with(0x112233, 0x445566), 1, BoxUse::read_only_with_palette);
    EXPECT_EQ(colors.text, Color{ 0x112233 });
}

TEST(DimmedText, ChangesDirectionAtALuminanceOf128)
{
    const auto gray = [](std::uint32_t v) { return ovlib::rgb(v, v, v); };
    EXPECT_EQ(look::dimmed_text(gray(127)), gray((127 * 75 + 46155) >> 8));
    EXPECT_EQ(look::dimmed_text(gray(128)), gray((128 * 75) >> 8));
    EXPECT_EQ(look::dimmed_text(ovlib::rgb(0, 0, 255)), ovlib::rgb(180, 180, 255)); // blue is dark
}

TEST(BoxFont, OfAnAbsurdSizeIsRefused)
{
    book::LogFont font;
    const std::int32_t least = std::numeric_limits<std::int32_t>::min();
    for (const std::int32_t height : { 0, -13, 13, 2000, -2000 }) {
        font.height = height;
        EXPECT_TRUE(look::is_usable_font(font)) << height;
    }
    for (const std::int32_t height :
        { 2001, -2001, -30000, least, std::numeric_limits<std::int32_t>::max() }) {
        font.height = height;
        EXPECT_FALSE(look::is_usable_font(font)) << height;
    }
    font.height = -13;
    font.width = least;
    EXPECT_FALSE(look::is_usable_font(font));
}

TEST(BoxFont, IsAlwaysZeroTerminated)
{
    book::LogFont font;
    font.face_name.fill(u'字');
    const book::LogFont ended = look::with_ended_name(font);
    EXPECT_EQ(std::u16string(ended.face_name.data()).size(), 31u);
    EXPECT_EQ(font.face_name.back(), u'字');
}

TEST(SharedFonts, FollowTheirTable)
{
    using look::SharedFont;
    struct Row {
        SharedFont font;
        const char16_t* face;
        std::int32_t height; // on a screen of 72 pixels to the inch: minus its points
        std::int32_t weight;
    };
    const Row rows[] = {
        { SharedFont::arial_8, u"Arial", -8, 400 },
        { SharedFont::arial_9, u"Arial", -9, 400 },
        { SharedFont::jp_7_bold, u"メイリオ", -7, 700 },
        { SharedFont::jp_8, u"メイリオ", -8, 400 },
        { SharedFont::jp_8_bold, u"メイリオ", -8, 700 },
        { SharedFont::ui_8, u"Meiryo UI", -8, 400 },
        { SharedFont::ui_8_bold, u"Meiryo UI", -8, 700 },
        { SharedFont::jp_9, u"メイリオ", -9, 400 },
        { SharedFont::jp_9_bold, u"メイリオ", -9, 700 },
        { SharedFont::ui_9, u"Meiryo UI", -9, 400 },
        { SharedFont::ui_9_bold, u"Meiryo UI", -9, 700 },
        { SharedFont::jp_10, u"メイリオ", -10, 400 },
        { SharedFont::jp_10_bold, u"メイリオ", -10, 700 },
        { SharedFont::ui_10, u"Meiryo UI", -10, 400 },
        { SharedFont::ui_10_bold, u"Meiryo UI", -10, 700 },
        { SharedFont::ui_11_bold, u"Meiryo UI", -11, 700 },
        { SharedFont::ui_12_bold, u"Meiryo UI", -12, 700 },
        { SharedFont::ui_14_bold, u"Meiryo UI", -14, 700 },
    };
    std::size_t place = 0;
    for (const Row& row : rows) {
        const book::LogFont record = look::shared_font_record(row.font, 72);
        EXPECT_EQ(static_cast<std::size_t>(row.font), place++);
        EXPECT_EQ(std::u16string(record.face_name.data()), row.face);
        EXPECT_EQ(record.height, row.height);
        EXPECT_EQ(record.weight, row.weight);
        EXPECT_EQ(record.char_set, 1);
        EXPECT_EQ(record.italic + record.underline + record.quality, 0);
    }
    EXPECT_EQ(place, look::shared_font_count);
    EXPECT_EQ(look::shared_font_record(SharedFont::arial_9, 96).height, -12);
    EXPECT_EQ(look::shared_font_record(SharedFont::arial_8, 96).height, -11); // 10.67
    EXPECT_EQ(look::shared_font_record(SharedFont::ui_14_bold, 288).height, -56);
}

} // namespace
