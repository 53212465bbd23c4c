// Screenshots of the program in its main situations, to be looked at: scripts/screens.
#include "app/page_actions.hpp"
#include "look/tab_strip.hpp"
#include "look/theme.hpp"
#include "media/viewer_model.hpp"
#include "ovlib/gui/gdip.hpp"
#include "tests/e2e/driver_drag.hpp"
#include "tests/e2e/driver_main_window.hpp"
#include "tests/support/built_files.hpp"
#include "tests/support/picture_files.hpp"
#include "tests/support/screen_picture.hpp"
#include "tools/bok/json_book.hpp"
#include <cmath>
#include <cstdlib>
#include <sstream>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

const fs::path shelf = L"C:\\本棚";

// The Book that explains the program, read from its JSON.
book::Book sample_book(std::int32_t theme)
{
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    bok::Streams streams{ in, out, err };
    bok::Progress progress{ streams, "" };
    book::Book book;
    bok::import_json(file_bytes(test_support::sample_path()), book, progress);
    book.header.theme = theme;
    app::color_all_pages(book, look::theme_colors(theme));
    return book;
}

class Screens : public MainWindowTest {
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        fs::create_directories(shelf);
    }
    void TearDown() override
    {
        MainWindowTest::TearDown();
        fs::remove_all(shelf);
    }
    // In a folder that a user might choose, because the status bar shows it.
    fs::path add_book(const wchar_t* name, const book::Book& book) const
    {
        return root().add_book((shelf / name).wstring(), book.pages, book.header);
    }
    fs::path open_sample(std::int32_t theme = look::theme_standard, std::uint64_t position = 0)
    {
        book::Book book = sample_book(theme);
        book.header.position = position;
        const fs::path file = add_book(L"手帖.bok", book);
        open_settled(file);
        return file;
    }
    // Takes a screenshot of all windows of the program, without the pointer unless requested.
    void take(const std::string& name, bool with_pointer = false)
    {
        if (!with_pointer)
            move_mouse(background());
        RECT area = main_window().rect();
        for (const Window window : top_windows(program().process_id())) {
            const RECT more = window.rect();
            UnionRect(&area, &area, &more);
        }
        save(name, area);
    }
    // Takes a screenshot of one window.
    static void take_only(const std::string& name, Window window) { save(name, window.rect()); }

private:
    static void save(const std::string& name, const RECT& area)
    {
        const char* folder = std::getenv("PAGEWICK_SCREENS");
        const fs::path place = folder ? test_support::system_path(folder) : test_support::artifacts_path();
        fs::create_directories(place);
        const ovlib::GDIPSession gdip;
        EXPECT_TRUE(test_support::save_screen(area, (place / ("screen-" + name + ".png")).wstring()));
    }
};

// Hills under an evening sky.
ovlib::Color landscape(int x, int y)
{
    const auto hill = [x](double height, double width, double shift) {
        return 520 - height * std::sin(x / width + shift);
    };
    const int dx = x - 760;
    const int dy = y - 300;
    if (y > hill(60, 150, 2.4))
        return ovlib::rgb(0x20, 0x30, 0x3C);
    if (y > hill(150, 240, 0.4))
        return ovlib::rgb(0x35, 0x50, 0x5A);
    if (dx * dx + dy * dy < 90 * 90)
        return ovlib::rgb(0xFF, 0xE3, 0xA8);
    return ovlib::rgb(0xF0 - y / 10, 0xB0 - y / 12, 0x70 + y / 8);
}

class ScreensOfTheViewer : public Screens {
protected:
    // Opens the sample with a picture, and the viewer beside its text.
    void open_viewer()
    {
        book::Book book = sample_book(look::theme_standard);
        const auto picture = test_support::png_file(1200, 800, landscape);
        const fs::path file = shelf / L"夕暮れの丘.png";
        write_bytes(file, { reinterpret_cast<const char*>(picture.data()), picture.size() });
        book.pages[0].files = { file.wstring() };
        open_settled(add_book(L"手帖.bok", book));
        main_window().send_command(command::show_viewer);
        require("the viewer shows", [&] { return program().is_active(viewer()); });
        program().await_input();
    }
};

class ScreensOfThemes : public Screens, public testing::WithParamInterface<int> {
protected:
    Window opened(const wchar_t* class_name)
    {
        require("the window shows", [&] { return program().is_active(side_window(class_name)); });
        program().await_input();
        return side_window(class_name);
    }
    void save_window(const std::string& name, Window window)
    {
        move_mouse(background());
        window.send(WM_NULL);
        take_only(name + "-" + std::to_string(GetParam()), window);
    }
};

INSTANTIATE_TEST_SUITE_P(
    Each, ScreensOfThemes, testing::Range(look::theme_standard, look::theme_blue_plain_links));

} // namespace

TEST_P(ScreensOfThemes, Theme)
{
    open_sample(GetParam());
    take("theme-" + std::to_string(GetParam()));
}

// The windows beside the main one, each alone.
TEST_P(ScreensOfThemes, Replace)
{
    open_sample(GetParam());
    main_menu().choose(command::show_replace, Hand::keys);
    const Window window = opened(L"ovlib_replacewnd[112]");
    program().click_into(window.child(command::replace_search_text));
    type_text(L"手帖");
    click(window.child(command::replace_in_boxes).center());
    save_window("replace", window);
}

TEST_P(ScreensOfThemes, PageEditor)
{
    open_sample(GetParam());
    main_menu().choose(command::show_book_editor, Hand::keys);
    const Window window = opened(L"ovlib_bookeditor[344]");
    click(window.child(command::select_page).center());
    click(window.child(command::next_page).center());
    require("the next page shows", [&] { return window.child(command::select_page).text() == L"2 を選択"; });
    {
        const HeldKey shift{ VK_SHIFT };
        e2e::press(VK_RIGHT);
        e2e::press(VK_RIGHT);
        wait_until([&] { return window.child(command::go_to_range_end).is_visible(); });
    }
    click(window.child(command::trace_selection).center());
    save_window("page-editor", window);
}

TEST_P(ScreensOfThemes, Palette)
{
    open_sample(GetParam());
    move_mouse(on_screen(500, 300));
    main_window().send_command(command::show_palette);
    require("the palette shows", [&] { return program().is_active(palette_window()); });
    program().await_input();
    take_only("palette-" + std::to_string(GetParam()), palette_window());
}

TEST_P(ScreensOfThemes, Settings)
{
    write_bytes(root().folder() / L"dat" / L"mail_address.txt", "someone@example.com");
    open_sample(GetParam());
    main_window().post_command(command::show_settings);
    require("the settings show", [&] { return program().is_active(settings_window()); });
    program().await_input();
    take_only("settings-" + std::to_string(GetParam()), settings_window());
}

TEST_P(ScreensOfThemes, Results)
{
    open_sample(GetParam());
    retype(command::search_box, L"ページ");
    click_control(command::toggle_file_list_search);
    click_control(command::toggle_results);
    require("the results show", [&] { return side_window(L"ovlib_book_search_result_wnd[35]").exists(); });
    save_window("results", side_window(L"ovlib_book_search_result_wnd[35]"));
}

TEST_P(ScreensOfThemes, FileListEditor)
{
    book::Book book = sample_book(GetParam());
    book.pages[0].files = { L"C:\\本棚\\表紙の写真.png", L"C:\\本棚\\旅の記録\\京都の一日目.jpg",
        L"https://example.jp/資料?id=1", L"音楽\\朝の曲.mp3" };
    book.pages[0].current_file = 1;
    open_settled(add_book(L"手帖.bok", book));
    main_window().send_command(command::show_file_list_editor);
    require("the editor shows", [&] { return side_window(L"ovlib_filelist_editor[192]").exists(); });
    if (GetParam() % 2 == 0) {
        const Window list = side_window(L"ovlib_filelist_editor[192]").child(command::file_list_box);
        program().click_on(list);
        list.select(0, 0);
        type_text(L"D:\\");
    }
    save_window("file-list", side_window(L"ovlib_filelist_editor[192]"));
}

TEST_F(Screens, Writing)
{
    open_sample();
    write_first(L"書きかけの一行．");
    program().click_on(box(command::box_3));
    box(command::box_3).select(0, 40);
    take("writing");
}

TEST_F(Screens, MainMenu)
{
    open_sample();
    const PopupMenu menu = main_menu();
    take("main-menu", true);
    menu.leave();
}

TEST_F(Screens, BookMenu)
{
    open_sample();
    const PopupMenu menu = book_menu(false);
    take("book-menu", true);
    menu.leave();
}

TEST_F(Screens, SearchThatFinds)
{
    open_sample();
    retype(command::search_box, L"バックアップ");
    const std::wstring before = box(command::box_1).text();
    press(VK_RETURN);
    require("another page shows", [&] { return box(command::box_1).text() != before; });
    take("search-found");
}

TEST_F(Screens, SearchThatFails)
{
    open_sample();
    retype(command::search_box, L"どこにもない語");
    move_mouse(background());
    press(VK_RETURN);
    expect_banner();
    take("search-failed", true);
}

TEST_F(Screens, Tabs)
{
    book::Book book = sample_book(look::theme_standard);
    for (std::size_t i = 0; i < book.pages.size(); ++i) {
        book.pages[i].tab_number = 1;
        book.pages[i].tab_color = look::tab_color(i % look::named_tab_color_count).value;
        book.pages[i].mark = i % 3 == 0 ? 1 : 0;
    }
    book.header.position = 3;
    open_settled(add_book(L"手帖.bok", book));
    take("tabs");
}

// A Book whose position is past its end shows no page, and its boxes are read-only.
TEST_F(Screens, ReadOnly)
{
    open_sample(look::theme_standard, UINT64_MAX);
    take("read-only");
}

TEST_F(Screens, FileThatCannotBeWritten)
{
    const fs::path file = open_sample();
    const ReadOnly protection(file);
    write_first(L"書きかけの一行．");
    main_window().post_command(command::save_always);
    const MessageDialog told = program().wait_for_box();
    take("save-failed");
    told.answer(IDOK);
}

TEST_F(Screens, DroppedFiles)
{
    open_sample();
    DragPartner partner;
    move_mouse(partner.place());
    partner.drag_to(background(), [](test_support::FakeSource& source) {
        source.offer_files({ L"C:\\本棚\\表紙の写真.png", L"C:\\本棚\\朝の曲.mp3" });
    });
    partner.release();
    const auto question = [this] { return side_window(L"ovlib_drop_option_wnd[34]"); };
    require("the question shows", [&] { return program().is_active(question()); });
    program().await_input();
    take("drop", true);
    TEST_F(ScreensOfTheViewer, Fit)
    {
        open_viewer();
        move_mouse(background());
        take_only("viewer-fit", viewer());
    }

    TEST_F(ScreensOfTheViewer, ActualSize)
    {
        open_viewer();
        viewer().send_command(media::mode_actual_size);
        const RECT place = viewer().rect();
        move_mouse({ place.left + 70, place.top + 60 });
        require(
            "the buttons show", [&] { return viewer().child(media::viewer_command::zoom_in).is_visible(); });
        viewer().send_command(media::viewer_command::zoom_in);
        take_only("viewer-actual-size", viewer());
    }

    TEST_F(Screens, History)
    {
        book::Book book = sample_book(look::theme_standard);
        std::vector<std::wstring> entries;
        for (const wchar_t* name :
            { L"手帖.bok", L"日記.bok", L"読書ノート.bok", L"料理.bok", L"旅の記録.bok" })
            entries.push_back(add_book(name, book).wstring());
        root().write_history(entries);
        start().wait_for_window();
        settle();
        main_menu().choose(command::show_history, Hand::mouse);
        require("the history shows", [&] { return program().is_active(history_window()); });
        const app::MainLayout at = layout();
        move_mouse(
            on_screen((at.slider.right + at.file_pane.left) / 2, at.slider.bottom)); // outside the history
        take("history", true);
    }
