// The viewer's keys, wheel, mouse, menu and frame.
#include "core/command_ids.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_menu.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_viewer.hpp"

namespace {

namespace command = core::command;
using gui::MenuDriver;
using gui::PictureDraws;
using gui::ShownMenu;
using media::mode_actual_size;
using media::mode_fit;
using test_support::plain;
using test_support::png_file;
using Ids = std::vector<int>;

constexpr ovlib::Color red = ovlib::rgb(255, 0, 0);

class ViewerInput : public gui::ViewerTest {
protected:
    bool holds_mouse() { return GetCapture() == viewer().hwnd(); }
    std::int64_t hit(int x, int y)
    {
        POINT at{ x, y };
        ClientToScreen(viewer().hwnd(), &at);
        return viewer().send(WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y));
    }
    // The texts of the menu, greyed ones with a minus, marked ones with a dot.
    std::vector<std::wstring> menu_texts(const std::function<void()>& open)
    {
        std::vector<std::wstring> texts;
        MenuDriver driver{ [&](const ShownMenu& menu) {
            for (int i = 0; i < GetMenuItemCount(menu.menu()); ++i)
                texts.push_back(
                    menu.text(i) + (menu.is_grey(i) ? L"-" : L"") + (menu.is_checked(i) ? L"." : L""));
            menu.leave();
        } };
        open();
        EXPECT_TRUE(driver.finish());
        return texts;
    }
};

TEST_F(ViewerInput, SendsTheFileCommandsToTheMainWindow)
{
    open_picture(10, 10);
    for (const int id : { 2531, 2532, 2533 }) {
        command(id);
        EXPECT_EQ(parent().taken(), Ids{ id });
        EXPECT_EQ(parent().last_lparam, reinterpret_cast<std::intptr_t>(viewer().hwnd()));
    }
    command(2534);
    command(2530);
    EXPECT_EQ(parent().taken(), Ids{});
}

TEST_F(ViewerInput, TheWheelChangesTheFileAsInThePane)
{
    for (const int mode : { mode_fit, mode_actual_size }) {
        open_picture(10, 10, mode);
        wheel(WHEEL_DELTA);
        EXPECT_EQ(parent().taken(), Ids{ command::previous_file });
        wheel(-WHEEL_DELTA);
        EXPECT_EQ(parent().taken(), Ids{ command::next_file });
        wheel(0);
        EXPECT_EQ(parent().taken(), Ids{});
    }
}

TEST_F(ViewerInput, CtrlAndTheWheelZoomAndMoveNoEntry)
{
    open_picture(10, 10);
    wheel(WHEEL_DELTA, MK_CONTROL);
    EXPECT_EQ(viewer().zoom(), 125);
    wheel(-WHEEL_DELTA, MK_CONTROL);
    wheel(-WHEEL_DELTA, MK_CONTROL);
    EXPECT_EQ(viewer().zoom(), 75);
    wheel(0, MK_CONTROL);
    wheel(30, MK_CONTROL);
    EXPECT_EQ(viewer().zoom(), 75) << "no whole step yet";
    EXPECT_EQ(parent().taken(), Ids{});
}

TEST_F(ViewerInput, ZoomKeysStepAtActualSize)
{
    open_picture(10, 10);
    key(VK_ADD);
    key(VK_OEM_PLUS);
    EXPECT_EQ(viewer().zoom(), 150);
    key(VK_OEM_MINUS);
    key(VK_SUBTRACT);
    key(VK_SUBTRACT);
    EXPECT_EQ(viewer().zoom(), 75);
    key('0');
    EXPECT_EQ(viewer().zoom(), 100);
    key(VK_ADD);
    key(VK_NUMPAD0);
    EXPECT_EQ(viewer().zoom(), 100);
}

TEST_F(ViewerInput, AZoomKeyInFitModeStepsFromTheFittedSize)
{
    open_picture(1000, 1000, mode_fit); // fitted at 30 %
    key(VK_ADD);
    EXPECT_EQ(mode(), mode_actual_size);
    EXPECT_EQ(viewer().zoom(), 55);
    EXPECT_EQ(viewer().text(), L"絵.png   [ 1000 x 1000,  55% ]");
    command(mode_fit);
    wheel(-WHEEL_DELTA, MK_CONTROL);
    EXPECT_EQ(viewer().zoom(), 10);
    command(mode_fit);
    key('0');
    EXPECT_EQ(mode(), mode_actual_size);
    EXPECT_EQ(viewer().zoom(), 100);
}

TEST_F(ViewerInput, KeysChangeTheFileAndCloseTheWindow)
{
    for (const int mode : { mode_fit, mode_actual_size }) {
        open_picture(10, 10, mode);
        key(VK_PRIOR);
        EXPECT_EQ(parent().taken(), Ids{ command::previous_file });
        key(VK_NEXT);
        key(VK_SPACE);
        EXPECT_EQ(parent().taken(), (Ids{ command::next_file, command::next_file }));
        key('A');
        EXPECT_EQ(parent().taken(), Ids{});
        key(VK_ESCAPE);
        EXPECT_FALSE(viewer().is_visible());
        EXPECT_FALSE(viewer().is_open());
        EXPECT_TRUE(viewer().is_window());
    }
}

TEST_F(ViewerInput, ArrowKeysScrollAtActualSize)
{
    open_picture(1000, 900);
    const int x = across();
    const int y = down();
    key(VK_LEFT);
    EXPECT_EQ(across(), x - 8);
    key(VK_RIGHT);
    key(VK_RIGHT);
    EXPECT_EQ(across(), x + 8);
    key(VK_UP);
    EXPECT_EQ(down(), y - 8);
    key(VK_DOWN);
    key(VK_DOWN);
    EXPECT_EQ(down(), y + 8);
}

TEST_F(ViewerInput, ManyMovesAreMergedIntoFewDraws)
{
    open_picture(1000, 900);
    // Only the posted messages and the paint: a message of the real mouse has no button and would end the
    // drag.
    const auto draws_of = [&](UINT message, WPARAM wparam, LPARAM (*lparam)(int)) {
        gui::pump();
        press_picture(300, 200);
        const int before = across();
        PictureDraws draws;
        for (int i = 0; i < 100; ++i)
            viewer().send(message, wparam, lparam(i));
        EXPECT_NE(across(), before);
        EXPECT_EQ(draws.taken(), 0) << "before the paint";
        update(viewer());
        release_picture();
        return draws.taken();
    };
    EXPECT_EQ(
        draws_of(WM_MOUSEMOVE, MK_LBUTTON, [](int i) -> LPARAM { return MAKELPARAM(300 - i, 200 - i); }), 1);
    EXPECT_EQ(draws_of(WM_KEYDOWN, VK_LEFT, [](int) -> LPARAM { return 0; }), 1);
}

TEST_F(ViewerInput, AHeldPictureFollowsTheMouse)
{
    open_picture(1000, 900);
    const int x = across();
    const int y = down();
    press_picture(100, 100);
    EXPECT_TRUE(holds_mouse());
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_HAND));
    drag_picture(90, 130);
    EXPECT_EQ(across(), x + 10);
    EXPECT_EQ(down(), y - 30);
    drag_picture(85, 130);
    EXPECT_EQ(across(), x + 15);
    release_picture();
    EXPECT_FALSE(holds_mouse());
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
    drag_picture(0, 0);
    EXPECT_EQ(across(), x + 15);
}

TEST_F(ViewerInput, AHeldPictureMovesOnlyWhereItHasABar)
{
    open_picture(100, 900);
    const int y = down();
    press_picture(100, 100);
    drag_picture(20, 80);
    EXPECT_EQ(down(), y + 20);
    zoom_to(1000);
    const SCROLLINFO info = bar(SB_HORZ);
    EXPECT_EQ(info.nPos, (info.nMax + 1 - static_cast<int>(info.nPage)) / 2) << "centred until it has a bar";
}

TEST_F(ViewerInput, ADragEndsWithTheCaptureTheFocusOrTheButton)
{
    open_picture(1000, 900);
    const auto expect_ended = [&](const char* by) {
        const int x = across();
        drag_picture(40, 40);
        EXPECT_EQ(across(), x) << by;
        EXPECT_FALSE(holds_mouse()) << by;
    };
    press_picture(100, 100);
    SetCapture(parent().hwnd());
    EXPECT_EQ(GetCapture(), parent().hwnd()) << "a capture that is lost is left alone";
    expect_ended("capture");
    ReleaseCapture();
    press_picture(100, 100);
    viewer().send(WM_KILLFOCUS, 0, 0);
    expect_ended("focus");
    press_picture(100, 100);
    move(60, 100);
    expect_ended("a move without the button");
    press_picture(100, 100);
    command(mode_fit);
    EXPECT_FALSE(holds_mouse());
    press_picture(100, 100);
    EXPECT_FALSE(holds_mouse()) << "in fit mode nothing can be dragged";
    command(mode_actual_size);
    press_picture(100, 100);
    viewer().send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(holds_mouse());
}

TEST_F(ViewerInput, ADoubleClickAtActualSizeGoesToFit)
{
    open_picture(1000, 900);
    press_picture(200, 200);
    release_picture();
    viewer().send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(200, 200));
    EXPECT_EQ(mode(), mode_fit);
    EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
    viewer().send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(200, 200));
    EXPECT_EQ(mode(), mode_fit);
    EXPECT_NE(GetClassLongPtrW(viewer().hwnd(), GCL_STYLE) & CS_DBLCLKS, 0u);
}

TEST_F(ViewerInput, APressAfterADragIsNoDoubleClick)
{
    open_picture(1000, 900);
    const int x = across();
    press_picture(200, 200);
    drag_picture(150, 200);
    release_picture();
    viewer().send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(200, 200));
    EXPECT_EQ(mode(), mode_actual_size);
    drag_picture(180, 200);
    EXPECT_EQ(across(), x + 70) << "it is another drag";
    release_picture();
    press_picture(100, 100); // the distance counts from the latest press
    drag_picture(101, 100);
    release_picture();
    viewer().send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(101, 100));
    EXPECT_EQ(mode(), mode_fit) << "a hand may tremble";
}

TEST_F(ViewerInput, AButtonThatWasOnlyPressedGivesTheFocusBack)
{
    open_picture(1000, 900);
    ASSERT_TRUE(gui::bring_to_front(viewer()));
    move(10, 10);
    SetFocus(button(1029).hwnd());
    move(200, 200);
    EXPECT_EQ(GetFocus(), viewer().hwnd()) << "the mouse came back from it";
    move(10, 10);
    SetFocus(button(1029).hwnd());
    press_picture(200, 200);
    EXPECT_EQ(GetFocus(), viewer().hwnd());
    release_picture();
    move(10, 10);
    SetFocus(button(1029).hwnd());
    wheel(WHEEL_DELTA, MK_CONTROL);
    EXPECT_EQ(GetFocus(), viewer().hwnd());
}

TEST_F(ViewerInput, StepsThatChangeNothingDrawNothing)
{
    open_picture(1000, 900);
    PictureDraws draws;
    key('0');
    gui::pump();
    EXPECT_EQ(draws.taken(), 0) << "100 % already";
    zoom_to(media::smallest_zoom);
    gui::pump();
    draws.taken();
    key(VK_SUBTRACT);
    wheel(-WHEEL_DELTA, MK_CONTROL);
    gui::pump();
    EXPECT_EQ(draws.taken(), 0);
    EXPECT_EQ(viewer().zoom(), media::smallest_zoom);
}

TEST_F(ViewerInput, CtrlThatOnlyTheKeyboardKnowsZoomsToo)
{
    open_picture(1000, 900);
    const gui::HeldKey ctrl{ VK_CONTROL };
    ASSERT_TRUE(gui::pump_until([] { return GetAsyncKeyState(VK_CONTROL) < 0; }));
    wheel(WHEEL_DELTA);
    EXPECT_EQ(viewer().zoom(), 125);
}

TEST_F(ViewerInput, ButtonsShowWhileTheMouseIsAtTheTop)
{
    open_picture(1000, 900);
    EXPECT_FALSE(button(1029).is_visible());
    move(10, 49);
    for (const int id : { 1029, 1030, 1031 })
        EXPECT_TRUE(button(id).is_visible()) << id;
    const std::array<RECT, 3> places{ RECT{ 4, 4, 24, 24 }, { 26, 4, 46, 24 }, { 52, 4, 80, 24 } };
    const wchar_t* const labels[] = { L"＋", L"－", L"1x" };
    for (int i = 0; i < 3; ++i) {
        const RECT place = button(1029 + i).rect();
        EXPECT_TRUE(EqualRect(&place, &places[static_cast<std::size_t>(i)])) << i;
        EXPECT_EQ(button(1029 + i).text(), labels[i]);
    }
    gui::pump();
    gui::MessageCount paints{ WM_DRAWITEM };
    move(12, 30);
    gui::pump();
    EXPECT_EQ(paints.of(viewer().hwnd()), 0) << "only a change repaints them";
    move(10, 50);
    EXPECT_FALSE(button(1029).is_visible());
    move(10, 5);
    command(mode_fit);
    EXPECT_FALSE(button(1029).is_visible());
    move(10, 5);
    EXPECT_FALSE(button(1029).is_visible());
}

TEST_F(ViewerInput, ButtonsAreNotPaintedOver)
{
    open_picture(1000, 900);
    move(10, 10);
    viewer().draw_anew();
    EXPECT_EQ(on_screen(90, 14), red);
    EXPECT_NE(on_screen(14, 6), red);
    EXPECT_NE(on_screen(60, 6), red);
}

TEST_F(ViewerInput, APressedButtonGivesTheFocusBack)
{
    open_picture(1000, 900);
    ASSERT_TRUE(gui::bring_to_front(viewer()));
    move(10, 10);
    button(1031).set_focus();
    command(1029);
    EXPECT_EQ(GetFocus(), viewer().hwnd());
    button(1031).set_focus();
    command(1031);
    EXPECT_FALSE(button(1031).is_enabled());
    EXPECT_EQ(GetFocus(), viewer().hwnd());
    EXPECT_EQ(viewer().zoom(), 100);
    viewer().send_command(1029, BN_SETFOCUS, 0);
    EXPECT_EQ(viewer().zoom(), 100) << "other notifications do not zoom";
    command(mode_fit);
    command(1029);
    EXPECT_EQ(mode(), mode_fit) << "nor does a hidden button";
}

TEST_F(ViewerInput, TheFittedPictureIsACaption)
{
    open_picture(10, 10, mode_fit);
    EXPECT_EQ(hit(200, 150), HTCAPTION);
    EXPECT_EQ(hit(0, 0), HTCAPTION);
    EXPECT_EQ(hit(200, -10), HTCAPTION) << "the real one";
    EXPECT_EQ(hit(area_width + 1, 150), HTRIGHT);
    const RECT outer = viewer().rect();
    EXPECT_EQ(viewer().send(WM_NCHITTEST, 0, MAKELPARAM(outer.right - 12, outer.top + 12)), HTCLOSE);
    viewer().maximize();
    EXPECT_EQ(hit(200, 150), HTCLIENT);
    viewer().restore();
    command(mode_actual_size);
    EXPECT_EQ(hit(200, 150), HTCLIENT);
    core::settings().view_mode = 7;
    EXPECT_EQ(hit(200, 150), HTCAPTION);
}

TEST_F(ViewerInput, TheMenuOpensOverThePictureInBothModes)
{
    const std::vector<std::wstring> rows{ L"実寸大", L"サイズをウィンドウに合わせる.", L"", L"先頭ファイル-",
        L"末尾ファイル-", L"ファイルを複製", L"", L"Viewer を閉じる" };
    open_picture(10, 10, mode_fit);
    POINT at{ 100, 100 };
    ClientToScreen(viewer().hwnd(), &at);
    const LPARAM place = MAKELPARAM(at.x, at.y);
    EXPECT_EQ(viewer().send(WM_NCRBUTTONDOWN, HTCAPTION, place), 0) << "swallowed, or no release follows";
    EXPECT_EQ(menu_texts([&] { viewer().send(WM_NCRBUTTONUP, HTCAPTION, place); }), rows);
    command(mode_actual_size);
    EXPECT_EQ(menu_texts([&] { viewer().send(WM_RBUTTONUP, 0, MAKELPARAM(100, 100)); })[0], L"実寸大.");
    EXPECT_EQ(menu_texts([&] { viewer().send(WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1)); }).size(), 8u);
}

TEST_F(ViewerInput, TheMenuFollowsTheListOfFiles)
{
    const std::wstring picture = write(L"絵.png", png_file(10, 10, plain(red)));
    show({ picture, L"無い.png", picture }, 1);
    open_at();
    const auto open = [&] { viewer().send(WM_RBUTTONUP, 0, 0); };
    auto texts = menu_texts(open);
    ASSERT_EQ(texts.size(), 8u);
    EXPECT_EQ(texts[3], L"先頭ファイル");
    EXPECT_EQ(texts[4], L"末尾ファイル");
    EXPECT_EQ(texts[5], L"ファイルを複製-");
    show({});
    texts = menu_texts(open);
    EXPECT_EQ(texts[3], L"先頭ファイル-");
    EXPECT_EQ(texts[4], L"末尾ファイル-");
    EXPECT_EQ(texts[5], L"ファイルを複製-");
    EXPECT_EQ(viewer().text(), L"Viewer");
    book().pages.clear();
    EXPECT_EQ(menu_texts(open)[3], L"先頭ファイル-");
}

TEST_F(ViewerInput, TheMenuSendsTheChosenCommand)
{
    open_picture(10, 10, mode_fit);
    const auto choose = [&](int row) {
        MenuDriver driver{ [row](const ShownMenu& menu) { menu.choose(row); } };
        viewer().send(WM_RBUTTONUP, 0, 0);
        ASSERT_TRUE(driver.finish());
        gui::pump();
    };
    choose(0);
    EXPECT_EQ(mode(), mode_actual_size);
    choose(1);
    EXPECT_EQ(mode(), mode_fit);
    choose(5);
    EXPECT_EQ(parent().taken(), Ids{ command::duplicate_file });
    choose(7);
    EXPECT_FALSE(viewer().is_visible());
}

TEST_F(ViewerInput, AnyMessageWithAnyNumbersIsHarmless)
{
    open_picture(1000, 900);
    unsigned state = 12'345;
    const auto next = [&] { return state = state * 1'664'525 + 1'013'904'223, state >> 8; };
    constexpr UINT messages[] = { WM_HSCROLL, WM_VSCROLL, WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP,
        WM_LBUTTONDBLCLK, WM_CAPTURECHANGED, WM_KILLFOCUS, WM_SIZE, WM_NCHITTEST, WM_EXITSIZEMOVE, WM_KEYDOWN,
        WM_MOUSEWHEEL, WM_MOUSELEAVE, WM_ERASEBKGND };
    constexpr int ids[] = { 2100, 2101, 2106, 1029, 1030, 1031, 2531, 2532, 2533, 1, 0xFFFF };
    for (int i = 0; i < 3'000; ++i) {
        if (i % 3 == 0)
            viewer().send(WM_COMMAND, MAKEWPARAM(ids[next() % std::size(ids)], next() % 3), next());
        else
            viewer().send(messages[next() % std::size(messages)], next(), next());
        if (i % 100 == 0)
            viewer().open();
    }
    gui::pump();
    viewer().open();
    EXPECT_TRUE(viewer().is_visible());
}

} // namespace
