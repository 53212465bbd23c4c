// The tip that follows the mouse.
#include "ovlib/gui/tipwnd.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_screen_copies.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>

namespace {

using ovlib::rgb;

constexpr int few = 200; // handles that are still available

constexpr ovlib::TipColors colors{ rgb(255, 255, 255), rgb(190, 60, 64), rgb(0, 255, 0) };

class Tip : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top_.create(L"top"));
        ASSERT_TRUE(strip_.create(L""));
        ASSERT_TRUE(tip_.create(L""));
        font_ = ovlib::GDI::Font(CreateFontW(-12, 0, 0, 0, 700, 0, 0, 0, 1, 0, 0, 0, 0, L"メイリオ"));
        tip_.set_font(font_.handle());
        tip_.set_colors(colors);
        top_.show(true);
    }
    void TearDown() override { top_.destroy(); }

    SIZE text_size(const std::wstring& text) const
    {
        const ovlib::MemDC dc;
        const ovlib::ObjectSelection selected(dc, font_);
        RECT rect{};
        DrawTextW(dc.handle(), text.c_str(), -1, &rect, DT_CALCRECT | DT_NOPREFIX);
        return { rect.right, rect.bottom };
    }

    ovlib::GDI::Font font_;
    gui::TopWnd top_;
    gui::PlainChild strip_{ &top_, 5 };
    ovlib::TipWnd tip_{ &strip_ };
};

TEST_F(Tip, IsCreatedHidden)
{
    EXPECT_FALSE(tip_.is_visible());
    const auto style = static_cast<DWORD>(GetWindowLongW(tip_.hwnd(), GWL_STYLE));
    const auto ex_style = static_cast<DWORD>(GetWindowLongW(tip_.hwnd(), GWL_EXSTYLE));
    EXPECT_EQ(style & (WS_POPUP | WS_CAPTION), static_cast<DWORD>(WS_POPUP));
    EXPECT_EQ(ex_style & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE),
        static_cast<DWORD>(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE));
}

TEST_F(Tip, IsAtItsPlaceAroundItsText)
{
    tip_.set_fixed_place(true);
    tip_.show(L"見出し & 全文", { 300, 250 });
    EXPECT_TRUE(tip_.is_visible());
    const RECT rect = tip_.rect();
    const SIZE text = text_size(L"見出し & 全文");
    EXPECT_EQ(rect.left, 300);
    EXPECT_EQ(rect.top, 250);
    EXPECT_EQ(rect.right - rect.left, text.cx + 16);
    EXPECT_EQ(rect.bottom - rect.top, text.cy + 8);
    EXPECT_EQ(tip_.shown_text(), L"見出し & 全文");
}

TEST_F(Tip, TakesNoFocusAndIsNotActivated)
{
    top_.set_focus();
    tip_.show(L"x", { 300, 250 });
    EXPECT_EQ(GetFocus(), top_.hwnd());
    EXPECT_EQ(tip_.send(WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
    ovlib::BackBuffer surface;
    ASSERT_TRUE(surface.create(4, 4));
    const auto dc = reinterpret_cast<std::uintptr_t>(surface.dc().handle());
    EXPECT_EQ(tip_.send(WM_ERASEBKGND, dc, 0), 1);
    EXPECT_EQ(gui::count_pixels(surface, rgb(0, 0, 0)), 16) << "nothing was erased";
}

TEST_F(Tip, StaysInsideItsParentsRightEdge)
{
    RECT around{};
    GetWindowRect(strip_.hwnd(), &around);
    tip_.show(L"長い見出し", { around.right - 5, 250 });
    EXPECT_EQ(tip_.rect().right, around.right);
    EXPECT_EQ(tip_.rect().top, 250);
    tip_.set_fixed_place(true);
    tip_.show(L"長い見出し", { around.right - 5, 250 });
    EXPECT_EQ(tip_.rect().left, around.right - 5);
}

TEST_F(Tip, HidesForAnEmptyText)
{
    tip_.show(L"x", { 300, 250 });
    tip_.show(L"", { 300, 250 });
    EXPECT_FALSE(tip_.is_visible());
    EXPECT_EQ(tip_.shown_text(), L"");
    tip_.show(L"x", { 300, 250 });
    EXPECT_TRUE(tip_.is_visible());
}

TEST_F(Tip, HidesWhenItIsClosed)
{
    tip_.show(L"x", { 300, 250 });
    tip_.send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(tip_.is_visible());
    EXPECT_TRUE(IsWindow(tip_.hwnd()));
}

TEST_F(Tip, IsNotShownWithoutAText)
{
    tip_.show(true);
    EXPECT_FALSE(tip_.is_visible());
    tip_.show(L"x", { 300, 250 });
    tip_.show(false);
    EXPECT_TRUE(tip_.is_visible());
}

TEST_F(Tip, DoesNothingBeforeItIsCreated)
{
    ovlib::TipWnd other{ &strip_ };
    other.show(L"x", { 0, 0 });
    other.show(L"", { 0, 0 });
    EXPECT_EQ(other.hwnd(), nullptr);
}

TEST_F(Tip, ReturnsTheFontThatItWasGiven)
{
    EXPECT_EQ(tip_.font(), font_.handle());
}

TEST_F(Tip, PaintsFrameBackgroundAndText)
{
    tip_.show(L"見出し", { 300, 250 });
    const ovlib::BackBuffer& picture = tip_.buffer();
    const int right = picture.width - 1;
    const int bottom = picture.height - 1;
    for (const POINT corner :
        { POINT{ 0, 0 }, POINT{ right, 0 }, POINT{ 0, bottom }, POINT{ right, bottom } })
        EXPECT_EQ(gui::pixel(picture, corner.x, corner.y), colors.frame);
    EXPECT_EQ(gui::pixel(picture, 1, 1), colors.back);
    EXPECT_EQ(gui::pixel(picture, right - 1, bottom - 1), colors.back);
    const int frame = 2 * (picture.width + picture.height) - 4;
    EXPECT_EQ(gui::count_pixels(picture, colors.frame), frame);
    EXPECT_GT(gui::count_pixels(picture, colors.text), 20);
}

TEST_F(Tip, KeepsItsTextInsideItsMargins)
{
    tip_.show(L"全角の見出しが長いとき", { 300, 250 });
    const ovlib::BackBuffer& picture = tip_.buffer();
    for (int y = 1; y < picture.height - 1; ++y) {
        for (int x = 1; x < picture.width - 1; ++x) {
            const bool is_margin = x < 7 || x >= picture.width - 7 || y < 4 || y >= picture.height - 4;
            if (is_margin) {
                ASSERT_EQ(gui::pixel(picture, x, y), colors.back) << x << ", " << y;
            }
        }
    }
}

TEST_F(Tip, ShowsAnAmpersandUnchanged)
{
    tip_.show(L"a&b", { 300, 250 });
    const int with = tip_.buffer().width;
    tip_.show(L"ab", { 300, 250 });
    EXPECT_GT(with, tip_.buffer().width);
}

TEST_F(Tip, ShowsSeveralLines)
{
    tip_.show(L"一", { 300, 250 });
    const int one = tip_.buffer().height;
    tip_.show(L"一\r\n二", { 300, 250 });
    EXPECT_EQ(tip_.buffer().height - 8, 2 * (one - 8));
}

TEST_F(Tip, CreatesItsBufferAgainOnlyForAnotherSize)
{
    tip_.show(L"一", { 300, 250 });
    HBITMAP const first = tip_.buffer().bitmap();
    tip_.show(L"二", { 310, 250 });
    EXPECT_EQ(tip_.buffer().bitmap(), first);
    tip_.show(L"二三", { 310, 250 });
    EXPECT_EQ(tip_.rect().right - tip_.rect().left, tip_.buffer().width);
}

TEST_F(Tip, ReachesTheScreenInOneCopy)
{
    tip_.show(L"一", { 300, 250 });
    const gui::ScreenCopies copies;
    tip_.show(L"二", { 301, 250 });
    EXPECT_EQ(copies.count(), 1);
}

TEST_F(Tip, CostsNoHandles)
{
    const gui::GdiCrowd crowd(few);
    for (int i = 0; i < 15 * few; ++i) {
        tip_.show(i % 64 == 0 ? L"長い" : L"短", { 300 + i % 5, 250 });
        ASSERT_TRUE(tip_.buffer().is_created()) << "after " << i;
    }
    gui::expect_handles_to_spare(few / 10);
}

} // namespace
