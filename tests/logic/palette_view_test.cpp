// The texts, layout and subject of the window for colours, fonts and the theme.
#include "look/palette_view.hpp"
#include "look/theme.hpp"
#include <gtest/gtest.h>
#include <vector>

namespace {

using platform::Rect;

std::vector<Rect> controls(const look::PaletteLayout& at)
{
    return { at.box_combo, at.font_button, at.text_button, at.back_button, at.theme_button, at.apply_check,
        at.close_button };
}

bool overlap(const Rect& a, const Rect& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST(PaletteView, TextsAreFixed)
{
    EXPECT_STREQ(look::palette_title, L"色 / フォントの設定");
    EXPECT_STREQ(look::palette_label, L"適用する項目");
    EXPECT_STREQ(look::theme_question, L"全てのページにテーマが適用されます．\r\n実行しますか？");
    EXPECT_STREQ(look::box_names[0], L"テキストボックス1");
    EXPECT_STREQ(look::box_names[1], L"テキストボックス2");
    EXPECT_STREQ(look::box_names[2], L"テキストボックス3");
}

TEST(PaletteView, ControlsLieInTheClientAreaAndDoNotOverlap)
{
    const std::vector<Rect> all = controls(look::palette_layout());
    const Rect client{ 0, 0, 244, 169 };
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_TRUE(all[i].left >= 0 && all[i].right <= client.right && all[i].top >= 0
            && all[i].bottom <= client.bottom)
            << i;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(overlap(all[i], all[j])) << i << ' ' << j;
    }
}

TEST(PaletteView, TheButtonsOfABoxAre60By22With10Between)
{
    const look::PaletteLayout at = look::palette_layout();
    EXPECT_EQ(at.font_button, (Rect{ 20, 56, 80, 78 }));
    EXPECT_EQ(at.text_button, (Rect{ 90, 56, 150, 78 }));
    EXPECT_EQ(at.back_button, (Rect{ 160, 56, 220, 78 }));
}

TEST(PaletteView, TheFrameFollowsTheRealComboBox)
{
    const look::PaletteGroup group = look::palette_group({ 84, 22, 208, 46 });
    EXPECT_EQ(group.frame, (Rect{ 8, 16, 238, 104 }));
    EXPECT_EQ(group.label, (platform::Point{ 14, 26 }));
    EXPECT_EQ(look::palette_group({ 84, 22, 208, 42 }).frame.bottom, 100);
}

TEST(PaletteView, TheFrameHoldsTheButtonsOfABox)
{
    const look::PaletteLayout at = look::palette_layout();
    const Rect frame = look::palette_group(at.box_combo).frame;
    for (const Rect& button : { at.font_button, at.text_button, at.back_button }) {
        EXPECT_GT(button.left, frame.left);
        EXPECT_LT(button.right, frame.right);
        EXPECT_LT(button.bottom, frame.bottom);
    }
    EXPECT_GT(at.theme_button.top, frame.bottom);
}

TEST(PaletteView, ALabelTooWideForItsPlaceIsDrawnSmaller)
{
    EXPECT_EQ(look::palette_label_font(68), look::SharedFont::ui_9);
    EXPECT_EQ(look::palette_label_font(69), look::SharedFont::ui_8);
}

TEST(PaletteView, EachBoxAsksForItselfAndAnyOtherSenderForTheFirst)
{
    EXPECT_EQ(look::palette_box(1045), 0u);
    EXPECT_EQ(look::palette_box(1046), 1u);
    EXPECT_EQ(look::palette_box(1047), 2u);
    for (const int sender : { 0, -1, 1044, 1048, 2518 })
        EXPECT_EQ(look::palette_box(sender), 0u) << sender;
}

TEST(PaletteView, TheThemeMenuNamesTheSixThemesAndMarksOne)
{
    const ovlib::MenuRows rows = look::theme_menu(6002);
    const std::vector<std::wstring> names{ L"スタンダード", L"セピア", L"ダーク", L"パステル ピンク",
        L"パステル グリーン", L"パステル ブルー" };
    ASSERT_EQ(rows.size(), names.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].id, 6000 + static_cast<int>(i));
        EXPECT_EQ(rows[i].text, names[i]);
        EXPECT_EQ(rows[i].mark, i == 2 ? ovlib::MenuMark::radio : ovlib::MenuMark::none);
        EXPECT_TRUE(rows[i].enabled);
    }
}

TEST(PaletteView, AColourIsThatOfTheBoxAndItsUse)
{
    book::Page page;
    look::color_of(page, look::BoxColor::text, 1) = 5;
    look::color_of(page, look::BoxColor::back, 2) = 6;
    EXPECT_EQ(page.text_color, (std::array<std::uint32_t, 3>{ 0, 5, 0 }));
    EXPECT_EQ(page.back_color, (std::array<std::uint32_t, 3>{ 0, 0, 6 }));
}

TEST(PaletteSubject, ChangesWithThePageAndWithTheBook)
{
    book::Book book;
    EXPECT_EQ(look::palette_subject(book).index, book::npos);
    book.pages.resize(3);
    const look::PaletteSubject first = look::palette_subject(book);
    EXPECT_EQ(look::palette_subject(book), first);
    book.header.position = 1;
    EXPECT_NE(look::palette_subject(book), first);
    book.header.position = 0;
    book.remove_page_at(2, {});
    EXPECT_NE(look::palette_subject(book), first);
}

} // namespace
