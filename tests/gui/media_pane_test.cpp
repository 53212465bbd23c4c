// The file pane: what it draws, and how it handles the mouse.
#include "core/command_ids.hpp"
#include "core/locks.hpp"
#include "media/display_name.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_log.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_pane.hpp"
#include "tests/support/gui_typing.hpp"
#include <atomic>
#include <thread>

namespace {

namespace command = core::command;
using media::LoaderState;
using media::PlayState;
using ovlib::Color;
using ovlib::rgb;
using test_support::halves;
using test_support::plain;

constexpr Color red = rgb(255, 0, 0);
constexpr Color blue = rgb(0, 0, 255);
constexpr Color white = rgb(255, 255, 255);
constexpr Color black = rgb(0, 0, 0);

class FilePane : public gui::Pane {
protected:
    void show_picture(int picture_width, int picture_height, const test_support::Paint& paint = plain(red))
    {
        show({ write(L"a.png", test_support::png_file(picture_width, picture_height, paint)) });
    }
    void show_thumbnail(Color color = blue)
    {
        thumbnails.answer = [color] { return gui::plain_bitmap(80, 60, color); };
        show({ write(L"覚書.txt", {}) });
    }
    Color on_screen(int x, int y)
    {
        const ovlib::ClientDC dc{ pane() };
        return Color{ GetPixel(dc.handle(), x, y) };
    }
};

TEST_F(FilePane, HasItsOwnClassThatReportsDoubleClicks)
{
    wchar_t name[64] = {};
    GetClassNameW(pane().hwnd(), name, 64);
    EXPECT_EQ(std::wstring(name), L"ovlib_filewnd[1666]");
    EXPECT_NE(GetClassLongPtrW(pane().hwnd(), GCL_STYLE) & CS_DBLCLKS, 0u);
    EXPECT_NE(GetWindowLongW(pane().hwnd(), GWL_STYLE) & WS_CHILD, 0);
    const int id = GetDlgCtrlID(pane().hwnd());
    EXPECT_TRUE(id < 1000 || id > 64999) << "the main window leaves its double clicks alone";
}

// Uses nearest-neighbour scaling only: smooth scaling fades towards the far edges, where half a pixel of the
// picture is missing.
TEST_F(FilePane, FitsAPictureIntoItsArea)
{
    core::settings().interpolation_command = 5001;
    show_picture(100, 100, halves(100, red, blue));
    // 300 x 300 in the middle of 400 x 300.
    EXPECT_EQ(at(49, 150), ground());
    EXPECT_EQ(at(52, 150), red);
    EXPECT_EQ(at(347, 150), blue);
    EXPECT_EQ(at(350, 150), ground());
    EXPECT_EQ(at(60, 0), red);
    EXPECT_EQ(at(60, 297), red);
    show_picture(100, 10);
    EXPECT_EQ(at(200, 129), ground());
    EXPECT_EQ(at(200, 132), red);
    EXPECT_EQ(at(0, 150), red);
    EXPECT_EQ(at(397, 150), red);
}

TEST_F(FilePane, EnlargesAPictureOfOnePixelAndDrawsNothingOfAThinOne)
{
    core::settings().interpolation_command = 5001;
    show_picture(1, 1);
    EXPECT_EQ(at(60, 5), red);
    EXPECT_EQ(at(190, 140), red);
    show_picture(2000, 1);
    EXPECT_EQ(loader().state(), LoaderState::picture);
    EXPECT_EQ(count(ground()), width * height) << "its height is cut to nothing";
}

TEST_F(FilePane, ShowsThatThereAreNoFiles)
{
    show({});
    EXPECT_GT(count(look::palette().viewer_text), 10);
    EXPECT_EQ(count(look::palette().viewer_error), 0);
    for (int x = 0; x < width; ++x)
        EXPECT_EQ(at(x, 7), ground()) << "above the text";
}

TEST_F(FilePane, ReportsAMissingFileInRed)
{
    show({ L"C:\\無い\\a.png" });
    const int offered = count(look::palette().viewer_error);
    EXPECT_GT(offered, 100);
    show({ L"http://x.invalid/a.png" });
    EXPECT_GT(count(look::palette().viewer_error), 100);
    // A path is broken at the edge of the pane and does not go beyond it.
    show({ L"C:\\" + std::wstring(300, L'W') });
    for (int y = 0; y < height; ++y) {
        EXPECT_EQ(at(width - 8, y), ground());
        EXPECT_EQ(at(7, y), ground());
    }
    int lines = 0;
    for (int y = 60; y < height; ++y)
        lines += at(20, y) == ground() ? 0 : 1;
    EXPECT_GT(lines, 10) << "on several lines";
}

TEST_F(FilePane, FramesAThumbnailAndNamesIt)
{
    show_thumbnail();
    // 320 x 240 in the middle, with the frame over its edge.
    EXPECT_EQ(middle(), blue);
    EXPECT_EQ(at(40, 150), white);
    EXPECT_EQ(at(39, 150), white);
    EXPECT_EQ(at(42, 150), blue);
    EXPECT_EQ(at(37, 150), ground());
    EXPECT_EQ(at(357, 150), blue);
    EXPECT_EQ(at(200, 30), white);
    EXPECT_EQ(at(200, 32), blue);
    int ink = 0;
    for (int y = 0; y < 25; ++y) {
        for (int x = 30; x < 200; ++x)
            ink += at(x, y) == ground() ? 0 : 1;
    }
    EXPECT_GT(ink, 50) << "the name above it";
}

TEST_F(FilePane, TruncatesALongNameWithAnEllipsis)
{
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    show({ write(std::wstring(120, L'W') + L".txt", {}) });
    ASSERT_EQ(loader().state(), LoaderState::thumbnail);
    int last = 0;
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < 25; ++y)
            last = at(x, y) == ground() ? last : x;
    }
    EXPECT_GT(last, 300);
    EXPECT_LT(last, width);
}

TEST_F(FilePane, ShowsTheIconOfAnAddressThatTheShellKnows)
{
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    show({ L"http://x.invalid/page" });
    EXPECT_EQ(loader().state(), LoaderState::thumbnail);
    EXPECT_EQ(count(blue), 0) << "not the picture that the shell gave";
    EXPECT_EQ(at(40, 150), white) << "but in its frame";
    int ink = 0;
    for (int y = 100; y < 200; ++y) {
        for (int x = 150; x < 250; ++x)
            ink += at(x, y) == ground() ? 0 : 1;
    }
    EXPECT_GT(ink, 100);
    double_click();
    EXPECT_EQ(parent().taken(), std::vector<int>{ command::open_file });
}

TEST_F(FilePane, DoesNotQueryTheShellForAnAddressThatEndsLikeAPicture)
{
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    show({ L"http://x.invalid/a.png" });
    EXPECT_EQ(loader().state(), LoaderState::nothing);
    EXPECT_TRUE(thumbnails.asked.empty());
}

TEST_F(FilePane, MarksAPageOfSeveralFilesAtTheTopRightCorner)
{
    const auto corner_ink = [&] {
        RedrawWindow(pane().hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        int ink = 0;
        for (int y = 0; y < 24; ++y) {
            for (int x = width - 24; x < width; ++x)
                ink += at(x, y) == ground() ? 0 : 1;
        }
        return ink;
    };
    ShowWindow(parent().hwnd(), SW_SHOW);
    const std::wstring path = write(L"a.png", test_support::png_file(10, 1, plain(red)));
    show({ path });
    EXPECT_EQ(corner_ink(), 0);
    show({ path, path });
    EXPECT_GT(corner_ink(), 20);
    EXPECT_LT(corner_ink(), 24 * 24) << "black is left out";
    show({ path });
    EXPECT_EQ(corner_ink(), 0);
}

TEST_F(FilePane, HasRoundCorners)
{
    ovlib::GDI::Object region;
    region.attach(CreateRectRgn(0, 0, 1, 1), ovlib::GDI::Ownership::owned);
    ASSERT_EQ(GetWindowRgn(pane().hwnd(), static_cast<HRGN>(region.handle())), COMPLEXREGION);
    const auto holds = [&](int x, int y) {
        return PtInRegion(static_cast<HRGN>(region.handle()), x, y) != 0;
    };
    EXPECT_FALSE(holds(0, 0));
    EXPECT_FALSE(holds(width - 1, height - 1));
    EXPECT_TRUE(holds(0, 20));
    EXPECT_TRUE(holds(width - 1, 20));
    EXPECT_TRUE(holds(20, height - 1));
}

TEST_F(FilePane, CreatesTheBitmapAgainForAnotherSize)
{
    show_picture(100, 100);
    pane().set_rect({ 0, 0, 200, 100 }, false);
    EXPECT_EQ(pane().canvas().width, 200);
    EXPECT_EQ(pane().canvas().height, 100);
    EXPECT_EQ(at(100, 50), red);
    EXPECT_EQ(at(40, 50), ground());
    pane().set_rect({ 0, 0, 0, 0 }, false);
    pane().show_selected_file();
    EXPECT_EQ(pane().canvas().width, 1);
}

TEST_F(FilePane, FollowsTheTheme)
{
    const std::wstring path = write(L"a.png", test_support::png_file(100, 100, plain(red)));
    for (const std::vector<std::wstring>& entries : { std::vector<std::wstring>{},
             std::vector<std::wstring>{ path }, std::vector<std::wstring>{ L"無い" } }) {
        show(entries);
        look::load_theme(look::theme_blue);
        pane().apply_theme();
        EXPECT_EQ(at(1, height - 1), ground());
        look::load_theme(look::theme_standard);
        pane().apply_theme();
        EXPECT_EQ(at(1, height - 1), ground());
    }
}

TEST_F(FilePane, ScalesAgainWithoutLoading)
{
    const std::wstring path = write(L"a.png", test_support::png_file(2, 1, halves(2, black, white)));
    core::settings().interpolation_command = 5002;
    show({ path });
    ASSERT_TRUE(DeleteFileW(path.c_str()));
    const int smooth = width * height - count(black) - count(white) - count(ground());
    EXPECT_GT(smooth, 1000) << "shades between";
    core::settings().interpolation_command = 5001;
    pane().scale_anew();
    EXPECT_EQ(loader().interpolation_mode, 5);
    EXPECT_EQ(width * height - count(black) - count(white) - count(ground()), 0) << "the nearest pixel alone";
    core::settings().interpolation_command = 123;
    pane().scale_anew();
    EXPECT_EQ(loader().interpolation_mode, 0);
}

TEST_F(FilePane, EachInterpolationHasItsMode)
{
    show_picture(3, 3);
    const std::pair<int, int> modes[] = { { 5000, 0 }, { 5001, 5 }, { 5002, 3 }, { 5003, 6 }, { 5004, 4 },
        { 5005, 7 } };
    for (const auto& [chosen, mode] : modes) {
        core::settings().interpolation_command = chosen;
        pane().show_selected_file();
        EXPECT_EQ(loader().interpolation_mode, mode);
        EXPECT_EQ(middle(), red);
    }
}

TEST_F(FilePane, PaintsUnderTheDrawingLockAndErasesNothing)
{
    EXPECT_EQ(pane().send(WM_ERASEBKGND, 0, 0), 1);
    ShowWindow(parent().hwnd(), SW_SHOW);
    show_picture(10, 10);
    std::atomic<bool> is_held = false;
    std::atomic<bool> is_free_again = false;
    std::thread other{ [&] {
        const std::scoped_lock hold{ core::drawing_lock() };
        is_held = true;
        Sleep(50);
        is_free_again = true;
    } };
    ASSERT_TRUE(gui::poll_until([&] { return is_held.load(); }));
    RedrawWindow(pane().hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_TRUE(is_free_again) << "the paint waits for a frame that is being drawn";
    other.join();
    RedrawWindow(pane().hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(on_screen(width / 2, height / 2), red);
}

class WheelOverThePane : public FilePane {
protected:
    // The commands that a turn of the wheel sends.
    std::vector<int> turn(int delta)
    {
        pane().send(WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
        return parent().taken();
    }
};

TEST_F(WheelOverThePane, SelectsFiles)
{
    EXPECT_EQ(turn(120), std::vector<int>{ command::previous_file });
    EXPECT_EQ(turn(-120), std::vector<int>{ command::next_file });
    EXPECT_EQ(turn(-240), std::vector<int>{ command::next_file });
    EXPECT_EQ(turn(0), std::vector<int>{});
}

TEST_F(WheelOverThePane, MovesTheFileWhileCtrlIsDown)
{
    ShowWindow(parent().hwnd(), SW_SHOW);
    ASSERT_TRUE(gui::bring_to_front(parent()));
    {
        const gui::HeldKey ctrl{ VK_CONTROL };
        EXPECT_EQ(turn(120), std::vector<int>{ command::move_file_up });
        EXPECT_EQ(turn(-120), std::vector<int>{ command::move_file_down });
    }
    EXPECT_EQ(turn(-120), std::vector<int>{ command::next_file });
}

TEST_F(WheelOverThePane, AddsUpSmallTurnsUntilTheyReachANotch)
{
    EXPECT_EQ(turn(-50), std::vector<int>{});
    EXPECT_EQ(turn(-50), std::vector<int>{});
    EXPECT_EQ(turn(-50), std::vector<int>{ command::next_file });
    EXPECT_EQ(turn(119), std::vector<int>{}) << "another direction begins anew";
    EXPECT_EQ(turn(1), std::vector<int>{ command::previous_file });
}

TEST_F(FilePane, ARightClickRequestsTheFileMenu)
{
    pane().send(WM_RBUTTONUP, 0, 0);
    EXPECT_EQ(parent().taken(), std::vector<int>{ command::show_file_menu });
    EXPECT_EQ(parent().last_lparam, reinterpret_cast<std::intptr_t>(pane().hwnd()));
}

TEST_F(FilePane, ADoubleClickDependsOnWhatIsShown)
{
    show_picture(10, 10);
    double_click();
    EXPECT_EQ(parent().taken(), std::vector<int>{ command::open_file });
    show_thumbnail();
    double_click();
    EXPECT_EQ(parent().taken(), std::vector<int>{ command::open_file });
    show({ L"無い.png" });
    double_click();
    EXPECT_EQ(parent().taken(), std::vector<int>{ command::search_moved_file });
    show({ write(L"broken.png", {}) });
    double_click();
    EXPECT_EQ(parent().taken(), std::vector<int>{ command::search_moved_file })
        << "it exists, but shows nothing";
    show({});
    double_click();
    EXPECT_EQ(parent().taken(), std::vector<int>{});
}

TEST_F(FilePane, ADoubleClickOnAnAnimationRestoresItsState)
{
    show_gif({ 100, 100 });
    EXPECT_EQ(state(), PlayState::playing);
    double_click();
    EXPECT_EQ(state(), PlayState::playing);
    press(5, 5);
    double_click();
    EXPECT_EQ(state(), PlayState::paused);
    EXPECT_EQ(parent().taken(), std::vector<int>{});
}

TEST_F(FilePane, TreatsEnterInItsInputBoxAsADoubleClick)
{
    show_picture(10, 10);
    pane().send(WM_COMMAND, MAKEWPARAM(1050, 33000), 0);
    EXPECT_EQ(parent().taken(), std::vector<int>{ command::open_file });
    pane().send(WM_COMMAND, MAKEWPARAM(1050, 0), 0);
    pane().send(WM_COMMAND, MAKEWPARAM(1048, 33000), 0);
    EXPECT_EQ(parent().taken(), std::vector<int>{});
}

class FileDragging : public FilePane {
protected:
    void move(int x, int y) { pane().send(WM_MOUSEMOVE, 0, MAKELPARAM(x, y)); }
    static int far_x() { return 50 + GetSystemMetrics(SM_CXDRAG); }
    static int far_y() { return 50 + GetSystemMetrics(SM_CYDRAG); }
};

TEST_F(FileDragging, StartsBeyondTheSystemsDistanceInEitherDirection)
{
    const std::wstring path = write(L"a.png", test_support::png_file(10, 10, plain(red)));
    show({ path });
    move(200, 200);
    EXPECT_TRUE(drag.dragged.empty()) << "nothing was pressed";
    press(50, 50);
    move(far_x() - 1, far_y() - 1);
    EXPECT_TRUE(drag.dragged.empty());
    move(far_x(), 50);
    EXPECT_EQ(drag.dragged, std::vector<std::wstring>{ path });
    move(300, 200);
    EXPECT_EQ(drag.dragged.size(), 1u) << "one drag a press";
    press(50, 50);
    move(50, far_y());
    EXPECT_EQ(drag.dragged.size(), 2u);
}

TEST_F(FileDragging, UsesTheAbsolutePathOfARelativeEntry)
{
    write(L"a.png", test_support::png_file(10, 10, plain(red)));
    show({ L"a.png" });
    SetCurrentDirectoryW(L"C:\\");
    press(50, 50);
    move(far_x(), 50);
    EXPECT_EQ(drag.dragged, std::vector<std::wstring>{ file(L"a.png") });
}

TEST_F(FileDragging, OfAMissingFileStaysArmed)
{
    show({ L"無い.png" });
    press(50, 50);
    move(far_x(), 50);
    EXPECT_TRUE(drag.dragged.empty());
    const std::wstring path = write(L"無い.png", test_support::png_file(10, 10, plain(red)));
    move(far_x(), 50);
    EXPECT_EQ(drag.dragged, std::vector<std::wstring>{ path }) << "without another press";
}

TEST_F(FileDragging, RunsOneAtATime)
{
    show({ write(L"a.png", test_support::png_file(10, 10, plain(red))) });
    drag.meanwhile = [&] {
        press(50, 50);
        move(far_x(), 50);
    };
    press(50, 50);
    move(far_x(), 50);
    EXPECT_EQ(drag.dragged.size(), 1u);
}

TEST_F(FileDragging, SurvivesTheDestructionOfThePane)
{
    show({ write(L"a.png", test_support::png_file(10, 10, plain(red))) });
    drag.meanwhile = [&] { pane().destroy(); };
    press(50, 50);
    move(far_x(), 50);
    EXPECT_EQ(drag.dragged.size(), 1u);
    EXPECT_EQ(pane().hwnd(), nullptr);
}

TEST_F(FileDragging, DoesNothingWithoutADragImplementation)
{
    has_drag = false;
    make_pane();
    show({ write(L"a.png", test_support::png_file(10, 10, plain(red))) });
    press(50, 50);
    move(200, 200);
    EXPECT_TRUE(drag.dragged.empty());
}

TEST_F(FilePane, ShowsTheFileThatWasSelectedDuringALoad)
{
    const std::wstring slow = write(L"a.txt", {});
    const std::wstring later = write_gif(L"b.gif", { 100, 100 });
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    thumbnails.meanwhile = [&] {
        EXPECT_TRUE(pane().is_loading());
        show({ later });
        show({ later });
        EXPECT_EQ(loader().state(), LoaderState::nothing) << "only noted";
    };
    show({ slow });
    EXPECT_FALSE(pane().is_loading());
    EXPECT_EQ(loader().path(), later);
    EXPECT_EQ(loader().state(), LoaderState::animation);
    EXPECT_TRUE(pane().gif_thread().is_held());
}

TEST_F(FilePane, ShowsNothingIfItIsDestroyedDuringALoad)
{
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    thumbnails.meanwhile = [&] { pane().destroy(); };
    show({ write(L"a.txt", {}) });
    EXPECT_EQ(pane().hwnd(), nullptr);
    EXPECT_FALSE(pane().gif_thread().is_held());
}

TEST_F(FilePane, ChangesNothingWithoutAPage)
{
    show_picture(10, 10);
    book().pages.clear();
    pane().show_selected_file();
    EXPECT_EQ(loader().state(), LoaderState::picture);
    EXPECT_EQ(middle(), red);
    pane().send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    RedrawWindow(pane().hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

TEST_F(FilePane, ShowsTheLastOfTenThousandFiles)
{
    const std::wstring path = write(L"a.png", test_support::png_file(10, 10, plain(red)));
    show(std::vector<std::wstring>(10'000, path), 9'999);
    EXPECT_EQ(middle(), red);
}

TEST_F(FilePane, PaintingAndLoadingCostNoHandles)
{
    thumbnails.answer = [] { return gui::plain_bitmap(80, 60, blue); };
    ShowWindow(parent().hwnd(), SW_SHOW);
    const std::wstring files[] = { write(L"a.png", test_support::png_file(10, 10, plain(red))),
        write(L"a.txt", {}), L"無い", write_gif(L"a.gif", { 1 }) };
    const auto show_all = [&] {
        for (int i = 0; i < 4; ++i) {
            show({ files[i], files[0] });
            pane().set_rect({ 0, 0, width + i % 2, height }, true);
            gui::pump();
        }
    };
    show_all(); // for what the system caches the first time
    const gui::GdiCrowd crowd{ 100 };
    for (int round = 0; round < 30; ++round)
        show_all();
    gui::expect_handles_to_spare(10);
}

} // namespace
