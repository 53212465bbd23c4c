// Drawn push buttons: their painting, and their reactions to mouse and keyboard.
#include "tests/support/gui_button.hpp"
#include "tests/support/gui_copies.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_pump.hpp"
#include <gtest/gtest.h>
#include <optional>

namespace {

using gui::ButtonHost;
using gui::Counted;
using gui::ItemCanvas;
using gui::pixel;
using ovlib::BackBuffer;
using ovlib::Color;
using ovlib::CustomPushButton;
using ovlib::rgb;

constexpr int button_id = 7;
constexpr SIZE button_size{ 60, 24 };
constexpr RECT whole{ 0, 0, button_size.cx, button_size.cy };
constexpr UINT label_format = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_WORD_ELLIPSIS;

class PushButton : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(host.create(L"host"));
        ASSERT_TRUE(button.create(L"決定 & Go"));
        button.set_font(font.handle());
        button.set_rect({ 20, 10, 20 + button_size.cx, 10 + button_size.cy }, true);
        gui::pump();
    }

    void TearDown() override { host.destroy(); }

    // Draws the expected look of a button in this state with calls of the system.
    void draw_expected(const BackBuffer& target, UINT state) const
    {
        HDC const dc = target.dc().handle();
        const ovlib::GDI::Brush face(ovlib::GDI::solid_brush(Color{ GetSysColor(COLOR_BTNFACE) }));
        FillRect(dc, &whole, face.handle());
        RECT edge = whole;
        DrawEdge(dc, &edge, (state & ODS_SELECTED) != 0 ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
        const RECT inside{ 3, 3, button_size.cx - 3, button_size.cy - 3 };
        if ((state & ODS_FOCUS) != 0)
            DrawFocusRect(dc, &inside);
    }
    void draw_expected_text(const BackBuffer& target, Color color, int offset) const
    {
        const ovlib::ObjectSelection selection(target.dc(), font);
        SetBkMode(target.dc().handle(), TRANSPARENT);
        SetTextColor(target.dc().handle(), color.value);
        RECT place = whole;
        OffsetRect(&place, offset, offset);
        DrawTextW(target.dc().handle(), L"決定 & Go", -1, &place, label_format);
    }

    ovlib::GDI::Font font{ gui::plain_font() };
    ButtonHost host;
    Counted<CustomPushButton> button{ &host, button_id };
    ItemCanvas canvas{ button_size };
    ItemCanvas expected{ button_size };
};

TEST_F(PushButton, IsAnOwnerDrawnButtonOfTheSystem)
{
    wchar_t name[16] = {};
    GetClassNameW(button.hwnd(), name, 16);
    EXPECT_STREQ(name, L"Button");
    EXPECT_EQ(GetWindowLongW(button.hwnd(), GWL_STYLE) & ~WS_VISIBLE, 0x5600000B & ~WS_VISIBLE);
    EXPECT_TRUE(button.is_subclassed());
}

TEST_F(PushButton, ShowsFrameFocusAndTextOfEveryState)
{
    for (const UINT state :
        { 0u, UINT{ ODS_SELECTED }, UINT{ ODS_FOCUS }, UINT{ ODS_FOCUS | ODS_SELECTED } }) {
        ASSERT_TRUE(canvas.draw(button, state));
        draw_expected(expected.picture, state);
        draw_expected_text(expected.picture, Color{}, (state & ODS_SELECTED) != 0 ? 1 : 0);
        EXPECT_TRUE(gui::same_pictures(canvas.picture, expected.picture)) << "state " << state;
    }
}

TEST_F(PushButton, ShowsADisabledTextInGreyOverWhite)
{
    ASSERT_TRUE(canvas.draw(button, ODS_DISABLED));
    draw_expected(expected.picture, ODS_DISABLED);
    draw_expected_text(expected.picture, rgb(255, 255, 255), 1);
    draw_expected_text(expected.picture, rgb(0xA0, 0xA0, 0xA0), 0);
    EXPECT_TRUE(gui::same_pictures(canvas.picture, expected.picture));
}

TEST_F(PushButton, DrawsTheTextInTheColourOfTheDeviceContext)
{
    SetTextColor(canvas.picture.dc().handle(), rgb(0, 0, 200).value);
    ASSERT_TRUE(canvas.draw(button, 0));
    EXPECT_GT(gui::count_pixels(canvas.picture, rgb(0, 0, 200)), 20);
    EXPECT_EQ(GetTextColor(canvas.picture.dc().handle()), rgb(0, 0, 200).value);
}

TEST_F(PushButton, KeepsTheTextOutOfTheBackBuffer)
{
    ASSERT_TRUE(canvas.draw(button, 0));
    draw_expected(expected.picture, 0);
    for (int y = 0; y < button_size.cy; ++y) {
        for (int x = 0; x < button_size.cx; ++x)
            ASSERT_EQ(pixel(button.buffer(), x, y), pixel(expected.picture, x, y)) << x << ", " << y;
    }
    EXPECT_FALSE(gui::same_pictures(canvas.picture, expected.picture)) << "the text is on the item alone";
}

TEST_F(PushButton, PaintsNothingOutsideItsRectangle)
{
    button.set_text(L"とても長い文字列のボタン、とても長い文字列のボタン");
    const ovlib::GDI::Font huge(gui::plain_font(60));
    button.set_font(huge.handle());
    for (const UINT state : { 0u, UINT{ ODS_SELECTED }, UINT{ ODS_DISABLED } }) {
        ASSERT_TRUE(canvas.draw(button, state | ODS_FOCUS));
        EXPECT_TRUE(canvas.is_margin_untouched()) << "state " << state;
    }
    button.set_font(font.handle());
}

TEST_F(PushButton, ReachesTheScreenInOneCopyWithTheTextAfterIt)
{
    EXPECT_EQ(gui::DrawingRecord(button, button_size, 0).marks(), "ct");
    EXPECT_EQ(gui::DrawingRecord(button, button_size, ODS_FOCUS | ODS_SELECTED).marks(), "ct");
    EXPECT_EQ(gui::DrawingRecord(button, button_size, ODS_DISABLED).marks(), "ctt");
    button.set_text(L"");
    EXPECT_EQ(gui::DrawingRecord(button, button_size, 0).marks(), "c");
}

TEST_F(PushButton, DoesNothingForAnItemWithoutAnAction)
{
    EXPECT_TRUE(button.draw_item(canvas.item(button, 0, 0)));
    EXPECT_EQ(
        gui::count_pixels(canvas.picture, gui::untouched), canvas.picture.width * canvas.picture.height);
}

TEST_F(PushButton, GivesItsBackBufferTheSizeOfTheItem)
{
    ASSERT_TRUE(canvas.draw(button, 0));
    EXPECT_EQ(button.buffer().width, button_size.cx);
    EXPECT_EQ(button.buffer().height, button_size.cy);
    ItemCanvas wider{ { 90, 30 } };
    ASSERT_TRUE(wider.draw(button, 0));
    EXPECT_EQ(button.buffer().width, 90);
    EXPECT_EQ(button.buffer().height, 30);
    EXPECT_TRUE(wider.is_margin_untouched());
    EXPECT_TRUE(ItemCanvas({ 0, 0 }).draw(button, ODS_FOCUS));
}

DRAWITEMSTRUCT immense(const ItemCanvas& canvas, const CustomPushButton& button)
{
    DRAWITEMSTRUCT item = canvas.item(button, 0);
    item.rcItem = { 0, 0, 1'000'000, 1'000'000 };
    return item;
}

TEST_F(PushButton, FailsWithoutMemoryAndDrawsAgainLater)
{
    EXPECT_FALSE(button.draw_item(immense(canvas, button)));
    EXPECT_TRUE(canvas.draw(button, 0));
}

TEST_F(PushButton, PassesABitmapToTheSystem)
{
    ovlib::GDI::Bitmap bitmap;
    bitmap.create(4, 4);
    button.set_bitmap(bitmap.handle());
    EXPECT_EQ(reinterpret_cast<HGDIOBJ>(button.send(BM_GETIMAGE, IMAGE_BITMAP, 0)), bitmap.handle());
}

ovlib::WndMessage draw_message(const DRAWITEMSTRUCT& item)
{
    return { nullptr, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item), 0 };
}

TEST_F(PushButton, IsFoundByItsWindowWhateverTypeTheItemHas)
{
    DRAWITEMSTRUCT item = canvas.item(button, 0);
    item.CtlType = 0xBADF00D;
    item.CtlID = 0;
    ovlib::WndMessage message = draw_message(item);
    const int before = button.drawn;
    EXPECT_TRUE(ovlib::route_draw_item(message));
    EXPECT_EQ(message.result, TRUE);
    EXPECT_EQ(button.drawn, before + 1);
}

TEST_F(PushButton, ReportsTheItemAsHandledEvenIfItCouldNotDraw)
{
    const DRAWITEMSTRUCT item = immense(canvas, button);
    ovlib::WndMessage message = draw_message(item);
    EXPECT_TRUE(ovlib::route_draw_item(message));
    EXPECT_EQ(message.result, TRUE);
}

TEST_F(PushButton, IgnoresTheItemsOfOtherControls)
{
    ovlib::WndMessage none{ nullptr, WM_DRAWITEM, 0, 0, 0 };
    EXPECT_FALSE(ovlib::route_draw_item(none));
    DRAWITEMSTRUCT item = canvas.item(button, 0);
    item.CtlType = ODT_MENU;
    HMENU const menu = CreatePopupMenu();
    for (HWND const other :
        { HWND{ nullptr }, host.hwnd(), GetDesktopWindow(), reinterpret_cast<HWND>(menu) }) {
        item.hwndItem = other;
        ovlib::WndMessage message = draw_message(item);
        EXPECT_FALSE(ovlib::route_draw_item(message));
        EXPECT_EQ(message.result, 0);
    }
    DestroyMenu(menu);
    item.hwndItem = button.hwnd();
    ovlib::WndMessage measuring{ nullptr, WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&item), 0 };
    EXPECT_FALSE(ovlib::route_draw_item(measuring));
}

TEST_F(PushButton, IsDrawnOnceForEveryPaint)
{
    button.drawn = button.paints = 0;
    constexpr int rounds = 5;
    for (int i = 0; i < rounds; ++i)
        RedrawWindow(button.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    EXPECT_EQ(button.paints, rounds);
    EXPECT_EQ(button.drawn, rounds);
}

TEST_F(PushButton, ReportsItsBackgroundAsErasedAndErasesNothing)
{
    EXPECT_EQ(button.send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.picture.dc().handle()), 0), 1);
    EXPECT_EQ(
        gui::count_pixels(canvas.picture, gui::untouched), canvas.picture.width * canvas.picture.height);
}

class PushButtonInput : public PushButton {
protected:
    void SetUp() override
    {
        PushButton::SetUp();
        SetForegroundWindow(host.hwnd());
        ASSERT_TRUE(gui::pump_until([&] { return GetForegroundWindow() == host.hwnd(); }));
        mouse.emplace(button.hwnd());
        ASSERT_TRUE(mouse->move({ button_size.cx / 2, button_size.cy / 2 }));
    }
    void TearDown() override
    {
        mouse.reset();
        PushButton::TearDown();
    }
    bool shows(UINT state) const { return (button.last_state & state) != 0; }

    std::optional<gui::Mouse> mouse;
};

TEST_F(PushButtonInput, ShowsAPressAndNotifiesOnRelease)
{
    mouse->push();
    EXPECT_TRUE(gui::pump_until([&] { return shows(ODS_SELECTED); }));
    EXPECT_EQ(host.clicks(button_id), 0);
    mouse->release();
    EXPECT_TRUE(gui::pump_until([&] { return host.clicks(button_id) == 1; }));
    EXPECT_FALSE(shows(ODS_SELECTED));
    EXPECT_TRUE(shows(ODS_FOCUS));
    EXPECT_EQ(GetFocus(), button.hwnd());
}

TEST_F(PushButtonInput, TreatsTheSecondOfTwoQuickClicksAsAClick)
{
    for (int i = 0; i < 3; ++i)
        gui::press_button(MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(gui::pump_until([&] { return host.clicks(button_id) == 3; })) << host.clicks(button_id);
    EXPECT_EQ(host.notices.size(), 3u) << "nothing but clicks is told";
}

TEST_F(PushButtonInput, IsClickedWithTheSpaceBar)
{
    button.set_focus();
    EXPECT_TRUE(shows(ODS_FOCUS));
    gui::press_key(VK_SPACE);
    EXPECT_TRUE(gui::pump_until([&] { return host.clicks(button_id) == 1; }));
}

TEST_F(PushButtonInput, LosesItsFocusRectangleWithTheFocus)
{
    button.set_focus();
    EXPECT_TRUE(shows(ODS_FOCUS));
    host.set_focus();
    EXPECT_TRUE(gui::pump_until([&] { return !shows(ODS_FOCUS); }));
}

TEST_F(PushButtonInput, IsNotClickedWhileDisabled)
{
    button.enable(false);
    EXPECT_TRUE(gui::pump_until([&] { return shows(ODS_DISABLED); }));
    gui::press_button(MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(gui::pump_until([&] { return host.count(WM_LBUTTONUP) == 1; })) << "the click falls through";
    EXPECT_EQ(host.clicks(button_id), 0);
}

TEST_F(PushButtonInput, PassesTheFocusOnWithTheTabKey)
{
    Counted<CustomPushButton> second{ &host, button_id + 1 };
    ASSERT_TRUE(second.create(L"second"));
    button.set_tab_order(1, 1);
    second.set_tab_order(1, 2);
    button.set_focus();
    gui::press_key(VK_TAB);
    EXPECT_TRUE(gui::pump_until([&] { return GetFocus() == second.hwnd(); }));
}

} // namespace
