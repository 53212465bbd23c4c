// Turning pages, and restoring scroll positions.
#include "driver_test.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

class Turning : public EndToEnd {
protected:
    void step(int id) { main_window().send_command(id); }
    // A point of the main window that no control covers.
    POINT background() const
    {
        const RECT rect = main_window().rect();
        POINT top{ 0, 0 };
        ClientToScreen(main_window().handle(), &top);
        return { (rect.left + rect.right) / 2, top.y + 28 };
    }
};

std::wstring many_lines(std::size_t count)
{
    std::wstring text = L"0";
    for (std::size_t i = 1; i < count; ++i)
        text += L"\r\n" + std::to_wstring(i);
    return text;
}

} // namespace

TEST_F(Turning, TheFourCommandsGoToTheirPages)
{
    open_numbered_book(4);
    const std::pair<int, std::size_t> steps[] = { { core::command::next_page, 2 },
        { core::command::next_page, 3 }, { core::command::previous_page, 2 }, { core::command::last_page, 4 },
        { core::command::next_page, 4 }, { core::command::first_page, 1 },
        { core::command::previous_page, 1 } };
    for (const auto& [id, page] : steps) {
        step(id);
        EXPECT_EQ(box(core::command::box_1).text(), as_loaded(numeral(page))) << id;
        EXPECT_EQ(title(), L"手帖");
    }
}

TEST_F(Turning, TurningAnUnchangedPageWritesNothing)
{
    const fs::path file = open_numbered_book(2);
    make_old(file);
    step(core::command::next_page);
    expect_page(L"二");
    EXPECT_TRUE(is_old(file));
}

TEST_F(Turning, TheWheelOverTheWindowTurnsPages)
{
    open_numbered_book(3);
    // The wheel has no effect while the window manager is still placing the window; wait for a click first.
    program().click_on(box(core::command::box_1));
    turn_wheel(background(), -1);
    expect_page(L"二");
    turn_wheel(background(), -1);
    expect_page(L"三");
    turn_wheel(background(), 1);
    expect_page(L"二");
}

TEST_F(Turning, CtrlAndTheWheelMoveThePagePastItsNeighbour)
{
    const fs::path file = open_numbered_book(3);
    move_mouse(background());
    {
        const HeldKey ctrl(VK_CONTROL);
        turn_wheel(background(), -1);
        // The same page stays visible, so its new position is seen in the saved file.
        expect_soon(1u, [&] {
            main_window().send_command(core::command::save_always);
            return static_cast<unsigned>(load_book(file).header.position);
        });
    }
    expect_page(L"一");
    step(core::command::previous_page);
    expect_page(L"二");
    step(core::command::last_page);
    expect_page(L"三");
}

TEST_F(Turning, NothingTurnsWhileABoxIsOpen)
{
    open_numbered_book(4);
    write_first(L"あ");
    main_window().post_command(core::command::next_page);
    const MessageDialog asked = program().wait_for_box();
    for (const int id : { core::command::next_page, core::command::last_page, core::command::first_page })
        main_window().post_command(id);
    main_window().post(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    // Posted after the others, so they have been served when the box closes.
    asked.answer(IDNO);
    expect_page(L"二");
    EXPECT_FALSE(program().has_dialog());
    step(core::command::next_page);
    EXPECT_EQ(box(core::command::box_1).text(), L"三\r\n");
}

TEST_F(Turning, TheNextStartShowsThePageOfTheLastEnd)
{
    const fs::path file = open_numbered_book(5);
    step(core::command::last_page);
    step(core::command::previous_page);
    expect_page(L"四");
    close();
    EXPECT_EQ(load_book(file).header.position, 3u);
    start().wait_for_window();
    expect_page(L"四");
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(Turning, TheScrollPositionsOfBothLongBoxesAreRestoredWithThePageAndAfterARestart)
{
    const auto text = many_lines(300);
    const fs::path file = root().add_book(L"手帖.bok", { make_page(text, L"", text), make_page(L"二") });
    open(file);
    const auto expect_places = [&] {
        EXPECT_EQ(box(core::command::box_1).first_visible_line(), 120u);
        EXPECT_EQ(box(core::command::box_3).first_visible_line(), 70u);
    };
    box(core::command::box_1).send(EM_LINESCROLL, 0, 120);
    box(core::command::box_3).send(EM_LINESCROLL, 0, 70);
    expect_places();
    step(core::command::next_page);
    expect_page(L"二");
    step(core::command::previous_page);
    expect_places();
    close();
    EXPECT_EQ(load_book(file).pages[0].scroll_first, 120);
    EXPECT_EQ(load_book(file).pages[0].scroll_third, 70);
    start().wait_for_window();
    expect_places();
}

// A scroll message has only 16 bits for the position, and they are read as signed.
TEST_F(Turning, AScrollPositionBeyondThirtyTwoThousandLinesIsRestoredToo)
{
    auto page = make_page(many_lines(40000));
    page.scroll_first = 35000;
    const fs::path file = root().add_book(L"手帖.bok", { page });
    open(file);
    EXPECT_EQ(box(core::command::box_1).first_visible_line(), 35000u);
    main_window().send_command(core::command::save_always);
    EXPECT_EQ(load_book(file).pages[0].scroll_first, 35000);
}

TEST_F(Turning, TheScrollPositionsOfAWrappedBookAreRestoredAndKept)
{
    book::BookHeader header;
    header.wrap_text = 1;
    auto page = make_page(many_lines(300), L"", many_lines(300));
    page.scroll_first = 120;
    page.scroll_third = 70;
    const fs::path file = root().add_book(L"手帖.bok", { page }, header);
    open(file);
    EXPECT_EQ(box(core::command::box_1).first_visible_line(), 120u);
    EXPECT_EQ(box(core::command::box_3).first_visible_line(), 70u);
    close();
    EXPECT_EQ(load_book(file).pages[0].scroll_first, 120);
    EXPECT_EQ(load_book(file).pages[0].scroll_third, 70);
}

TEST_F(Turning, AScrollPositionBeyondTheEndOfTheTextIsHarmless)
{
    auto page = make_page(L"一\r\n二\r\n三");
    page.scroll_first = 70000;
    page.scroll_third = -5;
    open(root().add_book(L"手帖.bok", { page }));
    EXPECT_EQ(box(core::command::box_1).text(), L"一\r\n二\r\n三\r\n");
    EXPECT_LT(box(core::command::box_1).first_visible_line(), 4u);
    EXPECT_EQ(box(core::command::box_3).first_visible_line(), 0u);
}

TEST_F(Turning, ABookInReversedOrderIsTurnedFromItsEnd)
{
    book::BookHeader header;
    header.order_mode = -static_cast<std::int32_t>(book::OrderMode::stored);
    open(root().add_book(L"手帖.bok", { make_page(L"一"), make_page(L"二"), make_page(L"三") }, header));
    expect_page(L"三");
    step(core::command::next_page);
    expect_page(L"二");
    step(core::command::last_page);
    expect_page(L"一");
}
