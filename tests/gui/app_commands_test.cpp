// Commands on pages: turning, order, marks, adding, deleting, and their effect on edits.
#include "app/failures.hpp"
#include "tests/support/gui_app.hpp"
#include <set>

namespace {

namespace command = core::command;
using gui::AppWindow;
using gui::MetBox;

constexpr wchar_t leave_question[] = L"ページの内容が変更されています．\r\nファイルに保存しますか？";

constexpr RECT nothing{};

class Commands : public AppWindow {
protected:
    std::wstring failure_text() const
    {
        return L"Error: Book の保存に失敗\r\n" + file(L"手帖.bok") + L"\r\n\r\nこのファイルは読取り専用";
    }
};

TEST_F(Commands, TurnPagesToBothEnds)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    const auto shown_after = [&](int id) {
        command(id);
        return box_text(command::box_1);
    };
    EXPECT_EQ(shown_after(command::next_page), L"2\r\n");
    EXPECT_EQ(shown_after(command::last_page), L"3\r\n");
    EXPECT_EQ(shown_after(command::next_page), L"3\r\n");
    EXPECT_EQ(shown_after(command::previous_page), L"2\r\n");
    EXPECT_EQ(shown_after(command::first_page), L"1\r\n");
    EXPECT_EQ(shown_after(command::previous_page), L"1\r\n");
}

TEST_F(Commands, ActOnlyOnTheirOwnNotificationCode)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::next_page, 0, 1);
    EXPECT_EQ(book().header.position, 0u);
    command(command::box_1, 0, 0);
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(Commands, AreIgnoredWhenUnknown)
{
    open({ page(L"1\r\n") });
    for (int id = 0; id < 0x10000; ++id) {
        static const std::set<int> known{ command::new_book, command::open_book, command::save_book_as,
            command::restore_book, command::backup_book, command::close_program, command::delete_page };
        if (!known.contains(id) && !(id >= command::first_history_entry && id <= command::last_history_entry))
            command(id, 0, 1); // a code that only the accelerator accepts
    }
    EXPECT_EQ(book().pages.size(), 1u);
    EXPECT_TRUE(IsWindow(window().hwnd()));
}

TEST_F(Commands, DoNotTurnPagesWhileInputIsHeld)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::set_accepting_input, 0);
    EXPECT_FALSE(window().is_accepting_input());
    for (const int id : { command::next_page, command::last_page })
        command(id);
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
    EXPECT_EQ(book().header.position, 0u);
    command(command::set_accepting_input, 1);
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
    EXPECT_EQ(book().header.position, 1u);
}

TEST_F(Commands, DoNotTurnPagesWhileABoxIsOpen)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    bool was_accepting = true;
    const MetBox met = answered(
        IDNO, [&] { command(command::delete_page); },
        [&] {
            for (const int id : { command::next_page, command::last_page })
                SendMessageW(window().hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0);
            SendMessageW(window().hwnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
            was_accepting = window().is_accepting_input();
        });
    EXPECT_EQ(met.text, L"このページを削除しますか？\r\n[ p.1 ]");
    EXPECT_FALSE(was_accepting);
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_TRUE(window().is_accepting_input());
}

TEST_F(Commands, LetTheWheelTurnPages)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
    EXPECT_EQ(box_text(command::box_1), L"2\r\n");
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(box_text(command::box_1), L"1\r\n");
    window().send(WM_MOUSEWHEEL, 0, 0);
    EXPECT_EQ(book().header.position, 0u);
}

TEST_F(Commands, AddUpSmallTurnsOfTheWheelUntilTheyReachANotch)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    const auto turn = [&](int delta) {
        window().send(WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
        return book().header.position;
    };
    EXPECT_EQ(turn(-40), 0u);
    EXPECT_EQ(turn(-40), 0u);
    EXPECT_EQ(turn(-40), 1u);
    EXPECT_EQ(turn(-80), 1u);
    EXPECT_EQ(turn(40), 1u);
    EXPECT_EQ(turn(80), 0u);
    EXPECT_EQ(turn(-240), 1u) << "a large turn is one step";
}

TEST_F(Commands, SwapPagesOncePerNotchForSmallTurnsWithCtrl)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    for (int i = 0; i < 12; ++i)
        window().send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -10), 0);
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(book().pages[1].text[0], L"1\r\n");
    EXPECT_EQ(book().pages[2].text[0], L"3\r\n");
}

// The times of the messages count, and only posted messages have one.
TEST_F(Commands, ForgetTurnsOfTheWheelAfterAPause)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    const auto turn = [&] {
        PostMessageW(window().hwnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, -60), 0);
        gui::pump();
        return book().header.position;
    };
    EXPECT_EQ(turn(), 0u);
    const DWORD first = GetTickCount();
    ASSERT_TRUE(gui::pump_until([&] { return GetTickCount() - first > ovlib::WheelSteps::pause + 200; }));
    EXPECT_EQ(turn(), 0u);
    EXPECT_EQ(turn(), 1u);
}

TEST_F(Commands, LetTheWheelWithCtrlSwapPages)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -120), 0);
    EXPECT_EQ(book().pages[0].text[0], L"2\r\n");
    EXPECT_EQ(book().pages[1].text[0], L"1\r\n");
    EXPECT_EQ(box_text(command::box_1), L"1\r\n");
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(Commands, KeepScrollPositionsWithTheirPagesThroughASwap)
{
    std::wstring many;
    for (int i = 0; i < 100; ++i)
        many += L"x\r\n";
    book::Page first = page(many.c_str());
    first.scroll_first = 30;
    open({ first, page(L"2\r\n") });
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -120), 0);
    command(command::save_always);
    EXPECT_EQ(saved().pages[0].scroll_first, 0);
    EXPECT_EQ(saved().pages[1].scroll_first, 30);
}

TEST_F(Commands, ToggleMarksAndTracking)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    command(command::last_page);
    command(command::toggle_mark);
    EXPECT_EQ(book().mark_count, 1);
    command(command::first_page);
    command(command::toggle_mark_tracking);
    EXPECT_EQ(book().header.track_marks, 1);
    command(command::next_page); // skips the page without a mark
    EXPECT_EQ(box_text(command::box_1), L"3\r\n");
    command(command::toggle_tab_tracking);
    EXPECT_EQ(book().header.track_tabs, 1);
    command(command::toggle_mark_tracking);
    EXPECT_EQ(book().header.track_marks, 0);
}

TEST_F(Commands, ChangeTheOrderAndKeepThePosition)
{
    open({ page(L"b\r\n"), page(L"c\r\n"), page(L"a\r\n") });
    command(command::toggle_sorted_order);
    EXPECT_EQ(box_text(command::box_1), L"a\r\n");
    command(command::reverse_order);
    EXPECT_EQ(box_text(command::box_1), L"c\r\n");
    EXPECT_EQ(book().header.order_mode, -2701);
    command(command::toggle_random_order);
    EXPECT_EQ(book().header.order_mode, -2702);
    command(command::toggle_random_order);
    EXPECT_EQ(book().header.order_mode, -2700);
    command(command::reverse_order);
    EXPECT_EQ(box_text(command::box_1), L"b\r\n");
    EXPECT_EQ(book().header.position, 0u);
}

TEST_F(Commands, GoToThePageOfATab)
{
    book::Book tabbed = book_of({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    tabbed.pages[0].tab_number = 1;
    tabbed.pages[2].tab_number = 1;
    open(tabbed);
    command(command::go_to_tab, 2);
    EXPECT_EQ(box_text(command::box_1), L"3\r\n");
    command(command::go_to_tab, 99);
    EXPECT_EQ(box_text(command::box_1), L"3\r\n");
}

TEST_F(Commands, AskOnceBeforeAnEditedPageIsLeftAndWriteOnYes)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    type(command::box_1, L"x");
    const MetBox met = answered(IDYES, [&] { command(command::next_page); });
    EXPECT_EQ(met.text, leave_question);
    EXPECT_EQ(met.caption, L"Pagewick v1.06 - 手帖");
    EXPECT_EQ(met.icon, LoadIconW(nullptr, IDI_QUESTION));
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
    EXPECT_EQ(book().header.position, 1u);
}

TEST_F(Commands, DiscardTheEditOnNo)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    type(command::box_1, L"x");
    answered(IDNO, [&] { command(command::next_page); });
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(title(), L"手帖");
    command(command::previous_page);
    EXPECT_EQ(box_text(command::box_1), L"1\r\n");
    EXPECT_EQ(saved().pages[0].text[0], L"1\r\n");
}

TEST_F(Commands, ShowTheStoredTextAfterANoEvenIfNoPageFollows)
{
    open({ page(L"1\r\n") });
    type(command::box_1, L"x");
    answered(IDNO, [&] { command(command::next_page); });
    EXPECT_EQ(box_text(command::box_1), L"1\r\n");
}

TEST_F(Commands, AddAPageAtTheEndAndSaveAtOnce)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::add_page_at_end);
    EXPECT_EQ(book().header.position, 2u);
    EXPECT_EQ(box_text(command::box_1), L"");
    EXPECT_EQ(saved().pages.size(), 3u);
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(Commands, AddAPageAtTheCurrentPosition)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::next_page);
    command(command::add_page_here);
    EXPECT_EQ(saved().pages[1].text[0], L"");
    EXPECT_EQ(saved().pages[2].text[0], L"2\r\n");
    EXPECT_EQ(book().header.position, 1u);
}

TEST_F(Commands, GiveNoOtherPageTheScrollPositionsOfThePageThatWasLeft)
{
    std::wstring many;
    for (int i = 0; i < 100; ++i)
        many += L"x\r\n";
    book::Book sorted = book_of({ page((L"z" + many).c_str()), page((L"a" + many).c_str()), page(L"m\r\n") });
    sorted.header.order_mode = 2701;
    sorted.pages[0].scroll_first = 20;
    sorted.pages[1].scroll_first = 40;
    open(sorted);
    ASSERT_EQ(box_text(command::box_1)[0], L'a');
    command(command::add_page_here); // inserted first, also in display order
    command(command::add_page_at_end);
    close();
    std::vector<int> scrolls;
    for (const book::Page& stored : saved().pages)
        scrolls.push_back(stored.scroll_first);
    EXPECT_EQ(scrolls, (std::vector<int>{ 0, 20, 40, 0, 0 }));
}

TEST_F(Commands, DeleteThePageThatWasAskedAbout)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    command(command::next_page);
    const MetBox met = answered(IDYES, [&] { command(command::delete_page); });
    EXPECT_EQ(met.text, L"このページを削除しますか？\r\n[ p.2 ]");
    EXPECT_EQ(box_text(command::box_1), L"3"); // trimmed by the save
    EXPECT_EQ(saved().pages.size(), 2u);
    answered(IDNO, [&] { command(command::delete_page); });
    EXPECT_EQ(book().pages.size(), 2u);
}

TEST_F(Commands, DiscardTheEditsOfADeletedPageInsteadOfGivingThemToTheNext)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    type(command::box_1, L"x");
    answered(IDYES, [&] { command(command::delete_page); });
    EXPECT_EQ(saved().pages[0].text[0], L"2\r\n");
    EXPECT_EQ(box_text(command::box_1), L"2");
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(Commands, LeaveAnEmptyPageWhenTheLastOneIsDeleted)
{
    open({ page(L"1\r\n") });
    answered(IDYES, [&] { command(command::delete_page); });
    EXPECT_EQ(saved().pages.size(), 1u);
    EXPECT_EQ(box_text(command::box_1), L"");
}

TEST_F(Commands, DeleteNothingIfAnotherPageArrivedMeanwhile)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    answered(
        IDYES, [&] { command(command::delete_page); },
        [&] { SendMessageW(window().hwnd(), WM_COMMAND, command::add_page_at_end, 0); });
    EXPECT_EQ(book().pages.size(), 4u);
    EXPECT_EQ(book().pages[0].text[0], L"1");
}

TEST_F(Commands, StayOnAPageWhoseEditCannotBeWritten)
{
    open({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    {
        const gui::Unwritable guard{ file(L"手帖.bok") };
        type(command::box_1, L"x");
        for (const int id : { command::next_page, command::last_page, command::toggle_random_order,
                 command::reverse_order, command::toggle_sorted_order, command::go_to_tab,
                 command::add_page_at_end, command::add_page_here }) {
            const auto met = answered_all({ IDYES, IDOK }, [&] { command(id, 1); });
            ASSERT_EQ(met.size(), 2u) << id;
            EXPECT_EQ(met[0].text, leave_question);
            EXPECT_EQ(met[1].text, failure_text());
            EXPECT_EQ(title(), L"手帖 *");
            EXPECT_EQ(box_text(command::box_1), L"x1\r\n");
        }
    }
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_EQ(book().header.order_mode, 2700);
    EXPECT_EQ(book().pages.size(), 3u);
    answered(IDYES, [&] { command(command::next_page); });
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
    EXPECT_EQ(saved().pages[1].text[0], L"2\r\n");
}

TEST_F(Commands, ReportAFullBookAsAWarningAndGoOn)
{
    book::Book full;
    full.pages.assign(book::page_limit, page(L"p\r\n"));
    open(full);
    const MetBox met = answered(IDOK, [&] { command(command::add_page_at_end); });
    EXPECT_EQ(met.text.find(L"ページ数の上限 [100,000] を超えます"), 0u) << met.text.c_str();
    EXPECT_TRUE(IsWindow(window().hwnd()));
    EXPECT_EQ(book().pages.size(), book::page_limit);
    EXPECT_EQ(box_text(command::box_1), L"p\r\n");
}

TEST_F(Commands, EndTheProgramAfterAStandardException)
{
    book::Book short_stamps = book_of({ page(L"1\r\n"), page(L"2\r\n") });
    for (book::Page& each : short_stamps.pages)
        each.stamp = L"2020";
    short_stamps.header.sort_key = 3004;
    open(short_stamps);
    type(command::box_1, L"x");
    const auto met = answered_all({ IDYES, IDOK }, [&] { command(command::toggle_sorted_order); });
    ASSERT_EQ(met.size(), 2u);
    const std::wstring closing = L"\r\nアプリケーションを終了します．";
    EXPECT_EQ(met[1].text.substr(met[1].text.size() - closing.size()), closing);
    EXPECT_EQ(window().hwnd(), nullptr);
    EXPECT_TRUE(gui::take_quit());
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
    EXPECT_EQ(saved().header.order_mode, 2700); // the mode that failed is not stored
}

TEST_F(Commands, WriteTheBookEvenIfTheRefreshThrows)
{
    book::Book short_stamps = book_of({ page(L"1\r\n"), page(L"2\r\n") });
    short_stamps.pages[1].stamp = L"2020";
    open(short_stamps);
    command(command::toggle_sorted_order); // by text
    type(command::box_1, L"x");
    // The key was changed. Adding a page rebuilds the order, and the short stamp has no such key.
    const_cast<book::Book&>(book()).header.sort_key = 3004;
    const auto met = answered_all({ IDYES, IDOK }, [&] { command(command::add_page_at_end); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(window().hwnd(), nullptr);
    EXPECT_EQ(saved().pages.size(), 3u);
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
}

TEST_F(Commands, CloseOnceIfTheProgramIsEndedInsideABox)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    type(command::box_1, L"x");
    const MetBox met = answered(
        IDYES, [&] { command(command::next_page); },
        [&] { SendMessageW(window().hwnd(), WM_COMMAND, command::close_program, 0); });
    EXPECT_EQ(met.text, leave_question);
    EXPECT_EQ(window().hwnd(), nullptr);
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
}

// The palette sends this after it changed a colour of that box.
TEST_F(Commands, RepaintOnlyTheBoxOfTheirCode)
{
    open({ page(L"1\r\n") });
    window().show(true);
    gui::pump();
    for (int code = 0; code <= 3; ++code) {
        command(command::repaint_box, 0, code);
        for (int number = 0; number < 3; ++number) {
            HWND const hwnd = box(command::box_1 + number);
            RECT stale{};
            GetUpdateRect(hwnd, &stale, FALSE);
            RECT client{};
            GetClientRect(hwnd, &client);
            EXPECT_TRUE(EqualRect(&stale, number == code ? &client : &nothing)) << code << ' ' << number;
        }
        gui::pump();
    }
}

TEST_F(Commands, SurviveARandomWalkWithoutDialogs)
{
    open({ page(L"1\r\n", L"eins"), page(L"2\r\n", L"zwei"), page(L"3\r\n", L"drei") });
    const std::array ids{ 1004, 1006, 1010, 1011, 1012, 1013, 1014, 1015, 1016, 1018, 1019, 1020, 1041, 1044,
        1052, 1066, 2528, 2530, 2506, 1026, 1058, 2508, 3000, 6000, 6003, 6501, 45000 };
    std::uint32_t state = 12345;
    for (int i = 0; i < 300; ++i) {
        state = state * 1664525 + 1013904223;
        command(ids[(state >> 16) % ids.size()], (state >> 8) % 2 ? 0xF47F : 0);
    }
    EXPECT_TRUE(IsWindow(window().hwnd()));
    EXPECT_GE(book().pages.size(), 3u);
    close();
    EXPECT_EQ(saved().pages.size() >= 3u, true);
}

} // namespace
