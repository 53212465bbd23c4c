// Menus as data: their rows, the names in them, and the positions of pictures.
#include "controls/menu_rows.hpp"
#include <gtest/gtest.h>

namespace {

using ovlib::MenuKind;
using ovlib::MenuMark;
using ovlib::MenuRow;
using ovlib::MenuRows;
using platform::Rect;

TEST(MenuRows, AnItemHasAnIdATextAndItsOwnPicture)
{
    const MenuRow row = ovlib::menu_item(1002, L"新規作成");
    EXPECT_EQ(row.kind, MenuKind::item);
    EXPECT_EQ(row.id, 1002);
    EXPECT_EQ(row.text, L"新規作成");
    EXPECT_EQ(row.picture, ovlib::MenuPicture::by_id);
    EXPECT_TRUE(row.enabled);
    EXPECT_EQ(row.mark, MenuMark::none);
    EXPECT_FALSE(row.is_default);
    EXPECT_FALSE(ovlib::menu_item(1004, L"保存", false).enabled);
}

TEST(MenuRows, ASeparatorHasNothing)
{
    const MenuRow row = ovlib::menu_separator();
    EXPECT_EQ(row.kind, MenuKind::separator);
    EXPECT_EQ(row.id, 0);
    EXPECT_EQ(row.text, L"");
}

TEST(MenuRows, ASubmenuHasRowsAndMayHaveAnId)
{
    const MenuRow row = ovlib::submenu(
        L"ファイルの削除", { ovlib::menu_item(2526, L"このファイル"), ovlib::menu_separator() }, false, 2525);
    EXPECT_EQ(row.kind, MenuKind::submenu);
    EXPECT_EQ(row.text, L"ファイルの削除");
    EXPECT_FALSE(row.enabled);
    EXPECT_EQ(row.id, 2525);
    EXPECT_EQ(row.rows, (MenuRows{ ovlib::menu_item(2526, L"このファイル"), ovlib::menu_separator() }));
    EXPECT_EQ(ovlib::submenu(L"x", {}).id, 0);
    EXPECT_TRUE(ovlib::submenu(L"x", {}).enabled);
}

TEST(MenuRows, OfAGroupTheChosenOneIsMarked)
{
    const MenuRows rows = ovlib::radio_items(5000, { L"a", L"b", L"c" }, 5001);
    ASSERT_EQ(rows.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(rows[static_cast<std::size_t>(i)].id, 5000 + i);
        EXPECT_EQ(rows[static_cast<std::size_t>(i)].mark, i == 1 ? MenuMark::radio : MenuMark::none) << i;
    }
    for (const MenuRow& row : ovlib::radio_items(5000, { L"a", L"b" }, 5002))
        EXPECT_EQ(row.mark, MenuMark::none) << "no item has that id";
}

TEST(MenuText, ShowsANameAsItIs)
{
    EXPECT_EQ(ovlib::menu_text(L"山&川.png"), L"山&&川.png");
    EXPECT_EQ(ovlib::menu_text(L"&&"), L"&&&&");
    EXPECT_EQ(ovlib::menu_text(L"a\tb\bc\nd"), L"a b c d");
    EXPECT_EQ(ovlib::menu_text(L""), L"");
    const std::wstring pair{ wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } };
    EXPECT_EQ(ovlib::menu_text(pair), pair);
}

TEST(MenuPicture, IsLeftAlignedAndCentredInItsRoom)
{
    EXPECT_EQ(ovlib::menu_picture_rect({ 0, 0, 16, 16 }), (Rect{ 0, 0, 16, 16 }));
    EXPECT_EQ(ovlib::menu_picture_rect({ 4, 100, 40, 122 }), (Rect{ 4, 103, 20, 119 }));
    EXPECT_EQ(ovlib::menu_picture_rect({ 4, 100, 40, 123 }), (Rect{ 4, 103, 20, 119 }));
    EXPECT_EQ(ovlib::menu_picture_rect({ 4, 10, 8, 22 }), (Rect{ 4, 8, 20, 24 }))
        << "a room lower than the picture";
}

TEST(MenuPicture, OfAGreyItemIsDimmed)
{
    EXPECT_EQ(ovlib::menu_picture_opacity(false), 255);
    EXPECT_LT(ovlib::menu_picture_opacity(true), 128);
    EXPECT_GT(ovlib::menu_picture_opacity(true), 0);
}

} // namespace
