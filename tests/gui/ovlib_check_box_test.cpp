// Drawn check boxes: their painting and colours, and what changes them.
#include "ovlib/gui/check_box.hpp"
#include "ovlib/gui/gdip.hpp"
#include "tests/support/gui_button.hpp"
#include "tests/support/gui_copies.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_pump.hpp"
#include <gtest/gtest.h>

namespace {

using gui::ButtonHost;
using gui::count_pixels_in;
using gui::Counted;
using gui::ItemCanvas;
using gui::pixel;
using ovlib::CheckBoxColors;
using ovlib::Color;
using ovlib::CustomCheckBox;
using ovlib::rgb;

constexpr int box_id = 9;
constexpr SIZE box_size{ 90, 20 };
constexpr RECT tick_area{ 2, 5, 12, 15 }; // inside the box's frame
constexpr RECT text_area{ 18, 0, box_size.cx, box_size.cy };
constexpr wchar_t label[] = L"順&逆 X";

constexpr CheckBoxColors colors{
    .text = rgb(0, 0, 120),
    .back = rgb(210, 215, 220),
    .mark = rgb(120, 0, 0),
    .fill = rgb(235, 240, 245),
    .frame = rgb(60, 70, 80),
};

class CheckBox : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(host.create(L"host"));
        ASSERT_TRUE(box.create(label));
        box.set_font(font.handle());
        box.set_rect({ 20, 10, 20 + box_size.cx, 10 + box_size.cy }, true);
        box.set_colors(colors);
        gui::pump();
    }
    void TearDown() override { host.destroy(); }

    // The place of the text, measured by the system.
    RECT text_place(const wchar_t* text) const
    {
        const ovlib::ObjectSelection selection(canvas.picture.dc(), font);
        SIZE size{};
        GetTextExtentPoint32W(canvas.picture.dc().handle(), text, lstrlenW(text), &size);
        const LONG top = box_size.cy / 2 - size.cy / 2 - 1;
        return { 18, top, 18 + size.cx, top + size.cy };
    }
    void draw_expected_text(const RECT& place, Color color) const
    {
        const ovlib::ObjectSelection selection(expected.picture.dc(), font);
        SetBkMode(expected.picture.dc().handle(), TRANSPARENT);
        SetTextColor(expected.picture.dc().handle(), color.value);
        TextOutW(expected.picture.dc().handle(), place.left, place.top, label, lstrlenW(label));
    }
    void expect_text_as_expected() const
    {
        for (LONG y = text_area.top; y < text_area.bottom; ++y) {
            for (LONG x = text_area.left; x < text_area.right; ++x)
                ASSERT_EQ(pixel(canvas.picture, x, y), pixel(expected.picture, x, y)) << x << ", " << y;
        }
    }

    ovlib::GDIPSession gdiplus;
    ovlib::GDI::Font font{ gui::plain_font() };
    ButtonHost host;
    Counted<CustomCheckBox> box{ &host, box_id };
    ItemCanvas canvas{ box_size };
    ItemCanvas expected{ box_size };
};

TEST_F(CheckBox, IsAFlatOwnerDrawnButton)
{
    EXPECT_EQ(GetWindowLongW(box.hwnd(), GWL_STYLE) & ~WS_VISIBLE, 0x5600800B & ~WS_VISIBLE);
    EXPECT_TRUE(box.is_subclassed());
}

TEST_F(CheckBox, StartsInTheSystemsColours)
{
    const CustomCheckBox fresh{ &host, 1 };
    EXPECT_EQ(fresh.colors().back, Color{ GetSysColor(COLOR_BTNFACE) });
    EXPECT_EQ(fresh.colors().text, Color{ GetSysColor(COLOR_BTNTEXT) });
    EXPECT_EQ(fresh.colors().fill, Color{ GetSysColor(COLOR_WINDOW) });
    EXPECT_FALSE(fresh.is_checked());
}

TEST_F(CheckBox, ShowsAnEmptyFramedBoxOnItsBackground)
{
    ASSERT_TRUE(canvas.draw(box, 0));
    for (const auto& [x, y] : { std::pair{ 7, 3 }, { 7, 16 }, { 0, 10 }, { 13, 10 } })
        EXPECT_EQ(pixel(canvas.picture, x, y), colors.frame) << x << ", " << y;
    for (const auto& [x, y] : { std::pair{ 7, 2 }, { 7, 17 }, { 14, 10 }, { 0, 3 }, { 13, 16 }, { 89, 19 } })
        EXPECT_EQ(pixel(canvas.picture, x, y), colors.back) << x << ", " << y;
    constexpr int inside = (tick_area.right - tick_area.left) * (tick_area.bottom - tick_area.top);
    EXPECT_EQ(count_pixels_in(canvas.picture, colors.fill, tick_area), inside);
}

TEST_F(CheckBox, ShowsATickWhenChecked)
{
    box.set_checked(true);
    ASSERT_TRUE(canvas.draw(box, 0));
    EXPECT_GT(count_pixels_in(canvas.picture, colors.mark, tick_area), 5);
    EXPECT_GT(count_pixels_in(canvas.picture, colors.fill, tick_area), 30);
    EXPECT_EQ(pixel(canvas.picture, 0, 10), colors.frame);
}

TEST_F(CheckBox, ItsTickIsTenPointsHighAndNotBold)
{
    box.set_checked(true);
    ASSERT_TRUE(canvas.draw(box, 0));
    const ovlib::DC& dc = expected.picture.dc();
    const int height = MulDiv(10, GetDeviceCaps(dc.handle(), LOGPIXELSY), 72);
    const ovlib::GDI::Font arial{ CreateFontW(
        -height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, L"Arial") };
    gui::clear(expected.picture, colors.fill);
    const ovlib::ObjectSelection selection(dc, arial);
    SetBkMode(dc.handle(), TRANSPARENT);
    SetTextColor(dc.handle(), colors.mark.value);
    TextOutW(dc.handle(), 1, 0, L"\u2714", 1);
    for (LONG y = tick_area.top; y < tick_area.bottom; ++y) {
        for (LONG x = tick_area.left; x < tick_area.right; ++x)
            ASSERT_EQ(pixel(canvas.picture, x, y), pixel(expected.picture, x, y)) << x << ", " << y;
    }
}

TEST_F(CheckBox, FadesTickAndTextWhenDisabled)
{
    box.set_checked(true);
    ASSERT_TRUE(canvas.draw(box, ODS_DISABLED));
    EXPECT_EQ(count_pixels_in(canvas.picture, colors.mark, tick_area), 0);
    EXPECT_GT(count_pixels_in(canvas.picture, colors.mark.shade(130), tick_area), 5);
    EXPECT_EQ(count_pixels_in(canvas.picture, colors.text, text_area), 0);
    EXPECT_GT(count_pixels_in(canvas.picture, colors.text.shade(130), text_area), 20);
}

TEST_F(CheckBox, DarkensADisabledOneOnADarkBackground)
{
    CheckBoxColors dark = colors;
    dark.back = rgb(70, 65, 65);
    dark.fill = rgb(53, 49, 49);
    dark.text = dark.mark = rgb(200, 220, 240);
    box.set_colors(dark);
    box.set_checked(true);
    ASSERT_TRUE(canvas.draw(box, ODS_DISABLED));
    EXPECT_GT(count_pixels_in(canvas.picture, dark.mark.shade(-130), tick_area), 5);
    EXPECT_GT(count_pixels_in(canvas.picture, dark.text.shade(-130), text_area), 20);
}

TEST_F(CheckBox, DrawsItsTextTransparentlyAtEighteen)
{
    ASSERT_TRUE(canvas.draw(box, 0));
    gui::clear(expected.picture, colors.back);
    draw_expected_text(text_place(label), colors.text);
    expect_text_as_expected();
}

TEST_F(CheckBox, SurroundsItsTextWithTheFocusFromTheFirstPaintOn)
{
    CustomCheckBox unpainted{ &host, box_id + 1 };
    ASSERT_TRUE(unpainted.create(label));
    unpainted.set_font(font.handle());
    unpainted.set_colors(colors);
    ASSERT_TRUE(canvas.draw(unpainted, ODS_FOCUS));
    unpainted.destroy();
    gui::clear(expected.picture, colors.back);
    const RECT text = text_place(label);
    const RECT focus{ text.left - 1, 0, text.right + 1, box_size.cy };
    DrawFocusRect(expected.picture.dc().handle(), &focus);
    draw_expected_text(text, colors.text);
    expect_text_as_expected();
}

TEST_F(CheckBox, KeepsTheTextOutOfTheBackBuffer)
{
    ASSERT_TRUE(canvas.draw(box, 0));
    EXPECT_EQ(count_pixels_in(box.buffer(), colors.back, text_area),
        (text_area.right - text_area.left) * text_area.bottom);
    EXPECT_GT(count_pixels_in(canvas.picture, colors.text, text_area), 20);
}

TEST_F(CheckBox, PaintsNothingOutsideItsRectangle)
{
    box.set_text(L"大文字・小文字を区別しない大文字・小文字を区別しない");
    box.set_checked(true);
    for (const UINT state : { 0u, UINT{ ODS_FOCUS }, UINT{ ODS_DISABLED } }) {
        ASSERT_TRUE(canvas.draw(box, state));
        EXPECT_TRUE(canvas.is_margin_untouched()) << "state " << state;
    }
    ItemCanvas tiny{ { 6, 6 } };
    ASSERT_TRUE(tiny.draw(box, ODS_FOCUS));
    EXPECT_TRUE(tiny.is_margin_untouched());
}

TEST_F(CheckBox, ReachesTheScreenInOneCopyWithTheTextAfterIt)
{
    EXPECT_EQ(gui::DrawingRecord(box, box_size, 0).marks(), "ct");
    box.set_checked(true);
    EXPECT_EQ(gui::DrawingRecord(box, box_size, ODS_FOCUS | ODS_SELECTED).marks(), "ct");
    EXPECT_EQ(gui::DrawingRecord(box, box_size, ODS_DISABLED).marks(), "ct");
}

TEST_F(CheckBox, RepaintsOnlyWhenItsValueChanges)
{
    box.drawn = 0;
    box.set_checked(false);
    EXPECT_EQ(box.drawn, 0);
    box.set_checked(true);
    EXPECT_EQ(box.drawn, 1);
    box.set_checked(true);
    EXPECT_EQ(box.drawn, 1);
    EXPECT_TRUE(box.is_checked());
}

TEST_F(CheckBox, TogglesEvenWhileDisabled)
{
    box.enable(false);
    gui::pump();
    box.drawn = 0;
    box.toggle();
    EXPECT_TRUE(box.is_checked());
    EXPECT_EQ(box.drawn, 1);
    box.toggle();
    EXPECT_FALSE(box.is_checked());
    EXPECT_EQ(box.drawn, 2);
}

TEST_F(CheckBox, CanBeSetBeforeItHasAWindow)
{
    CustomCheckBox unborn{ &host, 1 };
    unborn.set_checked(true);
    unborn.set_colors(colors);
    EXPECT_TRUE(unborn.is_checked());
}

TEST_F(CheckBox, FitsItsWidthToTheText)
{
    const RECT text = text_place(label);
    const POINT corner = box.position();
    box.drawn = 0;
    box.fit_to_text();
    EXPECT_EQ(box.size().cx, text.right - text.left + 18);
    EXPECT_EQ(box.size().cy, box_size.cy);
    EXPECT_EQ(box.position().x, corner.x);
    gui::pump();
    EXPECT_GE(box.drawn, 1);
}

TEST_F(CheckBox, FitsItsHeightToAHigherText)
{
    box.resize(10, 4, false);
    box.fit_to_text();
    const RECT text = text_place(label);
    EXPECT_EQ(box.size().cy, text.bottom - text.top);
}

TEST_F(CheckBox, IsNotToggledByAClick)
{
    SetForegroundWindow(host.hwnd());
    ASSERT_TRUE(gui::pump_until([&] { return GetForegroundWindow() == host.hwnd(); }));
    box.set_focus();
    gui::press_key(VK_SPACE);
    EXPECT_TRUE(gui::pump_until([&] { return host.clicks(box_id) == 1; }));
    EXPECT_FALSE(box.is_checked());
    EXPECT_NE(box.last_state & ODS_FOCUS, 0u);
}

} // namespace
