// The replace window: opening, replacing, restoring and closing.
#include "tests/support/gui_replacing.hpp"

namespace {

namespace command = core::command;
using gui::Replacing;

TEST_F(Replacing, OpensAfterTheEditsWereSaved)
{
    open({ page(L"元\r\n") });
    type(command::box_1, L"新");
    const auto met = answered(IDYES, [&] { command(command::show_replace); });
    EXPECT_EQ(met.text, L"ページの内容が変更されています．\r\nファイルに保存しますか？");
    EXPECT_TRUE(replace().is_open());
    EXPECT_EQ(saved().pages[0].text[0], L"新元\r\n");
}

TEST_F(Replacing, OpensAfterTheEditsWereDiscarded)
{
    open({ page(L"元\r\n") });
    type(command::box_1, L"新");
    answered(IDNO, [&] { command(command::show_replace); });
    EXPECT_TRUE(replace().is_open());
    EXPECT_EQ(first_line(), L"元");
    EXPECT_EQ(saved().pages[0].text[0], L"元\r\n");
}

TEST_F(Replacing, StaysClosedIfTheEditsCannotBeSaved)
{
    open({ page(L"元\r\n") });
    type(command::box_1, L"新");
    const gui::Unwritable unwritable{ file(L"手帖.bok") };
    const auto met = answered_all({ IDYES, IDOK }, [&] { command(command::show_replace); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(met[1].text.substr(0, wcslen(failed_save)), failed_save);
    EXPECT_FALSE(replace().is_open());
    EXPECT_TRUE(is_modified(command::box_1));
    EXPECT_EQ(first_line(), L"新元");
}

TEST_F(Replacing, StaysClosedIfTheBookCannotBeWritten)
{
    open({ page(L"元\r\n") });
    const gui::Unwritable unwritable{ file(L"手帖.bok") };
    const auto met = answered_all({ IDOK }, [&] { command(command::show_replace); });
    ASSERT_EQ(met.size(), 1u);
    EXPECT_FALSE(replace().is_open());
    EXPECT_FALSE(GetWindowLongW(box(command::box_1), GWL_STYLE) & ES_READONLY);
}

TEST_F(Replacing, StaysClosedWithoutAPage)
{
    open({ page(L"元\r\n") });
    const_cast<book::Book&>(book()).pages.clear();
    command(command::show_replace);
    EXPECT_FALSE(replace().is_open());
}

TEST_F(Replacing, DoesNothingWithoutASearchText)
{
    open_three();
    replace().send_command(command::replace_all_pages, 0, 0); // a box would never end
    EXPECT_FALSE(replace().has_changed());
}

TEST_F(Replacing, AsksForATarget)
{
    open_with({ page(L"猫\r\n") });
    const auto met = replaced(L"猫", L"犬", command::replace_all_pages);
    EXPECT_EQ(met.text, L"ターゲットを指定してください");
    EXPECT_EQ(met.caption, replace_caption);
    EXPECT_EQ(met.icon, nullptr);
    EXPECT_EQ(first_texts(), L"猫");
}

TEST_F(Replacing, ReportsItsNumberForAllPagesAndForTheCurrentOne)
{
    open_three();
    EXPECT_EQ(
        replaced(L"象", L"", command::replace_all_pages).text, L"0件 置換しました\r\n[対象ページ: 全て]");
    EXPECT_FALSE(replace().has_changed());
    command(command::next_page);
    EXPECT_EQ(
        replaced(L"猫", L"兎", command::replace_current_page).text, L"2件 置換しました\r\n[対象ページ: 2]");
    EXPECT_EQ(first_texts(), L"猫と犬兎兎鳥");
    EXPECT_TRUE(replace().has_changed());
    const auto met = replaced(L"猫", L"兎", command::replace_all_pages);
    EXPECT_EQ(met.text, L"1件 置換しました\r\n[対象ページ: 全て]");
    EXPECT_EQ(met.caption, replace_caption);
    EXPECT_EQ(met.icon, nullptr);
    EXPECT_EQ(first_texts(), L"兎と犬兎兎鳥");
}

// Otherwise the first change would stay in the Book without a question.
TEST_F(Replacing, AChangeStaysAChangeAfterAReplacementOfNothing)
{
    open_changed();
    EXPECT_EQ(replaced(L"象", L"", command::replace_all_pages).text[0], L'0');
    EXPECT_TRUE(replace().has_changed());
    close_by(IDCANCEL);
    EXPECT_EQ(met_.text.substr(0, 4), L"変更内容");
}

TEST_F(Replacing, LooksWhereTheChecksSay)
{
    book::Page one = page(L"猫\r\n", L"猫", L"猫\r\n");
    one.files = { L"猫.txt", L"犬.txt" };
    one.reference_folder = L"C:\\猫";
    open_with({ one });
    struct Case {
        int check;
        const wchar_t* text;
    };
    for (const Case& each : { Case{ command::replace_in_boxes, L"3件 置換しました\r\n[対象ページ: 1]" },
             Case{ command::replace_in_file_list, L"1件 置換しました\r\n[対象ページ: 1]" },
             Case{ command::replace_in_folder, L"1件 置換しました\r\n[対象ページ: 1]" } }) {
        set_check(replace(), each.check, true);
        EXPECT_EQ(replaced(L"猫", L"犬", command::replace_current_page).text, each.text) << each.check;
        set_check(replace(), each.check, false);
    }
    EXPECT_EQ(book().pages[0].files[0], L"犬.txt");
    EXPECT_EQ(book().pages[0].reference_folder, L"C:\\犬");
}

TEST_F(Replacing, FollowsTheCheckOfTheLetterCase)
{
    open_with({ page(L"Cat cat\r\n") });
    set_check(replace(), command::replace_in_boxes, true);
    EXPECT_EQ(replaced(L"CAT", L"犬", command::replace_all_pages).text[0], L'0');
    set_check(replace(), command::toggle_ignore_case, true);
    EXPECT_EQ(replaced(L"CAT", L"犬", command::replace_all_pages).text[0], L'2');
    EXPECT_EQ(first_texts(), L"犬 犬");
    EXPECT_FALSE(check(command::toggle_ignore_case).is_checked()) << "the main window's own check";
}

TEST_F(Replacing, ASearchTextOfSeparatorsIsEmptiedAndFindsNothing)
{
    open_three();
    EXPECT_EQ(replaced(L"\x3", L"\x3犬\x3", command::replace_all_pages).text[0], L'0');
    EXPECT_EQ(gui::text_of(item(replace(), command::replace_search_text)), L"");
    EXPECT_EQ(gui::text_of(item(replace(), command::replace_new_text)), L"犬");
    EXPECT_FALSE(replace().has_changed());
}

TEST_F(Replacing, ShowsTheNewTextAndRenewsTheHits)
{
    open({ page(L"猫猫\r\n") });
    write_search(L"兎");
    open_replace();
    set_check(replace(), command::replace_in_boxes, true);
    replaced(L"猫", L"兎", command::replace_all_pages);
    EXPECT_EQ(first_line(), L"兎兎");
    EXPECT_EQ(book().hits.size(), 2u);
}

TEST_F(Replacing, LightsTheFolderButtonOnlyIfThereIsAFolder)
{
    book::Page one = page(L"a");
    one.reference_folder = L"猫";
    open_with({ one });
    ASSERT_TRUE(button(command::show_folder_menu).is_highlighted());
    set_check(replace(), command::replace_in_folder, true);
    replaced(L"猫", L"", command::replace_all_pages);
    EXPECT_FALSE(button(command::show_folder_menu).is_highlighted());
}

TEST_F(Replacing, KeepsTheBoxesReadOnlyWhileItIsOpen)
{
    open_three();
    for (const int id : { command::box_1, command::box_2, command::box_3 })
        EXPECT_TRUE(GetWindowLongW(box(id), GWL_STYLE) & ES_READONLY) << id;
    replace().send(WM_CLOSE, 0, 0);
    for (const int id : { command::box_1, command::box_2, command::box_3 })
        EXPECT_FALSE(GetWindowLongW(box(id), GWL_STYLE) & ES_READONLY) << id;
}

TEST_F(Replacing, RefusesOtherWaysToChangeTheBookWhileItIsOpen)
{
    open_changed();
    for (const int id : { command::new_book, command::open_book, command::save_book_as, command::show_history,
             command::first_history_entry, command::show_book_editor, command::show_replace,
             command::show_file_list_editor, command::delete_page, command::add_page_at_end,
             command::show_settings })
        command(id); // a dialog would never end
    EXPECT_FALSE(editor().is_open());
    EXPECT_FALSE(the<book::HistoryWnd>().is_visible());
    EXPECT_FALSE(list_editor().is_open());
    EXPECT_EQ(first_texts(), L"兎と犬猫猫鳥") << "no Book was loaded";
    window().send(WM_CLOSE, 0, 0);
    EXPECT_TRUE(window().is_window());
}

TEST_F(Replacing, RefusesTheEndOfTheProgramWhileItsOwnerIsMinimised)
{
    open_changed();
    window().minimize();
    ASSERT_TRUE(gui::pump_until([&] { return !IsWindowVisible(replace().hwnd()); }));
    const std::string before = bytes_of();
    window().send(WM_CLOSE, 0, 0);
    EXPECT_TRUE(window().is_window());
    EXPECT_EQ(bytes_of(), before);
    window().restore();
    EXPECT_TRUE(replace().is_open());
}

TEST_F(Replacing, ClosesWithoutAQuestionIfNothingChanged)
{
    open_three();
    const std::string before = bytes_of();
    replace().send_command(command::close_window, 0, 0);
    EXPECT_FALSE(replace().is_open());
    EXPECT_EQ(bytes_of(), before);
}

TEST_F(Replacing, ClosesWithYesAndSaves)
{
    open_changed();
    close_by(IDYES);
    EXPECT_EQ(met_.text,
        L"変更内容を保存しますか？\r\n\r\n[はい] を押すと変更内容をファイルに保存して終了します．\r\n"
        L"[いいえ] を押すと最初の状態に戻して終了します．");
    EXPECT_EQ(met_.caption, replace_caption);
    EXPECT_EQ(met_.icon, LoadIconW(nullptr, IDI_QUESTION));
    EXPECT_FALSE(replace().is_open());
    EXPECT_EQ(saved().pages[0].text[0], L"兎と犬\r\n");
    open_replace();
    EXPECT_FALSE(replace().has_changed());
}

TEST_F(Replacing, ClosesWithNoAndRestoresTheFile)
{
    open_three();
    const std::string before = bytes_of();
    replaced(L"猫", L"兎", command::replace_all_pages);
    close_by(IDNO);
    EXPECT_FALSE(replace().is_open());
    EXPECT_EQ(first_texts(), L"猫と犬猫猫鳥");
    EXPECT_EQ(first_line(), L"猫と犬");
    EXPECT_EQ(bytes_of(), before);
    command(command::save_always);
    EXPECT_EQ(bytes_of(), before);
}

TEST_F(Replacing, StaysOpenIfTheQuestionIsCancelled)
{
    open_changed();
    close_by(IDCANCEL);
    EXPECT_TRUE(replace().is_open());
    EXPECT_TRUE(replace().has_changed());
}

TEST_F(Replacing, FreesTheBoxesEvenIfTheSaveAtTheEndFails)
{
    open_changed();
    {
        const gui::Unwritable unwritable{ file(L"手帖.bok") };
        const auto met = answered_all({ IDYES, IDOK }, [&] { replace().send(WM_CLOSE, 0, 0); });
        ASSERT_EQ(met.size(), 2u);
    }
    EXPECT_FALSE(replace().is_open());
    EXPECT_FALSE(GetWindowLongW(box(command::box_1), GWL_STYLE) & ES_READONLY);
    EXPECT_EQ(first_texts(), L"兎と犬猫猫鳥") << "in memory until the next save";
    command(command::save_always);
    EXPECT_EQ(saved().pages[0].text[0], L"兎と犬\r\n");
}

TEST_F(Replacing, OpensAgainIfTheFileToRestoreIsMissing)
{
    open_changed();
    DeleteFileW(file(L"手帖.bok").c_str());
    const auto met = answered_all({ IDNO, IDOK }, [&] { replace().send(WM_CLOSE, 0, 0); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(met[1].text, L"ファイル [" + file(L"手帖.bok") + L"] が見つかりませんでした．");
    EXPECT_TRUE(replace().is_open());
    EXPECT_TRUE(replace().has_changed());
    EXPECT_TRUE(GetWindowLongW(box(command::box_1), GWL_STYLE) & ES_READONLY);
    EXPECT_FALSE(the<book::HistoryWnd>().is_enabled());
    EXPECT_EQ(first_texts(), L"兎と犬猫猫鳥");
    close_by(IDYES);
    EXPECT_TRUE(the<book::HistoryWnd>().is_enabled());
    EXPECT_EQ(saved().pages[0].text[0], L"兎と犬\r\n");
}

// A damaged file has replaced the Book in memory in part, so the program ends, and nothing opens again.
TEST_F(Replacing, EndsWithTheProgramIfTheFileToRestoreIsDamaged)
{
    for (const bool closes : { true, false }) {
        open_changed();
        test_support::write_text(file(L"手帖.bok"), damaged_book);
        const std::string before = bytes_of();
        const auto met = closes ? answered_all({ IDNO, IDNO, IDOK }, [&] { replace().send(WM_CLOSE, 0, 0); })
                                : answered_all({ IDYES, IDNO, IDOK },
                                    [&] { replace().send_command(command::restore_book, 0, 0); });
        EXPECT_EQ(met.size(), 3u) << closes;
        EXPECT_EQ(window().hwnd(), nullptr) << closes;
        EXPECT_EQ(replace().hwnd(), nullptr) << closes;
        EXPECT_TRUE(gui::take_quit()) << closes;
        EXPECT_EQ(bytes_of(), before) << closes;
        close();
    }
}

TEST_F(Replacing, RestoresTheFileAfterItsQuestion)
{
    open_three();
    const std::string before = bytes_of();
    replaced(L"猫", L"兎", command::replace_all_pages);
    gui::MetBox met = answered(IDNO, [&] { replace().send_command(command::restore_book, 0, 0); });
    EXPECT_EQ(met.text, L"編集を取消して最初の状態に戻しますか？");
    EXPECT_EQ(met.caption, replace_caption);
    EXPECT_EQ(met.icon, LoadIconW(nullptr, IDI_QUESTION));
    EXPECT_TRUE(replace().has_changed());
    answered(IDYES, [&] { replace().send_command(command::restore_book, 0, 0); });
    EXPECT_FALSE(replace().has_changed());
    EXPECT_TRUE(replace().is_open());
    EXPECT_EQ(first_texts(), L"猫と犬猫猫鳥");
    EXPECT_EQ(bytes_of(), before);
}

TEST_F(Replacing, ARestoreWithoutAFileKeepsTheChanges)
{
    open_changed();
    DeleteFileW(file(L"手帖.bok").c_str());
    answered_all({ IDYES, IDOK }, [&] { replace().send_command(command::restore_book, 0, 0); });
    EXPECT_TRUE(replace().has_changed());
    EXPECT_EQ(first_texts(), L"兎と犬猫猫鳥");
    close_by(IDYES);
}

TEST_F(Replacing, IgnoresAWishToCloseWhileItsReportIsOpen)
{
    open_three();
    set_field(replace(), command::replace_search_text, L"猫");
    answered(
        IDOK, [&] { replace().send_command(command::replace_all_pages, 0, 0); },
        [&] { SendMessageW(replace().hwnd(), WM_CLOSE, 0, 0); });
    EXPECT_TRUE(replace().is_open());
    EXPECT_TRUE(replace().has_changed());
}

TEST_F(Replacing, DoesNothingWhileTheMainWindowShowsABox)
{
    open_three();
    set_field(replace(), command::replace_search_text, L"猫");
    command(command::set_accepting_input, 0);
    for (const int id : { command::replace_all_pages, command::replace_current_page, command::close_window })
        replace().send_command(id, 0, 0); // a message would never end
    SendMessageW(item(replace(), command::replace_in_folder), WM_KEYDOWN, VK_RETURN, 1); // a menu neither
    RECT whole{};
    GetWindowRect(replace().hwnd(), &whole);
    replace().send(WM_CONTEXTMENU, 0, MAKELPARAM(whole.left + 20, whole.bottom - 8));
    EXPECT_EQ(first_texts(), L"猫と犬猫猫鳥");
    EXPECT_TRUE(replace().is_open());
    command(command::set_accepting_input, 1);
}

TEST_F(Replacing, OutlivesTheEndOfTheProgramUnderItsBoxes)
{
    open_changed();
    const std::string before = bytes_of();
    end_under_box([&] { replace().send(WM_CLOSE, 0, 0); });
    EXPECT_FALSE(replace().is_open());
    EXPECT_EQ(bytes_of(), before);
}

TEST_F(Replacing, OutlivesTheEndOfTheProgramUnderTheBoxesOfItsEnd)
{
    open_changed();
    {
        const gui::Unwritable unwritable{ file(L"手帖.bok") };
        end_under_box([&] { replace().send(WM_CLOSE, 0, 0); }, { IDYES }); // the report of the failed save
    }
    EXPECT_EQ(replace().hwnd(), nullptr);
    close();
    open_changed();
    DeleteFileW(file(L"手帖.bok").c_str());
    end_under_box([&] { replace().send(WM_CLOSE, 0, 0); }, { IDNO }); // that of the missing file
    EXPECT_EQ(replace().hwnd(), nullptr);
    EXPECT_FALSE(replace().is_open());
}

TEST_F(Replacing, OutlivesTheEndOfTheProgramUnderItsReport)
{
    open_three();
    set_field(replace(), command::replace_search_text, L"猫");
    const std::string before = bytes_of();
    end_under_box([&] { replace().send_command(command::replace_all_pages, 0, 0); });
    EXPECT_EQ(replace().hwnd(), nullptr);
    EXPECT_EQ(bytes_of(), before);
}

} // namespace
