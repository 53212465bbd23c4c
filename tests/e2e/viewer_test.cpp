// The viewer: opened by the menu, worked with mouse and keys, its settings, and files it cannot show.
#include "app/menus.hpp"
#include "driver_main_window.hpp"
#include "driver_screen.hpp"
#include "media/viewer_model.hpp"
#include "tests/support/picture_files.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;
using media::mode_actual_size;
using media::mode_fit;
using ovlib::Color;
using test_support::FileContents;
using test_support::Paint;
using test_support::plain;
using test_support::png_file;

constexpr Color red{ 0x0000FF };
constexpr Color green{ 0x00FF00 };
constexpr Color blue{ 0xFF0000 };
constexpr Color viewer_back{ 0x202020 }; // of the standard theme
constexpr auto usual_place = "700 150 1200 650";

class ViewerOfFiles : public MainWindowTest {
protected:
    // Writes a file beside the program.
    std::wstring made(const std::wstring& name, const FileContents& bytes) const
    {
        write_bytes(root().folder() / name, { reinterpret_cast<const char*>(bytes.data()), bytes.size() });
        return name;
    }
    std::wstring picture(const std::wstring& name, Color color, int columns = 65, int rows = 65) const
    {
        return made(name, png_file(columns, rows, plain(color)));
    }
    void set_view_data(const std::string& data) const
    {
        write_bytes(root().settings_file(), "[COMMON]\r\nVIEWDATA=" + data + "\r\nINTERPOLATION=5001\r\n");
    }
    std::string view_data() const
    {
        const std::string text = file_bytes(root().settings_file());
        const std::size_t start = text.find("VIEWDATA=") + 9;
        return text.substr(start, text.find("\r\n", start) - start);
    }
    void open_book(std::vector<std::vector<std::wstring>> files)
    {
        std::vector<book::Page> pages;
        for (std::vector<std::wstring>& entries : files) {
            pages.push_back(make_page(numeral(pages.size() + 1)));
            pages.back().files = std::move(entries);
        }
        book_file_ = root().add_book(L"手帖.bok", pages);
        open_settled(book_file_);
    }
    void show_viewer()
    {
        main_window().send_command(command::show_viewer);
        require("the viewer shows", [&] { return program().is_active(viewer()); });
        program().await_input();
    }
    // Opens a Book of one page and the viewer at a known place.
    void open_viewer(std::vector<std::wstring> files, int mode = mode_actual_size)
    {
        set_view_data(usual_place + (' ' + std::to_string(mode)));
        open_book({ std::move(files), {} });
        show_viewer();
    }
    // Without a window manager Wine lets the main window cover those that it owns.
    void bring_to_front()
    {
        SetWindowPos(viewer().handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        require("the viewer is in front", [&] { return program().is_active(viewer()); });
    }
    void choose_mode(int mode) { viewer().send_command(mode); }

    RECT client() const
    {
        RECT client{};
        GetClientRect(viewer().handle(), &client);
        return client;
    }
    POINT in_viewer(LONG x, LONG y) const
    {
        POINT at{ x, y };
        ClientToScreen(viewer().handle(), &at);
        return at;
    }
    POINT middle_of_viewer() const { return in_viewer(client().right / 2, client().bottom / 2); }
    Color seen(LONG x, LONG y) const { return Color{ color_on_screen(in_viewer(x, y)) }; }
    Color seen_in_the_middle() const { return Color{ color_on_screen(middle_of_viewer()) }; }
    void expect_middle(Color color, const Where& where = Where::current())
    {
        expect_soon(
            color, [&] { return seen_in_the_middle(); }, where);
    }
    void expect_title(const std::wstring& title, const Where& where = Where::current())
    {
        expect_soon(
            title, [&] { return viewer().text(); }, where);
    }
    void expect_percent(int percent, const Where& where = Where::current())
    {
        const std::wstring end = L"  " + std::to_wstring(percent) + L"% ]";
        expect_soon(
            true, [&] { return viewer().text().ends_with(end); }, where);
    }
    // Clicks a zoom button, which shows while the mouse is above it.
    void click_button(int id)
    {
        move_mouse(in_viewer(client().right / 2, 40));
        require("the buttons show", [&] { return viewer().child(id).is_visible(); });
        click(viewer().child(id).center());
    }
    void expect_enabled(int id, bool enabled, const Where& where = Where::current())
    {
        expect_soon(
            enabled, [&] { return viewer().child(id).is_enabled(); }, where);
    }
    bool has_bar(LONG style) const { return (viewer().style() & style) != 0; }
    bool has_error() const
    {
        for (LONG x = 8; x < 120; ++x) {
            for (const COLORREF color : column_on_screen(in_viewer(x, 8), 30)) {
                if (color == 0x6060FF)
                    return true;
            }
        }
        return false;
    }
    // Enter on a greyed row closes the menu under Wine, and Esc would reach the viewer: only the mouse tries
    // one.
    PopupMenu menu(const media::ViewerMenuState& state)
    {
        return { program(), media::viewer_menu(state), [this] { right_click(middle_of_viewer()); } };
    }

    fs::path book_file_;
};

// Eight vertical bands of equal width, from dark to light.
Paint bands(int columns)
{
    return [columns](int x, int) {
        const int shade = 20 + x * 8 / columns * 30;
        return ovlib::rgb(shade, shade, shade);
    };
}

// The number of the band that has this colour.
int band_of(Color color)
{
    return (color.red() - 20) / 30;
}

} // namespace

TEST_F(ViewerOfFiles, OpensByTheMenuOfThePaneAndFitsThePicture)
{
    set_view_data(std::string{ usual_place } + " 2101");
    const std::wstring file = made(L"絵.png", png_file(100, 50, test_support::halves(100, red, blue)));
    open_book({ { file } });
    PopupMenu{
        program(),
        app::file_menu({ .entry_count = 1,
            .entry = file,
            .entry_name = file,
            .is_entry_file = true,
            .interpolation_command = 5001 }),
        [this] {
            move_mouse(background());
            main_window().post_command(command::show_file_menu);
        }
    }.choose(command::show_viewer, Hand::mouse);
    require("the viewer shows", [&] { return program().is_active(viewer()); });
    const int width = client().right;
    expect_title(L"絵.png   [ 100 x 50,  " + std::to_wstring(width) + L"% ]");
    expect_soon(red, [&] { return seen(20, client().bottom / 2); });
    EXPECT_EQ(seen(width - 20, client().bottom / 2), blue);
    EXPECT_EQ(seen(20, 20), viewer_back);
    EXPECT_EQ(viewer().rect().left, 700);
    EXPECT_EQ(viewer().rect().bottom, 650);
}

TEST_F(ViewerOfFiles, TheWheelAndTheKeysChangeTheFileHereAndInThePane)
{
    open_viewer({ picture(L"一.png", red), picture(L"二.png", green), picture(L"三.png", blue) });
    turn_wheel(middle_of_viewer(), -1);
    expect_middle(green);
    expect_title(L"二.png   [ 65 x 65,  100% ]");
    turn_wheel(middle_of_viewer(), 1);
    expect_middle(red);
    press(VK_NEXT);
    expect_middle(green);
    press(VK_SPACE);
    expect_middle(blue);
    press(VK_PRIOR);
    expect_middle(green);
    press(VK_ESCAPE);
    expect_soon(false, [&] { return viewer().exists(); });
    show_viewer();
    choose_mode(mode_fit);
    turn_wheel(middle_of_viewer(), -1);
    expect_middle(blue);
    viewer().send_command(media::viewer_command::close_viewer);
    const app::Rect pane = layout().file_pane;
    expect_soon(blue, [&] { return Color{ color_on_screen(on_screen(pane.left + 325, pane.top + 300)) }; });
}

TEST_F(ViewerOfFiles, EachRowOfTheMenuWorksByMouseAndByKeys)
{
    const std::vector<std::wstring> files{ picture(L"一.png", red), picture(L"二.png", green),
        picture(L"三.png", blue) };
    open_viewer(files);
    media::ViewerMenuState state{ mode_actual_size, 3, 0, true };
    for (const Hand hand : { Hand::mouse, Hand::keys }) {
        menu(state).choose(command::last_file, hand);
        expect_middle(blue);
        state.selected = 2;
        menu(state).choose_in_vain(command::last_file, Hand::mouse);
        menu(state).choose(command::first_file, hand);
        expect_middle(red);
        state.selected = 0;
        menu(state).choose(mode_fit, hand);
        state.view_mode = mode_fit;
        expect_soon(true, [&] { return !viewer().text().ends_with(L" 100% ]"); });
        menu(state).choose(mode_actual_size, hand);
        state.view_mode = mode_actual_size;
        expect_percent(100);
        menu(state).choose(command::duplicate_file, hand);
        const FileDialog dialog = program().wait_for_file_dialog();
        const fs::path copy = root().folder() / (hand == Hand::mouse ? L"写し一.png" : L"写し二.png");
        dialog.choose(copy.wstring());
        program().wait_for_box().answer(IDOK);
        EXPECT_EQ(file_bytes(copy), file_bytes(root().folder() / files[0]));
        bring_to_front();
        menu(state).choose(media::viewer_command::close_viewer, hand);
        expect_soon(false, [&] { return viewer().exists(); });
        show_viewer();
    }
}

TEST_F(ViewerOfFiles, WhileTheMainWindowShowsADialogNoSecondOneOpens)
{
    open_viewer({ picture(L"一.png", red) });
    main_window().post_command(command::duplicate_file);
    const FileDialog dialog = program().wait_for_file_dialog();
    viewer().send_command(command::duplicate_file);
    std::size_t dialogs = 0;
    for (const Window window : top_windows(program().process_id()))
        dialogs += window.class_name() == L"#32770" ? 1 : 0;
    EXPECT_EQ(dialogs, 1u);
    dialog.cancel();
}

TEST_F(ViewerOfFiles, TheButtonsZoomToBothEnds)
{
    open_viewer({ picture(L"絵.png", red, 200, 200) });
    expect_enabled(media::viewer_command::zoom_to_actual, false);
    for (const int percent : { 75, 50, 25, 10 }) {
        click_button(media::viewer_command::zoom_out);
        expect_percent(percent);
    }
    expect_enabled(media::viewer_command::zoom_out, false);
    click_button(media::viewer_command::zoom_in);
    expect_percent(25);
    click_button(media::viewer_command::zoom_out);
    expect_percent(10);
    click_button(media::viewer_command::zoom_to_actual);
    expect_percent(100);
    for (int i = 0; i < 26; ++i)
        press(VK_ADD);
    expect_percent(2000);
    expect_enabled(media::viewer_command::zoom_in, false);
    press('0');
    expect_percent(100);
}

TEST_F(ViewerOfFiles, TheButtonsShowOnlyWhileTheMouseIsAtTheTop)
{
    open_viewer({ picture(L"絵.png", red, 900, 900) });
    const auto shown = [&] { return viewer().child(media::viewer_command::zoom_in).is_visible(); };
    move_mouse(in_viewer(200, 200));
    expect_soon(false, shown);
    move_mouse(in_viewer(200, 30));
    expect_soon(true, shown);
    move_mouse(viewer().child(media::viewer_command::zoom_in).center());
    EXPECT_TRUE(keeps([&] { return shown(); }, milliseconds{ 300 })) << "also over a button";
    move_mouse(in_viewer(200, 60));
    expect_soon(false, shown);
    move_mouse(in_viewer(200, 30));
    expect_soon(true, shown);
    move_mouse(in_viewer(200, -100));
    expect_soon(false, shown);
}

TEST_F(ViewerOfFiles, ASmallPictureIsCentredWithoutBars)
{
    open_viewer({ picture(L"絵.png", red, 100, 60) });
    const LONG left = client().right / 2 - 50;
    const LONG top = client().bottom / 2 - 30;
    expect_soon(red, [&] { return seen(left, top); });
    EXPECT_EQ(seen(left - 1, top), viewer_back);
    EXPECT_EQ(seen(left, top - 1), viewer_back);
    EXPECT_EQ(seen(left + 99, top + 59), red);
    EXPECT_EQ(seen(left + 100, top + 59), viewer_back);
    EXPECT_FALSE(has_bar(WS_HSCROLL) || has_bar(WS_VSCROLL));
}

TEST_F(ViewerOfFiles, AZoomKeepsTheRelativePlaceAndArrowsScrollAfterAClickOnAButton)
{
    open_viewer({ made(L"帯.png", png_file(2000, 2000, bands(2000))) });
    const auto band = [&] { return band_of(seen_in_the_middle()); };
    expect_soon(true, [&] { return band() == 3 || band() == 4; });
    // To the last band.
    drag(in_viewer(300, 300), in_viewer(20, 300));
    drag(in_viewer(300, 300), in_viewer(20, 300));
    drag(in_viewer(300, 300), in_viewer(20, 300));
    drag(in_viewer(300, 300), in_viewer(20, 300));
    expect_soon(7, [&] { return band_of(seen(client().right - 3, 200)); });
    for (int i = 0; i < 5; ++i) {
        click_button(media::viewer_command::zoom_in);
        expect_percent(125 + i * 25);
        EXPECT_EQ(band_of(seen(client().right - 3, 200)), 7);
    }
    // 90 lines of 8 pixels are more than a band of 562.
    for (int i = 0; i < 90; ++i)
        press(VK_LEFT);
    expect_soon(6, [&] { return band_of(seen(client().right - 3, 200)); });
}

TEST_F(ViewerOfFiles, TheThumbReachesEveryPlaceOfAVeryLargeView)
{
    open_viewer({ made(L"帯.png", png_file(4000, 40, bands(4000))) });
    for (int i = 0; i < 26; ++i)
        press(VK_ADD);
    expect_percent(2000);
    expect_soon(true, [&] { return has_bar(WS_HSCROLL); });
    // 80,000 pixels: 16 bits are not enough for the position.
    const LONG bar = client().bottom + GetSystemMetrics(SM_CYHSCROLL) / 2;
    const LONG arrow = GetSystemMetrics(SM_CXHSCROLL);
    const LONG from = client().right / 2;
    for (const int band : { 7, 4, 1, 6 }) {
        const LONG track = client().right - 2 * arrow;
        const LONG to = arrow + track * (2 * band + 1) / 16;
        press_mouse(in_viewer(from, bar));
        lead_mouse(in_viewer(from, bar), in_viewer(to, bar));
        expect_soon(band, [&] { return band_of(seen_in_the_middle()); });
        lead_mouse(in_viewer(to, bar), in_viewer(from, bar));
        release_mouse(in_viewer(from, bar));
        require("the mouse is let go", [&] { return !program().holds_mouse(); });
        expect_soon(true, [&] { return std::abs(band_of(seen_in_the_middle()) - 3) <= 1; });
    }
}

TEST_F(ViewerOfFiles, DraggingThePictureMovesTheWindowAndAnotherStartRestoresIt)
{
    open_viewer({ picture(L"絵.png", red) }, mode_fit);
    expect_middle(red);
    const auto place = [&] {
        const RECT rect = viewer().rect();
        std::string text;
        for (const LONG edge : { rect.left, rect.top, rect.right, rect.bottom })
            text += std::to_string(edge) + ' ';
        return text;
    };
    const std::string before = place();
    const POINT from = middle_of_viewer();
    const POINT to{ from.x - 120, from.y + 60 };
    program().await_input();
    move_mouse(from);
    press_mouse(from);
    lead_mouse(from, to);
    release_mouse(to);
    expect_soon(true, [&] { return place() != before && !program().holds_mouse(); });
    const std::string after = place();
    choose_mode(mode_actual_size);
    close();
    EXPECT_EQ(view_data(), after + "2100");
    start().wait_for_window();
    settle();
    show_viewer();
    EXPECT_EQ(place(), after);
    expect_percent(100);
}

TEST_F(ViewerOfFiles, EverySettingOfItsPlaceOpensAWindowThatCanBeUsed)
{
    struct Row {
        const char* data;
        bool has_place; // the rectangle is used
        const char* stored; // at the end of the program
    };
    constexpr Row rows[] = {
        { "1 2 3", false, "0 0 0 0 2101" },
        { "600 100 1100 600", true, "600 100 1100 600 2101" },
        { "600 100 1100 600 7", true, "600 100 1100 600 7" },
        { "0 0 0 0 7", false, "0 0 0 0 7" },
        { "9000 9000 9500 9500 2100", false, "9000 9000 9500 9500 2100" },
        { "-2147483648 -2147483648 2147483647 2147483647 -1", false,
            "-2147483648 -2147483648 2147483647 2147483647 -1" },
    };
    const std::wstring file = picture(L"絵.png", red);
    for (const Row& row : rows) {
        const testing::ScopedTrace traced(__FILE__, __LINE__, row.data);
        set_view_data(row.data);
        open_book({ { file } });
        show_viewer();
        expect_middle(red);
        EXPECT_EQ(viewer().rect().left == 600, row.has_place);
        EXPECT_NE(MonitorFromWindow(viewer().handle(), MONITOR_DEFAULTTONULL), nullptr);
        EXPECT_LE(viewer().rect().right - viewer().rect().left, GetSystemMetrics(SM_CXSCREEN));
        close();
        EXPECT_EQ(view_data(), row.stored);
    }
}

TEST_F(ViewerOfFiles, AnUnknownModeIsKeptUntilOneIsChosen)
{
    set_view_data(std::string{ usual_place } + " 7");
    open_book({ { picture(L"絵.png", red) } });
    show_viewer();
    menu({ 7, 1, 0, true }).choose(mode_actual_size, Hand::keys);
    expect_percent(100);
    close();
    EXPECT_EQ(view_data(), std::string{ usual_place } + " 2100");
}

TEST_F(ViewerOfFiles, IsMinimisedMaximisedClosedAndOpenedAgain)
{
    open_viewer({ picture(L"絵.png", red) }, mode_fit);
    viewer().send(WM_SYSCOMMAND, SC_MAXIMIZE);
    expect_soon(true, [&] { return IsZoomed(viewer().handle()) != FALSE; });
    expect_middle(red);
    viewer().send(WM_CLOSE);
    expect_soon(false, [&] { return viewer().exists(); });
    show_viewer();
    EXPECT_TRUE(IsZoomed(viewer().handle()));
    viewer().send(WM_SYSCOMMAND, SC_RESTORE);
    const Window same = viewer();
    same.send(WM_SYSCOMMAND, SC_MINIMIZE);
    expect_soon(true, [&] { return IsIconic(same.handle()) != FALSE; });
    show_viewer();
    EXPECT_FALSE(IsIconic(viewer().handle()));
    EXPECT_EQ(viewer().rect().left, 700);
    expect_middle(red);
    close();
    EXPECT_EQ(view_data(), std::string{ usual_place } + " 2101");
}

TEST_F(ViewerOfFiles, ADoubleClickGoesToFitAndCtrlWithTheWheelBack)
{
    const fs::path kept = root().folder() / L"手帖.bok";
    open_viewer({ picture(L"一.png", red, 900, 900), picture(L"二.png", green) });
    double_click(middle_of_viewer());
    expect_soon(false, [&] { return has_bar(WS_HSCROLL); });
    expect_soon(false, [&] { return viewer().text().ends_with(L" 100% ]"); });
    {
        move_mouse(middle_of_viewer());
        const HeldKey ctrl{ VK_CONTROL };
        turn_wheel(middle_of_viewer(), 1);
        expect_soon(true, [&] { return has_bar(WS_HSCROLL); });
    }
    expect_middle(red);
    main_window().send_command(command::save_always);
    EXPECT_EQ(load_book(kept).pages[0].files, (std::vector<std::wstring>{ L"一.png", L"二.png" }))
        << "no entry was moved";
}

TEST_F(ViewerOfFiles, AnEmptyListShowsNoFileAndItsMenuOffersNone)
{
    open_viewer({ picture(L"絵.png", red) });
    main_window().send_command(command::next_page);
    expect_title(L"Viewer");
    bring_to_front();
    expect_middle(viewer_back);
    menu({ mode_actual_size, 0, 0, false }).choose_in_vain(command::first_file, Hand::mouse);
    menu({ mode_actual_size, 0, 0, false }).choose_in_vain(command::last_file, Hand::mouse);
    menu({ mode_actual_size, 0, 0, false }).choose_in_vain(command::duplicate_file, Hand::mouse);
    main_window().send_command(command::previous_page);
    expect_title(L"絵.png   [ 65 x 65,  100% ]");
    bring_to_front();
    expect_middle(red);
}

TEST_F(ViewerOfFiles, FilesThatCannotBeShownGiveAMessage)
{
    FileContents big = png_file(8, 8, plain(red));
    const auto sides = test_support::PictureBytes{}.big32(30'000).big32(30'000).bytes();
    std::copy(sides.begin(), sides.end(), big.begin() + 16);
    open_viewer(
        { picture(L"絵.png", green), L"無い.png", made(L"壊.png", FileContents(99)), made(L"大.png", big) });
    for (const int mode : { mode_actual_size, mode_fit }) {
        choose_mode(mode);
        main_window().send_command(command::first_file);
        expect_middle(green);
        for (const wchar_t* name : { L"無い.png", L"壊.png", L"大.png" }) {
            main_window().send_command(command::next_file);
            expect_title(name);
            expect_soon(true, [&] { return has_error(); });
        }
    }
}

TEST_F(ViewerOfFiles, TheProgramEndsWhileItIsOpen)
{
    open_viewer({ picture(L"絵.png", red, 3000, 3000) });
    main_window().send_command(command::next_page);
    main_window().send_command(command::previous_page);
    expect_middle(red);
    // Also with the picture held.
    press_mouse(middle_of_viewer());
    require("the mouse is held", [&] { return program().holds_mouse(); });
    main_window().post(WM_CLOSE);
    EXPECT_EQ(program().exit_code(), 0u);
    release_mouse({ 800, 400 });
    EXPECT_EQ(view_data(), std::string{ usual_place } + " 2100");
}
