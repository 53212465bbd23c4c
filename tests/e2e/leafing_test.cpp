// Paging through a Book with every control that turns a page.
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class Leafing : public MainWindowTest { };

std::vector<book::Page> numbered_pages(std::size_t count)
{
    std::vector<book::Page> pages;
    for (std::size_t i = 1; i <= count; ++i)
        pages.push_back(make_page(numeral(i)));
    return pages;
}

} // namespace

TEST_F(Leafing, ButtonsWheelSliderAndTabsTurnThePagesOfOneBook)
{
    auto pages = numbered_pages(9);
    pages[3].tab_number = 1;
    pages[7].tab_number = 2;
    const fs::path file = root().add_book(L"手帖.bok", pages);
    open_settled(file);
    click_control(command::next_page);
    expect_page(L"二");
    turn_wheel(background(), -1);
    expect_page(L"三");
    click(tab_place(2, 2));
    expect_page(L"八");
    turn_wheel(background(), 1);
    expect_page(L"七");
    drag(thumb_place(6, 9), thumb_place(1, 9));
    expect_page(L"二");
    click(tab_place(1, 2));
    expect_page(L"四");
    click_control(command::last_page);
    expect_page(L"九");
    turn_wheel(background(), -1);
    click_control(command::next_page);
    click_control(command::previous_page);
    expect_page(L"八");
    restart();
    expect_page(L"八");
    click_control(command::first_page);
    expect_page(L"一");
}

TEST_F(Leafing, ATouchpadTurnsOnePageWithEachNotchOfItsSmallTurns)
{
    open_settled(root().add_book(L"手帖.bok", numbered_pages(9)));
    stroke_touchpad(background(), -30, 8);
    expect_page(L"三");
    click_control(command::next_page); // proves that no further page was turned
    expect_page(L"四");
    stroke_touchpad(background(), 8, 15);
    expect_page(L"三");
    click_control(command::previous_page);
    expect_page(L"二");
}

TEST_F(Leafing, EnterInTheSearchBoxTurnsForwardAndWithShiftBackward)
{
    open_settled(
        root().add_book(L"手帖.bok", { make_page(L"花 一"), make_page(L"空"), make_page(L"花 二") }));
    retype(command::search_box, L"花");
    press(VK_RETURN);
    expect_page(L"花 二");
    {
        const HeldKey shift(VK_SHIFT);
        press(VK_RETURN);
        expect_page(L"花 一");
    }
    EXPECT_EQ(program().focus(), box(command::search_box));
}

TEST_F(Leafing, AClickOnTheTrackGoesStraightToItsPage)
{
    open_settled(root().add_book(L"手帖.bok", numbered_pages(9)));
    click(thumb_place(6, 9));
    expect_page(L"七");
    click(thumb_place(2, 9));
    expect_page(L"三");
}

TEST_F(Leafing, EveryWayOffAnEditedPageAsksAndANoDiscardsTheEdit)
{
    auto pages = numbered_pages(5);
    pages[4].tab_number = 1;
    const fs::path file = root().add_book(L"手帖.bok", pages);
    open_settled(file);
    const auto refuse = [this] { answer_box(leave_question, Icon::question, IDNO); };
    write_first(L"い");
    click_control(command::next_page);
    refuse();
    expect_page(L"二");
    write_first(L"ろ");
    turn_wheel(background(), -1);
    refuse();
    expect_page(L"三");
    write_first(L"は");
    click(tab_place(1, 1));
    refuse();
    expect_page(L"五");
    write_first(L"に");
    click(thumb_place(0, 5));
    refuse();
    expect_page(L"一");
    close();
    const book::Book saved = load_book(file);
    for (std::size_t i = 0; i < pages.size(); ++i)
        EXPECT_EQ(saved.pages[i].text[0], pages[i].text[0] + L"\r\n");
}
