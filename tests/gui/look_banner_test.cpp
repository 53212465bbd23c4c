// The banner about a search without a result, with its real timer.
#include "look/wnd/warningwnd.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_screen_copies.hpp"
#include "tests/support/gui_window.hpp"
#include <chrono>
#include <gtest/gtest.h>

extern "C" void* __imp_DrawIconEx;
extern "C" void* __imp_LoadImageW;

namespace {

using look::BannerFade;
using State = BannerFade::State;

constexpr int few = 200; // handles that are still available

class Banner : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top_.create(L"top"));
        ASSERT_TRUE(banner_.create(L""));
        top_.show(true);
    }
    void TearDown() override { top_.destroy(); }

    // The transparency of the window in the system; -1 if it is not layered.
    int system_alpha() const
    {
        BYTE alpha = 0;
        DWORD flags = 0;
        if (!GetLayeredWindowAttributes(banner_.hwnd(), nullptr, &alpha, &flags) || (flags & LWA_ALPHA) == 0)
            return -1;
        return alpha;
    }
    void tick() { banner_.send(WM_TIMER, 1, 0); }
    int text_width(const std::wstring& text) const
    {
        const ovlib::MemDC dc;
        const ovlib::ObjectSelection font(dc, look::shared_font(look::SharedFont::ui_9_bold));
        RECT rect{};
        DrawTextW(dc.handle(), text.c_str(), -1, &rect, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
        return rect.right;
    }

    const gui::Look look_;
    gui::TopWnd top_;
    look::WarningWnd banner_{ &top_ };
};

TEST_F(Banner, IsCreatedHiddenAndTransparent)
{
    EXPECT_FALSE(banner_.is_visible());
    EXPECT_EQ(system_alpha(), 0);
    const auto style = static_cast<DWORD>(GetWindowLongW(banner_.hwnd(), GWL_STYLE));
    const auto ex_style = static_cast<DWORD>(GetWindowLongW(banner_.hwnd(), GWL_EXSTYLE));
    EXPECT_EQ(style & (WS_POPUP | WS_CAPTION), static_cast<DWORD>(WS_POPUP));
    EXPECT_EQ(ex_style & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE),
        static_cast<DWORD>(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE));
}

// The program's icon, which this program does not contain.
TEST_F(Banner, DrawsTheSmallIconOfTheProgramInItsCorner)
{
    static HICON icon;
    static std::vector<int> drawn;
    icon = CopyIcon(LoadIconW(nullptr, IDI_APPLICATION));
    drawn.clear();
    const gui::ReplacedImport<decltype(LoadImageW)> load{ &__imp_LoadImageW,
        [](HINSTANCE, LPCWSTR name, UINT type, int width, int height, UINT) -> HANDLE {
            const bool is_wanted =
                name == MAKEINTRESOURCEW(1000) && type == IMAGE_ICON && width == 16 && height == 16;
            return is_wanted ? icon : nullptr;
        } };
    const gui::ReplacedImport<decltype(DrawIconEx)> draw{ &__imp_DrawIconEx,
        [](HDC, int x, int y, HICON shown, int width, int height, UINT, HBRUSH, UINT flags) -> BOOL {
            if (shown == icon)
                drawn = { x, y, width, height, static_cast<int>(flags) };
            return TRUE;
        } };
    look::WarningWnd with_icon{ &top_ };
    ASSERT_TRUE(with_icon.create(L""));
    with_icon.show(L"x");
    UpdateWindow(with_icon.hwnd());
    EXPECT_EQ(drawn, (std::vector<int>{ 6, 6, 16, 16, DI_NORMAL }));
}

TEST_F(Banner, FadesInStaysAndFadesOutByItsTimer)
{
    const auto start = std::chrono::steady_clock::now();
    banner_.show(L"一致条件: 京都");
    EXPECT_TRUE(banner_.is_visible());
    int highest = 0;
    bool stayed = false;
    ASSERT_TRUE(gui::pump_until([&] {
        highest = std::max(highest, system_alpha());
        stayed = stayed || banner_.fade().state() == State::staying;
        return !banner_.is_visible();
    }));
    EXPECT_EQ(highest, 230);
    EXPECT_TRUE(stayed);
    EXPECT_EQ(system_alpha(), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds{ 2000 });
    EXPECT_TRUE(IsWindow(banner_.hwnd()));
}

TEST_F(Banner, SetsTheAlphaOfEveryTickInTheSystem)
{
    banner_.show(L"x");
    for (const int alpha : { 40, 80, 120, 160, 200, 230, 230, 190, 150, 110, 70, 30 }) {
        tick();
        EXPECT_EQ(system_alpha(), alpha);
        EXPECT_EQ(banner_.fade().alpha(), alpha);
    }
    tick();
    EXPECT_FALSE(banner_.is_visible());
    EXPECT_EQ(system_alpha(), 0);
}

TEST_F(Banner, StartsAgainWhenItIsCreatedAgain)
{
    banner_.show(L"x");
    tick();
    tick();
    banner_.destroy();
    ASSERT_TRUE(banner_.create(L""));
    EXPECT_EQ(banner_.fade().alpha(), 0);
    EXPECT_EQ(system_alpha(), 0);
    banner_.show(L"x");
    tick();
    EXPECT_EQ(system_alpha(), 40);
}

TEST_F(Banner, IgnoresATickThatArrivesAfterItsTimerWasStopped)
{
    tick();
    EXPECT_EQ(system_alpha(), 0);
    banner_.show(L"x");
    tick();
    banner_.show(L"");
    tick();
    EXPECT_EQ(system_alpha(), 0);
    EXPECT_FALSE(banner_.is_visible());
}

TEST_F(Banner, HidesAtOnceForAnEmptyText)
{
    for (const wchar_t* const empty : { L"", L"\r\n", L"\r\n\r\n" }) {
        banner_.show(L"x");
        tick();
        ASSERT_EQ(system_alpha(), 40);
        banner_.show(empty);
        EXPECT_FALSE(banner_.is_visible());
        EXPECT_EQ(system_alpha(), 0);
        EXPECT_EQ(banner_.fade().alpha(), 0);
    }
}

TEST_F(Banner, HidesWhenItIsClosed)
{
    banner_.show(L"x");
    banner_.send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(banner_.is_visible());
    EXPECT_TRUE(IsWindow(banner_.hwnd()));
}

TEST_F(Banner, IsNotShownWithoutAText)
{
    banner_.show(true);
    EXPECT_FALSE(banner_.is_visible());
}

TEST_F(Banner, ShowsItsTextInOneLine)
{
    banner_.show(L"一致\r\n条件");
    EXPECT_EQ(banner_.shown_text(), L"一致条件");
}

TEST_F(Banner, StartsAgainInTheMiddleOfAFadeWithTheCurrentAlpha)
{
    banner_.show(L"x");
    for (int i = 0; i < 9; ++i)
        tick();
    ASSERT_EQ(system_alpha(), 150);
    banner_.show(L"y");
    EXPECT_EQ(banner_.fade().state(), State::fading_in);
    EXPECT_EQ(system_alpha(), 150);
    tick();
    EXPECT_EQ(system_alpha(), 190);
}

TEST_F(Banner, IsCentredOverItsParent)
{
    banner_.show(L"一致条件: <京都 && 寺>");
    const RECT rect = banner_.rect();
    EXPECT_EQ(rect.right - rect.left, text_width(L"一致条件: <京都 && 寺>") + 30);
    EXPECT_EQ(rect.bottom - rect.top, 80);
    const RECT around = top_.rect();
    EXPECT_NEAR(rect.left + rect.right, around.left + around.right, 1);
    EXPECT_NEAR(rect.top + rect.bottom, around.top + around.bottom, 1);
}

TEST_F(Banner, WithALongTextIsWiderThanItsParentAndStaysCentred)
{
    top_.center(nullptr, true);
    banner_.show(std::wstring(80, L'長'));
    const RECT rect = banner_.rect();
    const RECT around = top_.rect();
    EXPECT_GT(rect.right - rect.left, around.right - around.left);
    EXPECT_NEAR(rect.left + rect.right, around.left + around.right, 1);
}

TEST_F(Banner, ThatWouldCrossTheEdgeOfTheScreenIsMovedIntoView)
{
    top_.move(0, 0, true);
    banner_.show(std::wstring(80, L'長'));
    const RECT rect = banner_.rect();
    EXPECT_GT(rect.right - rect.left, top_.size().cx);
    EXPECT_EQ(rect.left, 0);
}

TEST_F(Banner, TakesNoFocus)
{
    top_.set_focus();
    banner_.show(L"x");
    gui::pump();
    EXPECT_EQ(GetFocus(), top_.hwnd());
    EXPECT_EQ(banner_.send(WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
    ovlib::BackBuffer surface;
    ASSERT_TRUE(surface.create(4, 4));
    const auto dc = reinterpret_cast<std::uintptr_t>(surface.dc().handle());
    EXPECT_EQ(banner_.send(WM_ERASEBKGND, dc, 0), 1);
    EXPECT_EQ(gui::count_pixels(surface, look::Color{ 0 }), 16) << "nothing was erased";
}

// The banner's picture in the size that the text needs.
struct Picture {
    explicit Picture(const look::WarningWnd& banner)
    {
        const SIZE size = banner.client_size();
        buffer.create(size.cx, size.cy);
        banner.draw(buffer);
    }
    // Whether any pixel between two rows has that colour.
    bool has(look::Color color, int top, int bottom) const
    {
        for (int y = top; y < bottom; ++y) {
            for (int x = 1; x < buffer.width - 1; ++x) {
                if (gui::pixel(buffer, x, y) == color)
                    return true;
            }
        }
        return false;
    }
    ovlib::BackBuffer buffer;
};

TEST_F(Banner, PaintsItsPartsInTheColoursOfEveryTheme)
{
    constexpr look::Color white{ 0xFFFFFF };
    banner_.show(L"一致条件: <京都 && 寺>");
    for (std::int32_t theme = 6000; theme <= 6005; ++theme) {
        look::load_theme(theme);
        const look::BannerColors colors = look::banner_colors(look::palette());
        const Picture picture(banner_);
        const auto at = [&](int x, int y) { return gui::pixel(picture.buffer, x, y); };
        const int right = picture.buffer.width - 1;
        EXPECT_EQ(at(0, 0), colors.frame) << theme;
        EXPECT_EQ(at(right, 79), colors.frame) << theme;
        EXPECT_EQ(at(right, 40), colors.frame) << theme;
        EXPECT_EQ(at(1, 1), colors.fill) << theme;
        EXPECT_EQ(at(5, 25), colors.fill) << theme;
        EXPECT_EQ(at(6, 25), colors.line) << theme;
        EXPECT_EQ(at(right - 6, 25), colors.line) << theme;
        EXPECT_EQ(at(right - 5, 25), colors.fill) << theme;
        EXPECT_TRUE(picture.has(white, 6, 24)) << theme;
        EXPECT_TRUE(picture.has(white, 40, 62)) << theme;
        EXPECT_TRUE(picture.has(colors.text, 62, 79)) << theme;
        EXPECT_FALSE(picture.has(white, 26, 40)) << theme;
    }
}

TEST_F(Banner, LeavesMarginsAtBothSidesOfItsText)
{
    banner_.show(L"一致条件: <全文検索 && 見出し>");
    const Picture picture(banner_);
    const look::Color fill = look::banner_colors(look::palette()).fill;
    for (int y = 62; y < 79; ++y) {
        for (int x = 1; x < 10; ++x) {
            EXPECT_EQ(gui::pixel(picture.buffer, x, y), fill);
            EXPECT_EQ(gui::pixel(picture.buffer, picture.buffer.width - 1 - x, y), fill);
        }
    }
}

TEST_F(Banner, ReachesTheScreenInOneCopy)
{
    banner_.show(L"x");
    gui::pump();
    const gui::ScreenCopies copies;
    InvalidateRect(banner_.hwnd(), nullptr, TRUE);
    UpdateWindow(banner_.hwnd());
    EXPECT_EQ(copies.count(), 1);
}

TEST_F(Banner, WithAShortTextHasRoomForItsTitle)
{
    banner_.show(L"一致条件: .");
    const Picture picture(banner_);
    const look::BannerColors colors = look::banner_colors(look::palette());
    for (int y = 1; y < 25; ++y) {
        for (int x = picture.buffer.width - 6; x < picture.buffer.width - 1; ++x)
            EXPECT_EQ(gui::pixel(picture.buffer, x, y), colors.fill);
    }
}

TEST_F(Banner, CostsNoHandles)
{
    banner_.show(L"一致条件: x");
    banner_.show_cmd(SW_SHOWNA);
    const gui::GdiCrowd crowd(few);
    for (int i = 0; i < 15 * few; ++i) {
        InvalidateRect(banner_.hwnd(), nullptr, FALSE);
        UpdateWindow(banner_.hwnd());
    }
    gui::expect_handles_to_spare(few / 10);
}

} // namespace
