// The Book as a whole: start, load, save, history, and the state after a failed load.
#include "app/failures.hpp"
#include "book/my_exception.hpp"
#include "look/theme.hpp"
#include "tests/support/gui_app.hpp"
#include "tests/support/gui_file_dialog.hpp"
#include <utility>

namespace {

namespace command = core::command;
using gui::AppWindow;
using gui::MetBox;

constexpr wchar_t closing_words[] = L"\r\nアプリケーションを終了します．";

class Books : public AppWindow {
protected:
    book::Book& open_book() { return const_cast<book::Book&>(book()); }
    // The system's message for an error code.
    static std::wstring system_words(DWORD code)
    {
        wchar_t* words = nullptr;
        FormatMessageW(
            FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
            nullptr, code, 0, reinterpret_cast<wchar_t*>(&words), 0, nullptr);
        std::wstring text = words ? words : L"";
        LocalFree(words);
        return text;
    }
};

TEST_F(Books, OpenAtTheirStoredPosition)
{
    book::Book left = book_of({ page(L"1\r\n"), page(L"2\r\n") });
    left.header.position = 1;
    open(left);
    EXPECT_EQ(box_text(command::box_1), L"2\r\n");
}

TEST_F(Books, OfARelativeHistoryPathAreFoundInTheDataRoot)
{
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ L"手帖.bok" });
    ASSERT_TRUE(create());
    EXPECT_EQ(title(), L"手帖");
    // A file dialog leaves the current directory in the folder that the user went to.
    ASSERT_TRUE(platform::create_folder(file(L"elsewhere")));
    ASSERT_TRUE(SetCurrentDirectoryW(file(L"elsewhere").c_str()));
    type(command::box_1, L"x");
    command(command::save_if_changed);
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
    EXPECT_FALSE(platform::exists(file(L"elsewhere\\手帖.bok")));
    EXPECT_EQ(book().path, L"手帖.bok");
    EXPECT_EQ(history(), std::vector<std::wstring>{ L"手帖.bok" });
    answered(IDOK, [&] { command(command::backup_book); });
    EXPECT_TRUE(platform::exists(file(L"book_backup\\手帖.bok")));
}

TEST_F(Books, ThatAreMissingAreReportedAndForgottenAndTheNextIsTried)
{
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"無い.bok"), file(L"手帖.bok") });
    const MetBox met = answered(IDOK, [&] { EXPECT_TRUE(create()); });
    EXPECT_EQ(met.text, L"ファイル [" + file(L"無い.bok") + L"] が見つかりませんでした．");
    EXPECT_EQ(met.icon, LoadIconW(nullptr, IDI_WARNING));
    EXPECT_EQ(met.caption, L"Pagewick v1.06");
    EXPECT_EQ(history(), std::vector<std::wstring>{ file(L"手帖.bok") });
}

TEST_F(Books, AreAskedForIfTheHistoryIsEmptyAndTheStartFailsWithoutOne)
{
    const auto met = answered_all({ IDCANCEL, IDOK }, [&] { EXPECT_FALSE(create()); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(met[0].caption, L"Book の新規作成");
    EXPECT_EQ(met[1].text, std::wstring(L"Book を開けませんでした") + closing_words);
    EXPECT_FALSE(gui::take_quit());
}

// A line with only a byte order mark used to stay at the front of the list for ever.
TEST_F(Books, AreNotAskedForEndlesslyIfTheHistoryContainsOnlyByteOrderMarks)
{
    test_support::write_text(core::history_file(core::folders()), L"\xFEFF\r\n\xFEFF\r\n");
    const auto met = answered_all({ IDCANCEL, IDOK }, [&] { EXPECT_FALSE(create()); });
    EXPECT_EQ(met.size(), 2u);
}

TEST_F(Books, ThatCannotBeReadEndTheStartAndAreForgotten)
{
    test_support::write_text(file(L"壊.bok"), L"\x3\x3\r\nzz\r\n\x3\x3\r\n");
    set_history({ file(L"壊.bok") });
    const auto met = answered_all({ IDNO, IDOK }, [&] { EXPECT_FALSE(create()); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(met[0].icon, LoadIconW(nullptr, IDI_WARNING));
    EXPECT_EQ(met[1].text, closing_words);
    EXPECT_EQ(met[1].icon, LoadIconW(nullptr, IDI_ERROR));
    EXPECT_TRUE(history().empty());
}

TEST_F(Books, WhoseSettingsCannotBeAppliedAreForgotten)
{
    book::Book short_stamps = book_of({ page(L"1\r\n"), page(L"2\r\n") });
    for (book::Page& each : short_stamps.pages)
        each.stamp = L"2020";
    short_stamps.header.sort_key = 3004;
    short_stamps.header.order_mode = 2701;
    ASSERT_TRUE(short_stamps.save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok") });
    answered(IDOK, [&] { EXPECT_FALSE(create()); });
    EXPECT_TRUE(history().empty());
}

TEST_F(Books, WhoseSettingsCannotBeAppliedStayForgottenAfterACommandOpensThem)
{
    book::Book short_stamps = book_of({ page(L"1\r\n"), page(L"2\r\n") });
    for (book::Page& each : short_stamps.pages)
        each.stamp = L"2020";
    short_stamps.header.sort_key = 3004;
    short_stamps.header.order_mode = 2701;
    ASSERT_TRUE(short_stamps.save_to(file(L"短.bok")));
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok"), file(L"短.bok") });
    ASSERT_TRUE(create());
    answered(IDOK, [&] { command(command::first_history_entry + 1); });
    EXPECT_EQ(window().hwnd(), nullptr);
    EXPECT_EQ(history(), std::vector<std::wstring>{ file(L"手帖.bok") });
}

TEST_F(Books, AreRestoredFromTheirFile)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::next_page);
    command(command::save_always);
    command(command::toggle_mark);
    type(command::box_1, L"x");
    command(command::restore_book);
    EXPECT_EQ(box_text(command::box_1), L"2\r\n");
    EXPECT_EQ(book().mark_count, 0);
    EXPECT_EQ(title(), L"手帖");
    EXPECT_EQ(history(), std::vector<std::wstring>{ file(L"手帖.bok") });
}

TEST_F(Books, OpenedOverAnEditThatCannotBeSavedDoNotReceiveTheEdit)
{
    ASSERT_TRUE(book_of({ page(L"other\r\n") }).save_to(file(L"別.bok")));
    open({ page(L"1\r\n") });
    auto guard = std::make_unique<gui::Unwritable>(file(L"手帖.bok"));
    type(command::box_1, L"x");
    // The open dialog, its answer, then the failed save of the previous Book.
    std::thread user{ [&, thread = GetCurrentThreadId()] {
        gui::poll_until([&] { return gui::dialog_of(thread) != nullptr; });
        HWND const dialog = gui::dialog_of(thread);
        constexpr int file_name_combo = 1148;
        HWND edit = GetDlgItem(dialog, file_name_combo);
        while (HWND const inner = FindWindowExW(edit, nullptr, nullptr, nullptr))
            edit = inner;
        SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file(L"別.bok").c_str()));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        gui::poll_until([&] { return !IsWindow(dialog) && gui::dialog_of(thread) != nullptr; });
        PostMessageW(gui::dialog_of(thread), WM_COMMAND, IDOK, 0);
    } };
    command(command::open_book);
    user.join();
    guard.reset();
    EXPECT_EQ(book().path, file(L"別.bok"));
    EXPECT_EQ(box_text(command::box_1), L"other\r\n");
    EXPECT_EQ(title(), L"別");
    close();
    EXPECT_EQ(saved(L"別.bok").pages[0].text[0], L"other\r\n");
}

TEST_F(Books, OfTheOlderFormatAcceptNoCommandWhileTheQuestionIsOpen)
{
    const std::wstring end = L"20200102030405"
                             L"20200102030405 0 0 0 1 1 1 0 0 0 0 0 0\r\n\x3\r\n";
    test_support::write_text(file(L"旧.bok"),
        L"\xFEFF"
        L"古い\r\n\x3\r\n\x3\r\n\x3\r\n\x3\r\n\x3\r\n"
            + end);
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok"), file(L"旧.bok") });
    ASSERT_TRUE(create());
    const MetBox met = answered(
        IDYES, [&] { command(command::first_history_entry + 1); },
        [&] {
            for (const int id : { command::add_page_at_end, command::save_always, command::restore_book })
                SendMessageW(window().hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0);
        });
    EXPECT_EQ(met.text.find(file(L"旧.bok") + L"\r\nこの Book は古いフォーマットです．"), 0u);
    EXPECT_EQ(book().pages.size(), 1u);
    EXPECT_EQ(box_text(command::box_1), L"古い\r\n");
    command(command::save_always);
    EXPECT_EQ(saved(L"旧.bok").pages[0].text[0], L"古い\r\n");
}

TEST_F(Books, CanBeClosedWhileTheirQuestionIsOpen)
{
    test_support::write_text(file(L"壊.bok"), L"\x3\x3\r\nzz\r\n\x3\x3\r\n");
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok"), file(L"壊.bok") });
    ASSERT_TRUE(create());
    answered(
        IDYES, [&] { command(command::first_history_entry + 1); },
        [&] { SendMessageW(window().hwnd(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(window().hwnd(), nullptr);
    EXPECT_EQ(saved().pages[0].text[0], L"1\r\n");
    EXPECT_EQ(test_support::read_text(file(L"壊.bok")), L"\x3\x3\r\nzz\r\n\x3\x3\r\n");
}

// A failed load ends the program, which saves what the Book contains by then.
TEST_F(Books, WhoseLoadIsBrokenOffAreWrittenAsFarAsTheyWereRead)
{
    ASSERT_TRUE(book_of({ page(L"a\r\n"), page(L"b\r\n") }).save_to(file(L"半.bok")));
    const std::wstring whole = test_support::read_text(file(L"半.bok"));
    const std::size_t second_stamp = whole.rfind(L"2020010203040520200102030405");
    test_support::write_text(file(L"半.bok"), whole.substr(0, second_stamp) + L"stamp only\r\n\x3\r\n");
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok"), file(L"半.bok") });
    ASSERT_TRUE(create());
    type(command::box_1, L"x");
    const MetBox met = answered(IDOK, [&] { command(command::first_history_entry + 1); });
    EXPECT_EQ(met.text, L"認識できないフォーマットを検出\r\n" + file(L"半.bok") + closing_words);
    EXPECT_EQ(window().hwnd(), nullptr);
    EXPECT_TRUE(gui::take_quit());
    EXPECT_EQ(saved(L"半.bok").pages.size(), 1u);
    EXPECT_EQ(saved(L"半.bok").pages[0].text[0], L"a\r\n");
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
}

TEST_F(Books, AreNotWrittenBySaveIfChangedWithoutAChange)
{
    open({ page(L"1\r\n") });
    ASSERT_TRUE(DeleteFileW(file(L"手帖.bok").c_str()));
    command(command::save_if_changed);
    EXPECT_FALSE(platform::exists(file(L"手帖.bok")));
    command(command::save_always);
    EXPECT_TRUE(platform::exists(file(L"手帖.bok")));
}

TEST_F(Books, AreBackedUpSilentlyAtEachLoadIfTheSettingsDemandIt)
{
    test_support::write_text(core::settings_file(core::folders()), L"\xFEFF[COMMON]\r\nAUTOBACKUP=1\r\n");
    open({ page(L"1\r\n") });
    EXPECT_TRUE(core::settings().auto_backup);
    EXPECT_EQ(saved(L"book_backup\\手帖.bok").pages[0].text[0], L"1\r\n");
    type(command::box_1, L"x");
    command(command::save_always);
    EXPECT_EQ(saved(L"book_backup\\手帖.bok").pages[0].text[0], L"1\r\n");
    command(command::restore_book);
    EXPECT_EQ(saved(L"book_backup\\手帖.bok").pages[0].text[0], L"x1\r\n");
}

TEST_F(Books, AreReportedIfTheBackupAtLoadFails)
{
    test_support::write_text(core::settings_file(core::folders()), L"\xFEFF[COMMON]\r\nAUTOBACKUP=1\r\n");
    test_support::write_text(file(L"book_backup"), L"a file where the folder should be");
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok") });
    const MetBox met = answered(IDOK, [&] { EXPECT_TRUE(create()); });
    EXPECT_EQ(met.text, L"バックアップファイルの作成に失敗\r\n" + file(L"手帖.bok"));
    EXPECT_EQ(box_text(command::box_1), L"1\r\n");
    const MetBox asked = answered(IDOK, [&] { command(command::backup_book); });
    EXPECT_EQ(asked.text, L"Error: バックアップフォルダの作成に失敗しました．\r\n" + file(L"book_backup"));
}

TEST_F(Books, EnterTheHistoryBeforeTheirBackupAtLoad)
{
    for (const wchar_t* name : { L"手帖.bok", L"別.bok" })
        ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(name)));
    set_history({ file(L"手帖.bok"), file(L"別.bok") });
    ASSERT_TRUE(create());
    core::settings().auto_backup = true;
    test_support::write_text(file(L"book_backup"), L"a file where the folder should be");
    std::vector<std::wstring> at_the_backup;
    const MetBox met = answered(
        IDOK, [&] { command(command::first_history_entry + 1); }, [&] { at_the_backup = history(); });
    EXPECT_EQ(met.text, L"バックアップファイルの作成に失敗\r\n" + file(L"別.bok"));
    EXPECT_EQ(at_the_backup, (std::vector<std::wstring>{ file(L"別.bok"), file(L"手帖.bok") }));
}

TEST_F(Books, AreBackedUpOverAnOldCopyOnlyAfterAQuestion)
{
    open({ page(L"1\r\n") });
    const MetBox done = answered(IDOK, [&] { command(command::backup_book); });
    EXPECT_EQ(done.text, L"バックアップしました:\r\n" + file(L"book_backup\\手帖.bok"));
    EXPECT_EQ(done.icon, nullptr);
    type(command::box_1, L"x");
    command(command::save_if_changed);
    const MetBox question = answered(IDNO, [&] { command(command::backup_book); });
    EXPECT_EQ(question.icon, LoadIconW(nullptr, IDI_QUESTION));
    EXPECT_EQ(question.text, L"手帖.bok はすでにバックアップフォルダに存在します．上書きしますか？");
    EXPECT_EQ(saved(L"book_backup\\手帖.bok").pages[0].text[0], L"1\r\n");
    EXPECT_EQ(answered_all({ IDYES, IDOK }, [&] { command(command::backup_book); }).size(), 2u);
    EXPECT_EQ(saved(L"book_backup\\手帖.bok").pages[0].text[0], L"x1\r\n");
}

TEST_F(Books, WithoutAPathOrAPageAreNotBackedUp)
{
    open({ page(L"1\r\n") });
    const std::wstring refusal = L"Error: この Book は無効です．\r\n";
    const std::wstring path = open_book().path;
    open_book().path.clear();
    EXPECT_EQ(answered(IDOK, [&] { command(command::backup_book); }).text, refusal);
    open_book().path = path;
    const std::vector<book::Page> pages = std::exchange(open_book().pages, {});
    EXPECT_EQ(answered(IDOK, [&] { command(command::backup_book); }).text, refusal + path);
    open_book().pages = pages;
    EXPECT_FALSE(platform::exists(file(L"book_backup\\手帖.bok")));
}

TEST_F(Books, WhoseCopyFailsReportTheReasonAndNothingElse)
{
    open({ page(L"1\r\n") });
    ASSERT_TRUE(DeleteFileW(file(L"手帖.bok").c_str()));
    bool was_accepting = true;
    const MetBox met = answered(
        IDOK, [&] { command(command::backup_book); }, // a second box would block the test
        [&] { was_accepting = window().is_accepting_input(); });
    EXPECT_EQ(met.caption, L"Pagewick");
    EXPECT_NE(met.text.find(system_words(ERROR_FILE_NOT_FOUND)), std::wstring::npos) << met.text.c_str();
    EXPECT_FALSE(was_accepting);
    EXPECT_TRUE(window().is_accepting_input());
    EXPECT_FALSE(platform::exists(file(L"book_backup\\手帖.bok")));
}

TEST_F(Books, WhoseCopyAtLoadFailsReportTheReasonAndTheirPath)
{
    test_support::write_text(core::settings_file(core::folders()), L"\xFEFF[COMMON]\r\nAUTOBACKUP=1\r\n");
    ASSERT_TRUE(platform::create_folder(file(L"book_backup")));
    test_support::write_text(file(L"book_backup\\手帖.bok"), L"old");
    const gui::Unwritable guard{ file(L"book_backup\\手帖.bok") };
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok") });
    ASSERT_FALSE(CopyFileW(file(L"手帖.bok").c_str(), file(L"book_backup\\手帖.bok").c_str(), FALSE));
    const std::wstring reason = system_words(GetLastError());
    const auto met = answered_all({ IDOK, IDOK }, [&] { EXPECT_TRUE(create()); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(met[0].caption, L"Pagewick");
    EXPECT_NE(met[0].text.find(reason), std::wstring::npos) << met[0].text.c_str();
    EXPECT_EQ(met[1].text, L"バックアップファイルの作成に失敗\r\n" + file(L"手帖.bok"));
    EXPECT_EQ(met[1].icon, LoadIconW(nullptr, IDI_WARNING));
    EXPECT_EQ(box_text(command::box_1), L"1\r\n");
}

// A new Book has the standard theme, whatever theme the previous one had.
TEST_F(Books, ThatAreNewHaveAFirstPageInStandardColours)
{
    open({ page(L"1\r\n") });
    command(look::theme_dark);
    const gui::FileDialogSpy spy{ file(L"新.bok") };
    command(command::new_book);
    const look::ThemePalette standard = look::theme_colors(look::theme_standard);
    const book::Page first = saved(L"新.bok").pages.at(0);
    EXPECT_EQ(first.text_color[0], standard.box1_text.value);
    EXPECT_EQ(first.back_color[0], standard.box_back.value);
    EXPECT_EQ(first.back_color[2], standard.box_back.value);
    EXPECT_NE(first.back_color[0], look::theme_colors(look::theme_dark).box_back.value);
    EXPECT_EQ(look::palette().current_theme, look::theme_standard);
    EXPECT_EQ(history(), (std::vector{ file(L"新.bok"), file(L"手帖.bok") }));
}

TEST_F(Books, ThatCannotBeCreatedLeaveTheThemeOfThePreviousOne)
{
    open({ page(L"1\r\n") });
    command(look::theme_dark);
    test_support::write_text(file(L"新.bok"), L"not to be written");
    const gui::Unwritable guard{ file(L"新.bok") };
    const gui::FileDialogSpy spy{ file(L"新.bok") };
    const MetBox met = answered(IDOK, [&] { command(command::new_book); });
    EXPECT_EQ(met.text, L"Book の作成に失敗");
    EXPECT_EQ(met.icon, LoadIconW(nullptr, IDI_WARNING));
    EXPECT_EQ(look::palette().current_theme, look::theme_dark);
    EXPECT_EQ(look::palette().panel_back, look::theme_colors(look::theme_dark).panel_back);
    EXPECT_EQ(history(), std::vector<std::wstring>{ file(L"手帖.bok") });
}

TEST_F(Books, AreWrittenAtTheCloseWithoutAQuestionTogetherWithTheSettings)
{
    open({ page(L"1\r\n") });
    type(command::box_1, L"x");
    core::settings().browser_zoom_percent = 70;
    window().send(WM_CLOSE, 0, 0);
    EXPECT_TRUE(gui::take_quit());
    EXPECT_EQ(saved().pages[0].text[0], L"x1\r\n");
    wchar_t zoom[8] = {};
    GetPrivateProfileStringW(
        L"COMMON", L"BROWSERZOOMFAC", L"", zoom, 8, core::settings_file(core::folders()).c_str());
    EXPECT_EQ(std::wstring(zoom), L"70");
}

TEST_F(Books, ThatCannotBeWrittenAtTheCloseAreReportedWhileTheWindowIsHidden)
{
    open({ page(L"1\r\n") });
    const gui::Unwritable guard{ file(L"手帖.bok") };
    bool was_visible = true;
    const MetBox met = answered(
        IDOK, [&] { window().send(WM_CLOSE, 0, 0); },
        [&] {
            was_visible = IsWindowVisible(window().hwnd()) != FALSE;
            SendMessageW(window().hwnd(), WM_CLOSE, 0, 0); // refused: the first close is still running
        });
    EXPECT_EQ(met.text.find(L"Error: Book の保存に失敗"), 0u);
    EXPECT_FALSE(was_visible);
    EXPECT_TRUE(gui::take_quit());
}

TEST_F(Books, WithoutADatFolderRunWithDefaultsAndWriteNoFile)
{
    open({ page(L"1\r\n") });
    ASSERT_TRUE(RemoveDirectoryW(core::folders().shortcut.c_str()));
    ASSERT_TRUE(DeleteFileW(core::history_file(core::folders()).c_str()));
    ASSERT_TRUE(RemoveDirectoryW(core::folders().dat.c_str()));
    command(command::save_always);
    close();
    EXPECT_FALSE(platform::exists(core::folders().dat));
}

TEST_F(Books, AreNotWrittenAtTheEndOfASession)
{
    open({ page(L"1\r\n") });
    type(command::box_1, L"x");
    const std::wstring log = core::end_of_logon_file(core::folders());
    ovlib::WndMessage no_end{ window().hwnd(), WM_ENDSESSION, 0, 0, 0 };
    EXPECT_FALSE(window().on_message(no_end));
    EXPECT_FALSE(platform::exists(log));
    ovlib::WndMessage end{ window().hwnd(), WM_ENDSESSION, 1, 0, 0 };
    EXPECT_TRUE(window().on_message(end));
    const std::wstring text = test_support::read_text(log);
    EXPECT_EQ(
        text.find(L"-- Pagewick --\r\nThe last modifications were saved.\r\n@ WM_ENDSESSION\r\n\r\n2"), 0u);
    EXPECT_EQ(saved().pages[0].text[0], L"1\r\n");
    EXPECT_TRUE(window().on_message(end));
    EXPECT_EQ(test_support::read_text(log).size(), text.size());
}

} // namespace
