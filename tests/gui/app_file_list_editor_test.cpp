// The editor of the file list beside the main window: a fourth box of the page.
#include "platform/process_log.hpp"
#include "tests/support/fake_file_dialog.hpp"
#include "tests/support/gui_app_windows.hpp"
#include "tests/support/gui_typing.hpp"

namespace {

namespace command = core::command;
using Entries = std::vector<std::wstring>;
using gui::MetBox;

const std::wstring apply_question = L"内容が変更されています．\r\n適用しますか？";
const std::wstring save_question = L"ページの内容が変更されています．\r\nファイルに保存しますか？";

class AppFileList : public gui::AppWindows {
protected:
    ~AppFileList() override
    {
        close();
        ovlib::WinApp::process_log().flush();
        ovlib::WinApp::process_log().set_path({});
    }

    void open_lists()
    {
        book::Page second = page_with_files({ L"d" });
        second.text[0] = L"b\r\n";
        open({ page_with_files({ L"a", L"b", L"c" }, 1), second });
        command(command::show_file_list_editor);
        gui::pump();
        ASSERT_TRUE(list_editor().is_open());
        ASSERT_EQ(list_text(), L"a\r\nb\r\nc\r\n");
    }
    void open_with_other_book()
    {
        ASSERT_TRUE(book_of({ page_with_files({ L"neu" }) }).save_to(file(L"他.bok")));
        ASSERT_TRUE(book_of({ page_with_files({ L"a" }) }).save_to(file(L"手帖.bok")));
        set_history({ file(L"手帖.bok"), file(L"他.bok") });
        ASSERT_TRUE(create());
        command(command::show_file_list_editor);
    }
    const Entries& files(std::size_t page = 0) const { return book().pages[page].files; }
    Entries saved_files(std::size_t page = 0) const { return saved().pages[page].files; }
    void type_lines(const std::wstring& text)
    {
        retype_list(text);
        ASSERT_TRUE(list_editor().is_modified());
    }
    bool is_lit() const
    {
        HWND const apply = GetDlgItem(list_editor().hwnd(), command::apply_file_list);
        const bool is_enabled = IsWindowEnabled(apply) != FALSE;
        const auto& button = dynamic_cast<look::ImageButton&>(*ovlib::Wnd::from_handle(apply));
        EXPECT_EQ(button.is_highlighted(), is_enabled);
        return is_enabled;
    }
    static void apply() { list_editor().send_command(command::apply_file_list, 0, 0); }
    static void press_x() { list_editor().send(WM_SYSCOMMAND, SC_CLOSE, 0); }
    void expect_unedited()
    {
        EXPECT_EQ(title(), L"手帖");
        EXPECT_FALSE(IsWindowEnabled(box(command::save_if_changed)));
        EXPECT_FALSE(is_lit());
        EXPECT_FALSE(list_editor().is_modified());
    }
};

TEST_F(AppFileList, IsNoWindowUntilItIsOpened)
{
    open({ page_with_files({ L"a" }) });
    EXPECT_EQ(list_editor().hwnd(), nullptr);
    command(command::show_file_list_editor);
    EXPECT_TRUE(list_editor().is_visible());
    EXPECT_EQ(list_text(), L"a\r\n");
}

TEST_F(AppFileList, TypingMarksTheTitleAndLightsBothButtons)
{
    open_lists();
    expect_unedited();
    type_lines(L"x");
    EXPECT_EQ(title(), L"手帖 *");
    EXPECT_TRUE(IsWindowEnabled(box(command::save_if_changed)));
    EXPECT_TRUE(is_lit());
}

TEST_F(AppFileList, ApplyingMakesTheListAndSavesNothing)
{
    open_lists();
    const std::wstring stamp = book().pages[0].stamp;
    type_lines(L" x \r\n\r\n　\r\ny\x3z");
    apply();
    EXPECT_EQ(files(), (Entries{ L"x", L"yz" }));
    EXPECT_EQ(book().pages[0].current_file, 1u);
    EXPECT_EQ(book().pages[0].stamp, stamp);
    EXPECT_EQ(SendMessageW(box(command::file_combo), CB_GETCOUNT, 0, 0), 2);
    EXPECT_EQ(SendMessageW(box(command::file_combo), CB_GETCURSEL, 0, 0), 1);
    EXPECT_EQ(saved_files(), (Entries{ L"a", L"b", L"c" }));
    expect_unedited();
    EXPECT_EQ(list_text().substr(0, 3), L" x ") << "the text stays as it was typed";
}

TEST_F(AppFileList, ApplyingAnEmptyTextLeavesNoFiles)
{
    open_lists();
    type_lines(L"x");
    SendMessageW(list_box(), WM_CHAR, VK_BACK, 1);
    ASSERT_EQ(list_text(), L"");
    apply();
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(book().pages[0].current_file, 0u);
}

TEST_F(AppFileList, ASelectionBeyondTheAppliedListBecomesTheLastEntry)
{
    book::Page long_list = page_with_files({ L"1", L"2", L"3", L"4", L"5", L"6" }, 5);
    open({ long_list });
    command(command::show_file_list_editor);
    type_lines(L"x\r\ny\r\nz");
    apply();
    EXPECT_EQ(book().pages[0].current_file, 2u);
}

TEST_F(AppFileList, AnAppliedListIsInTheFileAfterTheNextSave)
{
    open_lists();
    type_lines(L"x");
    apply();
    command(command::save_always);
    EXPECT_EQ(saved_files(), Entries{ L"x" });
}

TEST_F(AppFileList, CtrlSInItAppliesAndEverySaveCommitsIt)
{
    open_lists();
    type_lines(L"x");
    SendMessageW(list_box(), WM_COMMAND, MAKEWPARAM(command::accelerator_save, 1), 0);
    EXPECT_EQ(files(), Entries{ L"x" });
    EXPECT_EQ(saved_files().size(), 3u);
    type_lines(L"y");
    command(command::save_if_changed);
    EXPECT_EQ(saved_files(), Entries{ L"y" });
    expect_unedited();
    type_lines(L"z");
    command(command::save_always);
    EXPECT_EQ(saved_files(), Entries{ L"z" });
    expect_unedited();
}

TEST_F(AppFileList, ASaveIsLoggedAndQueuesTheLinksOfTheList)
{
    open_lists();
    ovlib::WinApp::process_log().set_path(file(L"log.txt"));
    type_lines(file(L"手帖.bok"));
    command(command::save_if_changed);
    EXPECT_TRUE(ovlib::WinApp::process_log().buffered().starts_with(
        L"save_book() → FileListEditor::apply()\r\nstart_shortcut_creation_async()\r\n"));
    window().end_background_work();
}

TEST_F(AppFileList, ApplyingQueuesNoLinks)
{
    open_lists();
    ovlib::WinApp::process_log().set_path(file(L"log.txt"));
    type_lines(L"x");
    apply();
    EXPECT_EQ(ovlib::WinApp::process_log().buffered().find(L"start_shortcut"), std::wstring::npos);
}

TEST_F(AppFileList, LeavingThePageAsksAndSavesOnYes)
{
    open_lists();
    type_lines(L"x");
    EXPECT_EQ(answered(IDYES, [&] { command(command::next_page); }).text, save_question);
    EXPECT_EQ(saved_files(), Entries{ L"x" });
    EXPECT_EQ(list_text(), L"d\r\n");
    expect_unedited();
}

TEST_F(AppFileList, LeavingThePageDropsTheTextOnNo)
{
    open_lists();
    type_lines(L"x");
    EXPECT_EQ(answered(IDNO, [&] { command(command::next_page); }).text, save_question);
    EXPECT_EQ(files(), (Entries{ L"a", L"b", L"c" }));
    EXPECT_EQ(files(1), Entries{ L"d" });
    EXPECT_EQ(list_text(), L"d\r\n");
    expect_unedited();
    command(command::previous_page);
    EXPECT_EQ(list_text(), L"a\r\nb\r\nc\r\n");
}

TEST_F(AppFileList, ANoThatTurnsNoPageShowsTheListAgain)
{
    open_lists();
    type_lines(L"x");
    answered(IDNO, [&] { command(command::previous_page); });
    EXPECT_EQ(list_text(), L"a\r\nb\r\nc\r\n");
}

TEST_F(AppFileList, DeletingThePageDropsTheText)
{
    open_lists();
    type_lines(L"x");
    answered(IDYES, [&] { command(command::delete_page); });
    ASSERT_EQ(book().pages.size(), 1u);
    EXPECT_EQ(files(), Entries{ L"d" });
    EXPECT_EQ(saved_files(), Entries{ L"d" });
    EXPECT_EQ(list_text(), L"d\r\n");
    expect_unedited();
}

TEST_F(AppFileList, AnotherBookTakesTheTextAlongIntoTheOldOne)
{
    open_with_other_book();
    type_lines(L"x");
    command(command::first_history_entry + 1);
    EXPECT_EQ(title(), L"他");
    EXPECT_EQ(saved_files(), Entries{ L"x" });
    EXPECT_EQ(list_text(), L"neu\r\n");
    EXPECT_EQ(saved(L"他.bok").pages[0].files, Entries{ L"neu" });
}

TEST_F(AppFileList, TheEndOfTheProgramSavesTheText)
{
    open_lists();
    type_lines(L"x");
    close();
    EXPECT_EQ(saved_files(), Entries{ L"x" });
}

TEST_F(AppFileList, TheXAppliesOnYesDropsOnNoAndStaysOnCancel)
{
    open_lists();
    type_lines(L"x");
    const MetBox met = answered(IDCANCEL, press_x);
    EXPECT_EQ(met.text, apply_question);
    EXPECT_EQ(met.caption, L"Pagewick - リストの編集");
    EXPECT_EQ(met.icon, LoadIconW(nullptr, IDI_QUESTION));
    EXPECT_TRUE(list_editor().is_open());
    EXPECT_EQ(list_text(), L"x");
    EXPECT_EQ(title(), L"手帖 *");
    answered(IDYES, press_x);
    EXPECT_FALSE(list_editor().is_open());
    EXPECT_EQ(files(), Entries{ L"x" });
    EXPECT_EQ(title(), L"手帖");
    command(command::show_file_list_editor);
    EXPECT_EQ(list_text(), L"x\r\n");
    type_lines(L"y");
    answered(IDNO, press_x);
    EXPECT_FALSE(list_editor().is_open());
    EXPECT_EQ(files(), Entries{ L"x" });
    EXPECT_EQ(title(), L"手帖");
    command(command::show_file_list_editor);
    EXPECT_EQ(list_text(), L"x\r\n");
}

// A click in the history window loads a Book while the question is open.
TEST_F(AppFileList, TheXDoesNothingIfAnotherBookCameDuringTheQuestion)
{
    open_with_other_book();
    type_lines(L"x");
    answered(IDYES, press_x,
        [&] { SendMessageW(window().hwnd(), WM_COMMAND, command::first_history_entry + 1, 0); });
    EXPECT_TRUE(list_editor().is_open());
    EXPECT_EQ(title(), L"他");
    EXPECT_EQ(files(), Entries{ L"neu" });
    EXPECT_EQ(list_text(), L"neu\r\n");
    EXPECT_EQ(saved_files(), Entries{ L"x" }) << "the load saved the old Book";
}

TEST_F(AppFileList, ABareCloseDropsTheText)
{
    open_lists();
    type_lines(L"x");
    list_editor().send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(list_editor().is_open());
    EXPECT_EQ(files(), (Entries{ L"a", L"b", L"c" }));
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(AppFileList, TheProgramEndsWhileItsQuestionIsOpen)
{
    open_lists();
    type_lines(L"x");
    std::thread user{ [thread = GetCurrentThreadId(), main = window().hwnd()] {
        if (gui::poll_until([&] { return gui::dialog_of(thread) != nullptr; }))
            PostMessageW(main, WM_CLOSE, 0, 0);
    } };
    press_x();
    user.join();
    EXPECT_FALSE(window().is_window());
    EXPECT_EQ(saved_files(), Entries{ L"x" }) << "the end of the program saves what was typed";
}

TEST_F(AppFileList, FollowsEachCommandOnTheList)
{
    open_lists();
    command(command::move_file_to_top);
    EXPECT_EQ(list_text(), L"b\r\na\r\nc\r\n");
    command(command::move_file_down);
    EXPECT_EQ(list_text(), L"a\r\nb\r\nc\r\n");
    command(command::sort_files_descending);
    EXPECT_EQ(list_text(), L"c\r\nb\r\na\r\n");
    EXPECT_EQ(book().pages[0].current_file, 1u);
    command(command::sort_files_ascending);
    EXPECT_EQ(list_text(), L"a\r\nb\r\nc\r\n");
    command(command::last_file);
    EXPECT_EQ(selection_in(list_box()), (std::pair<DWORD, DWORD>{ 6, 7 }));
    answered(IDYES, [&] { command(command::remove_file); });
    EXPECT_EQ(list_text(), L"a\r\nb\r\n");
    answered(IDYES, [&] { command(command::remove_all_files); });
    EXPECT_EQ(list_text(), L"");
}

// Every command of the menu that would lose its change to the typed lines.
TEST_F(AppFileList, CommandsOnTheListAskAboutTypedLinesFirst)
{
    open_lists();
    const int commands[] = { command::add_files, command::remove_file, command::remove_all_files,
        command::move_file_up, command::move_file_down, command::move_file_to_top, command::move_file_to_end,
        command::sort_files_ascending, command::sort_files_descending, command::search_moved_file };
    for (const int id : commands) {
        type_lines(L"x\r\ny");
        const MetBox met = answered(IDCANCEL, [&] { command(id); });
        EXPECT_EQ(met.text, apply_question) << id;
        EXPECT_EQ(files(), (Entries{ L"a", L"b", L"c" })) << id;
        EXPECT_EQ(list_text(), L"x\r\ny") << id;
        list_editor().clear_modified();
    }
}

// A command over typed lines: the answers to its boxes, and the list after it.
struct OverTyped {
    int id;
    std::vector<int> further; // the answers to the command's own boxes
    std::vector<std::wstring> applied; // the list after yes
    std::vector<std::wstring> dropped; // and after no
};

const std::vector<OverTyped> over_typed{
    { command::move_file_up, {}, { L"y", L"x" }, { L"b", L"a", L"c" } },
    { command::move_file_down, {}, { L"x", L"y" }, { L"a", L"c", L"b" } },
    { command::move_file_to_top, {}, { L"y", L"x" }, { L"b", L"a", L"c" } },
    { command::move_file_to_end, {}, { L"x", L"y" }, { L"a", L"c", L"b" } },
    { command::sort_files_ascending, {}, { L"x", L"y" }, { L"a", L"b", L"c" } },
    { command::sort_files_descending, {}, { L"y", L"x" }, { L"c", L"b", L"a" } },
    { command::remove_file, { IDYES }, { L"x" }, { L"a", L"c" } },
    { command::remove_all_files, { IDYES }, {}, {} },
};

TEST_F(AppFileList, ACommandOverTypedLinesAppliesThemOnYesAndDropsThemOnNo)
{
    open_lists();
    for (const OverTyped& row : over_typed) {
        for (const bool is_applied : { true, false }) {
            type_lines(L"a\r\nb\r\nc");
            apply();
            command(command::first_file);
            command(command::next_file);
            ASSERT_EQ(book().pages[0].current_file, 1u);
            type_lines(L"x\r\ny");
            std::vector<int> answers{ is_applied ? IDYES : IDNO };
            answers.insert(answers.end(), row.further.begin(), row.further.end());
            EXPECT_EQ(answered_all(answers, [&] { command(row.id); }).size(), answers.size()) << row.id;
            EXPECT_EQ(files(), is_applied ? row.applied : row.dropped) << row.id;
            std::wstring lines;
            for (const std::wstring& entry : files())
                lines += entry + L"\r\n";
            EXPECT_EQ(list_text(), lines) << row.id;
            expect_unedited();
        }
    }
}

TEST_F(AppFileList, TheSearchForAMovedFileConcernsTheAppliedEntryOnYesAndTheOldOneOnNo)
{
    const Entries entries{ L"http://x.invalid/a", L"http://x.invalid/b" };
    open({ page_with_files({ L"http://x.invalid/a", L"http://x.invalid/b" }, 1) });
    command(command::show_file_list_editor);
    const auto search = [&](int answer) {
        type_lines(L"http://x.invalid/x\r\nhttp://x.invalid/y");
        const auto met = answered_all({ answer, IDOK }, [&] { command(command::search_moved_file); });
        return met.size() == 2 ? met.back().text : L"";
    };
    EXPECT_EQ(search(IDNO), L"このファイルは探索できません: http://x.invalid/b");
    EXPECT_EQ(files(), entries);
    EXPECT_EQ(search(IDYES), L"このファイルは探索できません: http://x.invalid/y");
    EXPECT_EQ(files(), (Entries{ L"http://x.invalid/x", L"http://x.invalid/y" }));
}

TEST_F(AppFileList, ShowsTheListAgainIfNoDropsTheLinesAndTheCommandDoesNothing)
{
    open_lists();
    type_lines(L"x\r\ny");
    answered_all({ IDNO, IDNO }, [&] { command(command::remove_file); });
    EXPECT_EQ(files(), (Entries{ L"a", L"b", L"c" }));
    EXPECT_EQ(list_text(), L"a\r\nb\r\nc\r\n");
    expect_unedited();
}

// Its own question would come over the one of the main window.
TEST_F(AppFileList, WaitsWhileTheMainWindowAsks)
{
    open_lists();
    type_lines(L"x");
    std::size_t boxes = 0;
    const auto met = answered_all(
        { IDNO }, [&] { command(command::delete_page); },
        [&] {
            SendMessageW(list_editor().hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0);
            SendMessageW(list_editor().hwnd(), WM_COMMAND, command::apply_file_list, 0);
            boxes = gui::dialogs_of(GetWindowThreadProcessId(list_editor().hwnd(), nullptr)).size();
        });
    EXPECT_EQ(met.size(), 1u);
    EXPECT_EQ(boxes, 1u);
    EXPECT_TRUE(list_editor().is_open());
    EXPECT_TRUE(list_editor().is_modified());
    EXPECT_EQ(list_text(), L"x");
    EXPECT_EQ(files(), (Entries{ L"a", L"b", L"c" }));
}

TEST_F(AppFileList, ARefreshKeepsTypedLines)
{
    open_lists();
    type_lines(L"x");
    command(command::request_refresh, core::refresh::full);
    EXPECT_EQ(list_text(), L"x");
    command(command::next_file);
    EXPECT_EQ(list_text(), L"x");
}

// The command of the main window may be about the list, and would not know of lines that are typed meanwhile.
TEST_F(AppFileList, TakesNoLinesWhileTheMainWindowShowsABox)
{
    open_lists();
    const auto is_read_only = [&] { return (GetWindowLongW(list_box(), GWL_STYLE) & ES_READONLY) != 0; };
    bool was_read_only = false;
    answered(
        IDYES, [&] { command(command::remove_file); }, [&] { was_read_only = is_read_only(); });
    EXPECT_TRUE(was_read_only);
    EXPECT_FALSE(is_read_only());
    EXPECT_EQ(files(), (Entries{ L"a", L"c" }));
    EXPECT_EQ(list_text(), L"a\r\nc\r\n");
}

TEST_F(AppFileList, IsReadOnlyWhileAnotherWindowEditsPages)
{
    open_lists();
    const auto is_read_only = [&] { return (GetWindowLongW(list_box(), GWL_STYLE) & ES_READONLY) != 0; };
    gui::EditingWindow editor{ &window() };
    ASSERT_TRUE(editor.create(L"editor"));
    window().add_busy_window(editor);
    list_editor().show(false);
    editor.show(true);
    command(command::request_refresh, core::refresh::full_but_page);
    EXPECT_TRUE(is_read_only()) << "also while it is hidden";
    command(command::show_file_list_editor);
    EXPECT_FALSE(list_editor().is_open()) << "it is not opened meanwhile";
    editor.show(false);
    command(command::request_refresh, core::refresh::full_but_page);
    command(command::show_file_list_editor);
    EXPECT_FALSE(is_read_only());
    editor.show(true);
    command(command::request_refresh, core::refresh::full_but_page);
    EXPECT_TRUE(is_read_only());
    close();
}

TEST_F(AppFileList, IsReadOnlyAndEmptyWithoutAPage)
{
    book::Book beyond = book_of({ page_with_files({ L"a" }) });
    beyond.header.position = UINT64_MAX;
    open(std::move(beyond));
    command(command::show_file_list_editor);
    EXPECT_EQ(list_text(), L"");
    EXPECT_TRUE(GetWindowLongW(list_box(), GWL_STYLE) & ES_READONLY);
}

TEST_F(AppFileList, IsFilledAgainWhenItsCommandComesWhileItIsOpen)
{
    open_lists();
    open_book().pages[0].files = { L"new" };
    command(command::show_file_list_editor);
    EXPECT_EQ(list_text(), L"new\r\n");
}

TEST_F(AppFileList, StaysOpenWhileTheMainWindowIsMinimised)
{
    open_lists();
    type_lines(L"x");
    window().minimize();
    ASSERT_TRUE(gui::pump_until([&] { return !list_editor().is_visible(); }));
    EXPECT_TRUE(list_editor().is_open());
    EXPECT_EQ(title(), L"手帖 *");
    window().restore();
    ASSERT_TRUE(gui::pump_until([&] { return list_editor().is_visible(); }));
    EXPECT_EQ(list_text(), L"x");
}

TEST_F(AppFileList, ClosesWhileTheMainWindowIsMinimisedAndStaysClosed)
{
    open_lists();
    window().minimize();
    ASSERT_TRUE(gui::pump_until([&] { return !IsWindowVisible(list_editor().hwnd()); }));
    press_x();
    EXPECT_FALSE(list_editor().is_open());
    window().restore();
    gui::pump();
    EXPECT_FALSE(IsWindowVisible(list_editor().hwnd()));
}

TEST_F(AppFileList, EditsOfABoxAndOfTheListAreSavedTogether)
{
    open_lists();
    type(command::box_1, L"文");
    type_lines(L"x");
    command(command::save_if_changed);
    EXPECT_EQ(saved_files(), Entries{ L"x" });
    EXPECT_EQ(saved().pages[0].text[0].substr(0, 1), L"文");
    EXPECT_EQ(book().pages[0].stamp.substr(0, 14), L"20200102030405");
    EXPECT_NE(book().pages[0].stamp, L"2020010203040520200102030405");
}

TEST_F(AppFileList, AFailedSaveKeepsTheText)
{
    open_lists();
    type_lines(L"x");
    {
        const gui::Unwritable blocked(file(L"手帖.bok"));
        answered(IDOK, [&] { command(command::save_if_changed); });
    }
    EXPECT_EQ(title(), L"手帖 *");
    EXPECT_TRUE(list_editor().is_modified());
    EXPECT_EQ(list_text(), L"x");
    command(command::save_if_changed);
    EXPECT_EQ(saved_files(), Entries{ L"x" });
}

} // namespace
