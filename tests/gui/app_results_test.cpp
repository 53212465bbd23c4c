// The search results of the main window: when they are renewed, and what choosing a row does.
#include "tests/support/gui_app_windows.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_typing.hpp"

namespace {

namespace command = core::command;
using Range = std::pair<DWORD, DWORD>;
using Cells = std::vector<std::wstring>;

class AppResults : public gui::AppWindows {
protected:
    ~AppResults() override { close(); }

    static book::Page page_of(const wchar_t* first, const wchar_t* second, const wchar_t* third,
        std::vector<std::wstring> files = {})
    {
        book::Page made = page(first, second, third);
        made.files = std::move(files);
        return made;
    }
    // 猫 once in each box of the first page, and in the second of its files.
    void open_cats()
    {
        open({ page_of(L"一\r\n二猫\r\n", L"猫", L"犬猫犬\r\n",
                   { L"C:\\犬.txt", L"C:\\猫.txt", L"C:\\猫猫.txt" }),
            page_of(L"猫猫\r\n", L"", L""), page_of(L"鳥\r\n", L"", L"") });
        write_search(L"猫");
    }
    void show_results()
    {
        command(command::toggle_results);
        gui::pump();
        ASSERT_TRUE(results().is_open());
    }
    static int rows() { return results().list().count(); }
    static int row() { return results().list().selected(); }
    static Cells cells(int row)
    {
        Cells texts;
        for (int column = 0; column < 4; ++column)
            texts.push_back(results().list().cell_text(row, column));
        return texts;
    }
    static void select(int row) { const_cast<look::MyVirtualList&>(results().list()).select(row); }
    static void press(WORD key)
    {
        gui::press_key(key);
        gui::pump_until([&] { return GetAsyncKeyState(key) >= 0; });
        gui::pump();
    }
};

TEST_F(AppResults, AreNoWindowUntilTheyAreOpened)
{
    open_cats();
    EXPECT_EQ(results().hwnd(), nullptr);
}

TEST_F(AppResults, AreShownAndHiddenByTheirCommandOverTheFilePane)
{
    open_cats();
    show_results();
    EXPECT_EQ(results().text(), L"p.1 の検索結果  [3件]");
    const platform::Rect pane = place_of(the<media::FileWnd>().hwnd());
    const platform::Rect place = place_of(results().hwnd());
    EXPECT_NEAR(place.left + place.right, pane.left + pane.right, 2);
    EXPECT_NEAR(place.top + place.bottom, pane.top + pane.bottom, 2);
    command(command::toggle_results);
    EXPECT_FALSE(results().is_open());
    EXPECT_FALSE(results().is_visible());
    command(command::toggle_results);
    EXPECT_TRUE(results().is_visible());
}

TEST_F(AppResults, TellPlaceLineAndRangeOfEachHit)
{
    open_cats();
    command(command::toggle_file_list_search);
    show_results();
    ASSERT_EQ(rows(), 5);
    EXPECT_EQ(cells(0), (Cells{ L"猫", L"Box 1", L"2", L"4-5" }));
    EXPECT_EQ(cells(1), (Cells{ L"猫", L"Box 2", L"1", L"0-1" }));
    EXPECT_EQ(cells(2), (Cells{ L"猫", L"Box 3", L"1", L"1-2" }));
    EXPECT_EQ(cells(3), (Cells{ L"猫", L"File 2", L"", L"" }));
    EXPECT_EQ(cells(4), (Cells{ L"猫", L"File 3", L"", L"" })) << "an entry has at most one hit";
}

TEST_F(AppResults, FollowTheOrderOfTheTermsAndShowThemAsTyped)
{
    open({ page(L"Cat dog CAT\r\n") });
    write_search(L"dog cat");
    show_results();
    ASSERT_EQ(rows(), 1) << "letter case counts";
    command(command::toggle_ignore_case);
    ASSERT_EQ(rows(), 3);
    EXPECT_EQ(cells(0), (Cells{ L"dog", L"Box 1", L"1", L"4-7" }));
    EXPECT_EQ(cells(1), (Cells{ L"cat", L"Box 1", L"1", L"0-3" }));
    EXPECT_EQ(cells(2), (Cells{ L"cat", L"Box 1", L"1", L"8-11" }));
}

TEST_F(AppResults, SelectTheChosenPlaceInItsBoxAndNoOther)
{
    open_cats();
    show_results();
    EXPECT_EQ(selection_of(command::box_1), (Range{ 4, 5 }));
    select(2);
    EXPECT_EQ(selection_of(command::box_3), (Range{ 1, 2 }));
    EXPECT_EQ(selection_of(command::box_1), (Range{ 4, 4 }));
    select(1);
    EXPECT_EQ(selection_of(command::box_2), (Range{ 0, 1 }));
    EXPECT_EQ(selection_of(command::box_3), (Range{ 1, 1 }));
}

TEST_F(AppResults, ScrollTheChosenPlaceIntoView)
{
    std::wstring lines;
    for (int i = 0; i < 300; ++i)
        lines += L"行\r\n";
    open({ page((lines + L"猫\r\n" + lines).c_str()) });
    write_search(L"猫");
    EXPECT_GT(SendMessageW(box(command::box_1), EM_GETFIRSTVISIBLELINE, 0, 0), 200);
}

TEST_F(AppResults, StayOpenWhileTheMainWindowIsMinimisedAndCloseThen)
{
    open_cats();
    show_results();
    window().minimize();
    ASSERT_TRUE(gui::pump_until([&] { return !IsWindowVisible(results().hwnd()); }));
    EXPECT_TRUE(results().is_open());
    results().send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(results().is_open());
    window().restore();
    gui::pump();
    EXPECT_FALSE(IsWindowVisible(results().hwnd()));
}

TEST_F(AppResults, SelectTheFileOfAHitAndShowItOnce)
{
    open_cats();
    command(command::toggle_file_list_search);
    show_results();
    ASSERT_EQ(book().pages[0].current_file, 0u);
    select(4);
    EXPECT_EQ(book().pages[0].current_file, 2u);
    EXPECT_EQ(SendMessageW(box(command::file_combo), CB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(selection_of(command::box_1).first, selection_of(command::box_1).second);
    EXPECT_EQ(rows(), 5) << "the hits stay";
    EXPECT_EQ(row(), 4);
    EXPECT_EQ(saved().pages[0].current_file, 0u) << "it is not saved";
}

TEST_F(AppResults, StillSelectTheFirstPlaceWhileHidden)
{
    open_cats();
    EXPECT_EQ(selection_of(command::box_1), (Range{ 4, 5 }));
    command(command::last_page);
    EXPECT_EQ(selection_of(command::box_1).first, selection_of(command::box_1).second);
    command(command::next_page);
    command(command::first_page);
    EXPECT_EQ(selection_of(command::box_1), (Range{ 4, 5 }));
    write_search(L"犬");
    EXPECT_EQ(selection_of(command::box_3), (Range{ 0, 1 }));
    command(command::clear_search);
    EXPECT_EQ(selection_of(command::box_3), (Range{ 0, 0 }));
}

TEST_F(AppResults, AreEmptyWithoutHitsAndClearTheSelections)
{
    open_cats();
    show_results();
    write_search(L"どこにもない");
    EXPECT_EQ(rows(), 0);
    EXPECT_EQ(results().text(), L"p.1 の検索結果");
    for (const int id : { +command::box_1, +command::box_2, +command::box_3 })
        EXPECT_EQ(selection_of(id).first, selection_of(id).second) << id;
}

TEST_F(AppResults, FollowThePageThatIsShown)
{
    open_cats();
    show_results();
    command(command::next_page);
    EXPECT_EQ(results().text(), L"p.2 の検索結果  [2件]");
    EXPECT_EQ(cells(1), (Cells{ L"猫", L"Box 1", L"1", L"1-2" }));
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(selection_of(command::box_1), (Range{ 0, 1 }));
    command(command::last_page);
    EXPECT_EQ(results().text(), L"p.3 の検索結果");
}

TEST_F(AppResults, FollowADeletedPage)
{
    open_cats();
    show_results();
    answered(IDYES, [&] { command(command::delete_page); });
    EXPECT_EQ(results().text(), L"p.1 の検索結果  [2件]");
    EXPECT_EQ(selection_of(command::box_1), (Range{ 0, 1 }));
}

TEST_F(AppResults, FollowAPageThatAnotherWindowMovedTo)
{
    open_cats();
    show_results();
    open_book().header.position = 1;
    command(command::request_refresh, 0x1);
    EXPECT_EQ(results().text(), L"p.2 の検索結果  [2件]");
    EXPECT_EQ(rows(), 2);
}

TEST_F(AppResults, FollowASaveWithoutMovingTheSelection)
{
    open_cats();
    show_results();
    select(2);
    type(command::box_1, L"猫");
    const Range typed = selection_of(command::box_1);
    EXPECT_EQ(rows(), 3) << "typing changes no hits";
    command(command::save_if_changed);
    ASSERT_EQ(rows(), 4);
    EXPECT_EQ(row(), -1);
    EXPECT_EQ(cells(0), (Cells{ L"猫", L"Box 1", L"1", L"0-1" }));
    EXPECT_EQ(cells(1), (Cells{ L"猫", L"Box 1", L"2", L"5-6" }));
    EXPECT_EQ(selection_of(command::box_1), typed);
}

TEST_F(AppResults, FollowAChangeOfTheFileListAndLeaveTheNewFileSelected)
{
    open_cats();
    command(command::toggle_file_list_search);
    show_results();
    select(3);
    ASSERT_EQ(book().pages[0].current_file, 1u);
    command(command::move_file_to_end);
    EXPECT_EQ(book().pages[0].current_file, 2u);
    EXPECT_EQ(cells(3)[1], L"File 2");
    EXPECT_EQ(rows(), 5);
    answered(IDYES, [&] { command(command::remove_file); });
    EXPECT_EQ(rows(), 4);
    EXPECT_EQ(row(), -1);
    EXPECT_EQ(book().pages[0].current_file, 1u) << "a refill selects no hit";
}

TEST_F(AppResults, KeepTheirRowWhenThePageIsSavedUnchanged)
{
    open_cats();
    show_results();
    select(2);
    command(command::save_always);
    EXPECT_EQ(row(), 2);
    EXPECT_EQ(selection_of(command::box_3), (Range{ 1, 2 }));
}

// With so many hits the lines are counted in the text instead of by the box.
TEST_F(AppResults, CountTheLinesOfManyHitsAsTheBoxDoes)
{
    open({ page(L""), page(L"") });
    show_results();
    write_search(L"猫");
    for (const std::wstring last : { L"y", L"\n", L"\n\r" }) {
        std::wstring text;
        for (const std::wstring& end : { std::wstring(L"\r\n"), std::wstring(L"\r"), std::wstring(L"\r\r\n"),
                 std::wstring(L"\r\n\r\n"), std::wstring(L"x"), last }) {
            for (int i = 0; i < 3; ++i)
                text += L"猫" + end;
        }
        open_book().pages[0].text[0] = text;
        command(command::last_page);
        command(command::first_page);
        ASSERT_EQ(rows(), 18);
        for (int row = 0; row < rows(); ++row) {
            const auto start = book().hits[static_cast<std::size_t>(row)].start;
            const auto line = SendMessageW(box(command::box_1), EM_LINEFROMCHAR, start, 0);
            EXPECT_EQ(cells(row)[2], std::to_wstring(line + 1)) << row;
        }
    }
}

TEST_F(AppResults, FollowTheWrappingOfTheBoxes)
{
    const std::wstring wide(500, L'亜');
    open({ page((wide + L"猫\r\n").c_str()) });
    write_search(L"猫");
    show_results();
    EXPECT_EQ(cells(0)[2], L"1");
    open_book().header.wrap_text = 1;
    command(command::request_refresh, core::refresh::full_but_page);
    const std::wstring wrapped = cells(0)[2];
    const LRESULT line = SendMessageW(box(command::box_1), EM_LINEFROMCHAR, 500, 0);
    EXPECT_GT(line, 0);
    EXPECT_EQ(wrapped, std::to_wstring(line + 1));
    open_book().header.wrap_text = 0;
    command(command::request_refresh, core::refresh::full_but_page);
    EXPECT_EQ(cells(0)[2], L"1");
}

TEST_F(AppResults, FollowEachSearchSwitchAndTheSearchBox)
{
    open_cats();
    show_results();
    select(2);
    write_search(L"猫 犬");
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(rows(), 5);
    select(3);
    write_search(L"猫  犬");
    EXPECT_EQ(row(), 0) << "each change of the box selects the first row";
    for (const int id :
        { +command::toggle_all_terms, +command::toggle_ignore_case, +command::toggle_file_list_search }) {
        select(2);
        command(id);
        EXPECT_EQ(row(), 0) << id;
    }
    command(command::clear_search);
    EXPECT_EQ(rows(), 0);
}

TEST_F(AppResults, OpeningThemSelectsTheFirstRow)
{
    open_cats();
    show_results();
    select(2);
    command(command::toggle_results);
    SendMessageW(box(command::box_3), EM_SETSEL, 0, 0);
    command(command::toggle_results);
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(selection_of(command::box_1), (Range{ 4, 5 }));
}

TEST_F(AppResults, AChosenPlaceThatIsNullClearsTheSelections)
{
    open_cats();
    ASSERT_EQ(selection_of(command::box_1), (Range{ 4, 5 }));
    command(command::choose_result, 0);
    EXPECT_EQ(selection_of(command::box_1), (Range{ 4, 4 }));
}

TEST_F(AppResults, AnAddressFromElsewhereIsIgnored)
{
    open_cats();
    for (const std::int64_t address : { 1LL, -1LL, 0x1234LL, 0x7FFFFFFFFFFFLL })
        command(command::choose_result, address);
    EXPECT_EQ(selection_of(command::box_1), (Range{ 4, 5 }));
}

TEST_F(AppResults, AStaleRangeIsClampedByTheBox)
{
    open_cats();
    show_results();
    SendMessageW(box(command::box_1), EM_SETSEL, 0, -1);
    SendMessageW(box(command::box_1), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"x"));
    select(1);
    select(0);
    EXPECT_EQ(selection_of(command::box_1), (Range{ 1, 1 }));
}

TEST_F(AppResults, EnterGivesTheFocusToThePlace)
{
    open_cats();
    command(command::toggle_file_list_search);
    show_results();
    const int fields[] = { command::box_1, command::box_2, command::box_3, command::file_combo };
    for (int i = 0; i < 4; ++i) {
        ASSERT_TRUE(gui::bring_to_front(results()));
        ASSERT_TRUE(gui::pump_until([&] { return GetFocus() == results().list().hwnd(); }));
        select(i);
        press(VK_RETURN);
        EXPECT_EQ(GetFocus(), box(fields[i])) << i;
        EXPECT_TRUE(results().is_open());
    }
}

TEST_F(AppResults, EscReturnsTheFocusToTheBoxThatHadIt)
{
    open_cats();
    ASSERT_TRUE(gui::bring_to_front(window()));
    SetFocus(box(command::box_3));
    show_results();
    ASSERT_TRUE(gui::pump_until([&] { return GetFocus() == results().list().hwnd(); }));
    press(VK_ESCAPE);
    EXPECT_FALSE(results().is_open());
    EXPECT_TRUE(gui::pump_until([&] { return GetFocus() == box(command::box_3); }));
}

// The keys are looked for where the message loop dispatches.
TEST_F(AppResults, F3TurnsThePageFromTheMainWindowAndFromTheResults)
{
    open_cats();
    show_results();
    const auto key_to = [&](HWND target) {
        MSG message{};
        message.hwnd = target;
        message.message = WM_KEYDOWN;
        message.wParam = VK_F3;
        message.lParam = 1;
        window().dispatch(message);
    };
    for (HWND const target : { results().list().hwnd(), box(command::search_box), box(command::box_1),
             window().hwnd(), results().hwnd() }) {
        command(command::first_page);
        key_to(target);
        EXPECT_EQ(book().header.position, 1u);
        const gui::HeldKey shift(VK_SHIFT);
        key_to(target);
        EXPECT_EQ(book().header.position, 0u);
    }
    {
        const gui::HeldKey ctrl(VK_CONTROL);
        ASSERT_TRUE(gui::pump_until([] { return GetKeyState(VK_CONTROL) < 0; }));
        key_to(box(command::box_1));
        EXPECT_EQ(book().header.position, 0u) << "Ctrl+F3";
    }
    command(command::show_file_list_editor);
    key_to(list_box());
    EXPECT_EQ(book().header.position, 0u) << "in other windows the key belongs to the control";
    command(command::set_accepting_input, 0);
    key_to(box(command::box_1));
    EXPECT_EQ(book().header.position, 0u);
    command(command::set_accepting_input, 1);
}

TEST_F(AppResults, AreClosedWithTheProgram)
{
    open_cats();
    close();
    const auto before = test_support::read_bytes(file(L"手帖.bok"));
    ASSERT_TRUE(create());
    write_search(L"猫");
    show_results();
    select(1);
    HWND const shown = results().hwnd();
    close();
    EXPECT_FALSE(IsWindow(shown));
    EXPECT_TRUE(test_support::read_bytes(file(L"手帖.bok")) == before) << "choosing places changes nothing";
}

} // namespace
