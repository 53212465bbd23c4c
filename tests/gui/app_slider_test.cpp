// The slider of the main window turns pages.
#include "look/wnd/fonts.hpp"
#include "tests/support/gui_app_controls.hpp"

namespace {

namespace command = core::command;

class MainSlider : public gui::AppControls {
protected:
    void open_three() { open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") }); }
    const look::MySlider& slider() const { return the<look::MySlider>(); }
};

TEST_F(MainSlider, ShowsThePositionOfTheBook)
{
    open_three();
    EXPECT_EQ(slider().min, 0);
    EXPECT_EQ(slider().max, 2);
    EXPECT_EQ(slider().value, 0);
    command(command::last_page);
    EXPECT_EQ(slider().value, 2);
    command(command::add_page_at_end);
    EXPECT_EQ(slider().max, 3);
}

TEST_F(MainSlider, HasTheSmallBoldFontForItsNumber)
{
    open_three();
    EXPECT_EQ(slider().font(), look::shared_font(look::SharedFont::jp_7_bold));
}

TEST_F(MainSlider, TurnsToThePageItIsMovedTo)
{
    open_three();
    for (const int code : { SB_THUMBTRACK, SB_PAGEUP, SB_PAGEDOWN }) {
        command(command::first_page);
        slide(code, 2);
        EXPECT_EQ(book().header.position, 2u) << code;
        EXPECT_EQ(box_text(command::box_1), L"3\r\n") << code;
    }
}

TEST_F(MainSlider, CountsPagesInDisplayOrder)
{
    open_three();
    command(command::reverse_order);
    slide(SB_THUMBTRACK, 2);
    EXPECT_EQ(box_text(command::box_1), L"1\r\n");
}

TEST_F(MainSlider, TurnsNoPageAtTheEndOfADrag)
{
    open_three();
    for (const int code : { SB_THUMBPOSITION, SB_LINEUP, SB_ENDSCROLL, SB_LEFT }) {
        slide(code, 2);
        EXPECT_EQ(book().header.position, 0u) << code;
    }
}

TEST_F(MainSlider, IgnoresTheScrollingOfOtherControls)
{
    open_three();
    the<look::MySlider>().value = 2;
    window().send(WM_HSCROLL, SB_THUMBTRACK, reinterpret_cast<std::intptr_t>(box(command::box_1)));
    window().send(WM_HSCROLL, SB_THUMBTRACK, 0);
    EXPECT_EQ(book().header.position, 0u);
}

TEST_F(MainSlider, ReturnsFromAPositionBeyondTheBook)
{
    open_three();
    the<look::MySlider>().max = 7;
    slide(SB_THUMBTRACK, 5);
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_EQ(slider().value, 0);
    EXPECT_EQ(slider().max, 2);
}

TEST_F(MainSlider, SavesEditsBeforeItTurns)
{
    open_three();
    type(command::box_1, L"い");
    answered(IDYES, [&] { slide(SB_THUMBTRACK, 1); });
    EXPECT_EQ(saved().pages[0].text[0], L"い1\r\n");
    EXPECT_EQ(saved().pages[1].text[0], L"2\r\n");
    EXPECT_EQ(box_text(command::box_1), L"2");
}

TEST_F(MainSlider, DiscardsEditsIfTheUserDeclines)
{
    open_three();
    type(command::box_1, L"い");
    answered(IDNO, [&] { slide(SB_THUMBTRACK, 2); });
    EXPECT_EQ(box_text(command::box_1), L"3\r\n");
    EXPECT_EQ(title(), L"手帖");
    command(command::first_page);
    EXPECT_EQ(box_text(command::box_1), L"1\r\n");
}

TEST_F(MainSlider, GoesBackIfThePageCannotBeSaved)
{
    open_three();
    command(command::next_page);
    type(command::box_1, L"い");
    {
        const gui::Unwritable file_is{ file(L"手帖.bok") };
        answered_all({ IDYES, IDOK }, [&] { slide(SB_THUMBTRACK, 2); });
    }
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(slider().value, 1);
    EXPECT_FALSE(slider().captured);
    EXPECT_TRUE(is_modified(command::box_1));
    EXPECT_EQ(box_text(command::box_1), L"い2\r\n");
}

TEST_F(MainSlider, IsRefusedWhileInputIsHeld)
{
    open_three();
    command(command::set_accepting_input, 0);
    slide(SB_THUMBTRACK, 2);
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_EQ(slider().value, 0);
    command(command::set_accepting_input, 1);
    slide(SB_THUMBTRACK, 2);
    EXPECT_EQ(book().header.position, 2u);
}

TEST_F(MainSlider, RenewsTheHitsOfThePageItTurnsTo)
{
    open({ page(L"x\r\n"), page(L"a x x\r\n") });
    write_search(L"x");
    EXPECT_EQ(book().hits.size(), 1u);
    slide(SB_THUMBTRACK, 1);
    EXPECT_EQ(book().hits.size(), 2u);
}

TEST_F(MainSlider, OfOnePageIsAtItsLeftEnd)
{
    open({ page(L"1\r\n") });
    EXPECT_EQ(slider().max, 0);
    slide(SB_THUMBTRACK, 0);
    EXPECT_EQ(book().header.position, 0u);
}

} // namespace
