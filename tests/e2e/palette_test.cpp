// The window for colours, fonts and the theme, used by mouse and keys.
#include "driver_main_window.hpp"
#include "driver_screen.hpp"
#include "look/box_menu.hpp"
#include "look/custom_colors.hpp"
#include "look/palette_view.hpp"
#include "process_holdings.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

constexpr int box_combo = 2520;
constexpr int text_button = 2503;
constexpr int back_button = 2504;
constexpr int theme_button = 6500;

class Palettes : public MainWindowTest {
protected:
    Window show_palette(Hand hand = Hand::mouse)
    {
        main_menu().choose(command::show_palette, hand);
        return await_palette();
    }
    Window await_palette()
    {
        require("the palette shows", [&] { return program().is_active(palette_window()); });
        program().await_input();
        return palette_window();
    }
    void press_button(int id) { click(palette_window().child(id).center()); }
    void close_palette()
    {
        press_button(command::close_window);
        require("the palette has closed", [&] { return !palette_window().exists(); });
    }
    int selected() const { return static_cast<int>(palette_window().child(box_combo).send(CB_GETCURSEL)); }
    // By Tab and the arrow key.
    void select(int number)
    {
        const Window combo = palette_window().child(box_combo);
        while (program().focus() != combo) {
            const Window before = program().focus();
            press(VK_TAB);
            require("the focus moves", [&] { return program().focus() != before; });
        }
        while (selected() < number) {
            const int before = selected();
            press(VK_DOWN);
            require("the next box is selected", [&] { return selected() > before; });
        }
    }
    Window system_dialog(int control) { return program().wait_for_dialog_with(control); }
    void choose_color(int button, COLORREF color)
    {
        press_button(button);
        program().answer_color_dialog(color);
    }
    void choose_theme(int theme, Hand hand)
    {
        const auto open_menu = [this] { press_button(theme_button); };
        PopupMenu menu{ program(), look::theme_menu(look::theme_standard), open_menu };
        menu.choose(theme, hand);
    }
    fs::path custom_colors() const { return root().folder() / L"dat" / L"custom_colors.dat"; }
    static book::Page colored(const wchar_t* text)
    {
        book::Page page = make_page(text);
        page.back_color.fill(0xFFFFFF);
        return page;
    }
    fs::path open_colored()
    {
        const fs::path file = root().add_book(L"手帖.bok", { colored(L"一"), colored(L"二") });
        open_settled(file);
        return file;
    }
};

} // namespace

TEST_F(Palettes, OpensForTheBoxWhoseMenuWasUsed)
{
    open_colored();
    for (const int id : { command::box_1, command::box_2, command::box_3 }) {
        PopupMenu menu{ program(), look::box_menu(), [&] {
                           program().click_on(box(id));
                           right_click(box(id).center());
                       } };
        menu.choose(command::box_look, Hand::mouse);
        await_palette();
        EXPECT_EQ(selected(), id - command::box_1);
        close_palette();
    }
    show_palette();
    EXPECT_EQ(selected(), 0);
}

TEST_F(Palettes, IsGreyInTheMenuWhileItIsOpen)
{
    open_colored();
    show_palette(Hand::keys);
    program().click_on(box(command::box_1));
    main_menu({ .is_palette_open = true }).choose_in_vain(command::show_palette, Hand::mouse);
    press(VK_TAB);
    expect_soon(true, [&] { return palette_window().exists(); });
}

TEST_F(Palettes, ChosenColoursAreShownAndSaved)
{
    const fs::path file = open_colored();
    show_palette();
    choose_color(back_button, RGB(10, 200, 30));
    choose_color(text_button, RGB(250, 0, 5));
    expect_color(look::Color{ RGB(10, 200, 30) },
        on_screen(layout().boxes.first.left + 8, layout().boxes.first.bottom - 30));
    select(2);
    choose_color(back_button, RGB(1, 2, 3));
    close();
    book::Book saved = load_book(file);
    EXPECT_EQ(saved.pages[0].back_color,
        (std::array<std::uint32_t, 3>{ RGB(10, 200, 30), 0xFFFFFF, RGB(1, 2, 3) }));
    EXPECT_EQ(saved.pages[0].text_color[0], RGB(250, 0, 5));
    EXPECT_EQ(saved.pages[1].back_color[0], 0xFFFFFFu);
    start().wait_for_window();
    settle();
    expect_color(look::Color{ RGB(10, 200, 30) },
        on_screen(layout().boxes.first.left + 8, layout().boxes.first.bottom - 30));
}

TEST_F(Palettes, ACancelledColourChangesNothing)
{
    const fs::path file = open_colored();
    show_palette();
    press_button(back_button);
    const Window dialog = system_dialog(706);
    dialog.child(706).set_text(L"10");
    dialog.post(WM_COMMAND, IDCANCEL);
    require("the dialog has closed", [&] { return !dialog.exists(); });
    close();
    EXPECT_EQ(load_book(file).pages[0].back_color[0], 0xFFFFFFu);
}

TEST_F(Palettes, AChosenFontIsSaved)
{
    const fs::path file = open_colored();
    const LONG usual = load_book(file).header.fonts[1].height;
    show_palette();
    select(1);
    press_button(command::set_box_font);
    constexpr int sizes = 0x472;
    const Window dialog = system_dialog(sizes);
    const Window list = dialog.child(sizes);
    list.send(CB_SETCURSEL, static_cast<WPARAM>(list.send(CB_GETCOUNT) - 1));
    dialog.send(WM_COMMAND, MAKEWPARAM(sizes, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list.handle()));
    dialog.post(WM_COMMAND, IDOK);
    require("the dialog has closed", [&] { return !dialog.exists(); });
    program().await_input();
    close();
    const book::BookHeader saved = load_book(file).header;
    EXPECT_LT(saved.fonts[1].height, usual);
    EXPECT_EQ(saved.fonts[0].height, book::BookHeader{}.fonts[0].height);
    start().wait_for_window();
    settle();
    close();
    EXPECT_EQ(load_book(file).header.fonts, saved.fonts);
}

TEST_F(Palettes, AThemeChangesNoPageUnlessTheCheckIsOnAndTheUserAgrees)
{
    const fs::path file = open_colored();
    show_palette();
    choose_theme(look::theme_dark, Hand::mouse);
    const auto panel = [&](int theme) {
        expect_color(look::theme_colors(theme).panel_back, on_screen(4, 4));
    };
    panel(look::theme_dark);
    const std::vector<book::Page> before = load_book(file).pages;
    const auto expect_unchanged = [&] {
        main_window().send_command(command::save_always);
        const std::vector<book::Page> now = load_book(file).pages;
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_EQ(now[i].text_color, before[i].text_color) << i;
            EXPECT_EQ(now[i].back_color, before[i].back_color) << i;
        }
    };
    expect_unchanged();
    press_button(command::apply_theme_to_pages);
    choose_theme(6003, Hand::mouse);
    answer_box(look::theme_question, Icon::question, IDNO);
    panel(look::theme_dark);
    program().await_input();
    expect_unchanged();
    choose_theme(6003, Hand::mouse);
    answer_box(look::theme_question, Icon::question, IDYES);
    panel(6003);
    close();
    const book::Book saved = load_book(file);
    EXPECT_EQ(saved.header.theme, 6003);
    const look::ThemePalette pink = look::theme_colors(6003);
    for (const book::Page& page : saved.pages) {
        EXPECT_EQ(page.text_color[0], pink.box1_text.value);
        EXPECT_EQ(page.back_color[1], pink.box_back.value);
    }
}

TEST_F(Palettes, EscClosesItAndTheKeysGoToTheTextAgain)
{
    open_colored();
    show_palette();
    press(VK_ESCAPE);
    require("the palette has closed", [&] { return !palette_window().exists(); });
    require("the main window is active", [&] { return program().is_active(main_window()); });
    write_first(L"続き");
}

TEST_F(Palettes, CustomColoursAreWrittenOnlyAtTheEnd)
{
    open_colored();
    write_bytes(custom_colors(), std::string(10, '\x41'));
    show_palette();
    close_palette();
    EXPECT_EQ(file_bytes(custom_colors()).size(), 10u);
    close();
    std::string filled_up(64, '\0');
    filled_up.replace(0, 10, 10, '\x41');
    EXPECT_EQ(file_bytes(custom_colors()), filled_up);
}

TEST_F(Palettes, TheProgramEndsWhileItsDialogIsOpen)
{
    const fs::path file = open_colored();
    show_palette();
    press_button(back_button);
    system_dialog(706);
    main_window().post(WM_CLOSE);
    EXPECT_EQ(program().exit_code(), 0u);
    EXPECT_EQ(load_book(file).pages.size(), 2u);
}

TEST_F(Palettes, IsBackAfterTheMainWindowWasMinimised)
{
    open_colored();
    show_palette();
    main_window().send(WM_SYSCOMMAND, SC_MINIMIZE);
    require("it is hidden", [&] { return !palette_window().exists(); });
    main_window().send(WM_SYSCOMMAND, SC_RESTORE);
    require("it is back", [&] { return palette_window().exists(); });
    main_window().send(WM_SYSCOMMAND, SC_MINIMIZE);
    main_window().post(WM_CLOSE);
    EXPECT_EQ(program().exit_code(), 0u);
}

TEST_F(Palettes, OpeningsCostNothing)
{
    open_colored();
    const auto open_and_close = [&](int count) {
        for (int i = 0; i < count; ++i) {
            main_window().send_command(command::show_palette);
            const Window window = palette_window();
            window.send(WM_CLOSE);
        }
    };
    open_and_close(20);
    const Holdings before = holdings_of(program());
    open_and_close(250);
    require_no_growth(before, holdings_of(program()));
}
