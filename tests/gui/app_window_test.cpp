// The main window: its class and place, the messages it rewrites, its colours and the divider between its
// boxes.
#include "app/control_rows.hpp"
#include "app/main_layout.hpp"
#include "look/theme.hpp"
#include "tests/support/gui_app.hpp"
#include <windowsx.h>

namespace {

namespace command = core::command;
using gui::AppWindow;

constexpr std::array box_ids{ int{ command::box_1 }, int{ command::box_2 }, int{ command::box_3 } };

RECT in_client(HWND control)
{
    RECT rect{};
    GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

class LaidOut : public AppWindow {
protected:
    app::MainLayout layout()
    {
        const SIZE client = window().client_size();
        return app::main_layout({ client.cx, client.cy });
    }
};

void expect_rect(const RECT& actual, const app::Rect& expected)
{
    EXPECT_EQ((app::Rect{ actual.left, actual.top, actual.right, actual.bottom }), expected);
}

TEST_F(AppWindow, HasItsOwnClassAndAFixedSizeInTheMiddleOfTheScreen)
{
    open({ page(L"a") });
    wchar_t name[64] = {};
    GetClassNameW(window().hwnd(), name, 64);
    EXPECT_EQ(std::wstring(name), L"ovlib_appwnd[310]");
    const RECT rect = window().rect();
    EXPECT_EQ(rect.right - rect.left, 1380);
    EXPECT_EQ(rect.bottom - rect.top, 854);
    EXPECT_EQ(rect.left, (GetSystemMetrics(SM_CXSCREEN) - 1380) / 2);
    EXPECT_EQ(rect.top, (GetSystemMetrics(SM_CYSCREEN) - 854) / 2);
    const auto style = static_cast<DWORD>(GetWindowLongW(window().hwnd(), GWL_STYLE));
    EXPECT_EQ(style & (WS_THICKFRAME | WS_MAXIMIZEBOX), 0u);
    EXPECT_NE(style & WS_CLIPCHILDREN, 0u);
    EXPECT_NE(window().class_icon(), nullptr);
}

TEST_F(AppWindow, HasTheThreeBoxesAtTheirPlaces)
{
    open({ page(L"a") });
    const SIZE client = window().client_size();
    const auto boxes = app::main_layout({ client.cx, client.cy }).boxes;
    expect_rect(in_client(box(command::box_1)), boxes.first);
    expect_rect(in_client(box(command::box_2)), boxes.second);
    expect_rect(in_client(box(command::box_3)), boxes.third);
    for (const int id : box_ids)
        EXPECT_TRUE(IsWindowVisible(box(id)));
}

TEST_F(AppWindow, PutsANewBooksDividerBelowTheTopOfBox1)
{
    open({ page(L"a") });
    EXPECT_EQ(book().header.divider, 112);
}

TEST_F(AppWindow, MovesADividerOutsideItsRangeBackIntoIt)
{
    book::Book high = book_of({ page(L"a") });
    high.header.divider = -300;
    open(high);
    EXPECT_EQ(book().header.divider, 32);
    EXPECT_EQ(in_client(box(command::box_1)).bottom, 32);
    close();
    high.header.divider = 2147483647;
    open(high);
    EXPECT_EQ(book().header.divider, 708 - 36);
    EXPECT_EQ(in_client(box(command::box_2)).top, 676);
}

TEST_F(LaidOut, MovesTheDividerWithAMouseThatPressedAGap)
{
    open({ page(L"a") });
    const app::PageBoxes boxes = layout().boxes;
    const auto mouse = [&](UINT message, int y) {
        window().send(message, 0, MAKELPARAM((boxes.first.left + boxes.first.right) / 2, y));
    };
    mouse(WM_LBUTTONDOWN, app::gap_rect(boxes, app::BoxGap::upper).top + 2);
    EXPECT_EQ(GetCapture(), window().hwnd());
    mouse(WM_MOUSEMOVE, 300);
    EXPECT_EQ(book().header.divider, 300);
    EXPECT_EQ(in_client(box(command::box_2)).top, 304);
    EXPECT_EQ(in_client(box(command::box_3)).top, 336);
    mouse(WM_LBUTTONUP, 310);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(book().header.divider, 310) << "the release is the last move";
    mouse(WM_MOUSEMOVE, 400);
    EXPECT_EQ(book().header.divider, 310);

    mouse(WM_LBUTTONDOWN, app::gap_rect(app::with_divider(boxes, 310), app::BoxGap::lower).top + 2);
    mouse(WM_MOUSEMOVE, 234);
    EXPECT_EQ(book().header.divider, 202);
    window().send(WM_KILLFOCUS, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
}

// A gap over the old place of a box shows the box's text until it is painted.
TEST_F(AppWindow, RepaintsBothGapsWhenTheDividerMoves)
{
    open({ page(L"a") });
    window().show(true);
    gui::pump();
    ASSERT_FALSE(GetUpdateRect(window().hwnd(), nullptr, FALSE));
    const auto mouse = [&](UINT message, int y) { window().send(message, 0, MAKELPARAM(300, y)); };
    mouse(WM_LBUTTONDOWN, 114);
    mouse(WM_MOUSEMOVE, 300);
    HRGN const stale = CreateRectRgn(0, 0, 0, 0);
    GetUpdateRgn(window().hwnd(), stale, FALSE);
    for (const int gap : { 300, 332 }) {
        for (const int y : { gap, gap + 3 }) {
            EXPECT_TRUE(PtInRegion(stale, 12, y)) << y;
            EXPECT_TRUE(PtInRegion(stale, 661, y)) << y;
        }
    }
    DeleteObject(stale);
    mouse(WM_LBUTTONUP, 300);
}

TEST_F(LaidOut, LeavesTheMouseToAWindowThatTookTheCaptureDuringADrag)
{
    open({ page(L"a") });
    const app::Rect gap = app::gap_rect(layout().boxes, app::BoxGap::upper);
    window().send(WM_LBUTTONDOWN, 0, MAKELPARAM(gap.left + 50, gap.top + 1));
    ASSERT_EQ(GetCapture(), window().hwnd());
    SetCapture(box(command::box_1));
    EXPECT_EQ(GetCapture(), box(command::box_1));
    window().send(WM_MOUSEMOVE, 0, MAKELPARAM(gap.left + 50, gap.top + 100));
    EXPECT_EQ(book().header.divider, gap.top) << "the drag is over";
    ReleaseCapture();
}

TEST_F(LaidOut, IsMovedByItsBackgroundAlsoBeyondTheTopOfTheScreen)
{
    open({ page(L"a") });
    const RECT before = window().rect();
    const app::MainLayout at = layout();
    const POINT grip{ (at.boxes.first.right + at.file_pane.left) / 2, at.boxes.first.top };
    POINT screen = grip;
    ClientToScreen(window().hwnd(), &screen);
    const auto mouse = [&](UINT message, LONG x, LONG y) { window().send(message, 0, MAKELPARAM(x, y)); };
    window().send(WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(screen.x, screen.y));
    ASSERT_EQ(GetCapture(), window().hwnd());
    mouse(WM_MOUSEMOVE, grip.x - 60, grip.y - before.top - 200);
    mouse(WM_MOUSEMOVE, grip.x + 10, grip.y + 5); // relative to the window's new position
    const RECT after = window().rect();
    EXPECT_EQ(after.left, before.left - 50);
    EXPECT_EQ(after.top, -195);
    EXPECT_EQ(after.right - after.left, before.right - before.left);
    mouse(WM_LBUTTONUP, grip.x, grip.y + 7);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(window().rect().top, -188) << "the release is the last move";
    mouse(WM_MOUSEMOVE, grip.x + 30, grip.y + 30);
    EXPECT_EQ(window().rect().top, -188);
}

TEST_F(LaidOut, ReportsItsBackgroundAsACaptionAndItsGapsAsClientArea)
{
    open({ page(L"a") });
    const app::MainLayout at = layout();
    const auto hit = [this](LONG x, LONG y) {
        POINT screen{ x, y };
        ClientToScreen(window().hwnd(), &screen);
        return window().send(WM_NCHITTEST, 0, MAKELPARAM(screen.x, screen.y));
    };
    EXPECT_EQ(hit((at.boxes.first.right + at.file_pane.left) / 2, at.boxes.first.top), HTCAPTION);
    for (const app::BoxGap gap : { app::BoxGap::upper, app::BoxGap::lower }) {
        const app::Rect rect = app::gap_rect(at.boxes, gap);
        EXPECT_EQ(hit(rect.left, rect.top), HTCLIENT);
        EXPECT_EQ(hit(rect.right, rect.top), HTCAPTION);
    }
}

TEST_F(AppWindow, TreatsADoubleClickOnAControlAsASecondClick)
{
    open({ page(L"一二三四五六七八九十\r\n") });
    SendMessageW(box(command::box_1), EM_SETSEL, 2, 2);
    MSG message{ box(command::box_1), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(60, 8), 0, {} };
    window().dispatch(message);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_LBUTTONDOWN));
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(
        box(command::box_1), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, end);
    EXPECT_NE(start, 2u);
    SendMessageW(box(command::box_1), WM_LBUTTONUP, 0, MAKELPARAM(60, 8));
    MSG on_frame{ window().hwnd(), WM_LBUTTONDBLCLK, 0, MAKELPARAM(700, 8), 0, {} };
    window().dispatch(on_frame);
    EXPECT_EQ(on_frame.message, static_cast<UINT>(WM_LBUTTONDBLCLK));
}

TEST_F(AppWindow, GivesTheAcceleratorToTheFocusedBoxWhichSaves)
{
    open({ page(L"a\r\n") });
    SetFocus(box(command::box_1));
    type(command::box_1, L"い");
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    MSG message{ box(command::box_1), WM_KEYDOWN, 'S', 0x001F0001, 0, {} };
    window().dispatch(message);
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    EXPECT_FALSE(is_modified(command::box_1));
    EXPECT_EQ(saved().pages[0].text[0], L"いa\r\n");
    EXPECT_EQ(GetFocus(), box(command::box_1));
}

TEST_F(AppWindow, GivesTheFocusToTheFieldThatHadItLast)
{
    open({ page(L"a\r\n") });
    EXPECT_EQ(GetFocus(), box(command::box_1)) << "at the start";
    for (const int field : app::typing_fields) {
        SetFocus(box(field));
        SetFocus(box(command::file_combo));
        SetFocus(window().hwnd());
        EXPECT_EQ(GetFocus(), box(field)) << field;
    }
}

TEST_F(AppWindow, GivesTheFocusToAnotherFieldIfTheLastOneCannotTakeIt)
{
    open({ page(L"a\r\n") });
    SetFocus(box(command::box_2));
    EnableWindow(box(command::box_2), FALSE);
    ShowWindow(box(command::box_3), SW_HIDE);
    SetFocus(window().hwnd());
    EXPECT_EQ(GetFocus(), box(command::search_box));
}

TEST_F(AppWindow, KeepsTheFocusInABoxThatIsCreatedAgain)
{
    book::Book wrapped = book_of({ page(L"a\r\n") });
    wrapped.header.wrap_text = 1;
    ASSERT_TRUE(wrapped.save_to(file(L"折返し.bok")));
    ASSERT_TRUE(book_of({ page(L"a\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok"), file(L"折返し.bok") });
    ASSERT_TRUE(create());
    for (const int id : { int{ command::box_1 }, int{ command::box_3 } }) {
        SetFocus(box(id));
        HWND const before = box(id);
        command(command::first_history_entry + 1); // the other Book
        ASSERT_NE(box(id), before);
        EXPECT_EQ(GetFocus(), box(id)) << id;
    }
}

TEST_F(AppWindow, IgnoresTheAcceleratorsCommandItself)
{
    open({ page(L"a\r\n") });
    type(command::box_1, L"い");
    command(command::accelerator_save, 0, 1);
    EXPECT_TRUE(is_modified(command::box_1));
    EXPECT_EQ(saved().pages[0].text[0], L"a\r\n");
}

class BoxColors : public AppWindow {
protected:
    // The result of a colour message and what it sets.
    struct Answer {
        LRESULT brush = 0;
        COLORREF text = 0;
        COLORREF back = 0;
        int mode = 0;

        friend bool operator==(const Answer&, const Answer&) = default;
    };
    template <class Ask> static Answer answer_of(Ask ask)
    {
        HDC const dc = CreateCompatibleDC(nullptr);
        SetBkMode(dc, TRANSPARENT);
        Answer answer;
        answer.brush = ask(reinterpret_cast<WPARAM>(dc));
        answer.text = GetTextColor(dc);
        answer.back = GetBkColor(dc);
        answer.mode = GetBkMode(dc);
        DeleteDC(dc);
        return answer;
    }
    Answer ask(UINT message, HWND control)
    {
        return answer_of(
            [&](WPARAM dc) { return window().send(message, dc, reinterpret_cast<LPARAM>(control)); });
    }
    Answer system_answer(UINT message, HWND control)
    {
        return answer_of([&](WPARAM dc) {
            return DefWindowProcW(window().hwnd(), message, dc, reinterpret_cast<LPARAM>(control));
        });
    }
    static COLORREF brush_color(LRESULT brush)
    {
        LOGBRUSH record{};
        GetObjectW(reinterpret_cast<HBRUSH>(brush), sizeof record, &record);
        return record.lbColor;
    }
};

TEST_F(BoxColors, AreThePagesOwnWithoutTheirHighByte)
{
    book::Page colored = page(L"a");
    colored.text_color = { 0x01112233, 0x445566, 0x778899 };
    colored.back_color = { 0xFFEBFAFF, 0xC0FFEE, 0x102030 };
    open({ colored });
    const Answer first = ask(WM_CTLCOLOREDIT, box(command::box_1));
    EXPECT_EQ(first.text, 0x112233u);
    EXPECT_EQ(first.back, 0xEBFAFFu);
    EXPECT_EQ(first.mode, OPAQUE);
    EXPECT_EQ(brush_color(first.brush), 0xEBFAFFu);
    EXPECT_EQ(ask(WM_CTLCOLOREDIT, box(command::box_2)).back, 0xC0FFEEu);
    EXPECT_EQ(ask(WM_CTLCOLOREDIT, box(command::box_3)).text, 0x778899u);
}

TEST_F(BoxColors, OfAReadOnlyBoxDimTheText)
{
    open({ page(L"a") });
    const Answer answer = ask(WM_CTLCOLORSTATIC, box(command::box_1));
    EXPECT_EQ(answer.back, 0xFFFFFFu);
    EXPECT_EQ(answer.text, RGB(74, 74, 74));
}

TEST_F(BoxColors, OfOtherEditControlsAreTheThemes)
{
    open({ page(L"a") });
    HWND const other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD, 0, 0, 10, 10, window().hwnd(), nullptr,
        GetModuleHandleW(nullptr), nullptr);
    command(6002);
    const Answer answer = ask(WM_CTLCOLOREDIT, other);
    EXPECT_EQ(answer.text, 0xFFFFFFu);
    EXPECT_EQ(answer.back, 0x141414u);
    DestroyWindow(other);
}

TEST_F(BoxColors, AreLeftToTheSystemWithoutACurrentPage)
{
    book::Page colored = page(L"a");
    colored.text_color.fill(0x445566);
    colored.back_color.fill(0xC0FFEE);
    book::Book lost = book_of({ colored });
    lost.header.position = ~std::uint64_t{ 0 };
    open(lost);
    command(look::theme_dark);
    for (const UINT message : { WM_CTLCOLOREDIT, WM_CTLCOLORSTATIC }) {
        for (const int id : box_ids)
            EXPECT_EQ(ask(message, box(id)), system_answer(message, box(id))) << message << ' ' << id;
    }
}

TEST_F(BoxColors, CostNoHandles)
{
    open({ page(L"a") });
    HDC const dc = CreateCompatibleDC(nullptr);
    for (int i = 0; i < 70000; ++i) {
        const UINT message = i % 2 ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
        HWND const control = box(box_ids[static_cast<std::size_t>(i % 3)]);
        ASSERT_NE(window().send(message, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(control)), 0)
            << i;
    }
    DeleteDC(dc);
    const ovlib::GDI::Brush still_possible{ CreateSolidBrush(0) };
    EXPECT_TRUE(still_possible);
}

TEST_F(AppWindow, PaintsItsBackgroundInThePanelsColorWithoutLosingHandles)
{
    open({ page(L"a") });
    const ovlib::ClientDC screen{ window() };
    const ovlib::MemDC dc{ screen.handle() };
    const ovlib::GDI::Bitmap bitmap{ CreateCompatibleBitmap(screen.handle(), 20, 20) };
    const ovlib::ObjectSelection selected{ dc, bitmap };
    EXPECT_EQ(window().send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.handle()), 0), 1);
    EXPECT_EQ(GetPixel(dc.handle(), 5, 5), 0xD7D2D2u);
    for (int i = 0; i < 70000; ++i)
        window().send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.handle()), 0);
    EXPECT_TRUE(ovlib::GDI::Brush{ CreateSolidBrush(0) });
}

TEST_F(AppWindow, FollowsAThemeAndStoresItInTheBook)
{
    open({ page(L"a") });
    command(6001);
    EXPECT_EQ(book().header.theme, 6001);
    EXPECT_EQ(look::palette().panel_back, ovlib::Color{ 0xA0C8E0 });
    command(6006);
    EXPECT_EQ(book().header.theme, 6005);
    EXPECT_EQ(look::palette().link_text, ovlib::Color{ 0xFF0000 });
    EXPECT_EQ(book().pages[0].back_color[0], 0xFFFFFFu);
    command(6002);
    command(command::apply_theme_to_pages);
    EXPECT_EQ(book().pages[0].back_color[0], 0x141414u);
    EXPECT_EQ(book().pages[0].text_color[2], 0xFFFFFFu);
}

TEST_F(AppWindow, CorrectsAnUnknownThemeOfABook)
{
    for (const std::int32_t theme : { 0, 7000, -1 }) {
        book::Book stray = book_of({ page(L"a") });
        stray.header.theme = theme;
        open(stray);
        EXPECT_EQ(book().header.theme, 6000) << theme;
        close();
    }
}

TEST_F(AppWindow, GivesTheBoxesTheFontsOfTheBook)
{
    book::Book with_fonts = book_of({ page(L"a") });
    with_fonts.header.fonts[0].height = -31;
    with_fonts.header.fonts[0].face_name.fill(u'字'); // without a terminating zero
    with_fonts.header.fonts[1].height = -30000;
    open(with_fonts);
    const auto font_of = [&](int id) {
        return reinterpret_cast<HFONT>(SendMessageW(box(id), WM_GETFONT, 0, 0));
    };
    LOGFONTW record{};
    ASSERT_NE(GetObjectW(font_of(command::box_1), sizeof record, &record), 0);
    EXPECT_EQ(record.lfHeight, -31);
    EXPECT_EQ(record.lfFaceName[31], L'\0');
    EXPECT_EQ(font_of(command::box_2), nullptr);
    EXPECT_EQ(book().header.fonts[1].height, -30000);
    EXPECT_EQ(book().header.fonts[0].face_name[31], u'字');
}

} // namespace
