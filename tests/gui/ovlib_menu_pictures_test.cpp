// Pictures beside menu items: drawn by the owner, with their alpha, dimmed for grey items.
#include "controls/menu_rows.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/menu.hpp"
#include "ovlib/gui/menu_pictures.hpp"
#include "tests/support/gui_menu.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_window.hpp"
#include <array>
#include <cstring>
#include <gtest/gtest.h>

namespace {

using gui::MenuDriver;
using gui::ShownMenu;
using ovlib::Color;
using ovlib::MenuPictures;
using ovlib::rgb;
using ovlib::WndMessage;

constexpr int side = 16;
constexpr Color red = rgb(200, 10, 20);

// The left half is visible and the right half is transparent; the upper left quarter is half transparent.
ovlib::GDI::Bitmap half_red()
{
    BITMAPINFO info = ovlib::bitmap_info(side, side);
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    ovlib::GDI::Bitmap bitmap{ CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0) };
    auto* units = static_cast<std::uint32_t*>(bits);
    constexpr std::uint32_t covering = 0xFFC80A14;
    constexpr std::uint32_t half = 0x8064050A; // premultiplied
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side / 2; ++x)
            units[y * side + x] = y >= side / 2 ? half : covering; // rows are stored bottom-up
    }
    return bitmap;
}

ovlib::GDI::Bitmap plain_green(int bits_per_pixel)
{
    BITMAPINFO info = ovlib::bitmap_info(side, side);
    info.bmiHeader.biBitCount = static_cast<WORD>(bits_per_pixel);
    void* bits = nullptr;
    ovlib::GDI::Bitmap bitmap{ CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0) };
    std::array<std::uint8_t, side * 3> row{};
    for (std::size_t i = 1; i < row.size(); i += 3)
        row[i] = 255;
    for (int y = 0; y < side; ++y)
        std::memcpy(static_cast<std::uint8_t*>(bits) + y * side * 3, row.data(), row.size());
    return bitmap;
}

constexpr int known = 2531;
constexpr int unknown = 2544;

class MenuPicture : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(target.create(40, 30));
        gui::clear(target, back);
    }
    bool draw(int id, UINT state, RECT room)
    {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_MENU;
        item.itemID = static_cast<UINT>(id);
        item.itemState = state;
        item.hDC = target.dc().handle();
        item.rcItem = room;
        WndMessage message{ nullptr, WM_DRAWITEM, 0, reinterpret_cast<std::int64_t>(&item) };
        const bool handled = pictures.on_message(message);
        EXPECT_EQ(message.result, handled ? TRUE : FALSE);
        return handled;
    }

    static constexpr Color back = rgb(100, 200, 240);
    ovlib::BackBuffer target;
    ovlib::GDI::Bitmap picture = half_red();
    MenuPictures pictures{ [this](int id) { return id == known ? picture.handle() : nullptr; } };
};

void expect_near(Color actual, Color expected)
{
    EXPECT_NEAR(actual.red(), expected.red(), 1);
    EXPECT_NEAR(actual.green(), expected.green(), 1);
    EXPECT_NEAR(actual.blue(), expected.blue(), 1);
}

Color mixed(Color over, Color under, int opacity)
{
    const auto channel = [&](int a, int b) {
        return static_cast<std::uint32_t>((a * opacity + b * (255 - opacity) + 127) / 255);
    };
    return rgb(channel(over.red(), under.red()), channel(over.green(), under.green()),
        channel(over.blue(), under.blue()));
}

TEST_F(MenuPicture, IsDrawnWithItsAlphaInTheMiddleOfItsSpace)
{
    ASSERT_TRUE(draw(known, 0, { 3, 2, 39, 28 }));
    constexpr int left = 3;
    constexpr int top = 7;
    EXPECT_EQ(gui::pixel(target, left, top + 12), red);
    expect_near(gui::pixel(target, left + 7, top), mixed(red, back, 128));
    EXPECT_EQ(gui::pixel(target, left + 8, top + 12), back) << "nothing covers here";
    EXPECT_EQ(gui::pixel(target, left - 1, top + 12), back);
    EXPECT_EQ(gui::pixel(target, left, top - 1), back);
    EXPECT_EQ(gui::pixel(target, left, top + side), back);
    EXPECT_EQ(gui::count_pixels(target, red), side * side / 4);
}

TEST_F(MenuPicture, OfAHighlightedItemIsTheSame)
{
    ASSERT_TRUE(draw(known, ODS_SELECTED, { 0, 0, side, side }));
    EXPECT_EQ(gui::count_pixels(target, red), side * side / 4);
}

TEST_F(MenuPicture, OfAGreyItemIsDimmed)
{
    for (const UINT state : { UINT{ ODS_GRAYED }, UINT{ ODS_DISABLED }, UINT{ ODS_GRAYED | ODS_SELECTED } }) {
        gui::clear(target, back);
        ASSERT_TRUE(draw(known, state, { 0, 0, side, side }));
        expect_near(gui::pixel(target, 2, 12), mixed(red, back, ovlib::menu_picture_opacity(true)));
        EXPECT_EQ(gui::pixel(target, 12, 12), back);
    }
}

TEST_F(MenuPicture, OfAnUnknownIdIsNotDrawn)
{
    EXPECT_TRUE(draw(unknown, 0, { 0, 0, side, side })) << "it was asked for all the same";
    EXPECT_EQ(gui::count_pixels(target, back), target.width * target.height);
    EXPECT_EQ(pictures.item_bitmap(unknown), nullptr);
    EXPECT_EQ(MenuPictures(nullptr).item_bitmap(known), nullptr);
}

TEST_F(MenuPicture, WithoutAlphaCoversItsSquare)
{
    picture = plain_green(24);
    ASSERT_TRUE(draw(known, 0, { 0, 0, side, side }));
    EXPECT_EQ(gui::count_pixels(target, rgb(0, 255, 0)), side * side);
}

TEST_F(MenuPicture, ThatIsNoBitmapIsNotDrawn)
{
    const HBITMAP gone = picture.handle();
    const MenuPictures stale{ [&](int) { return gone; } };
    picture.reset();
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    item.hDC = target.dc().handle();
    item.rcItem = { 0, 0, side, side };
    WndMessage message{ nullptr, WM_DRAWITEM, 0, reinterpret_cast<std::int64_t>(&item) };
    EXPECT_TRUE(stale.on_message(message));
    EXPECT_EQ(gui::count_pixels(target, back), target.width * target.height);
}

TEST_F(MenuPicture, RequestsSixteenBySixteen)
{
    MEASUREITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    item.itemID = known;
    WndMessage message{ nullptr, WM_MEASUREITEM, 0, reinterpret_cast<std::int64_t>(&item) };
    EXPECT_TRUE(pictures.on_message(message));
    EXPECT_EQ(message.result, TRUE);
    EXPECT_EQ(item.itemWidth, 16u);
    EXPECT_EQ(item.itemHeight, 16u);
}

// Only some systems set the item type for a control. The id alone shows that the sender is no menu.
TEST_F(MenuPicture, OfAControlIsIgnored)
{
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_MENU;
    WndMessage of_status_bar{ nullptr, WM_DRAWITEM, 3000, reinterpret_cast<std::int64_t>(&item) };
    EXPECT_FALSE(pictures.on_message(of_status_bar));
    item.CtlType = ODT_BUTTON;
    WndMessage of_button{ nullptr, WM_DRAWITEM, 0, reinterpret_cast<std::int64_t>(&item) };
    EXPECT_FALSE(pictures.on_message(of_button));
    MEASUREITEMSTRUCT size{};
    size.CtlType = ODT_COMBOBOX;
    WndMessage of_combo{ nullptr, WM_MEASUREITEM, 0, reinterpret_cast<std::int64_t>(&size) };
    EXPECT_FALSE(pictures.on_message(of_combo));
    WndMessage other{ nullptr, WM_COMMAND, 0, 0 };
    EXPECT_FALSE(pictures.on_message(other));
}

TEST_F(MenuPicture, CostsNoHandles)
{
    constexpr int many = 70'000;
    for (int i = 0; i < many; ++i)
        ASSERT_TRUE(draw(known, 0, { 0, 0, side, side }));
    gui::clear(target, back);
    ASSERT_TRUE(draw(known, 0, { 0, 0, side, side }));
    EXPECT_EQ(gui::count_pixels(target, red), side * side / 4);
    EXPECT_TRUE(ovlib::GDI::Brush(ovlib::GDI::solid_brush(red)));
}

// The bitmaps of a menu's items, read from the menu itself.
class MenuBitmap : public MenuPicture {
protected:
    static HBITMAP bitmap_of(HMENU menu, UINT position)
    {
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_BITMAP;
        EXPECT_TRUE(GetMenuItemInfoW(menu, position, TRUE, &info));
        return info.hbmpItem;
    }
    // Checks an item with a picture, and one with the same picture in a submenu.
    void expect_bitmaps(ovlib::MenuPainter painter, HBITMAP expected)
    {
        const MenuPictures painted{ [this](int id) { return id == known ? picture.handle() : nullptr; },
            painter };
        const ovlib::MenuRows rows{ ovlib::menu_item(known, L"絵"), ovlib::menu_item(unknown, L"絵なし"),
            ovlib::submenu(L"中", { ovlib::menu_item(known, L"絵") }, true, known) };
        ovlib::Menu menu;
        ASSERT_TRUE(menu.add_rows(rows, &painted));
        EXPECT_EQ(bitmap_of(menu.handle(), 0), expected);
        EXPECT_EQ(bitmap_of(menu.handle(), 1), nullptr);
        EXPECT_EQ(bitmap_of(menu.handle(), 2), expected);
        EXPECT_EQ(bitmap_of(GetSubMenu(menu.handle(), 2), 0), expected);
    }
};

TEST_F(MenuBitmap, IsThePictureItselfIfTheSystemDraws)
{
    expect_bitmaps(ovlib::MenuPainter::system, picture.handle());
    // The menu has been destroyed, but not the picture that it showed.
    ASSERT_TRUE(draw(known, 0, { 0, 0, side, side }));
    EXPECT_EQ(gui::count_pixels(target, red), side * side / 4);
}

TEST_F(MenuBitmap, RequestsTheOwnerIfTheSystemWouldDrawOnBlack)
{
    expect_bitmaps(ovlib::MenuPainter::owner, HBMMENU_CALLBACK);
}

TEST_F(MenuBitmap, RequestsTheOwnerForAPictureOfAnotherFormat)
{
    picture = plain_green(24);
    expect_bitmaps(ovlib::MenuPainter::system, HBMMENU_CALLBACK);
    BITMAPINFO info = ovlib::bitmap_info(side * 2, side);
    info.bmiHeader.biBitCount = 32;
    picture = ovlib::GDI::Bitmap{ CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0) };
    expect_bitmaps(ovlib::MenuPainter::system, HBMMENU_CALLBACK);
}

// The real menu on the screen.
class PictureMenu : public MenuPicture {
protected:
    void SetUp() override
    {
        MenuPicture::SetUp();
        ASSERT_TRUE(top.create(L"owner"));
        top.answer = [this](WndMessage& message) { return pictures.on_message(message); };
        top.show(true);
        SetForegroundWindow(top.hwnd());
        ASSERT_TRUE(gui::pump_until([&] { return GetForegroundWindow() == top.hwnd(); }));
        SetCursorPos(300, 200);
    }
    void TearDown() override { top.destroy(); }

    static int count_on_screen(const RECT& rect, Color color)
    {
        ovlib::BackBuffer copy;
        const SIZE size{ rect.right - rect.left, rect.bottom - rect.top };
        if (!copy.create(size.cx, size.cy))
            return -1;
        HDC const screen = GetDC(nullptr);
        BitBlt(copy.dc().handle(), 0, 0, size.cx, size.cy, screen, rect.left, rect.top, SRCCOPY);
        ReleaseDC(nullptr, screen);
        return gui::count_pixels(copy, color);
    }
    static bool shows(const ShownMenu& menu, int item, Color color)
    {
        constexpr int covered = side * side / 4;
        return gui::poll_until([&] { return count_on_screen(menu.item_rect(item), color) == covered; });
    }

    gui::TopWnd top;
};

enum : int { with_picture, greyed, without, switched_off, inner_menu };

ovlib::MenuRows rows_with_pictures()
{
    ovlib::MenuRows rows{ ovlib::menu_item(known, L"ファイルを複製"), ovlib::menu_item(known, L"灰色", false),
        ovlib::menu_item(unknown, L"絵なし"), ovlib::menu_item(known, L"絵を出さない"),
        ovlib::submenu(L"ファイルの削除", { ovlib::menu_item(known, L"このファイル") }, true, known) };
    rows[switched_off].picture = ovlib::MenuPicture::none;
    return rows;
}

TEST_F(PictureMenu, ShowsPicturesNormalGreyAndHighlighted)
{
    ovlib::Menu menu;
    ASSERT_TRUE(menu.add_rows(rows_with_pictures(), &pictures));
    const Color dimmed = mixed(red, Color{ GetSysColor(COLOR_MENU) }, ovlib::menu_picture_opacity(true));
    MenuDriver driver([&](const ShownMenu& shown) {
        EXPECT_TRUE(shows(shown, with_picture, red));
        EXPECT_TRUE(shows(shown, inner_menu, red));
        EXPECT_TRUE(shows(shown, greyed, dimmed));
        EXPECT_EQ(count_on_screen(shown.item_rect(without), red), 0);
        EXPECT_EQ(count_on_screen(shown.item_rect(switched_off), red), 0);
        shown.step_to(with_picture);
        EXPECT_TRUE(shows(shown, with_picture, red)) << "highlighted";
        shown.step_to(inner_menu);
        gui::press_key(VK_RIGHT);
        ASSERT_TRUE(shown.inner().wait());
        EXPECT_TRUE(shows(shown.inner(), 0, red));
    });
    menu.show(top, 0);
    EXPECT_TRUE(driver.finish());
}

} // namespace
