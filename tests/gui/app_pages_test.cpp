// The page in the boxes: its texts, the marks in the title, and where edits are stored.
#include "tests/support/gui_app.hpp"
#include "tests/support/gui_window.hpp"

namespace {

namespace command = core::command;
using gui::AppWindow;

class PageInBoxes : public AppWindow {
protected:
    std::wstring lines(int count) const
    {
        std::wstring text;
        for (int i = 0; i < count; ++i)
            text += std::to_wstring(i) + L"\r\n";
        return text;
    }
    int first_line(int id) const
    {
        return static_cast<int>(SendMessageW(box(id), EM_GETFIRSTVISIBLELINE, 0, 0));
    }
    // Requests a refresh of everything from outside.
    void refresh() { command(command::request_refresh, core::refresh::full); }
};

TEST_F(PageInBoxes, IsShownWithoutAnyMark)
{
    open({ page(L"一\r\n二\r\n", L"見出し", L"三\r\n") });
    EXPECT_EQ(box_text(command::box_1), L"一\r\n二\r\n");
    EXPECT_EQ(box_text(command::box_2), L"見出し");
    EXPECT_EQ(box_text(command::box_3), L"三\r\n");
    EXPECT_EQ(title(), L"手帖");
    for (const int id : { command::box_1, command::box_2, command::box_3 })
        EXPECT_FALSE(is_modified(id));
}

TEST_F(PageInBoxes, GetsAStarWithTheFirstCharacter)
{
    open({ page(L"a\r\n") });
    type(command::box_3, L"x");
    EXPECT_EQ(title(), L"手帖 *");
    type(command::box_3, L"y");
    EXPECT_EQ(title(), L"手帖 *");
}

TEST_F(PageInBoxes, SetsTheTitleOnceForAllCharacters)
{
    open({ page(L"a\r\n") });
    type(command::box_3, L"x");
    window().set_text(L"untouched");
    type(command::box_3, L"yz");
    EXPECT_EQ(title(), L"untouched");
    command(command::renew_edited_mark);
    EXPECT_EQ(title(), L"手帖 *");
}

TEST_F(PageInBoxes, IsNotOverwrittenByARefreshWhileEdited)
{
    open({ page(L"a\r\n") });
    type(command::box_1, L"x");
    refresh();
    EXPECT_EQ(box_text(command::box_1), L"xa\r\n");
    EXPECT_TRUE(is_modified(command::box_1));
}

TEST_F(PageInBoxes, IsCommittedBoxByBox)
{
    open({ page(L"a\r\n", L"b", L"c\r\n") });
    type(command::box_2, L"  \x0003");
    SendMessageW(box(command::box_1), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"not an edit"));
    SendMessageW(box(command::box_1), EM_SETMODIFY, FALSE, 0);
    command(command::save_if_changed);
    const book::Book written = saved();
    EXPECT_EQ(written.pages[0].text[0], L"a\r\n");
    EXPECT_EQ(written.pages[0].text[1], L"b");
    EXPECT_EQ(written.pages[0].text[2], L"c\r\n");
    EXPECT_EQ(written.pages[0].stamp.substr(0, 14), L"20200102030405");
    EXPECT_NE(written.pages[0].stamp.substr(14), L"20200102030405");
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(PageInBoxes, KeepsItsStampWhenSavedUnchanged)
{
    open({ page(L"a\r\n") });
    command(command::save_always);
    EXPECT_EQ(saved().pages[0].stamp, L"2020010203040520200102030405");
}

TEST_F(PageInBoxes, IsShownAgainAtItsScrollPositions)
{
    book::Page first = page((lines(200)).c_str(), L"", lines(300).c_str());
    first.scroll_first = 50;
    first.scroll_third = 120;
    open({ first, page(L"b") });
    EXPECT_EQ(first_line(command::box_1), 50);
    EXPECT_EQ(first_line(command::box_3), 120);
    SendMessageW(box(command::box_3), EM_LINESCROLL, 0, 10);
    command(command::next_page);
    EXPECT_EQ(first_line(command::box_3), 0);
    command(command::previous_page);
    EXPECT_EQ(first_line(command::box_1), 50);
    EXPECT_EQ(first_line(command::box_3), 130);
    close();
    EXPECT_EQ(saved().pages[0].scroll_third, 130);
}

TEST_F(PageInBoxes, IsShownAgainAtPositionsBeyondTheRangeOfAScrollMessage)
{
    book::Page first = page(lines(40000).c_str());
    first.scroll_first = 33000;
    open({ first });
    EXPECT_EQ(first_line(command::box_1), 33000);
    close();
    EXPECT_EQ(saved().pages[0].scroll_first, 33000);
}

TEST_F(PageInBoxes, KeepsItsScrollPositionWhenTheBoxesAreReplaced)
{
    book::Book wrapped = book_of({ page(lines(200).c_str(), L"", lines(200).c_str()) });
    wrapped.pages[0].scroll_first = 40;
    wrapped.pages[0].scroll_third = 60;
    wrapped.header.wrap_text = 1;
    open(wrapped);
    EXPECT_EQ(GetWindowLongW(box(command::box_1), GWL_STYLE) & ES_AUTOHSCROLL, 0);
    EXPECT_NE(GetWindowLongW(box(command::box_2), GWL_STYLE) & ES_AUTOHSCROLL, 0);
    EXPECT_EQ(first_line(command::box_1), 40);
    EXPECT_EQ(first_line(command::box_3), 60);
    close();
    EXPECT_EQ(saved().pages[0].scroll_first, 40);
    EXPECT_EQ(saved().pages[0].scroll_third, 60);
}

TEST_F(PageInBoxes, CanBeTabbedThroughAlsoInAWrappedBook)
{
    book::Book wrapped = book_of({ page(L"a") });
    wrapped.header.wrap_text = 1;
    open(wrapped);
    SetFocus(box(command::box_1));
    for (const int next : { command::box_2, command::box_3, command::search_box, command::box_1 }) {
        SendMessageW(GetFocus(), WM_CHAR, VK_TAB, 1);
        EXPECT_EQ(GetFocus(), box(next));
    }
}

TEST_F(PageInBoxes, FillsABoxThatCouldBeCreatedOnlyLater)
{
    book::Book wrapped = book_of({ page(L"一\r\n", L"二", L"三\r\n"), page(L"四\r\n", L"五", L"六\r\n") });
    wrapped.header.wrap_text = 1;
    ASSERT_TRUE(wrapped.save_to(file(L"折返し.bok")));
    ASSERT_TRUE(book_of({ page(L"a\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok"), file(L"折返し.bok") });
    ASSERT_TRUE(create());
    {
        const gui::RefusedWindows refused{ L"Edit" };
        command(command::first_history_entry + 1);
        ASSERT_EQ(box(command::box_1), nullptr);
        ASSERT_EQ(box(command::box_3), nullptr);
    }
    SetFocus(window().hwnd());
    EXPECT_EQ(GetFocus(), box(command::box_2)) << "a box that is lost takes no keyboard";

    command(command::next_page);

    EXPECT_EQ(box_text(command::box_1), L"四\r\n");
    EXPECT_EQ(box_text(command::box_3), L"六\r\n");
    EXPECT_EQ(GetWindowLongW(box(command::box_1), GWL_STYLE) & (ES_AUTOHSCROLL | ES_READONLY), 0);
    EXPECT_EQ(title(), L"折返し");
    const SIZE client = window().client_size();
    const app::Rect expected = app::main_layout({ client.cx, client.cy }).boxes.third;
    RECT place{};
    GetWindowRect(box(command::box_3), &place);
    MapWindowPoints(nullptr, window().hwnd(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ((app::Rect{ place.left, place.top, place.right, place.bottom }), expected);
    type(command::box_3, L"新");
    command(command::save_if_changed);
    EXPECT_EQ(saved(L"折返し.bok").pages[1].text[2], L"新六\r\n");
    EXPECT_EQ(saved(L"折返し.bok").pages[0].text[2], L"三\r\n");
}

class PageShownAgain : public PageInBoxes {
protected:
    void SetUp() override
    {
        open({ page(lines(200).c_str(), L"見出しの文字", lines(300).c_str()), page(L"b") });
        SendMessageW(box(command::box_1), EM_SETSEL, 5, 9);
        SendMessageW(box(command::box_2), EM_SETSEL, 3, 3);
        SendMessageW(box(command::box_3), EM_SETSEL, 700, 700);
        scroll_to(command::box_1, 20);
        scroll_to(command::box_3, 130);
    }
    // The selection may have scrolled the box already.
    void scroll_to(int id, int line) const { SendMessageW(box(id), EM_LINESCROLL, 0, line - first_line(id)); }
    DWORD selection(int id) const { return static_cast<DWORD>(SendMessageW(box(id), EM_GETSEL, 0, 0)); }
    void expect_same_place()
    {
        EXPECT_EQ(selection(command::box_1), MAKELONG(5, 9));
        EXPECT_EQ(selection(command::box_2), MAKELONG(3, 3));
        EXPECT_EQ(selection(command::box_3), MAKELONG(700, 700));
        EXPECT_EQ(first_line(command::box_1), 20);
        EXPECT_EQ(first_line(command::box_3), 130);
    }
};

TEST_F(PageShownAgain, KeepsItsScrollAndCaretWhenMarksAreTracked)
{
    command(command::toggle_mark);
    for (int times = 0; times < 2; ++times) {
        command(command::toggle_mark_tracking);
        expect_same_place();
    }
}

TEST_F(PageShownAgain, KeepsItsScrollAndCaretWhenTabsAreTracked)
{
    command(command::toggle_tab);
    for (int times = 0; times < 2; ++times) {
        command(command::toggle_tab_tracking);
        expect_same_place();
    }
}

TEST_F(PageShownAgain, KeepsItsScrollAndCaretWhenSavingUnderAnotherNameIsCancelled)
{
    const gui::MetBox met = answered(IDCANCEL, [this] { command(command::save_book_as); });
    EXPECT_EQ(met.caption, L"Book に名前を付けて保存する");
    expect_same_place();
}

TEST_F(PageShownAgain, StartsAtTheTopOnAnotherPageAndReturnsWithoutItsCaret)
{
    command(command::next_page);
    EXPECT_EQ(selection(command::box_1), 0u);
    EXPECT_EQ(first_line(command::box_1), 0);
    command(command::previous_page);
    EXPECT_EQ(selection(command::box_1), 0u);
    EXPECT_EQ(first_line(command::box_1), 20);
}

class NoCurrentPage : public PageInBoxes {
protected:
    void SetUp() override
    {
        book::Book lost = book_of({ page(L"a\r\n"), page(L"b\r\n") });
        lost.header.position = ~std::uint64_t{ 0 };
        open(lost);
    }
};

TEST_F(NoCurrentPage, LeavesTheBoxesReadOnly)
{
    for (const int id : { command::box_1, command::box_2, command::box_3 })
        EXPECT_NE(GetWindowLongW(box(id), GWL_STYLE) & ES_READONLY, 0);
    type(command::box_1, L"x");
    EXPECT_EQ(box_text(command::box_1), L"");
}

TEST_F(NoCurrentPage, IsLeftByTheFirstAndLastPage)
{
    command(command::next_page);
    command(command::previous_page);
    EXPECT_EQ(book().header.position, ~std::uint64_t{ 0 });
    command(command::last_page);
    EXPECT_EQ(box_text(command::box_1), L"b\r\n");
    EXPECT_EQ(GetWindowLongW(box(command::box_1), GWL_STYLE) & ES_READONLY, 0);
}

TEST_F(NoCurrentPage, DiscardsAnEditInsteadOfRefusingToMove)
{
    SendMessageW(box(command::box_1), EM_SETMODIFY, TRUE, 0);
    command(command::first_page);
    EXPECT_EQ(box_text(command::box_1), L"a\r\n");
    EXPECT_FALSE(is_modified(command::box_1));
}

TEST_F(NoCurrentPage, MakesEveryCommandThatNeedsAPageDoNothing)
{
    for (const int id : { command::save_always, command::save_if_changed, command::save_after_question,
             command::toggle_mark, command::delete_page, command::add_page_here })
        command(id);
    EXPECT_EQ(book().pages.size(), 2u);
    EXPECT_EQ(book().mark_count, 0);
}

} // namespace
