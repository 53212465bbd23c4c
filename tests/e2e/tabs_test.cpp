// Adding, colouring and removing tabs with the mouse, up to the limit of a Book.
#include "driver_main_window.hpp"
#include "look/tab_strip.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

constexpr auto removal_question = L"このページのタブを削除しますか？";

class Tabs : public MainWindowTest {
protected:
    // A point near the left end of the tab, where there is no caption.
    POINT tab_edge(std::size_t number, std::size_t count) const
    {
        const app::Rect strip = layout().tabs;
        const app::Rect tab = look::tab_rects(count, { strip.width(), strip.height() }).at(number - 1);
        return on_screen(strip.left + tab.left + 2, strip.top + tab.height() / 2);
    }
    void expect_fill(
        std::size_t number, std::size_t count, std::size_t color, const Where& where = Where::current())
    {
        // A tab under the mouse is not filled with its own colour.
        move_mouse(background());
        expect_color(look::tab_color(color), tab_edge(number, count), where);
    }
    fs::path open_tabbed(std::size_t tabs, std::size_t pages)
    {
        std::vector<book::Page> all;
        for (std::size_t i = 1; i <= pages; ++i) {
            all.push_back(make_page(L"p" + std::to_wstring(i)));
            all.back().tab_number = i <= tabs ? i : 0;
        }
        const fs::path file = root().add_book(L"手帖.bok", all);
        open_settled(file);
        return file;
    }
    static std::vector<std::uint64_t> stored_tabs(const fs::path& file)
    {
        std::vector<std::uint64_t> numbers;
        for (const book::Page& page : load_book(file).pages)
            numbers.push_back(page.tab_number);
        return numbers;
    }
};

using Numbers = std::vector<std::uint64_t>;

} // namespace

TEST_F(Tabs, AreAddedByTheCheckBoxColouredByTheMenuAndRemovedByEither)
{
    const fs::path file = open_tabbed(0, 3);
    toggle_check(command::toggle_tab, true);
    click_control(command::last_page);
    expect_page(L"p3");
    toggle_check(command::toggle_tab, true);
    expect_fill(1, 2, 0);
    tab_menu(1, 2).choose(command::first_tab_color + 1, Hand::mouse);
    expect_fill(1, 2, 1);
    tab_menu(1, 2).choose(command::first_tab_color + 5, Hand::keys);
    expect_fill(1, 2, 5);
    click(tab_place(1, 2));
    expect_page(L"p1");
    close();
    EXPECT_EQ(stored_tabs(file), (Numbers{ 1, 0, 2 }));
    EXPECT_EQ(load_book(file).pages[0].tab_color, look::tab_color(5).value);

    start().wait_for_window();
    settle();
    expect_page(L"p1");
    expect_checked(command::toggle_tab, true);
    tab_menu(2, 2).choose(command::remove_tab, Hand::keys);
    answer_box(removal_question, Icon::question, IDNO);
    tab_menu(2, 2).choose(command::remove_tab, Hand::mouse);
    answer_box(removal_question, Icon::question, IDYES);
    toggle_check(command::toggle_tab, false);
    close();
    EXPECT_EQ(stored_tabs(file), (Numbers{ 0, 0, 0 }));
}

TEST_F(Tabs, ANewTabIsPlacedAmongTheOthersInStoredOrder)
{
    const fs::path file = open_tabbed(1, 3);
    click_control(command::last_page);
    expect_page(L"p3");
    toggle_check(command::toggle_tab, true);
    click_control(command::previous_page);
    expect_page(L"p2");
    toggle_check(command::toggle_tab, true);
    click(tab_place(3, 3));
    expect_page(L"p3");
    click(tab_place(2, 3));
    expect_page(L"p2");
    click(tab_place(1, 3));
    expect_page(L"p1");
}

TEST_F(Tabs, TheTwoHundredAndFiftySixthIsTheLast)
{
    const fs::path file = open_tabbed(255, 258);
    click_control(command::last_page);
    expect_page(L"p258");
    EXPECT_TRUE(box(command::toggle_tab).is_enabled());
    toggle_check(command::toggle_tab, true);
    click_control(command::previous_page);
    expect_page(L"p257");
    expect_soon(false, [&] { return box(command::toggle_tab).is_enabled(); });
    click_control(command::toggle_tab);
    main_window().send_command(command::toggle_tab);
    // The last tab is on top of all others.
    click(tab_place(256, 256));
    expect_page(L"p258");
    EXPECT_TRUE(box(command::toggle_tab).is_enabled());
    toggle_check(command::toggle_tab, false);
    click_control(command::previous_page);
    expect_page(L"p257");
    expect_soon(true, [&] { return box(command::toggle_tab).is_enabled(); });
    toggle_check(command::toggle_tab, true);
    close();
    const Numbers numbers = stored_tabs(file);
    EXPECT_EQ(numbers[254], 255u);
    EXPECT_EQ(numbers[255], 0u);
    EXPECT_EQ(numbers[256], 256u);
    EXPECT_EQ(numbers[257], 0u);
}

TEST_F(Tabs, AClickOnTheTabOfThePageInViewAsksNothing)
{
    open_tabbed(2, 2);
    write_first(L"い");
    click(tab_place(1, 2));
    toggle_check(command::toggle_mark, true);
    EXPECT_FALSE(program().has_dialog());
    EXPECT_EQ(title(), L"手帖 *");
    click(tab_place(2, 2));
    answer_box(leave_question, Icon::question, IDYES);
    expect_page(L"p2");
    click(tab_place(1, 2));
    expect_page(L"いp1");
}

TEST_F(Tabs, TheColourThatWasChosenIsThatOfTheNextTab)
{
    const fs::path file = open_tabbed(1, 2);
    tab_menu(1, 1).choose(command::first_tab_color + 5, Hand::mouse);
    click_control(command::last_page);
    expect_page(L"p2");
    toggle_check(command::toggle_tab, true);
    click_control(command::first_page); // the current tab shows no fill
    expect_page(L"p1");
    expect_fill(2, 2, 5);
    close();
    EXPECT_EQ(load_book(file).pages[1].tab_color, look::tab_color(5).value);
}

TEST_F(Tabs, AClickOnATabLeavesTypingAndSavingToTheText)
{
    const fs::path file = open_tabbed(2, 2);
    click(tab_place(2, 2));
    expect_page(L"p2");
    type_text(L"いろ");
    expect_soon(L"いろp2\r\n", [&] { return box(command::box_1).text(); });
    tab_menu(1, 2).choose(command::first_tab_color + 1, Hand::keys);
    chord({ VK_CONTROL, 'S' });
    expect_soon(L"手帖", [&] { return title(); });
    EXPECT_EQ(load_book(file).pages[1].text[0], L"いろp2\r\n");
}
