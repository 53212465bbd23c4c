// The main window's status bar: its parts, their texts on the screen, and unusual input.
#include "look/theme.hpp"
#include "look/wnd/fonts.hpp"
#include "look/wnd/mystatusbar.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <vector>

namespace {

using gui::count_pixels;
using look::palette;
using ovlib::BackBuffer;
using ovlib::Color;

class StatusHost : public gui::TopWnd {
public:
    bool on_message(ovlib::WndMessage& message) override
    {
        if (!ovlib::route_draw_item(message))
            return TopWnd::on_message(message);
        drawn.push_back(static_cast<int>(reinterpret_cast<const DRAWITEMSTRUCT*>(message.lparam)->itemID));
        return true;
    }

    std::vector<int> drawn;
};

class StatusBar : public testing::Test {
protected:
    void SetUp() override
    {
        look::load_theme(look::theme_dark);
        const ovlib::DC screen(GetDC(nullptr));
        look::make_shared_fonts(screen.handle());
        ReleaseDC(nullptr, screen.handle());
        book.pages.resize(8);
        for (book::Page& page : book.pages)
            page.stamp = L"2024010203040520251112131415";
        book.path = L"C:\\本\\日記.book";
        book.mark_count = 3;
        ASSERT_TRUE(host.create(L"host"));
        ASSERT_TRUE(bar.create(L""));
        canvas.create(400, 30);
        gui::clear(canvas, ground);
    }
    void TearDown() override
    {
        host.destroy();
        look::free_shared_fonts();
    }

    int ink(int index) { return ink(index, bar); }
    // Draws a part into (10, 4) to (390, 26) and counts the pixels that differ from its background.
    int ink(int index, look::MyStatusBar& of)
    {
        gui::clear(canvas, ground);
        of.draw_part(index, canvas.dc().handle(), { 10, 4, 390, 26 });
        return canvas.width * canvas.height - count_pixels(canvas, ground)
            - count_pixels(canvas, palette().status_back);
    }

    static constexpr Color ground{ 0xFF00FF };
    book::Book book;
    StatusHost host;
    look::MyStatusBar bar{ &host, 3, &book };
    BackBuffer canvas;
};

TEST_F(StatusBar, HasFivePartsAtTheBottomWithoutAGrip)
{
    EXPECT_EQ(GetWindowLongW(bar.hwnd(), GWL_STYLE) & ~WS_VISIBLE, 0x56000803 & ~WS_VISIBLE);
    EXPECT_EQ(bar.part_count(), 5);
    const int edges[] = { 120, 330, 530, 930 };
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(bar.part_rect(i).right, edges[i]) << i;
    EXPECT_EQ(bar.rect().bottom, host.client_rect().bottom);
    ovlib::StatusBar plain(&host, 4);
    CREATESTRUCTW params{};
    plain.create_params(params);
    EXPECT_EQ(params.style, 0x56000903);
}

TEST_F(StatusBar, KeepsTheTextsOfItsParts)
{
    ovlib::StatusBar plain(&host, 4);
    ASSERT_TRUE(plain.create(L""));
    plain.set_parts({ 100, 200, -1 });
    plain.set_part_text(2, L"三", 0);
    EXPECT_EQ(plain.part_text(2), L"三");
    EXPECT_EQ(plain.part_text(0), L"");
    EXPECT_EQ(plain.part_text(7), L"");
    EXPECT_EQ(plain.part_text(-1), L"");
    wchar_t told[8] = {};
    plain.send(SB_GETTEXTW, 2, reinterpret_cast<LPARAM>(told));
    EXPECT_STREQ(told, L"三");
    ovlib::StatusBar::Borders borders{ -1, -1, -1 };
    plain.borders(borders);
    EXPECT_GE(borders.horizontal, 0);
    EXPECT_GE(borders.vertical, 0);
    EXPECT_GE(borders.between, 0);
    plain.draw_part(0, canvas.dc().handle(), { 0, 0, 9, 9 });
    EXPECT_EQ(count_pixels(canvas, ground), canvas.width * canvas.height);
}

TEST_F(StatusBar, RepaintsAllItsPartsWhenTheyAreRewritten)
{
    host.resize(1200, 300, true);
    bar.send(WM_SIZE, 0, 0);
    gui::pump();
    host.drawn.clear();
    bar.rewrite_parts();
    UpdateWindow(bar.hwnd());
    EXPECT_EQ(host.drawn, (std::vector<int>{ 0, 1, 2, 3, 4 }));
    const ovlib::ClientDC screen(bar);
    const RECT part = bar.part_rect(1);
    EXPECT_EQ(Color{ GetPixel(screen.handle(), part.right - 3, part.top + 3) }, palette().status_back);
}

class ChangingStatusBar : public StatusBar {
protected:
    void SetUp() override
    {
        StatusBar::SetUp();
        host.resize(1200, 300, true);
        bar.send(WM_SIZE, 0, 0);
        bar.show_changes();
        gui::pump();
        host.drawn.clear();
    }
    // Does not dispatch messages: the screen may request a paint at any time.
    void expect_nothing_left_to_paint() const { EXPECT_FALSE(GetUpdateRect(bar.hwnd(), nullptr, FALSE)); }
};

TEST_F(ChangingStatusBar, RepaintsOnlyThePartsWhoseContentChanged)
{
    bar.show_changes();
    EXPECT_TRUE(host.drawn.empty());
    book.header.position = 3;
    bar.show_changes();
    EXPECT_EQ(host.drawn, (std::vector<int>{ 0 })) << "all pages have the same size and dates";
    host.drawn.clear();
    book.mark_count = 4;
    book.path = L"C:\\本\\手帖.book";
    bar.show_changes();
    EXPECT_EQ(host.drawn, (std::vector<int>{ 1, 4 }));
    expect_nothing_left_to_paint();
    host.drawn.clear();
    bar.show_changes();
    EXPECT_TRUE(host.drawn.empty());
}

TEST_F(ChangingStatusBar, PaintsAllItsChangesAtOnce)
{
    const gui::MessageCount paints{ WM_PAINT };
    book.header.position = 3;
    book.mark_count = 4;
    bar.show_changes();
    EXPECT_EQ(paints.of(bar.hwnd()), 1);
    expect_nothing_left_to_paint();
}

TEST_F(ChangingStatusBar, BlanksAPartWhoseContentIsUnknown)
{
    book.pages[0].stamp = L"2024";
    bar.show_changes();
    EXPECT_EQ(host.drawn, (std::vector<int>{ 3 }));
    host.drawn.clear();
    bar.show_changes();
    EXPECT_TRUE(host.drawn.empty());
}

// If a part's content has changed, the system may have painted only a piece of the new content.
TEST_F(ChangingStatusBar, CompletesAPartOfWhichOnlyAPieceWasPainted)
{
    book.mark_count = 7;
    const RECT part = bar.part_rect(1);
    const RECT piece{ part.left, part.top, part.left + 10, part.bottom };
    InvalidateRect(bar.hwnd(), &piece, FALSE);
    UpdateWindow(bar.hwnd());
    EXPECT_EQ(host.drawn, (std::vector<int>{ 1 }));
    UpdateWindow(bar.hwnd());
    EXPECT_EQ(host.drawn, (std::vector<int>{ 1, 1 }));
}

TEST_F(StatusBar, IgnoresTheItemsOfOtherControls)
{
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON; // undefined for a status bar
    item.hwndItem = host.hwnd();
    item.hDC = canvas.dc().handle();
    item.rcItem = { 0, 0, 20, 20 };
    EXPECT_FALSE(bar.draw_item(item));
    EXPECT_EQ(count_pixels(canvas, ground), canvas.width * canvas.height);
    item.hwndItem = bar.hwnd();
    EXPECT_TRUE(bar.draw_item(item));
    EXPECT_LT(count_pixels(canvas, ground), canvas.width * canvas.height);
    look::MyStatusBar uncreated(&host, 4, &book);
    item.hwndItem = nullptr;
    EXPECT_FALSE(uncreated.draw_item(item));
}

TEST_F(StatusBar, FillsItsPartsAndWritesInTheColoursOfEveryTheme)
{
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        SCOPED_TRACE(theme);
        look::load_theme(theme);
        for (int index = 0; index < 5; ++index) {
            EXPECT_GT(ink(index), 20) << index;
            EXPECT_EQ(gui::pixel(canvas, 10, 4), palette().status_back);
            EXPECT_EQ(gui::pixel(canvas, 389, 25), palette().status_back);
            EXPECT_EQ(gui::pixel(canvas, 9, 4), ground);
            EXPECT_EQ(gui::pixel(canvas, 390, 25), ground);
        }
    }
}

TEST_F(StatusBar, WritesLabelsAndValuesInTheirOwnColours)
{
    ink(0);
    EXPECT_GT(count_pixels(canvas, palette().status_value), 0);
    EXPECT_GT(count_pixels(canvas, palette().status_label), 0);
    ink(4);
    EXPECT_GT(count_pixels(canvas, palette().status_value), 0);
    EXPECT_EQ(count_pixels(canvas, palette().status_label), 0);
}

// The same runs drawn separately show the font, colour and position of each.
TEST_F(StatusBar, WritesThePageNumberLargerThanTheCount)
{
    book.header.position = 2;
    ink(0);
    BackBuffer expected;
    ASSERT_TRUE(expected.create(400, 30));
    gui::clear(expected, palette().status_back);
    const HDC dc = expected.dc().handle();
    SetBkMode(dc, TRANSPARENT);
    int x = 10 + 5;
    const auto write = [&](const wchar_t* text, look::SharedFont font, Color color, int y) {
        const ovlib::ObjectSelection selected(expected.dc(), look::shared_font(font));
        SetTextColor(dc, color.value);
        TextOutW(dc, x, y, text, lstrlenW(text));
        SIZE size{};
        GetTextExtentPoint32W(dc, text, lstrlenW(text), &size);
        x += static_cast<int>(size.cx);
    };
    write(L"3", look::SharedFont::ui_11_bold, palette().status_value, 4);
    write(L"/8", look::SharedFont::ui_8_bold, palette().status_label, 4 + 3);
    for (int y = 4; y < 26; ++y) {
        for (int left = 10; left < 100; ++left)
            ASSERT_EQ(gui::pixel(canvas, left, y), gui::pixel(expected, left, y)) << left << ' ' << y;
    }
}

TEST_F(StatusBar, OfAnEmptyBookShowsOnlyTheBackground)
{
    book = {};
    for (int index = 0; index < 5; ++index)
        EXPECT_EQ(ink(index), 0) << index;
    look::MyStatusBar without(&host, 4, nullptr);
    ASSERT_TRUE(without.create(L""));
    EXPECT_EQ(ink(1, without), 0);
}

TEST_F(StatusBar, ADamagedStampBlanksOnlyTheDates)
{
    book.pages[0].stamp = L"2024";
    EXPECT_EQ(ink(3), 0);
    EXPECT_EQ(gui::pixel(canvas, 10, 4), palette().status_back);
    EXPECT_GT(ink(2), 0);
}

TEST_F(StatusBar, DrawsNothingBeyondItsParts)
{
    ink(6);
    EXPECT_EQ(count_pixels(canvas, ground), canvas.width * canvas.height);
    ink(5);
    EXPECT_EQ(count_pixels(canvas, palette().status_back), 380 * 22) << "the count itself is filled";
}

TEST_F(StatusBar, ShortensALongPathToItsPart)
{
    book.path = L"C:\\" + std::wstring(300, L'あ') + L"\\末.book";
    gui::clear(canvas, ground);
    bar.draw_part(4, canvas.dc().handle(), { 10, 4, 390, 26 });
    const auto column_has_ink = [&](int x) {
        for (int y = 4; y < 26; ++y) {
            if (gui::pixel(canvas, x, y) != palette().status_back)
                return true;
        }
        return false;
    };
    int last = 0;
    for (int x = 10; x < 390; ++x)
        last = column_has_ink(x) ? x : last;
    EXPECT_GT(last, 300);
    EXPECT_LT(last, 390 - 5);
    EXPECT_EQ(gui::pixel(canvas, 395, 12), ground);
}

TEST_F(StatusBar, SeventyThousandPartsCostNoHandle)
{
    const gui::GdiCrowd crowd;
    for (int i = 0; i < 70'000; ++i)
        bar.draw_part(i % 5, canvas.dc().handle(), { 10, 4, 390, 26 });
    EXPECT_GT(ink(1), 0);
    gui::expect_handles_to_spare();
}

} // namespace
