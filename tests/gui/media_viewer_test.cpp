// The viewer: what it draws in both modes, its bars and buttons, and when it draws.
#include "ovlib/gui/system_geometry.hpp"
#include "tests/support/gui_viewer.hpp"
#include <limits>

extern "C" void* __imp_CreateDIBSection;

namespace {

using gui::PictureDraws;
using media::mode_actual_size;
using media::mode_fit;
using ovlib::Color;
using ovlib::rgb;
using test_support::halves;
using test_support::plain;
using test_support::png_file;

constexpr Color red = rgb(255, 0, 0);
constexpr Color green = rgb(0, 255, 0);
constexpr Color blue = rgb(0, 0, 255);
constexpr Color white = rgb(255, 255, 255);

class Viewer : public gui::ViewerTest {
protected:
    void open_gradient(int columns = 1000, int rows = 900)
    {
        open_with({ gradient(L"段.bmp", columns, rows) });
    }
    void expect_shade(int x, int y, int picture_x, int picture_y)
    {
        EXPECT_EQ(painted(x, y), shade(picture_x, picture_y)) << x << ' ' << y;
    }
};

TEST_F(Viewer, IsHiddenUntilItIsOpened)
{
    EXPECT_TRUE(viewer().is_window());
    EXPECT_FALSE(viewer().is_visible());
    EXPECT_FALSE(viewer().is_open());
    EXPECT_EQ(viewer().text(), L"");
    EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
    EXPECT_EQ(viewer().size().cx, 500);
    EXPECT_EQ(viewer().size().cy, 500);
    wchar_t name[64] = {};
    GetClassNameW(viewer().hwnd(), name, 64);
    EXPECT_EQ(std::wstring(name), L"ovlib_viewer[1]");
    EXPECT_EQ(GetWindow(viewer().hwnd(), GW_OWNER), parent().hwnd());
}

TEST_F(Viewer, FitsThePictureIntoItsWindow)
{
    open_picture(100, 100, mode_fit);
    EXPECT_EQ(viewer().canvas().area(), (platform::Size{ area_width, area_height }));
    // 300 x 300 in the middle of 400 x 300.
    EXPECT_EQ(painted(49, 150), ground());
    EXPECT_EQ(painted(50, 150), red);
    EXPECT_EQ(painted(198, 0), red);
    EXPECT_EQ(painted(202, 297), blue);
    EXPECT_EQ(painted(347, 150), blue);
    EXPECT_EQ(painted(350, 150), ground());
    EXPECT_EQ(on_screen(198, 10), red);
    EXPECT_EQ(on_screen(355, 10), ground());
    EXPECT_EQ(viewer().text(), L"絵.png   [ 100 x 100,  300% ]");
    resize_area(800, 60);
    EXPECT_EQ(painted(369, 30), ground());
    EXPECT_EQ(painted(370, 30), red);
    EXPECT_EQ(viewer().text(), L"絵.png   [ 100 x 100,  60% ]");
}

TEST_F(Viewer, CentresASmallPictureAtActualSizeWithoutBars)
{
    open_picture(100, 80);
    EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
    EXPECT_EQ(painted(149, 150), ground());
    EXPECT_EQ(painted(150, 150), red);
    EXPECT_EQ(painted(249, 189), blue);
    EXPECT_EQ(painted(249, 190), ground());
    EXPECT_EQ(viewer().text(), L"絵.png   [ 100 x 80,  100% ]");
    zoom_to(200);
    EXPECT_EQ(painted(99, 150), ground());
    EXPECT_EQ(painted(101, 71), red);
    EXPECT_EQ(painted(298, 228), blue);
    EXPECT_EQ(painted(298, 230), ground());
    EXPECT_EQ(viewer().text(), L"絵.png   [ 100 x 80,  200% ]");
}

TEST_F(Viewer, ScrollsALargePictureFromItsMiddle)
{
    open_gradient();
    ASSERT_TRUE(has_bars());
    const SIZE client = viewer().client_size();
    EXPECT_EQ(client.cx, area_width - GetSystemMetrics(SM_CXVSCROLL));
    EXPECT_EQ(client.cy, area_height - GetSystemMetrics(SM_CYHSCROLL));
    EXPECT_EQ(bar(SB_HORZ).nMin, 0);
    EXPECT_EQ(bar(SB_HORZ).nMax, 999);
    EXPECT_EQ(bar(SB_HORZ).nPage, static_cast<UINT>(client.cx));
    EXPECT_EQ(bar(SB_VERT).nMax, 899);
    EXPECT_EQ(across(), (1000 - client.cx) / 2);
    EXPECT_EQ(down(), (900 - client.cy) / 2);
    expect_shade(0, 0, across(), down());
    expect_shade(client.cx - 1, client.cy - 1, across() + client.cx - 1, down() + client.cy - 1);
    viewer().send(WM_HSCROLL, SB_LINERIGHT, 0);
    viewer().send(WM_VSCROLL, SB_PAGEUP, 0);
    EXPECT_EQ(across(), (1000 - client.cx) / 2 + 8);
    EXPECT_EQ(down(), (900 - client.cy) / 2 - 256);
    expect_shade(5, 7, across() + 5, down() + 7);
    viewer().send(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 3), 0);
    viewer().send(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 60'000), 0);
    expect_shade(0, 0, 3, 900 - client.cy);
    viewer().send(WM_HSCROLL, SB_ENDSCROLL, 0);
    viewer().send(WM_HSCROLL, MAKEWPARAM(SB_LEFT, 77), 0);
    EXPECT_EQ(across(), 3) << "no other code moves it";
}

TEST_F(Viewer, DrawsTheSamePixelsWhereverAnEnlargedPictureIsScrolled)
{
    open_gradient(500, 400);
    zoom_to(300);
    for (const int position : { 0, 1, 2, 100, 301, 1'117 }) {
        viewer().send(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, position), 0);
        viewer().send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, position / 2), 0);
        for (const int at : { 1, 100, 250 }) {
            const int x = across() + at;
            const int y = down() + at;
            // The middle of an enlarged pixel: its edges may be rounded either way.
            expect_shade(at + 1 - x % 3, at + 1 - y % 3, x / 3, y / 3);
        }
    }
    const SIZE client = viewer().client_size();
    viewer().send(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 60'000), 0);
    viewer().send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 60'000), 0);
    expect_shade(client.cx - 2, client.cy - 2, 499, 399);
}

TEST_F(Viewer, DecidesBothBarsTogetherWhateverWasShownBefore)
{
    const std::wstring large = write(L"大.png", png_file(900, 800, plain(green)));
    const std::wstring exact = write(L"等.png", png_file(area_width, area_height, plain(red)));
    const std::wstring wide = write(L"幅.png", png_file(area_width + 1, 100, plain(red)));
    open_with({ exact });
    EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
    for (int round = 0; round < 2; ++round) {
        show({ large });
        EXPECT_TRUE(has_bars());
        show({ exact });
        EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
        EXPECT_EQ(painted(0, 0), red);
        EXPECT_EQ(painted(area_width - 1, area_height - 1), red);
        show({ wide });
        EXPECT_TRUE(has_bar(WS_HSCROLL));
        EXPECT_FALSE(has_bar(WS_VSCROLL));
    }
}

TEST_F(Viewer, KeepsTheRelativePlaceAcrossZoomsAndSizes)
{
    open_gradient();
    viewer().send(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 60), 0);
    viewer().send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 60'000), 0);
    const auto ratio = [&](int which) {
        const SCROLLINFO info = bar(which);
        return static_cast<double>(info.nPos) / (info.nMax + 1 - static_cast<int>(info.nPage));
    };
    const double before = ratio(SB_HORZ);
    for (const int zoom : { 125, 500, 2000, 100 }) {
        zoom_to(zoom);
        EXPECT_NEAR(ratio(SB_HORZ), before, 0.002) << zoom;
        EXPECT_EQ(ratio(SB_VERT), 1.0) << zoom;
    }
    resize_area(600, 500);
    EXPECT_NEAR(ratio(SB_HORZ), before, 0.003);
    zoom_to(10);
    EXPECT_FALSE(has_bar(WS_HSCROLL));
    zoom_to(500);
    EXPECT_NEAR(ratio(SB_HORZ), 0.5, 0.001) << "a direction without bar is centred";
    EXPECT_NEAR(ratio(SB_VERT), 0.5, 0.001);
}

TEST_F(Viewer, AHiddenBarIgnoresScrollCodes)
{
    open_picture(100, 400);
    ASSERT_FALSE(has_bar(WS_HSCROLL));
    ASSERT_TRUE(has_bar(WS_VSCROLL));
    key(VK_RIGHT);
    viewer().send(WM_HSCROLL, SB_PAGELEFT, 0);
    command(1029);
    zoom_to(1000);
    const SCROLLINFO info = bar(SB_HORZ);
    EXPECT_EQ(info.nPos, (info.nMax + 1 - static_cast<int>(info.nPage)) / 2) << "still in the middle";
}

TEST_F(Viewer, EnablesTheButtonsByTheZoom)
{
    using Ids = std::vector<int>;
    EXPECT_EQ(choices(), (Ids{ 1029, 1030 })) << "when it is created";
    open_picture(100, 80);
    EXPECT_EQ(choices(), (Ids{ 1029, 1030 }));
    command(1029);
    EXPECT_EQ(choices(), (Ids{ 1029, 1030, 1031 }));
    zoom_to(2000);
    EXPECT_EQ(choices(), (Ids{ 1030, 1031 }));
    zoom_to(10);
    EXPECT_EQ(choices(), (Ids{ 1029, 1031 }));
    command(1029);
    EXPECT_EQ(viewer().zoom(), 25);
    command(1030);
    EXPECT_EQ(viewer().zoom(), 10);
    show({ write(L"別.png", png_file(10, 10, plain(green))) });
    EXPECT_EQ(viewer().zoom(), 100);
    EXPECT_EQ(choices(), (Ids{ 1029, 1030 })) << "after a new file";
    zoom_to(2000);
    command(mode_fit);
    command(mode_actual_size);
    EXPECT_EQ(viewer().zoom(), 100);
    EXPECT_EQ(choices(), (Ids{ 1029, 1030 })) << "after a change of the mode";
}

TEST_F(Viewer, DrawsThumbnailsInBothModes)
{
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    open_with({ write(L"覚書.txt", {}) }, mode_fit);
    // 320 x 240 in the middle of 400 x 300, with the frame over its edge.
    EXPECT_EQ(painted(200, 150), blue);
    EXPECT_EQ(painted(40, 150), white);
    EXPECT_EQ(painted(37, 150), ground());
    EXPECT_EQ(viewer().text(), L"覚書.txt   [ 80 x 60,  400% ]");
    command(mode_actual_size);
    EXPECT_EQ(painted(200, 150), blue);
    EXPECT_EQ(painted(160, 150), white);
    EXPECT_EQ(painted(156, 150), ground());
    EXPECT_EQ(viewer().text(), L"覚書.txt   [ 80 x 60,  100% ]");
    zoom_to(2000);
    EXPECT_TRUE(has_bars());
    EXPECT_EQ(painted(200, 150), blue);
}

TEST_F(Viewer, ShowsThatNoFileIsThere)
{
    open_with({}, mode_fit);
    EXPECT_EQ(viewer().text(), L"Viewer");
    update(viewer());
    EXPECT_GT(gui::count_pixels(viewer().canvas(), look::palette().viewer_text), 10);
    show({ L"無い.png" });
    EXPECT_EQ(viewer().text(), L"無い.png");
    update(viewer());
    EXPECT_GT(gui::count_pixels(viewer().canvas(), look::palette().viewer_error), 50);
    command(mode_actual_size);
    zoom_to(2000);
    EXPECT_GT(gui::count_pixels(viewer().canvas(), look::palette().viewer_error), 50);
    EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
}

TEST_F(Viewer, FollowsTheFilesOfThePaneWhileItIsOpen)
{
    open_picture(100, 80);
    zoom_to(500);
    ASSERT_TRUE(has_bar(WS_HSCROLL));
    show({ write(L"別.png", png_file(60, 60, plain(green))) });
    EXPECT_EQ(viewer().text(), L"別.png   [ 60 x 60,  100% ]");
    EXPECT_EQ(painted(200, 150), green);
    viewer().send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(viewer().is_visible());
    show({ write(L"三.png", png_file(60, 60, plain(blue))) });
    EXPECT_EQ(viewer().text(), L"別.png   [ 60 x 60,  100% ]") << "a closed one takes nothing";
    viewer().open();
    EXPECT_EQ(viewer().text(), L"三.png   [ 60 x 60,  100% ]");
    EXPECT_EQ(painted(200, 150), blue);
}

TEST_F(Viewer, TreatsAnUnknownModeAsFitAndKeepsItsNumber)
{
    open_picture(100, 100, 7);
    EXPECT_EQ(painted(50, 150), red);
    EXPECT_EQ(mode(), 7);
    viewer().send(WM_HSCROLL, SB_LINERIGHT, 0);
    command(mode_fit);
    EXPECT_EQ(mode(), mode_fit);
    core::settings().view_mode = -5;
    command(mode_actual_size);
    EXPECT_EQ(mode(), mode_actual_size);
    EXPECT_EQ(painted(149, 150), ground());
}

TEST_F(Viewer, DrawsOnceForEachSizeThatIsNew)
{
    open_picture(100, 100, mode_fit);
    PictureDraws draws;
    resize_area(500, 400);
    EXPECT_EQ(draws.taken(), 1);
    resize_area(500, 400);
    viewer().move(30, 40, true);
    update(viewer());
    EXPECT_EQ(draws.taken(), 0);
    viewer().send(WM_SIZE, SIZE_MINIMIZED, 0);
    update(viewer());
    EXPECT_EQ(draws.taken(), 0);
}

// Each change of a bar nests another WM_SIZE.
TEST_F(Viewer, DrawsOnceWhileBothBarsComeAndGo)
{
    const std::wstring large = write(L"大.png", png_file(900, 800, plain(green)));
    open_picture(100, 100);
    PictureDraws draws;
    zoom_to(400);
    ASSERT_TRUE(has_bars());
    draws.taken();
    zoom_to(350);
    EXPECT_EQ(draws.taken(), 1);
    resize_area(600, 500);
    EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
    EXPECT_EQ(draws.taken(), 1);
    resize_area(200, 150);
    EXPECT_TRUE(has_bars());
    EXPECT_EQ(draws.taken(), 1);
    command(mode_fit);
    EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
    EXPECT_EQ(draws.taken(), 1);
    command(mode_actual_size);
    EXPECT_EQ(draws.taken(), 1);
    show({ large });
    EXPECT_EQ(draws.taken(), 2) << "the pane and the viewer";
}

TEST_F(Viewer, OpensWithOneDraw)
{
    show({ write(L"絵.png", png_file(900, 800, plain(red))) });
    for (const int mode : { mode_fit, mode_actual_size }) {
        core::settings().view_mode = mode;
        core::settings().view_rect = { 100, 100, 520, 480 };
        PictureDraws draws;
        viewer().open();
        EXPECT_EQ(draws.taken(), 1) << mode;
        viewer().send(WM_CLOSE, 0, 0);
    }
}

TEST_F(Viewer, PaintsBeforeItHasAFileAreValidated)
{
    show({ write(L"絵.png", png_file(60, 60, plain(red))) });
    ShowWindow(viewer().hwnd(), SW_SHOWNA); // shown by nobody's wish: the system may do that
    InvalidateRect(viewer().hwnd(), nullptr, FALSE);
    PictureDraws draws;
    update(viewer());
    EXPECT_FALSE(GetUpdateRect(viewer().hwnd(), nullptr, FALSE));
    EXPECT_EQ(draws.taken(), 0);
}

TEST_F(Viewer, CopiesItsBitmapForEachPaintWithoutDrawing)
{
    open_picture(80, 10);
    resize_area(120, 12); // small, so that a paint takes little time
    PictureDraws draws;
    constexpr int paints = 70'000;
    for (int i = 0; i < paints; ++i) {
        const RECT part{ i % 100, i % 10, i % 100 + 2, i % 10 + 2 };
        InvalidateRect(viewer().hwnd(), &part, FALSE);
        update(viewer());
    }
    EXPECT_EQ(draws.taken(), 0);
    EXPECT_EQ(on_screen(30, 5), red);
}

TEST_F(Viewer, KeepsItsBitmapWhileTheShellLoadsAFile)
{
    open_picture(100, 80);
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    thumbnails.meanwhile = [&] {
        PictureDraws draws;
        resize_area(500, 420);
        command(mode_fit);
        InvalidateRect(viewer().hwnd(), nullptr, FALSE);
        EXPECT_EQ(painted(150, 150), red) << "of the file before";
        viewer().open();
        pane().scale_anew();
        EXPECT_EQ(painted(150, 150), red);
        EXPECT_EQ(viewer().text(), L"絵.png   [ 100 x 80,  100% ]");
    };
    show({ write(L"覚書.txt", {}) });
    EXPECT_EQ(viewer().canvas().area(), (platform::Size{ 500, 420 }));
    EXPECT_EQ(painted(250, 210), blue);
    EXPECT_EQ(viewer().text(), L"覚書.txt   [ 80 x 60,  500% ]");
}

TEST_F(Viewer, MayBeDestroyedWithItsPaneWhileAFileLoads)
{
    open_picture(100, 80);
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    thumbnails.meanwhile = [&] { pane().destroy(); };
    show({ write(L"覚書.txt", {}) });
    EXPECT_EQ(viewer().hwnd(), nullptr);
    EXPECT_FALSE(viewer().is_open());
}

TEST_F(Viewer, IsDestroyedWithThePane)
{
    open_picture(900, 800);
    HWND const hwnd = viewer().hwnd();
    press_picture(10, 10);
    pane().destroy();
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(gui::take_quit()) << "it ends no message loop";
}

TEST_F(Viewer, FollowsTheThemeAndTheInterpolation)
{
    open_with({ write(L"絵.png", png_file(2, 2, halves(2, rgb(0, 0, 0), white))) }, mode_fit);
    look::load_theme(look::theme_standard + 3);
    const Color other = look::palette().viewer_back;
    ASSERT_NE(painted(5, 5), other);
    look::apply_theme_to_windows();
    EXPECT_EQ(painted(5, 5), other);
    EXPECT_EQ(on_screen(5, 5), other);
    look::load_theme(look::theme_standard);
    look::apply_theme_to_windows();
    EXPECT_EQ(on_screen(5, 5), ground());
    const auto is_sharp = [&] { return painted(180, 150) == rgb(0, 0, 0) || painted(180, 150) == white; };
    EXPECT_TRUE(is_sharp());
    core::settings().interpolation_command = 5002;
    pane().scale_anew();
    EXPECT_FALSE(is_sharp());
}

TEST_F(Viewer, ShowsAnAnimationsCurrentFrame)
{
    book().header.gif_autoplay = 0;
    open_with({ write_gif(L"動.gif", { 60'000, 60'000 }) }, mode_fit);
    EXPECT_EQ(painted(200, 150), rgb(0, 0, 0));
    EXPECT_EQ(viewer().text(), L"動.gif   [ 8 x 8,  3750% ]");
    const platform::Rect seek = pane().gif_thread().bar();
    press(seek.right - 5, seek.top + 5);
    EXPECT_TRUE(gui::pump_until([&] {
        viewer().draw_anew();
        return painted(200, 150) == white;
    }));
}

// The player of the pane and the viewer draw the same picture on two threads.
TEST_F(Viewer, DrawsBesideAPlayingAnimationThroughTwoThousandFiles)
{
    const std::wstring files[] = { write_gif(L"一.gif", { 1, 1, 1 }), write_gif(L"二.gif", { 1, 1 }),
        write(L"三.png", png_file(500, 10, plain(red))), L"無い" };
    pane().set_rect({ 0, 0, 60, 40 }, false); // small, so that a frame takes little time
    open_with({ files[0] });
    resize_area(120, 20);
    for (int i = 0; i < 2'000; ++i) {
        show({ files[i % 4] });
        if (i % 50 == 0)
            command(i % 100 ? mode_fit : mode_actual_size);
        if (i % 50 == 25)
            command(i % 3 ? 1029 : 1030);
        viewer().draw_anew();
        gui::pump();
    }
    show({ files[2] });
    command(mode_actual_size);
    EXPECT_EQ(painted(20, 1), red);
    EXPECT_FALSE(pane().gif_thread().is_held());
}

TEST_F(Viewer, OpensAtItsStoredPlaceOnlyTheFirstTime)
{
    core::settings().view_rect = { 120, 90, 620, 440 };
    viewer().open();
    const auto place = [&] { return ovlib::from_rect(viewer().rect()); };
    EXPECT_EQ(place(), (platform::Rect{ 120, 90, 620, 440 }));
    viewer().move(200, 150, false);
    core::settings().view_rect = { 10, 10, 310, 310 };
    viewer().send(WM_CLOSE, 0, 0);
    viewer().open();
    EXPECT_EQ(place(), (platform::Rect{ 200, 150, 700, 500 }));
    viewer().move(-5'000, 100, false);
    viewer().open();
    EXPECT_EQ(place().left, 0) << "it comes back on a visible screen";
}

TEST_F(Viewer, OpensWhereTheSystemPutsItIfNoPlaceIsStored)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    for (const platform::Rect& stored : { platform::Rect{}, platform::Rect{ 9'000, 9'000, 9'500, 9'500 },
             platform::Rect{ 300, 10, 200, 400 }, platform::Rect{ highest, highest, lowest, lowest } }) {
        make_pane();
        core::settings().view_rect = stored;
        viewer().open();
        EXPECT_EQ(viewer().size().cx, 500);
        EXPECT_EQ(viewer().size().cy, 500);
        EXPECT_NE(MonitorFromWindow(viewer().hwnd(), MONITOR_DEFAULTTONULL), nullptr);
        EXPECT_EQ(core::settings().view_rect, stored);
        end_pane();
    }
    make_pane();
    core::settings().view_rect = { lowest, lowest, highest, highest };
    viewer().open();
    EXPECT_LE(viewer().size().cx, GetSystemMetrics(SM_CXVIRTUALSCREEN));
}

TEST_F(Viewer, StoresThePlaceWhereItWasMoved)
{
    open_picture(100, 80);
    viewer().set_rect({ 30, 40, 530, 440 }, false);
    EXPECT_EQ(core::settings().view_rect, platform::Rect{});
    viewer().send(WM_EXITSIZEMOVE, 0, 0);
    EXPECT_EQ(core::settings().view_rect, (platform::Rect{ 30, 40, 530, 440 }));
    viewer().maximize();
    viewer().send(WM_EXITSIZEMOVE, 0, 0);
    EXPECT_EQ(core::settings().view_rect, (platform::Rect{ 30, 40, 530, 440 })) << "not that of the screen";
}

TEST_F(Viewer, ComesBackFromBeingMinimised)
{
    open_picture(100, 80);
    zoom_to(200);
    viewer().minimize();
    ASSERT_TRUE(viewer().is_minimized());
    command(1029);
    command(mode_fit);
    show({ write(L"別.png", png_file(60, 60, plain(green))) });
    EXPECT_EQ(viewer().text(), L"別.png");
    viewer().open();
    EXPECT_FALSE(viewer().is_minimized());
    EXPECT_EQ(viewer().text(), L"別.png   [ 60 x 60,  500% ]");
    EXPECT_EQ(painted(200, 150), green);
}

TEST_F(Viewer, ShowsWhatChangedWhileItWasMinimisedWhenTheSystemRestoresIt)
{
    open_picture(100, 80);
    viewer().minimize();
    ASSERT_TRUE(viewer().is_minimized());
    show({ write(L"別.png", png_file(60, 60, plain(green))) });
    ShowWindow(viewer().hwnd(), SW_RESTORE);
    ASSERT_TRUE(gui::pump_until([&] { return !viewer().is_minimized(); }));
    EXPECT_EQ(viewer().text(), L"別.png   [ 60 x 60,  100% ]");
    EXPECT_EQ(painted(200, 150), green);
    EXPECT_EQ(painted(165, 150), look::palette().viewer_back);
}

TEST_F(Viewer, ANewFileOpensCentredWhereverTheLastOneWasScrolled)
{
    open_picture(1000, 900);
    for (int i = 0; i < 5; ++i)
        viewer().send(WM_HSCROLL, SB_PAGERIGHT, 0);
    const int right = across();
    show({ write(L"大.png", png_file(1000, 900, plain(green))) });
    EXPECT_LT(across(), right);
    EXPECT_NEAR(across(), (1000 - bar(SB_HORZ).nPage) / 2, 1);
}

TEST_F(Viewer, QueriesTheDiskOncePerLoad)
{
    int queries = 0;
    paths = media::PathAnswers{ [&](const std::wstring& path) {
        ++queries;
        return platform::ask_path(path);
    } };
    open_picture(100, 80);
    queries = 0;
    for (int i = 0; i < 20; ++i)
        resize_area(300 + i, 200);
    zoom_to(500);
    command(mode_fit);
    pane().scale_anew();
    EXPECT_EQ(queries, 0);
}

TEST_F(Viewer, WorksWithoutMemoryForABitmap)
{
    open_picture(100, 80);
    resize_area(1, 0);
    {
        const gui::ReplacedImport<decltype(CreateDIBSection)> failing{ &__imp_CreateDIBSection,
            [](HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD) -> HBITMAP { return nullptr; } };
        resize_area(300, 200);
        update(viewer());
        EXPECT_FALSE(viewer().canvas().is_created());
    }
    InvalidateRect(viewer().hwnd(), nullptr, FALSE);
    EXPECT_EQ(painted(101, 100), red) << "the next paint tries again";
}

} // namespace
