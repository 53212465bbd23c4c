// The page editor: copying, moving, deleting, restoring, closing, its keys and its look.
#include "tests/support/gui_page_editing.hpp"

namespace {

namespace command = core::command;
namespace place = book::page_editor_place;
using gui::PageEditing;

TEST_F(PageEditing, CopiesSelectedPagesToTheEnd)
{
    open_letters(L"あいう");
    select({ 1 });
    order(command::copy_pages);
    const auto met = order(command::paste_pages_at_end, IDYES);
    EXPECT_EQ(met.text, L"コピーした 1 枚のページを位置 [4] に貼付けますか？");
    EXPECT_EQ(met.caption, std::wstring(caption) + L"  [ 1ページ選択中 ]");
    EXPECT_EQ(met.icon, LoadIconW(nullptr, IDI_QUESTION));
    EXPECT_EQ(first_texts(), L"あいうい");
    EXPECT_EQ(selection(), L"0102");
    EXPECT_EQ(book().header.position, 3u);
    EXPECT_EQ(first_line(), L"い");
    EXPECT_TRUE(editor().has_changed());
}

TEST_F(PageEditing, MovesSelectedPagesToTheCurrentPosition)
{
    open_letters(L"あいうえお");
    select({ 0, 1 });
    order(command::cut_pages);
    go_to(4);
    const auto met = order(command::paste_pages, IDYES);
    EXPECT_EQ(met.text, L"カットした 2 枚のページを位置 [5] に貼付けますか？");
    EXPECT_EQ(first_texts(), L"うえあいお");
    EXPECT_EQ(selection(), L"00110");
    EXPECT_EQ(first_line(), L"い");
}

TEST_F(PageEditing, DoesNothingIfTheQuestionIsAnsweredNo)
{
    open_letters(L"あいう");
    select({ 1 });
    order(command::copy_pages);
    order(command::paste_pages_at_end, IDNO);
    order(command::delete_pages, IDNO);
    EXPECT_EQ(first_texts(), L"あいう");
    EXPECT_FALSE(editor().has_changed());
}

TEST_F(PageEditing, DoesNothingWithoutASelectionOrAPendingCopy)
{
    open_letters(L"あいう");
    for (const int id : { command::copy_pages, command::cut_pages, command::paste_pages,
             command::paste_pages_at_end, command::delete_pages })
        order(id); // a question would never end
    select({ 0 });
    order(command::paste_pages);
    order(command::copy_pages);
    set_check(editor(), command::select_page, false);
    set_check(editor(), command::select_page, true);
    order(command::paste_pages); // selecting gave the copy up
    EXPECT_EQ(first_texts(), L"あいう");
}

TEST_F(PageEditing, DeletesSelectedPages)
{
    open_letters(L"あいう");
    select({ 0, 2 });
    const auto met = order(command::delete_pages, IDYES);
    EXPECT_EQ(met.text, L"選択した 2 枚のページを削除しますか？");
    EXPECT_EQ(first_texts(), L"い");
    EXPECT_EQ(first_line(), L"い");
    EXPECT_EQ(editor().text(), L"ブックエディタ");
    EXPECT_EQ(saved().pages.size(), 3u) << "the file is as it was";
}

TEST_F(PageEditing, LeavesAnEmptyPageWhenAllAreDeleted)
{
    open_letters(L"あいう");
    turn_with_shift(command::last_page);
    click_in(editor(), command::select_range);
    order(command::delete_pages, IDYES);
    ASSERT_EQ(book().pages.size(), 1u);
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_EQ(first_line(), L"");
    EXPECT_EQ(range(), L"1");
}

// Whatever was asked about must still be there when the answer comes.
TEST_F(PageEditing, DoesNothingIfTheSelectionChangedWhileTheQuestionWasOpen)
{
    open_letters(L"あいう");
    select({ 0 });
    answered(
        IDYES, [&] { order(command::delete_pages); },
        [&] { const_cast<book::Book&>(book()).pages[1].selected = book::PageSelection::selected; });
    EXPECT_EQ(first_texts(), L"あいう");
    EXPECT_FALSE(editor().has_changed());
}

TEST_F(PageEditing, IgnoresAWishToCloseWhileItsQuestionIsOpen)
{
    open_letters(L"あいう");
    select({ 0 });
    answered(
        IDYES, [&] { order(command::delete_pages); }, [&] { SendMessageW(editor().hwnd(), WM_CLOSE, 0, 0); });
    EXPECT_TRUE(editor().is_open());
    EXPECT_TRUE(editor().has_changed());
    EXPECT_EQ(first_texts(), L"いう");
}

// The command of the main window would go on with another page than it asked about.
TEST_F(PageEditing, DoesNothingWhileTheMainWindowShowsABox)
{
    open_letters(L"あいうえお");
    select({ 1 });
    command(command::set_accepting_input, 0);
    for (const int id : { command::next_page, command::select_page, command::go_to_range_start,
             command::delete_pages, command::restore_book, command::close_window })
        order(id); // a question would never end
    strip(WM_LBUTTONDOWN, 300);
    press_key_in(command::select_page, VK_DELETE);
    editor().send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    EXPECT_TRUE(editor().is_open());
    EXPECT_EQ(book().header.position, 1u);
    EXPECT_EQ(selection(), L"01000");
    command(command::set_accepting_input, 1);
    order(command::next_page);
    EXPECT_EQ(book().header.position, 2u);
}

TEST_F(PageEditing, AHeldKeyTurnsPagesButSelectsOnlyOnce)
{
    open_letters(L"あいうえお");
    constexpr LPARAM repeated = (1 << 30) | 1;
    press_key_in(command::select_page, VK_SPACE);
    for (int i = 0; i < 3; ++i)
        SendMessageW(item(editor(), command::select_page), WM_KEYDOWN, VK_SPACE, repeated);
    EXPECT_EQ(selection(), L"10000");
    for (int i = 0; i < 3; ++i)
        SendMessageW(item(editor(), command::select_page), WM_KEYDOWN, VK_RIGHT, repeated);
    EXPECT_EQ(book().header.position, 3u);
}

TEST_F(PageEditing, FollowsTheSliderTheTabsAndTheWheelOfTheMainWindow)
{
    book::Book tabbed = lettered(L"あいうえお");
    tabbed.pages[4].tab_number = 1;
    open(std::move(tabbed));
    open_editor();
    slide(SB_THUMBTRACK, 2);
    EXPECT_EQ(range(), L"3");
    command(command::go_to_tab, 1);
    EXPECT_EQ(range(), L"5");
    window().send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(range(), L"4");
    {
        const gui::HeldKey shift{ VK_SHIFT };
        editor().send(WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, WHEEL_DELTA), 0);
    }
    EXPECT_EQ(range(), L"3-4");
}

TEST_F(PageEditing, StaysOpenWhileItsOwnerIsMinimised)
{
    open_changed();
    window().minimize();
    ASSERT_TRUE(gui::pump_until([&] { return !IsWindowVisible(editor().hwnd()); }));
    const std::string before = bytes_of();
    window().send(WM_CLOSE, 0, 0);
    EXPECT_TRUE(window().is_window());
    EXPECT_EQ(bytes_of(), before);
    window().restore();
    EXPECT_TRUE(editor().is_open());
}

TEST_F(PageEditing, TabGoesThroughItsControlsInReadingOrder)
{
    open_letters(L"あい");
    turn_with_shift(command::next_page);
    const std::vector<int> expected{ command::select_page, command::first_page, command::previous_page,
        command::next_page, command::last_page, command::select_range, command::reset_range,
        command::go_to_range_start, command::go_to_range_end, command::trace_selection,
        command::select_page };
    EXPECT_EQ(tabbed_controls(editor(), expected.size()), expected);
}

TEST_F(PageEditing, ReportsABookThatIsTooLargeAndGoesOn)
{
    book::Book large;
    large.pages.resize(99'999, page(L"\r\n"));
    open(std::move(large));
    open_editor();
    set_check(editor(), command::select_page, true);
    order(command::cut_pages);
    const auto met = answered_all({ IDYES, IDOK }, [&] { order(command::paste_pages_at_end); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(met[1].icon, LoadIconW(nullptr, IDI_WARNING));
    EXPECT_EQ(book().pages.size(), 99'999u);
    EXPECT_FALSE(editor().has_changed());
    EXPECT_TRUE(editor().is_open());
}

TEST_F(PageEditing, ATracedSelectionIsAllThatASearchFinds)
{
    open_letters(L"あいうえお");
    select({ 1, 3 });
    command(command::first_page);
    click_in(editor(), command::trace_selection);
    EXPECT_TRUE(editor().traces_selection());
    order(command::next_page);
    EXPECT_EQ(first_line(), L"い");
    order(command::next_page);
    EXPECT_EQ(first_line(), L"え");
    order(command::previous_page);
    EXPECT_EQ(first_line(), L"い");
    editor().send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(editor().traces_selection());
    command(command::next_page);
    EXPECT_EQ(first_line(), L"う");
}

TEST_F(PageEditing, TracingRenewsTheResults)
{
    open_letters(L"あいあ");
    write_search(L"あ");
    command(command::toggle_results);
    ASSERT_EQ(results().list().count(), 1);
    click_in(editor(), command::trace_selection);
    EXPECT_EQ(results().list().count(), 0) << "the page is not selected";
    click_in(editor(), command::trace_selection);
    EXPECT_EQ(results().list().count(), 1);
}

TEST_F(PageEditing, TracingKeepsTheRange)
{
    open_letters(L"あいう");
    turn_with_shift(command::last_page);
    click_in(editor(), command::trace_selection);
    EXPECT_EQ(range(), L"1-3");
}

TEST_F(PageEditing, KeepsTheSelectionForItsNextOpening)
{
    open_letters(L"あいう");
    select({ 1, 2 });
    turn_with_shift(command::first_page);
    editor().send(WM_CLOSE, 0, 0);
    open_editor();
    EXPECT_EQ(selection(), L"011");
    EXPECT_EQ(editor().text(), L"ブックエディタ  [ 2ページ選択中 ]");
    EXPECT_EQ(range(), L"1");
}

TEST_F(PageEditing, RestoresTheFileAndForgetsAPendingCut)
{
    open_letters(L"あいう");
    select({ 0 });
    order(command::delete_pages, IDYES);
    set_check(editor(), command::select_page, true);
    order(command::cut_pages);
    const auto met = order(command::restore_book, IDYES);
    EXPECT_EQ(met.text, L"編集を取消して最初の状態に戻しますか？");
    EXPECT_EQ(first_texts(), L"あいう");
    EXPECT_FALSE(editor().has_changed());
    EXPECT_TRUE(editor().is_open());
    EXPECT_EQ(editor().text(), L"ブックエディタ");
    set_check(editor(), command::select_page, true);
    order(command::paste_pages); // a question would never end
}

TEST_F(PageEditing, ARestoreWithoutAFileKeepsTheChanges)
{
    open_changed();
    DeleteFileW(file(L"手帖.bok").c_str());
    answered_all({ IDYES, IDOK }, [&] { order(command::restore_book); });
    EXPECT_TRUE(editor().has_changed());
    EXPECT_EQ(first_texts(), L"あう");
    close_by(IDYES);
}

TEST_F(PageEditing, ClosesWithoutAQuestionIfNothingChanged)
{
    open_letters(L"あい");
    select({ 0 });
    editor().send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(editor().is_open());
    EXPECT_FALSE(GetWindowLongW(box(command::box_1), GWL_STYLE) & ES_READONLY);
}

TEST_F(PageEditing, ClosesWithYesAndSaves)
{
    open_changed();
    const auto met = close_by(IDYES);
    EXPECT_EQ(met.text,
        L"変更内容をファイルに保存しますか？\r\n\r\n[はい] "
        L"を押すと変更内容をファイルに保存して終了します．\r\n"
        L"[いいえ] を押すと編集前の状態に戻して終了します．");
    EXPECT_EQ(met.caption, caption);
    EXPECT_FALSE(editor().is_open());
    ASSERT_EQ(saved().pages.size(), 2u);
    EXPECT_EQ(saved().pages[1].text[0], L"う\r\n");
}

TEST_F(PageEditing, ClosesWithNoAndRestoresTheFile)
{
    open_letters(L"あいう");
    const std::string before = bytes_of();
    select({ 1 });
    order(command::delete_pages, IDYES);
    close_by(IDNO);
    EXPECT_FALSE(editor().is_open());
    EXPECT_EQ(first_texts(), L"あいう");
    EXPECT_EQ(bytes_of(), before);
}

TEST_F(PageEditing, StaysOpenIfTheQuestionIsCancelled)
{
    open_changed();
    close_by(IDCANCEL);
    EXPECT_TRUE(editor().is_open());
    EXPECT_TRUE(editor().has_changed());
}

TEST_F(PageEditing, OpensAgainIfTheFileToRestoreIsMissing)
{
    open_changed();
    DeleteFileW(file(L"手帖.bok").c_str());
    answered_all({ IDNO, IDOK }, [&] { editor().send(WM_CLOSE, 0, 0); });
    EXPECT_TRUE(editor().is_open());
    EXPECT_TRUE(editor().has_changed());
    EXPECT_EQ(first_texts(), L"あう");
    close_by(IDYES);
}

TEST_F(PageEditing, EndsWithTheProgramIfTheFileToRestoreIsDamaged)
{
    for (const bool closes : { true, false }) {
        open_changed();
        test_support::write_text(file(L"手帖.bok"), damaged_book);
        const std::string before = bytes_of();
        const auto met = closes ? answered_all({ IDNO, IDNO, IDOK }, [&] { editor().send(WM_CLOSE, 0, 0); })
                                : answered_all({ IDYES, IDNO, IDOK }, [&] { order(command::restore_book); });
        EXPECT_EQ(met.size(), 3u) << closes;
        EXPECT_EQ(window().hwnd(), nullptr) << closes;
        EXPECT_EQ(editor().hwnd(), nullptr) << closes;
        EXPECT_TRUE(gui::take_quit()) << closes;
        EXPECT_EQ(bytes_of(), before) << closes;
        close();
    }
}

TEST_F(PageEditing, ItsKeysRunItsCommandsUnderTheSameRules)
{
    open_letters(L"あいう");
    press_key_in(command::next_page, VK_RIGHT);
    EXPECT_EQ(book().header.position, 1u);
    press_key_in(command::next_page, VK_SPACE);
    EXPECT_EQ(selection(), L"010");
    press_key_in(command::next_page, VK_HOME);
    EXPECT_EQ(book().header.position, 0u);
    press_key_in(command::select_page, VK_END);
    EXPECT_EQ(book().header.position, 2u);
    press_key_in(command::select_page, VK_LEFT);
    EXPECT_EQ(book().header.position, 1u);
    answered(IDNO, [&] { press_key_in(command::select_page, VK_DELETE); });
    press_ctrl_and('V'); // nothing to paste: a question would never end
    press_ctrl_and('C');
    EXPECT_NE(answered(IDNO, [&] { press_ctrl_and('V'); }).text.find(L"コピーした"), std::wstring::npos);
    press_ctrl_and('X');
    EXPECT_NE(answered(IDNO, [&] { press_ctrl_and('V'); }).text.find(L"カットした"), std::wstring::npos);
    EXPECT_EQ(first_texts(), L"あいう");
}

TEST_F(PageEditing, ACheckBoxWithTheFocusKeepsTheSpaceBar)
{
    open_letters(L"あいう");
    ASSERT_TRUE(gui::bring_to_front(editor()));
    SetFocus(item(editor(), command::select_range));
    press_key_in(command::select_range, VK_SPACE);
    SendMessageW(item(editor(), command::select_range), WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(selection(), L"100");
    EXPECT_TRUE(check_in(editor(), command::select_range).is_checked());
    SetFocus(item(editor(), command::trace_selection));
    press_key_in(command::trace_selection, VK_SPACE);
    SendMessageW(item(editor(), command::trace_selection), WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(selection(), L"100");
    EXPECT_TRUE(editor().traces_selection());
}

TEST_F(PageEditing, TheWheelTurnsPages)
{
    open_letters(L"あいう");
    SendMessageW(item(editor(), command::select_page), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    EXPECT_EQ(book().header.position, 1u);
    editor().send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(book().header.position, 0u);
}

TEST_F(PageEditing, OpensInAnyOrderByItsNumberAndSelectsStoredPages)
{
    book::Book sorted = lettered(L"うあい");
    sorted.header.order_mode = 2701;
    open(std::move(sorted));
    command(command::first_page);
    open_editor();
    EXPECT_EQ(first_line(), L"あ");
    turn_with_shift(command::next_page);
    click_in(editor(), command::select_range);
    EXPECT_EQ(selection(), L"110") << "positions are stored indices here";
}

TEST_F(PageEditing, ShowsItsMenuAtTheFocusedControlForAKey)
{
    open_letters(L"あい");
    std::vector<std::wstring> texts;
    std::vector<bool> grey;
    RECT menu_place{};
    gui::MenuDriver user{ [&](const gui::ShownMenu& menu) {
        for (int i = 0; i < GetMenuItemCount(menu.menu()); ++i) {
            texts.push_back(menu.text(i));
            grey.push_back(menu.is_grey(i));
        }
        GetWindowRect(menu.hwnd(), &menu_place);
    } };
    ASSERT_TRUE(gui::bring_to_front(editor()));
    SetFocus(item(editor(), command::reset_range));
    editor().send(WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1));
    EXPECT_TRUE(user.finish());
    RECT button_place{};
    GetWindowRect(item(editor(), command::reset_range), &button_place);
    EXPECT_EQ(menu_place.left, button_place.left);
    EXPECT_EQ(menu_place.top, button_place.bottom);
    EXPECT_EQ(texts,
        (std::vector<std::wstring>{ L"コピー", L"切取り", L"削除", L"", L"貼付け (末尾)",
            L"貼付け (現在の位置)", L"", L"選択の取消し", L"編集の取消し(復元)", L"", L"終了" }));
    for (std::size_t i = 0; i < grey.size(); ++i)
        EXPECT_TRUE(grey[i] || texts[i].empty()) << i;
}

TEST_F(PageEditing, HasRoomForAllItsTexts)
{
    open_letters(L"あい");
    EXPECT_EQ(editor().client_size().cx, 400);
    EXPECT_EQ(editor().client_size().cy, 180);
    EXPECT_EQ(frame_style(editor()), editing_frame);
    constexpr int box_and_gap = 18;
    set_field(editor(), command::select_page, L"100000 を選択");
    set_field(editor(), command::go_to_range_end, L"100000");
    for (const int id : { command::reset_range, command::go_to_range_end }) {
        RECT client{};
        GetClientRect(item(editor(), id), &client);
        EXPECT_LE(text_width(item(editor(), id)) + 8, client.right) << id;
    }
    for (const int id : { command::select_page, command::select_range, command::trace_selection }) {
        RECT client{};
        GetClientRect(item(editor(), id), &client);
        EXPECT_LE(text_width(item(editor(), id)) + box_and_gap, client.right) << id;
    }
    EXPECT_EQ(label(command::select_range), L"範囲を選択");
    EXPECT_EQ(label(command::reset_range), L"範囲のリセット");
    EXPECT_EQ(label(command::trace_selection), L"選択したページを追跡");
}

TEST_F(PageEditing, RefusesTheReplaceWindowAndTheEndOfTheProgram)
{
    open_letters(L"あい");
    command(command::show_replace);
    EXPECT_FALSE(replace().is_open());
    window().send(WM_CLOSE, 0, 0);
    EXPECT_TRUE(window().is_window());
}

TEST_F(PageEditing, OpeningItCostsNoHandles)
{
    open_letters(L"あい");
    editor().send(WM_CLOSE, 0, 0);
    const gui::GdiCrowd crowd{ 120 };
    window().show(false);
    for (int i = 0; i < 250; ++i) {
        editor().open();
        editor().show(false);
    }
    gui::expect_handles_to_spare(20);
}

TEST_F(PageEditing, OutlivesTheEndOfTheProgramUnderItsBoxes)
{
    open_letters(L"あいう");
    select({ 0 });
    end_under_box([&] { order(command::delete_pages); });
    EXPECT_FALSE(editor().is_open());
    EXPECT_EQ(first_texts(), L"あいう");
    close();
    open_changed();
    end_under_box([&] { order(command::restore_book); });
    EXPECT_EQ(first_texts(), L"あう");
}

} // namespace
