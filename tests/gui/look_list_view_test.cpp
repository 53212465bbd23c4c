// The program's list and its header, in the colours of every theme.
#include "look/list_header.hpp"
#include "look/theme.hpp"
#include "look/wnd/my_list_view.hpp"
#include "look/wnd/themed.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_screen_copies.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>

namespace {

using look::MyListView;
using ovlib::Color;

constexpr int first_width = 80;
constexpr int last_theme = look::theme_blue;

class ThemedList : public testing::Test {
protected:
    void SetUp() override
    {
        look::load_theme(look::theme_standard);
        ASSERT_TRUE(top.create(L"owner"));
        ASSERT_TRUE(list.create(L""));
        list.set_rect({ 10, 10, 310, 210 }, false);
        list.add_column(L"語句", first_width);
        list.add_column(L"場所 & 行", 100);
        list.add_row(L"語");
        top.show(true);
        SetForegroundWindow(top.hwnd());
        ASSERT_TRUE(gui::point_at({ 700, 600 }));
        gui::pump();
    }
    void TearDown() override
    {
        top.destroy();
        look::load_theme(look::theme_standard);
    }

    HWND header() const { return reinterpret_cast<HWND>(SendMessageW(list.hwnd(), LVM_GETHEADER, 0, 0)); }
    RECT header_rect() const
    {
        RECT rect{};
        GetWindowRect(header(), &rect);
        return rect;
    }
    void paint_header() const { RedrawWindow(header(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }
    // Copies the header from the screen.
    void look_at_header(ovlib::BackBuffer& picture) const
    {
        const RECT rect = header_rect();
        ASSERT_TRUE(picture.create(rect.right - rect.left, rect.bottom - rect.top));
        HDC const dc = GetDC(header());
        BitBlt(picture.dc().handle(), 0, 0, picture.width, picture.height, dc, 0, 0, SRCCOPY);
        ReleaseDC(header(), dc);
    }

    gui::TopWnd top;
    MyListView list{ &top, 7, LVS_SHOWSELALWAYS };
};

TEST_F(ThemedList, HasTheColoursOfTheThemeFromTheStart)
{
    EXPECT_EQ(SendMessageW(list.hwnd(), LVM_GETBKCOLOR, 0, 0), LRESULT{ look::palette().box_back.value });
    EXPECT_EQ(SendMessageW(list.hwnd(), LVM_GETTEXTCOLOR, 0, 0), LRESULT{ look::palette().list_text.value });
}

TEST_F(ThemedList, HasTheColoursOfEveryTheme)
{
    for (int theme = look::theme_standard; theme <= last_theme; ++theme) {
        look::load_theme(theme);
        list.apply_theme();
        const auto answer = [&](UINT message) { return SendMessageW(list.hwnd(), message, 0, 0); };
        EXPECT_EQ(answer(LVM_GETBKCOLOR), LRESULT{ look::palette().box_back.value }) << theme;
        EXPECT_EQ(answer(LVM_GETTEXTBKCOLOR), LRESULT{ look::palette().box_back.value }) << theme;
        EXPECT_EQ(answer(LVM_GETTEXTCOLOR), LRESULT{ look::palette().list_text.value }) << theme;
    }
}

TEST_F(ThemedList, ItsHeaderHasThePanelLinesAndTitlesOfEveryTheme)
{
    for (int theme = look::theme_standard; theme <= last_theme; ++theme) {
        look::load_theme(theme);
        list.apply_theme();
        gui::pump();
        ovlib::BackBuffer picture;
        look_at_header(picture);
        const look::ThemePalette& colors = look::palette();
        const int middle = picture.height / 2;
        EXPECT_EQ(gui::pixel(picture, 2, 2), colors.panel_back) << theme;
        EXPECT_EQ(gui::pixel(picture, first_width - 1, middle), colors.panel_line) << theme;
        EXPECT_EQ(gui::pixel(picture, first_width, middle), colors.panel_back) << theme;
        EXPECT_EQ(gui::pixel(picture, 179, middle), colors.panel_line) << theme;
        EXPECT_EQ(gui::pixel(picture, 250, middle), colors.panel_back) << theme << ": right of all columns";
        EXPECT_EQ(gui::pixel(picture, 250, picture.height - 1), colors.panel_line) << theme;
        EXPECT_GT(gui::count_pixels(picture, colors.list_text), 0) << theme << ": titles";
    }
}

// The number of pixel columns that contain anything but the background, above the line at the bottom.
int drawn_columns(const ovlib::BackBuffer& picture, int left, int right)
{
    int count = 0;
    for (int x = left; x < right; ++x) {
        bool drawn = false;
        for (int y = 0; y < picture.height - 1; ++y)
            drawn = drawn || gui::pixel(picture, x, y) != look::palette().panel_back;
        count += drawn ? 1 : 0;
    }
    return count;
}

TEST_F(ThemedList, TitlesAreInTheirCellsAndTruncatedAtTheirEnds)
{
    ovlib::BackBuffer whole;
    look_at_header(whole);
    constexpr int margin = 6;
    EXPECT_EQ(drawn_columns(whole, 0, margin), 0);
    EXPECT_GT(drawn_columns(whole, margin, first_width - 1), 12) << "語句";
    EXPECT_EQ(drawn_columns(whole, first_width, first_width + margin), 0);
    EXPECT_GT(drawn_columns(whole, first_width + margin, 179), 30) << "場所 & 行";
    EXPECT_EQ(drawn_columns(whole, 180, 290), 0);
    list.set_column_width(1, 40);
    gui::pump();
    ovlib::BackBuffer narrow;
    look_at_header(narrow);
    EXPECT_GT(drawn_columns(narrow, first_width + margin, first_width + 33), 10);
    EXPECT_EQ(drawn_columns(narrow, first_width + 33, first_width + 39), 0) << "cut before the line";
}

TEST_F(ThemedList, TitlesAreVerticallyCentredAndEndInDots)
{
    list.set_column_width(1, 50);
    gui::pump();
    ovlib::BackBuffer picture;
    look_at_header(picture);
    ovlib::BackBuffer expected;
    ASSERT_TRUE(expected.create(picture.width, picture.height));
    gui::clear(expected, look::palette().panel_back);
    const platform::Rect place =
        look::header_title_rect({ first_width, 0, first_width + 50, picture.height });
    RECT room{ place.left, place.top, place.right, place.bottom };
    const ovlib::DC& dc = expected.dc();
    const ovlib::ObjectSelection font(dc, reinterpret_cast<HFONT>(SendMessageW(header(), WM_GETFONT, 0, 0)));
    SetBkMode(dc.handle(), TRANSPARENT);
    SetTextColor(dc.handle(), look::palette().list_text.value);
    DrawTextW(
        dc.handle(), L"場所 & 行", -1, &room, DT_SINGLELINE | DT_NOPREFIX | DT_VCENTER | DT_END_ELLIPSIS);
    for (int y = place.top; y < place.bottom; ++y) {
        for (int x = place.left; x < place.right; ++x)
            ASSERT_EQ(gui::pixel(picture, x, y), gui::pixel(expected, x, y)) << x << ' ' << y;
    }
}

TEST_F(ThemedList, FollowsWhenAllWindowsChangeTheirTheme)
{
    look::load_theme(look::theme_dark);
    look::apply_theme_to_windows();
    gui::pump();
    ovlib::BackBuffer picture;
    look_at_header(picture);
    EXPECT_EQ(gui::pixel(picture, 2, 2), look::palette().panel_back);
    EXPECT_EQ(SendMessageW(list.hwnd(), LVM_GETBKCOLOR, 0, 0), LRESULT{ look::palette().box_back.value });
}

TEST_F(ThemedList, AColumnCanBeResizedByTheMouse)
{
    const RECT rect = header_rect();
    const int y = (rect.top + rect.bottom) / 2;
    ASSERT_TRUE(gui::point_at({ rect.left + first_width - 1, y }));
    const auto press = [](DWORD flag) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flag;
        SendInput(1, &input, sizeof input);
    };
    gui::pump();
    press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(gui::pump_until([&] { return GetCapture() == header(); }));
    constexpr int further = 40;
    ASSERT_TRUE(gui::point_at({ rect.left + first_width - 1 + further, y }));
    gui::pump_until([&] { return list.column_width(0) != first_width; });
    press(MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(gui::pump_until([&] { return GetCapture() == nullptr; }));
    EXPECT_NEAR(list.column_width(0), first_width + further, 1);
    ovlib::BackBuffer picture;
    look_at_header(picture);
    EXPECT_EQ(gui::pixel(picture, list.column_width(0) - 1, picture.height / 2), look::palette().panel_line);
    EXPECT_EQ(gui::pixel(picture, first_width - 1, picture.height / 2), look::palette().panel_back);
}

TEST_F(ThemedList, ItsHeaderIsNeverErasedAndReachesTheScreenInOneCopy)
{
    HDC const dc = GetDC(header());
    EXPECT_NE(SendMessageW(header(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
    ReleaseDC(header(), dc);
    {
        const gui::ScreenCopies copies;
        paint_header();
        EXPECT_EQ(copies.count(), 1);
    }
    ovlib::BackBuffer picture;
    look_at_header(picture);
    EXPECT_EQ(gui::pixel(picture, 2, 2), look::palette().panel_back);
}

TEST_F(ThemedList, DrawsItsHeaderAtEverySize)
{
    for (const int width : { 300, 1, 0, 500, 90 }) {
        list.set_rect({ 10, 10, 10 + width, 210 }, true);
        gui::pump();
        paint_header();
    }
    ovlib::BackBuffer picture;
    look_at_header(picture);
    EXPECT_EQ(gui::pixel(picture, 2, 2), look::palette().panel_back);
    list.set_column_width(0, 0);
    paint_header();
}

TEST_F(ThemedList, CanBeCreatedAgainAfterItWasDestroyed)
{
    for (int round = 0; round < 3; ++round) {
        list.destroy();
        EXPECT_EQ(list.hwnd(), nullptr);
        ASSERT_TRUE(list.create(L"")) << round;
        EXPECT_EQ(list.add_column(L"a", 30), 0);
        list.set_rect({ 10, 10, 310, 210 }, true);
        gui::pump();
        ovlib::BackBuffer picture;
        look_at_header(picture);
        EXPECT_EQ(gui::pixel(picture, 2, 2), look::palette().panel_back) << "the new header is drawn too";
    }
}

TEST_F(ThemedList, IsDestroyedWithItsParentWithoutALeak)
{
    top.destroy();
    EXPECT_EQ(list.hwnd(), nullptr);
    for (const ovlib::Wnd* wnd = ovlib::Wnd::first(); wnd != nullptr; wnd = wnd->next())
        EXPECT_EQ(wnd->hwnd(), nullptr);
    ASSERT_TRUE(top.create(L"owner"));
    EXPECT_TRUE(list.create(L""));
}

TEST_F(ThemedList, ItsHeaderCostsNoHandlesHoweverOftenItIsPainted)
{
    constexpr int room = 300; // few handles, so that a leak is found with far fewer paints
    const gui::GdiCrowd crowd{ room };
    constexpr int many = 6'000;
    for (int i = 0; i < many; ++i) {
        if (i % 100 == 0)
            list.set_column_width(0, first_width + i / 100);
        paint_header();
    }
    gui::expect_handles_to_spare(room / 10);
}

TEST_F(ThemedList, ThemeChangesCostNoHandles)
{
    constexpr int room = 300;
    const gui::GdiCrowd crowd{ room };
    constexpr int many = 1'000;
    for (int i = 0; i < many; ++i) {
        look::load_theme(look::theme_standard + i % 6);
        look::apply_theme_to_windows();
    }
    gui::expect_handles_to_spare(room / 10);
}

} // namespace
