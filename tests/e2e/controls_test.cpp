// The main window used by mouse and keyboard: buttons, check boxes, slider, tabs, menus and search.
#include "app/menus.hpp"
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class MainControls : public MainWindowTest {
protected:
    // The thumb's point on the screen for the page at `position` of `count`.
    POINT thumb_at(int position, int count) const
    {
        constexpr int track_left = 8 + 40;
        constexpr int track_right = 355 - 8 - 70 - 1;
        const app::Rect slider = layout().slider;
        const int x = track_left + (track_right - track_left) * position / (count - 1);
        return on_screen(slider.left + x, (slider.top + slider.bottom) / 2);
    }
};

} // namespace

TEST_F(MainControls, TheButtonsAtTheSlidersEndsTurnPages)
{
    open_numbered(4);
    const std::pair<int, std::size_t> clicks[] = { { command::next_page, 2 }, { command::last_page, 4 },
        { command::previous_page, 3 }, { command::first_page, 1 } };
    for (const auto& [id, page] : clicks) {
        click_control(id);
        expect_page(numeral(page));
    }
}

TEST_F(MainControls, TwoQuickClicksTurnTwoPages)
{
    open_numbered(4);
    double_click(box(command::next_page).center());
    expect_page(L"三");
}

TEST_F(MainControls, TheCheckBoxesMarkThePageAndChangeTheOrder)
{
    const fs::path file = open_numbered(3);
    click_control(command::toggle_mark);
    click_control(command::toggle_tab);
    click_control(command::reverse_order);
    expect_page(L"三");
    close();
    const book::Book saved = load_book(file);
    EXPECT_NE(saved.pages[0].mark, 0);
    EXPECT_EQ(saved.pages[0].tab_number, 1u);
    EXPECT_LT(saved.header.order_mode, 0);
}

TEST_F(MainControls, TheSaveButtonSavesAndLeavesTheFocusInTheText)
{
    const fs::path file = open_numbered_book(1);
    EXPECT_FALSE(box(command::save_if_changed).is_enabled());
    write_first(L"い");
    expect_soon(true, [&] { return box(command::save_if_changed).is_enabled(); });
    click_control(command::save_if_changed);
    expect_soon(false, [&] { return box(command::save_if_changed).is_enabled(); });
    EXPECT_EQ(load_book(file).pages[0].text[0].substr(0, 2), L"い一");
    expect_soon(box(command::box_1), [&] { return program().focus(); });
    type_text(L"ろ");
    expect_soon(true, [&] { return box(command::box_1).is_modified(); });
    chord({ VK_CONTROL, 'S' });
    expect_soon(false, [&] { return box(command::box_1).is_modified(); });
}

TEST_F(MainControls, TheSliderIsDraggedThroughTheBook)
{
    open_numbered(9);
    drag(thumb_at(0, 9), thumb_at(5, 9));
    expect_page(numeral(6));
    drag(thumb_at(5, 9), thumb_at(8, 9));
    expect_page(numeral(9));
    click(thumb_at(2, 9));
    expect_page(numeral(3));
}

TEST_F(MainControls, TheSliderAsksBeforeItLeavesAnEditedPage)
{
    open_numbered_book(5);
    write_first(L"い");
    click(thumb_at(4, 5));
    program().wait_for_box().answer(IDNO);
    expect_page(numeral(5));
    EXPECT_EQ(title(), L"手帖");
    move_mouse(thumb_at(1, 5));
    click_control(command::previous_page);
    expect_page(numeral(4));
}

TEST_F(MainControls, AClickOnATabGoesToItsPage)
{
    std::vector<book::Page> pages{ make_page(L"一"), make_page(L"二"), make_page(L"三") };
    pages[0].tab_number = 1;
    pages[2].tab_number = 2;
    open_settled(root().add_book(L"手帖.bok", pages));
    const app::Rect tabs = layout().tabs;
    click(on_screen(tabs.left + 300, tabs.top + 10));
    expect_page(L"三");
    click(on_screen(tabs.left + 100, tabs.top + 10));
    expect_page(L"一");
}

TEST_F(MainControls, TheMainMenuOpensByARightClickAndAcceptsKeys)
{
    open_numbered(2);
    main_menu().choose_by_steps(2); // the second row adds a page at the end
    expect_page(L"");
    click_control(command::first_page);
    expect_page(L"一");
    click_control(command::last_page);
    expect_page(L"");
}

TEST_F(MainControls, TheBookMenuAcceptsKeys)
{
    open_numbered(1);
    // A menu that opens under the pointer highlights the row there.
    move_mouse(background());
    PopupMenu menu(
        program(), app::book_menu(false), [this] { main_window().post_command(command::show_book_menu); });
    menu.choose_by_steps(5); // makes a backup
    program().wait_for_box().answer(IDOK);
    EXPECT_FALSE(fs::is_empty(root().folder() / L"book_backup"));
}

TEST_F(MainControls, TheBookMenusLastRowEndsTheProgramByAClick)
{
    open_numbered(1);
    const RECT place = book_menu(false).window().rect();
    e2e::click({ (place.left + place.right) / 2, place.bottom - 12 });
    EXPECT_EQ(program().exit_code(), 0u);
}

TEST_F(MainControls, AWordIsSearchedByEnterAndAFailedSearchIsReported)
{
    open_numbered(4);
    program().click_on(box(command::search_box));
    type_text(L"三");
    expect_soon(std::wstring(L"三"), [&] { return box(command::search_box).text(); });
    press(VK_RETURN);
    expect_page(L"三");
    EXPECT_FALSE(has_banner());
    EXPECT_EQ(program().focus(), box(command::search_box));
    press(VK_RETURN);
    expect_soon(true, [&] { return has_banner(); });
    expect_page(L"三");
    expect_soon(false, [&] { return has_banner(); });
    click_control(command::clear_search);
    expect_soon(std::wstring(), [&] { return box(command::search_box).text(); });
    click_control(command::next_page);
    expect_page(L"四");
}

TEST_F(MainControls, TheCheckBoxesUnderTheSearchBoxChangeWhatIsFound)
{
    open_settled(
        root().add_book(L"手帖.bok", { make_page(L"一"), make_page(L"cat dog"), make_page(L"CAT") }));
    program().click_on(box(command::search_box));
    type_text(L"CAT");
    expect_soon(std::wstring(L"CAT"), [&] { return box(command::search_box).text(); });
    click_control(command::toggle_ignore_case);
    click_control(command::next_page);
    expect_page(L"cat dog");
    click_control(command::toggle_ignore_case);
    click_control(command::first_page);
    expect_page(L"一");
    click_control(command::next_page);
    expect_page(L"CAT");
}
