// The six themes on the screen.
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class ThemeOfPages : public MainWindowTest {
protected:
    // Checks one pixel of everything that the main window colours.
    void expect_colors(int theme, const Where& where = Where::current())
    {
        const look::ThemePalette colors = look::theme_colors(theme);
        const app::MainLayout at = layout();
        RECT client{};
        GetClientRect(main_window().handle(), &client);
        expect_color(colors.panel_back, background(), where);
        expect_color(colors.panel_back.shade(-80), on_screen(at.tabs.right - 30, at.tabs.top + 10), where);
        expect_color(colors.viewer_back, middle(at.file_pane), where);
        expect_color(colors.status_back, on_screen(client.right - 4, client.bottom - 4), where);
        expect_color(colors.slider_back, on_screen(at.slider.right - 60, at.slider.bottom - 4), where);
        expect_color(colors.box_back, on_screen(at.search_box.right - 8, at.search_box.top + 11), where);
        expect_color(colors.check_fill, on_screen(at.mark_check.left + 6, at.mark_check.top + 10), where);
    }
    // Moves the pointer where nothing reacts to it.
    void rest_pointer() const { move_mouse(background()); }
};

class Themes : public ThemeOfPages, public testing::WithParamInterface<int> { };

INSTANTIATE_TEST_SUITE_P(Each, Themes, testing::Range(look::theme_standard, look::theme_blue_plain_links));

} // namespace

TEST_P(Themes, ColourTheWholeWindowAndAreRestoredWithTheirBook)
{
    const int first = GetParam() == look::theme_dark ? look::theme_standard : look::theme_dark;
    book::BookHeader header;
    header.theme = first;
    const fs::path file = root().add_book(L"手帖.bok", { make_page(L"一") }, header);
    open_settled(file);
    rest_pointer();
    expect_colors(first);
    main_window().send_command(GetParam());
    expect_colors(GetParam());
    restart();
    EXPECT_EQ(load_book(file).header.theme, GetParam());
    rest_pointer();
    expect_colors(GetParam());
}

TEST_P(Themes, ANewPageTakesTheColoursOfTheTheme)
{
    const fs::path file = open_numbered(1);
    main_window().send_command(GetParam());
    main_menu().choose(command::add_page_at_end, Hand::keys);
    expect_page(L"");
    const look::ThemePalette colors = look::theme_colors(GetParam());
    rest_pointer();
    expect_color(colors.box_back, middle(layout().boxes.third));
    const book::Page page = load_book(file).pages.at(1);
    EXPECT_EQ(page.back_color[0], colors.box_back.value);
    EXPECT_EQ(page.text_color[2], colors.box3_text.value);
}

TEST_F(ThemeOfPages, ACommandAppliesTheColoursToEveryPage)
{
    const fs::path file = open_numbered(3);
    main_window().send_command(look::theme_dark);
    rest_pointer();
    const look::ThemePalette dark = look::theme_colors(look::theme_dark);
    expect_color(look::Color{ 0xFFFFFF }, middle(layout().boxes.third));
    main_window().send_command(command::apply_theme_to_pages);
    expect_color(dark.box_back, middle(layout().boxes.third));
    close();
    for (const book::Page& page : load_book(file).pages)
        EXPECT_EQ(page.back_color[2], dark.box_back.value);
}
