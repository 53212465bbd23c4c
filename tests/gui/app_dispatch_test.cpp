// Refusals, overdue refreshes and endings: the rules that hold for all commands.
#include "core/settings.hpp"
#include "look/wnd/warningwnd.hpp"
#include "tests/support/gui_app.hpp"
#include "tests/support/gui_window.hpp"

namespace {

namespace command = core::command;
using gui::AppWindow;
using gui::MetBox;

class Dispatch : public AppWindow {
protected:
    void open_editing_window(app::AppWnd& owner)
    {
        editor_ = std::make_unique<gui::EditingWindow>(&owner);
        ASSERT_TRUE(editor_->create(L"editor"));
        owner.add_busy_window(*editor_);
        editor_->show(true);
        ASSERT_TRUE(owner.is_busy());
    }
    ~Dispatch() override
    {
        if (editor_)
            editor_->show(false);
        close();
    }
    book::Book& open_book() { return const_cast<book::Book&>(book()); }
    static const look::WarningWnd* banner()
    {
        for (const ovlib::Wnd* wnd = ovlib::Wnd::first(); wnd; wnd = wnd->next()) {
            if (const auto* found = dynamic_cast<const look::WarningWnd*>(wnd))
                return found;
        }
        return nullptr;
    }

    std::unique_ptr<gui::EditingWindow> editor_;
};

TEST_F(Dispatch, RefusesCommandsThatWouldTakeTheBookFromTheWindowThatOwnsIt)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    open_editing_window(window());
    for (const int id :
        { command::show_book_menu, command::new_book, command::open_book, command::save_book_as,
            command::first_history_entry, command::last_history_entry, command::delete_page,
            command::add_page_at_end, command::add_page_here, command::toggle_mark, command::toggle_tab,
            command::toggle_mark_tracking, command::toggle_tab_tracking, command::toggle_sorted_order,
            command::toggle_random_order, command::reverse_order, command::show_file_menu })
        command(id); // none of them may show a box or a menu, which would block the test
    EXPECT_EQ(book().pages.size(), 2u);
    EXPECT_EQ(book().header.order_mode, 2700);
    EXPECT_EQ(book().header.track_marks, 0);
    EXPECT_EQ(book().mark_count + book().tab_count, 0);
}

TEST_F(Dispatch, TurnsPagesWithCtrlAndWheelWhileAnotherWindowOwnsTheBook)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    open_editing_window(window());
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -120), 0);
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(book().pages[0].text[0], L"1\r\n");
}

TEST_F(Dispatch, MakesTheBoxesReadOnlyWhileAnotherWindowOwnsTheBook)
{
    open({ page(L"1\r\n") });
    const auto is_read_only = [&] {
        return (GetWindowLongW(box(command::box_1), GWL_STYLE) & ES_READONLY) != 0;
    };
    open_editing_window(window());
    command(command::request_refresh, 0xF440);
    EXPECT_TRUE(is_read_only());
    editor_->show(false);
    command(command::request_refresh, 0xF47F);
    EXPECT_FALSE(is_read_only());
}

TEST_F(Dispatch, WritesNothingWhileAnotherWindowOwnsTheBook)
{
    open({ page(L"1\r\n") });
    open_editing_window(window());
    open_book().pages[0].text[0] = L"changed\r\n";
    for (const int id : { command::save_always, command::save_if_changed, command::save_after_question })
        command(id);
    EXPECT_EQ(saved().pages[0].text[0], L"1\r\n");
}

TEST_F(Dispatch, RefusesToCloseWhileAnotherWindowOwnsTheBook)
{
    open({ page(L"1\r\n") });
    open_editing_window(window());
    command(command::close_program);
    EXPECT_TRUE(IsWindow(window().hwnd()));
    editor_->show(false);
    command(command::close_program);
    EXPECT_EQ(window().hwnd(), nullptr);
}

// The system hides the windows of a minimised owner, but they still edit the Book.
TEST_F(Dispatch, RefusesToCloseWhileTheWindowThatOwnsTheBookIsHiddenWithItsMinimisedOwner)
{
    open({ page(L"1\r\n") });
    open_editing_window(window());
    ShowOwnedPopups(window().hwnd(), FALSE);
    ASSERT_FALSE(IsWindowVisible(editor_->hwnd()));
    EXPECT_TRUE(window().is_busy());
    command(command::close_program);
    EXPECT_TRUE(IsWindow(window().hwnd()));
    ShowOwnedPopups(window().hwnd(), TRUE);
}

TEST_F(Dispatch, EndsTheProgramAfterAFailedRestoreWhateverWindowOwnsTheBook)
{
    open({ page(L"1\r\n") });
    open_editing_window(window());
    test_support::write_text(file(L"手帖.bok"), L"\x3\x3\r\nzz\r\n\x3\x3\r\n");
    const auto met = answered_all({ IDNO, IDOK }, [&] { command(command::restore_book); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(met[1].text, L"\r\nアプリケーションを終了します．");
    EXPECT_EQ(window().hwnd(), nullptr);
    EXPECT_TRUE(gui::take_quit());
}

TEST_F(Dispatch, CountsTheHoldsOfTheInput)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::set_accepting_input, 0);
    command(command::set_accepting_input, 0);
    command(command::set_accepting_input, 1);
    command(command::next_page);
    EXPECT_EQ(book().header.position, 0u);
    command(command::set_accepting_input, 1);
    command(command::next_page);
    EXPECT_EQ(book().header.position, 1u);
}

// A settings window sends this after it changed the sort key.
TEST_F(Dispatch, ShowsThePageThatANewOrderPutsAtThePositionWhateverTheMask)
{
    open({ page(L"b\r\n", L"1"), page(L"a\r\n", L"2") });
    command(command::toggle_sorted_order);
    ASSERT_EQ(box_text(command::box_1), L"a\r\n");
    open_book().header.sort_key = 3001;
    open_book().needs_update = true;
    command(command::request_refresh, 0xF47E);
    EXPECT_EQ(box_text(command::box_1), L"b\r\n");
    type(command::box_1, L"x");
    command(command::save_if_changed);
    EXPECT_EQ(saved().pages[0].text[0], L"xb\r\n");
    EXPECT_EQ(saved().pages[1].text[0], L"a\r\n");
}

TEST_F(Dispatch, ShowsThePageWhosePositionChangedWithoutAMask)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    open_book().header.position = 1;
    command(45000); // unknown to the rules
    EXPECT_EQ(box_text(command::box_1), L"2\r\n");
}

TEST_F(Dispatch, ShowsTheConditionOfASearchThatFailed)
{
    book::Book marked = book_of({ page(L"1\r\n"), page(L"2\r\n"), page(L"3\r\n") });
    marked.header.track_marks = 1;
    marked.pages[1].mark = 1;
    open(marked);
    ASSERT_NE(banner(), nullptr);
    command(command::next_page);
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(banner()->shown_text(), L"");
    command(command::next_page);
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(banner()->shown_text(), L"一致条件: マーク追跡");
    command(command::toggle_mark_tracking);
    command(command::next_page);
    EXPECT_EQ(book().header.position, 2u);
    EXPECT_EQ(banner()->shown_text(), L"");
    command(command::next_page); // the last page, and no condition
    EXPECT_EQ(banner()->shown_text(), L"");
}

TEST_F(Dispatch, StoresTheInterpolation)
{
    open({ page(L"1\r\n") });
    for (int id = 5000; id <= 5005; ++id) {
        command(id);
        EXPECT_EQ(core::settings().interpolation_command, id);
    }
}

TEST_F(Dispatch, ShowsTheIconOfTheStyleInABox)
{
    open({ page(L"1\r\n") });
    const auto icon_of = [&](app::BoxStyle style) {
        return answered(
            style == app::BoxStyle::question || style == app::BoxStyle::warning_question ? IDYES : IDOK,
            [&] { EXPECT_NE(window().show_message(L"本文", style), 0); })
            .icon;
    };
    EXPECT_EQ(icon_of(app::BoxStyle::plain), nullptr);
    EXPECT_EQ(icon_of(app::BoxStyle::error), LoadIconW(nullptr, IDI_ERROR));
    EXPECT_EQ(icon_of(app::BoxStyle::question), LoadIconW(nullptr, IDI_QUESTION));
    EXPECT_EQ(icon_of(app::BoxStyle::warning), LoadIconW(nullptr, IDI_WARNING));
    EXPECT_EQ(icon_of(app::BoxStyle::warning_question), LoadIconW(nullptr, IDI_WARNING));
}

TEST_F(Dispatch, ShowsTheAboutText)
{
    open({ page(L"1\r\n") });
    const MetBox met = answered(IDOK, [&] { command(command::about); });
    EXPECT_EQ(met.text, L"Pagewick v1.06\r\nby the Pagewick developers");
    EXPECT_EQ(met.icon, nullptr);
}

TEST_F(Dispatch, SavesABookWhoseLastPositionWasDeleted)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::last_page);
    type(command::box_1, L"x");
    answered(IDYES, [&] { command(command::delete_page); });
    EXPECT_EQ(saved().pages.size(), 1u);
    EXPECT_EQ(saved().pages[0].text[0], L"1\r\n");
    EXPECT_EQ(box_text(command::box_1), L"1");
    EXPECT_EQ(book().header.position, 0u);
}

TEST_F(Dispatch, KeepsThePositionOfAPageThatCtrlAndWheelMoveInASortedBook)
{
    open({ page(L"c\r\n"), page(L"a\r\n"), page(L"b\r\n") });
    command(command::toggle_sorted_order);
    command(command::next_page);
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, 120), 0);
    EXPECT_EQ(box_text(command::box_1), L"b\r\n");
    EXPECT_EQ(book().header.position, 1u);
}

TEST_F(Dispatch, AsksBeforeCtrlAndWheelMoveAnEditedPage)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    type(command::box_1, L"x");
    const MetBox met =
        answered(IDYES, [&] { window().send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -120), 0); });
    EXPECT_EQ(met.text, L"ページの内容が変更されています．\r\nファイルに保存しますか？");
    EXPECT_EQ(book().pages[1].text[0], L"x1");
    EXPECT_EQ(box_text(command::box_1), L"x1");
}

} // namespace
