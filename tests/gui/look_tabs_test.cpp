// The strip of page tabs, with the real mouse.
#include "core/command_ids.hpp"
#include "look/wnd/tabwnd.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_screen_copies.hpp"
#include "tests/support/gui_tabs.hpp"
#include <gtest/gtest.h>

extern "C" void* __imp_CreateDIBSection;
extern "C" void* __imp_CreateWindowExW;

namespace {

namespace command = core::command;
using gui::MenuDriver;
using gui::ShownMenu;
using look::Color;

using Tabs = gui::TabStrip;

constexpr Color blue = gui::tab_blue;
constexpr Color white{ 0xFFFFFF };
constexpr int few = 200; // handles that are still available

TEST_F(Tabs, IsCreatedWithoutASize)
{
    look::TabWnd other{ &top_, &book_ };
    ASSERT_TRUE(other.create(L""));
    const RECT rect = other.rect();
    EXPECT_EQ(rect.right - rect.left, 0);
    EXPECT_EQ(rect.bottom - rect.top, 0);
    other.rebuild();
    other.destroy();
}

TEST_F(Tabs, DestroyTipAndStripTogether)
{
    HWND const tip = strip_.tip().hwnd();
    ASSERT_TRUE(IsWindow(tip));
    strip_.destroy();
    EXPECT_FALSE(IsWindow(tip));
    EXPECT_TRUE(strip_.create(L""));
    EXPECT_TRUE(IsWindow(strip_.tip().hwnd()));
    EXPECT_EQ(strip_.menu().count(), gui::item_count);
}

TEST_F(Tabs, ShowsATabForEveryTabbedPage)
{
    add_page(L"一\r\n次の行");
    add_page(L"なし", false);
    add_page(L"二");
    book_.header.position = 2;
    strip_.rebuild();
    ASSERT_EQ(strip_.items().size(), 2u);
    EXPECT_EQ(strip_.items()[0].caption, L"一");
    EXPECT_EQ(strip_.items()[1].caption, L"二");
    EXPECT_EQ(strip_.current_tab(), 2u);
    EXPECT_EQ(strip_.buffer().width, 480);
    EXPECT_EQ(strip_.buffer().height, 24);
}

TEST_F(Tabs, FollowsItsSize)
{
    open_three();
    place(300);
    strip_.rebuild();
    EXPECT_EQ(strip_.buffer().width, 300);
    EXPECT_NEAR(strip_.items().back().rect.right, 298, 1);
}

TEST_F(Tabs, PaintsOnlyTheBackgroundWithoutTabs)
{
    open_three();
    paint();
    for (book::Page& page : book_.pages)
        page.tab_number = 0;
    strip_.rebuild();
    EXPECT_TRUE(strip_.items().empty());
    gui::pump();
    const look::StripColors colors = look::strip_colors(look::palette());
    const int back = gui::count_pixels(strip_.buffer(), colors.back);
    const int edge = gui::count_pixels(strip_.buffer(), colors.edge);
    EXPECT_EQ(back + edge, 480 * 24);
    EXPECT_EQ(gui::pixel(strip_.buffer(), 0, 0), colors.back);
    EXPECT_EQ(gui::pixel(strip_.buffer(), 479, 10), colors.edge);
    EXPECT_EQ(gui::pixel(strip_.buffer(), 100, 23), colors.edge);
}

TEST_F(Tabs, PaintsTabsInTheColoursOfEveryTheme)
{
    open_three();
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        look::load_theme(theme);
        // The first tab, from x 0 to 159, is the current one.
        EXPECT_EQ(pixel(80, 0), blue) << theme;
        EXPECT_EQ(pixel(80, 1), blue.shade(50)) << theme;
        EXPECT_EQ(pixel(80, 2), blue.shade(50)) << theme;
        EXPECT_EQ(pixel(2, 12), look::palette().panel_back) << theme;
        EXPECT_EQ(pixel(80, 20), look::palette().panel_back) << theme;
        // The second tab is not the current one.
        const int left = strip_.items()[1].rect.left;
        const int right = strip_.items()[1].rect.right;
        EXPECT_EQ(pixel(left + 80, 0), blue.shade(150)) << theme;
        EXPECT_EQ(pixel(left + 80, 20), blue) << theme;
        EXPECT_EQ(pixel(left, 12), blue.shade(150)) << theme;
        EXPECT_EQ(pixel(right - 1, 12), blue.shade(-150)) << theme;
        EXPECT_EQ(pixel(left, 0), look::strip_colors(look::palette()).back) << theme;
    }
}

TEST_F(Tabs, WritesCaptionsInWhiteAndOnAHotTabInItsShade)
{
    open_three();
    const auto has = [&](std::size_t tab, Color color) {
        paint();
        const platform::Rect& rect = strip_.items()[tab].rect;
        for (int y = rect.top + 4; y < rect.bottom - 2; ++y) {
            for (int x = rect.left + 3; x < rect.right - 3; ++x) {
                if (gui::pixel(strip_.buffer(), x, y) == color)
                    return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(has(1, white));
    EXPECT_FALSE(has(0, white));
    EXPECT_TRUE(has(0, blue.shade(-150)));
    look::load_theme(look::theme_dark);
    EXPECT_TRUE(has(0, blue.shade(150)));
    EXPECT_FALSE(has(0, blue.shade(-150)));
    EXPECT_TRUE(has(1, white));
}

// A caption that does not fit ends in dots. The same text drawn separately shows font and position.
TEST_F(Tabs, WritesALongCaptionInItsFontWithAnEllipsis)
{
    place(120);
    add_page(L"shown, without a tab", false);
    const std::wstring caption = L"長い見出し & long caption";
    add_page(caption.c_str());
    strip_.rebuild();
    paint();
    const platform::Rect& tab = strip_.items()[0].rect;
    ASSERT_EQ(strip_.items()[0].caption, caption);

    ovlib::BackBuffer expected;
    ASSERT_TRUE(expected.create(120, 24));
    gui::clear(expected, blue);
    const ovlib::DC& dc = expected.dc();
    const ovlib::ObjectSelection font(dc, look::shared_font(look::SharedFont::ui_9_bold));
    SIZE size{};
    GetTextExtentPoint32W(dc.handle(), caption.c_str(), static_cast<int>(caption.size()), &size);
    ASSERT_GT(size.cx, tab.width()) << "too long";
    SetBkMode(dc.handle(), TRANSPARENT);
    SetTextColor(dc.handle(), white.value);
    RECT room{ 4, (24 - size.cy) / 2, tab.width() - 2, (24 - size.cy) / 2 + size.cy };
    DrawTextW(dc.handle(), caption.c_str(), -1, &room, DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    for (int y = room.top; y < room.bottom; ++y) {
        for (int x = room.left; x < room.right; ++x)
            ASSERT_EQ(gui::pixel(strip_.buffer(), x, y), gui::pixel(expected, x, y)) << x << ' ' << y;
    }
}

TEST_F(Tabs, ALaterTabCoversAnEarlierOne)
{
    place(160);
    open_three();
    const auto& items = strip_.items();
    const int shared = items[1].rect.left + 30;
    ASSERT_LT(shared, items[0].rect.right);
    EXPECT_EQ(pixel(shared, 20), blue) << "the second, not the current first";
}

TEST_F(Tabs, HighlightTheTabUnderTheMouseUntilItLeaves)
{
    open_three();
    ASSERT_TRUE(hover(strip_.items()[1].rect.left + 100));
    EXPECT_EQ(strip_.hover_tab(), 2u);
    EXPECT_EQ(pixel(strip_.items()[1].rect.left + 100, 20), look::palette().panel_back);
    EXPECT_TRUE(leave_until([&] { return strip_.hover_tab() == 0; }));
    EXPECT_EQ(pixel(strip_.items()[1].rect.left + 100, 20), blue);
}

TEST_F(Tabs, ShowTheWholeCaptionInATip)
{
    std::wstring caption(40, L'長');
    caption.back() = L'&';
    add_page(L"一");
    add_page(caption.c_str());
    strip_.rebuild();
    ASSERT_TRUE(hover(300));
    EXPECT_TRUE(strip_.tip().is_visible());
    EXPECT_EQ(strip_.tip().shown_text(), caption);
    EXPECT_EQ(gui::pixel(strip_.tip().buffer(), 1, 1), blue);
    EXPECT_EQ(gui::pixel(strip_.tip().buffer(), 0, 0), white);
    EXPECT_EQ(strip_.tip().font(), look::shared_font(look::SharedFont::jp_9_bold));
    RECT around{};
    GetWindowRect(strip_.hwnd(), &around);
    EXPECT_LE(strip_.tip().rect().right, around.right);
    EXPECT_TRUE(leave_until([&] { return !strip_.tip().is_visible(); }));
}

TEST_F(Tabs, PlaceTheTipBelowTheCursor)
{
    open_three();
    ASSERT_TRUE(hover(20));
    POINT cursor{};
    GetCursorPos(&cursor);
    const RECT rect = strip_.tip().rect();
    EXPECT_EQ(rect.left, cursor.x + 10);
    EXPECT_EQ(rect.top, cursor.y + GetSystemMetrics(SM_CYCURSOR) - 8);
}

TEST_F(Tabs, HideTheTipOutsideTheTabs)
{
    add_page(L"一");
    strip_.rebuild();
    ASSERT_TRUE(hover(20));
    ASSERT_TRUE(strip_.tip().is_visible());
    ASSERT_TRUE(hover(400));
    EXPECT_FALSE(strip_.tip().is_visible());
}

TEST_F(Tabs, FindTheTabUnderTheMouseWhenTheyAreRebuilt)
{
    gui::point_at(on_strip(20));
    open_three();
    EXPECT_EQ(strip_.hover_tab(), 1u);
    EXPECT_TRUE(leave_until([&] { return strip_.hover_tab() == 0; }));
}

TEST_F(Tabs, ForgetTheMouseWhenTheFocusIsLost)
{
    open_three();
    strip_.set_focus();
    ASSERT_TRUE(hover(20));
    strip_.send(WM_KILLFOCUS, 0, 0);
    EXPECT_EQ(strip_.hover_tab(), 0u);
}

TEST_F(Tabs, AClickOnAnotherTabGoesToItsPage)
{
    open_three();
    gui::click_at(on_strip(strip_.items()[2].rect.left + 20));
    EXPECT_TRUE(gui::pump_until([&] { return !sent_.empty(); }));
    EXPECT_EQ(sent_, (std::vector<Sent>{ { command::go_to_tab, 3 } }));
    EXPECT_EQ(GetFocus(), strip_.hwnd());
}

TEST_F(Tabs, AClickOnTheCurrentTabOrOutsideTheTabsOnlyTakesTheFocus)
{
    add_page(L"一");
    strip_.rebuild();
    for (const int x : { 20, 400 }) {
        other_.set_focus();
        gui::click_at(on_strip(x));
        EXPECT_TRUE(gui::pump_until([&] { return GetFocus() == strip_.hwnd(); }));
    }
    EXPECT_TRUE(sent_.empty());
}

TEST_F(Tabs, CanBeRebuiltByTheCommandThatTheySend)
{
    open_three();
    top_.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_COMMAND && LOWORD(message.wparam) == command::go_to_tab) {
            book_.header.position = static_cast<std::uint64_t>(message.lparam) - 1;
            strip_.rebuild();
        }
        return false;
    };
    gui::click_at(on_strip(strip_.items()[1].rect.left + 20));
    EXPECT_TRUE(gui::pump_until([&] { return strip_.current_tab() == 2; }));
    EXPECT_EQ(GetFocus(), strip_.hwnd());
}

TEST_F(Tabs, WorkWithoutATip)
{
    open_three();
    look::TabWnd bare{ &top_, &book_ };
    {
        static decltype(CreateWindowExW)* original;
        const gui::ReplacedImport<decltype(CreateWindowExW)> failing{ &__imp_CreateWindowExW,
            [](DWORD extended, LPCWSTR name, LPCWSTR title, DWORD style, int x, int y, int width, int height,
                HWND parent, HMENU menu, HINSTANCE instance, LPVOID data) -> HWND {
                if ((extended & WS_EX_TOOLWINDOW) != 0)
                    return nullptr;
                return original(
                    extended, name, title, style, x, y, width, height, parent, menu, instance, data);
            } };
        original = failing.original();
        ASSERT_TRUE(bare.create(L""));
    }
    ASSERT_EQ(bare.tip().hwnd(), nullptr);
    bare.set_rect({ 2, 40, 482, 64 }, true);
    bare.rebuild();
    bare.send(WM_MOUSEMOVE, 0, MAKELPARAM(bare.items()[1].rect.left + 20, 12));
    EXPECT_EQ(bare.hover_tab(), 2u);
    EXPECT_EQ(bare.tip().shown_text(), L"");
    bare.send(WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(bare.hover_tab(), 0u);
    bare.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(bare.items()[2].rect.left + 20, 12));
    EXPECT_EQ(sent_, (std::vector<Sent>{ { command::go_to_tab, 3 } }));
    EXPECT_EQ(bare.menu().count(), gui::item_count);
}

TEST_F(Tabs, ShowTheMaximumNumberOfTabs)
{
    for (int i = 0; i < 300; ++i)
        add_page(L"頁");
    strip_.rebuild();
    EXPECT_EQ(strip_.items().size(), 256u);
    paint();
    ASSERT_TRUE(hover(470));
    EXPECT_EQ(strip_.hover_tab(), 256u) << "the last one lies on top";
}

TEST_F(Tabs, ReachTheScreenInOneCopy)
{
    open_three();
    EXPECT_EQ(strip_.send(WM_ERASEBKGND, 0, 0), 1);
    const gui::ScreenCopies copies;
    paint();
    EXPECT_EQ(copies.count(), 1);
}

TEST_F(Tabs, CostNoHandlesToPaint)
{
    place(100);
    add_page(L"一");
    strip_.rebuild();
    const gui::GdiCrowd crowd(few);
    for (int i = 0; i < 15 * few; ++i)
        paint();
    gui::expect_handles_to_spare(few / 10);
}

TEST_F(Tabs, CostNoHandlesToRebuild)
{
    open_three();
    const gui::GdiCrowd crowd(few);
    for (int i = 0; i < 10 * few; ++i) {
        place(100 + i % 7);
        strip_.rebuild();
        ASSERT_TRUE(strip_.buffer().is_created()) << "after " << i;
    }
    gui::expect_handles_to_spare(few / 10);
}

} // namespace
