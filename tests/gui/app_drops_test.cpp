// Drops on the main window, with sources in the same process.
#include "app/wnd/main_drops.hpp"
#include "book/wnd/replacewnd.hpp"
#include "tests/support/gui_app_windows.hpp"
#include "tests/support/gui_drops.hpp"
#include "tests/support/gui_file_dialog.hpp"
#include "tests/support/gui_links.hpp"
#include <random>

// The import addresses, which the linker names after the functions.
extern "C" void* __imp_RegisterDragDrop; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp_RevokeDragDrop; // NOLINT(bugprone-reserved-identifier)

namespace {

namespace command = core::command;
using gui::drop_on;
using gui::effect_at_entry;
using gui::FileDialogSpy;
using gui::make_source;
using gui::OptionUser;
using gui::Source;
using Files = std::vector<std::wstring>;

class AppDrops : public gui::AppWindows {
protected:
    // The target that the main window has registered, or null.
    IDropTarget* target()
    {
        return static_cast<IDropTarget*>(GetPropW(window().hwnd(), L"OleDropTargetInterface"));
    }
    static Source files(const Files& paths)
    {
        Source source = make_source();
        source->offer_files(paths);
        return source;
    }
    static Source text(const std::wstring& dropped)
    {
        Source source = make_source();
        source->offer_text(dropped);
        return source;
    }
    // Drops files and acts on the question.
    void drop_files(const Files& paths, const std::function<void(HWND)>& act)
    {
        const Source source = files(paths);
        EXPECT_EQ(drop_on(*target(), *source.Get()), 1u);
        OptionUser user{ act };
        gui::pump();
        EXPECT_TRUE(user.finish());
    }
    void choose(const Files& paths, int id)
    {
        drop_files(paths, [id](HWND question) { press(question, id); });
    }
    static void press(HWND question, int id) { SendMessageW(GetDlgItem(question, id), BM_CLICK, 0, 0); }
    POINTL center_of(int id) const
    {
        RECT rect{};
        GetWindowRect(box(id), &rect);
        return { (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2 };
    }
    DWORD drop_text(const std::wstring& dropped, int id)
    {
        return drop_on(*target(), *text(dropped).Get(), center_of(id));
    }
    HWND question() const { return gui::option_window_of(GetCurrentThreadId()); }

private:
    gui::OleOnThread ole_;
};

TEST_F(AppDrops, AddFilesToTheCurrentPage)
{
    open({ page(L"a\r\n"), page(L"b\r\n") });
    choose({ L"C:\\x.txt", L"C:\\y.txt" }, command::add_dropped_files);
    EXPECT_EQ(book().pages[0].files, (Files{ L"C:\\x.txt", L"C:\\y.txt" }));
    EXPECT_EQ(book().pages[0].current_file, 0u);
    EXPECT_EQ(book().pages.size(), 2u);
    EXPECT_EQ(control<ovlib::ComboBox>(command::file_combo).count(), 2);
}

TEST_F(AppDrops, MakeAPageOfEachFile)
{
    open({ page(L"a\r\n") });
    choose({ L"C:\\x.txt", L"C:\\y.txt" }, command::add_dropped_pages);
    ASSERT_EQ(book().pages.size(), 3u);
    EXPECT_EQ(book().pages[1].files, Files{ L"C:\\x.txt" });
    EXPECT_EQ(book().pages[2].files, Files{ L"C:\\y.txt" });
    EXPECT_EQ(book().header.position, 2u);
    EXPECT_EQ(box_text(command::box_1), L"");
    EXPECT_EQ(saved().pages.size(), 1u) << "not saved";
}

TEST_F(AppDrops, MakeLinksOfExistingFiles)
{
    open({ page(L"a\r\n") });
    test_support::write_text(file(L"図.txt"), L"x");
    test_support::write_text(file(L"表.txt"), L"x");
    choose({ file(L"図.txt") }, command::add_dropped_files);
    choose({ file(L"表.txt") }, command::add_dropped_pages);
    for (const wchar_t* name : { L"図.txt", L"表.txt" })
        EXPECT_TRUE(gui::pump_until(
            [&] { return std::filesystem::exists(gui::link_of(core::folders().shortcut, file(name))); }));
}

TEST_F(AppDrops, DoNothingIfTheQuestionIsClosed)
{
    open({ page(L"a\r\n") });
    drop_files({ L"C:\\x.txt" }, [](HWND) {});
    EXPECT_TRUE(book().pages[0].files.empty());
    EXPECT_EQ(book().pages.size(), 1u);
    command(command::add_dropped_files);
    command(command::add_dropped_pages);
    EXPECT_TRUE(book().pages[0].files.empty()) << "the files are forgotten";
    EXPECT_EQ(book().pages.size(), 1u);
}

TEST_F(AppDrops, AskWhenTheSourceIsFreeAgain)
{
    open({ page(L"a\r\n") });
    EXPECT_EQ(drop_on(*target(), *files({ L"C:\\x" }).Get()), 1u);
    EXPECT_EQ(question(), nullptr);
    OptionUser user{ [](HWND shown) { press(shown, command::add_dropped_files); } };
    gui::pump();
    EXPECT_TRUE(user.finish());
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(book().pages[0].files, Files{ L"C:\\x" });
}

TEST_F(AppDrops, ShowTheQuestionOverTheDisabledMainWindow)
{
    open({ page(L"a\r\n"), page(L"b\r\n") });
    drop_files({ L"C:\\x" }, [&](HWND shown) {
        EXPECT_TRUE(gui::poll_until([&] { return !IsWindowEnabled(window().hwnd()); }));
        EXPECT_FALSE(window().is_accepting_input());
        EXPECT_EQ(GetWindow(shown, GW_OWNER), window().hwnd());
        RECT rect{};
        GetWindowRect(shown, &rect);
        EXPECT_EQ(rect.right - rect.left, 266);
        EXPECT_EQ(rect.bottom - rect.top, 90);
        EXPECT_EQ(gui::text_of(shown), L"");
        EXPECT_EQ(gui::text_of(GetDlgItem(shown, command::add_dropped_files)), L"このページにファイルを追加");
        EXPECT_EQ(gui::text_of(GetDlgItem(shown, command::add_dropped_pages)), L"ファイルごとにページを作成");
        SendMessageW(window().hwnd(), WM_COMMAND, command::next_page, 0);
    });
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_TRUE(IsWindowEnabled(window().hwnd()));
    EXPECT_TRUE(window().is_accepting_input());
}

TEST_F(AppDrops, ShowTheQuestionAtTheCursorInsideTheScreen)
{
    open({ page(L"a\r\n") });
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    RECT shown_at{};
    const auto note = [&](HWND shown) { GetWindowRect(shown, &shown_at); };
    SetCursorPos(500, 400);
    drop_files({ L"C:\\x" }, note);
    EXPECT_EQ(shown_at.left, 500 - 133);
    EXPECT_EQ(shown_at.top, 400 - 45);
    SetCursorPos(work.right - 1, work.bottom - 1);
    drop_files({ L"C:\\x" }, note);
    EXPECT_EQ(shown_at.right, work.right);
    EXPECT_EQ(shown_at.bottom, work.bottom);
}

TEST_F(AppDrops, AreAnsweredByKeys)
{
    open({ page(L"a\r\n") });
    const auto key = [](HWND shown, WPARAM code) {
        GUITHREADINFO state{ sizeof state, 0, {}, {}, {}, {}, {}, {}, {} };
        const DWORD thread = GetWindowThreadProcessId(shown, nullptr);
        HWND const first = GetDlgItem(shown, command::add_dropped_files);
        EXPECT_TRUE(gui::poll_until([&] {
            return GetGUIThreadInfo(thread, &state) && state.hwndFocus == first;
        })) << "the first button has the focus";
        PostMessageW(first, WM_KEYDOWN, code, 1);
        gui::poll_until([&] { return !IsWindow(shown); });
    };
    const auto with_key = [&](WPARAM code) {
        drop_files({ L"C:\\x" }, [&](HWND shown) { key(shown, code); });
    };
    with_key(VK_ESCAPE);
    EXPECT_TRUE(book().pages[0].files.empty());
    with_key('1');
    EXPECT_EQ(book().pages[0].files.size(), 1u);
    with_key(VK_NUMPAD1);
    EXPECT_EQ(book().pages[0].files.size(), 2u);
    with_key(VK_RETURN);
    EXPECT_EQ(book().pages[0].files.size(), 3u) << "the focused button";
    with_key('2');
    EXPECT_EQ(book().pages.size(), 2u);
    with_key(VK_NUMPAD2);
    EXPECT_EQ(book().pages.size(), 3u);
}

TEST_F(AppDrops, KeepTheQuestionForOtherNotificationsOfItsButtons)
{
    open({ page(L"a\r\n") });
    drop_files({ L"C:\\x" }, [&](HWND shown) {
        SendMessageW(shown, WM_COMMAND, MAKEWPARAM(command::add_dropped_files, BN_SETFOCUS), 0);
        EXPECT_TRUE(IsWindowVisible(shown));
    });
    EXPECT_TRUE(book().pages[0].files.empty());
}

// Another program could answer for the user with any number.
TEST_F(AppDrops, SendNoOtherCommand)
{
    open({ page(L"a\r\n"), page(L"b\r\n") });
    drop_files({ L"C:\\x" }, [](HWND shown) { SendMessageW(shown, WM_COMMAND, command::next_page, 0); });
    EXPECT_EQ(book().header.position, 0u);
}

TEST_F(AppDrops, RefuseTheNextSourceUntilTheQuestionIsAnswered)
{
    open({ page(L"a\r\n") });
    const Source other = files({ L"C:\\other" });
    EXPECT_EQ(drop_on(*target(), *files({ L"C:\\x" }).Get()), 1u);
    EXPECT_EQ(drop_on(*target(), *other.Get()), 0u) << "before it shows";
    OptionUser user{ [&](HWND shown) {
        EXPECT_EQ(drop_on(*target(), *other.Get()), 0u) << "while it shows";
        press(shown, command::add_dropped_files);
    } };
    gui::pump();
    user.finish();
    EXPECT_EQ(book().pages[0].files, Files{ L"C:\\x" });
    EXPECT_EQ(effect_at_entry(*target(), *other.Get()), 1u);
}

TEST_F(AppDrops, AddNothingToAnotherPage)
{
    open({ page(L"a\r\n"), page(L"b\r\n") });
    for (const int id : { command::add_dropped_files, command::add_dropped_pages }) {
        drop_files({ L"C:\\x" }, [&](HWND shown) {
            open_book().header.position = 1;
            press(shown, id);
        });
        EXPECT_TRUE(book().pages[0].files.empty());
        EXPECT_TRUE(book().pages[1].files.empty());
        EXPECT_EQ(book().pages.size(), 2u);
        open_book().header.position = 0;
    }
}

TEST_F(AppDrops, EndWithTheWindow)
{
    open({ page(L"a\r\n") });
    HWND const main = window().hwnd();
    drop_files({ L"C:\\x" }, [&](HWND) {
        PostMessageW(main, WM_CLOSE, 0, 0);
        gui::poll_until([&] { return !IsWindow(main); });
    });
    EXPECT_FALSE(IsWindow(main));
    EXPECT_TRUE(saved().pages[0].files.empty());
}

TEST_F(AppDrops, AreRefusedUnderAMessageBox)
{
    open({ page(L"a\r\n"), page(L"b\r\n") });
    const Source source = files({ L"C:\\x" });
    answered(
        IDNO, [&] { command(command::delete_page); },
        [&] { EXPECT_EQ(drop_on(*target(), *source.Get()), 0u); });
    gui::pump();
    EXPECT_EQ(question(), nullptr);
    EXPECT_TRUE(source->asked.empty());
}

// The source was told that its files were taken.
TEST_F(AppDrops, WaitForABoxThatOpensBeforeTheirQuestion)
{
    open({ page(L"a\r\n"), page(L"b\r\n") });
    PostMessageW(window().hwnd(), WM_COMMAND, command::delete_page, 0);
    EXPECT_EQ(drop_on(*target(), *files({ L"C:\\x" }).Get()), 1u);
    HWND const main = window().hwnd();
    answered(
        IDNO, [] { gui::pump(); },
        [&] {
            SendMessageW(main, WM_NULL, 0, 0); // the posted question has been served by then
            EXPECT_EQ(effect_at_entry(*target(), *files({ L"C:\\y" }).Get()), 0u);
        });
    EXPECT_TRUE(book().pages[0].files.empty());
    OptionUser user{ [](HWND asked) { press(asked, command::add_dropped_files); } };
    EXPECT_TRUE(gui::pump_until([&] { return !book().pages[0].files.empty(); }));
    EXPECT_TRUE(user.finish());
    EXPECT_EQ(book().pages[0].files, Files{ L"C:\\x" });
}

TEST_F(AppDrops, AreRefusedIfABoxOpenedAfterTheSourceEntered)
{
    open({ page(L"a\r\n") });
    const Source source = text(L"x");
    DWORD effect = DROPEFFECT_COPY;
    EXPECT_EQ(target()->DragEnter(source.Get(), MK_LBUTTON, center_of(command::box_1), &effect), S_OK);
    EXPECT_EQ(effect, 1u);
    answered(
        IDNO, [&] { command(command::delete_page); },
        [&] {
            effect = DROPEFFECT_COPY;
            EXPECT_EQ(target()->Drop(source.Get(), 0, center_of(command::box_1), &effect), S_OK);
        });
    EXPECT_EQ(effect, 0u);
    EXPECT_TRUE(source->asked.empty());
    EXPECT_EQ(box_text(command::box_1), L"a\r\n");
}

// Any program can send the notifications of the target.
TEST_F(AppDrops, AreServedOnceEach)
{
    open({ page(L"abc\r\n") });
    EXPECT_EQ(drop_text(L"x", command::box_1), 1u);
    for (const int code : { 1, 2, 3 })
        SendMessageW(window().hwnd(), app::drop_notification, MAKEWPARAM(0, code), 0);
    gui::pump();
    EXPECT_EQ(box_text(command::box_1), L"xabc\r\n");
    EXPECT_EQ(question(), nullptr);
}

TEST_F(AppDrops, TakeAllAttachmentsWhateverMessagesComeBetween)
{
    open({ page(L"abc\r\n") });
    const FileDialogSpy dialogs{ file(L"保存.zip") };
    FileDialogSpy::meanwhile = [&] {
        for (const int code : { 1, 2, 3, 7 })
            SendMessageW(window().hwnd(), app::drop_notification, MAKEWPARAM(0, code), 0);
        SendMessageW(window().hwnd(), app::drop_question, 0, 0);
    };
    const Source source = make_source();
    source->offer_attachments({ { L"a.zip", "1" }, { L"b.zip", "2" } });
    EXPECT_EQ(drop_on(*target(), *source.Get()), 1u);
    EXPECT_EQ(FileDialogSpy::shown.size(), 2u);
    OptionUser user{ [](HWND asked) { press(asked, command::add_dropped_files); } };
    gui::pump();
    EXPECT_TRUE(user.finish());
    EXPECT_EQ(book().pages[0].files.size(), 2u);
    EXPECT_EQ(box_text(command::box_1), L"abc\r\n");
}

TEST_F(AppDrops, AreRefusedWhileAnotherWindowEditsThePages)
{
    open({ page(L"a\r\n") });
    command(command::show_replace);
    EXPECT_EQ(effect_at_entry(*target(), *files({ L"C:\\x" }).Get()), 0u);
    EXPECT_EQ(drop_text(L"x", command::box_1), 0u);
    EXPECT_EQ(box_text(command::box_1), L"a\r\n");
    beside<book::ReplaceWnd>().show(false);
    EXPECT_EQ(effect_at_entry(*target(), *files({ L"C:\\x" }).Get()), 1u);
}

TEST_F(AppDrops, AskAboutATypedListFirst)
{
    open({ page(L"a\r\n") });
    command(command::show_file_list_editor);
    gui::pump();
    retype_list(L"C:\\typed");
    const Source source = files({ L"C:\\x" });
    EXPECT_EQ(drop_on(*target(), *source.Get()), 1u);
    const auto met = answered_all({ IDYES }, [&] {
        OptionUser user{ [](HWND shown) {
            PostMessageW(shown, WM_COMMAND, command::add_dropped_files, 0);
            gui::poll_until([&] { return !IsWindow(shown); });
        } };
        gui::pump();
        user.finish();
    });
    EXPECT_EQ(met.size(), 1u);
    EXPECT_EQ(book().pages[0].files, (Files{ L"C:\\typed", L"C:\\x" }));
}

TEST_F(AppDrops, PutTextAtTheStartOfTheSelection)
{
    open({ page(L"abcd", L"efgh", L"ijkl") });
    for (const int id : { command::box_1, command::box_2, command::box_3 }) {
        SendMessageW(box(id), EM_SETSEL, 1, 3);
        EXPECT_EQ(drop_text(L"語", id), 1u);
        EXPECT_EQ(GetFocus(), box(id));
        EXPECT_TRUE(is_modified(id));
    }
    EXPECT_EQ(box_text(command::box_1), L"a語bcd\r\n");
    EXPECT_EQ(box_text(command::box_2), L"e語fgh");
    EXPECT_EQ(box_text(command::box_3), L"i語jkl\r\n");
    EXPECT_NE(title().find(L'*'), std::wstring::npos) << "the title shows that the page was edited";
    SendMessageW(box(command::box_1), EM_UNDO, 0, 0);
    EXPECT_EQ(box_text(command::box_1), L"abcd\r\n");
}

TEST_F(AppDrops, PutOneLineIntoBox2AndAllIntoTheOthers)
{
    open({ page(L"a", L"b", L"c") });
    drop_text(L"一\r\n二", command::box_2);
    drop_text(L"一\r\n二", command::box_3);
    EXPECT_EQ(box_text(command::box_2), L"一b");
    EXPECT_EQ(box_text(command::box_3), L"一\r\n二c\r\n");
    command(command::save_if_changed);
    EXPECT_EQ(saved().pages[0].text[1], L"一b");
    EXPECT_EQ(saved().pages[0].text[2], L"一\r\n二c\r\n");
}

TEST_F(AppDrops, LoseTextOutsideTheBoxes)
{
    open({ page(L"a", L"b", L"c") });
    EXPECT_EQ(drop_on(*target(), *text(L"x").Get(), center_of(command::file_combo)), 1u);
    EXPECT_EQ(drop_on(*target(), *text(L"").Get(), center_of(command::box_1)), 1u);
    EXPECT_EQ(box_text(command::box_1), L"a\r\n");
    EXPECT_FALSE(is_modified(command::box_1));
}

TEST_F(AppDrops, PutNoTextIntoBoxesWithoutAPage)
{
    book::Book book = book_of({ page(L"a"), page(L"b") });
    book.header.position = 7;
    open(book);
    ASSERT_EQ(this->book().current_page(), nullptr);
    drop_text(L"x", command::box_1);
    EXPECT_EQ(box_text(command::box_1).find(L'x'), std::wstring::npos);
    EXPECT_FALSE(is_modified(command::box_1));
}

TEST_F(AppDrops, SaveAttachmentsAndAskAboutThem)
{
    open({ page(L"a\r\n") });
    const FileDialogSpy dialogs{ file(L"保存.zip") };
    bool was_accepting = true;
    FileDialogSpy::meanwhile = [&] { was_accepting = window().is_accepting_input(); };
    const Source source = make_source();
    source->offer_attachments({ { L"..\\添付:1.zip", "content" } });
    EXPECT_EQ(drop_on(*target(), *source.Get()), 1u);
    EXPECT_FALSE(was_accepting);
    ASSERT_EQ(FileDialogSpy::shown.size(), 1u);
    const FileDialogSpy::Shown& shown = FileDialogSpy::shown[0];
    EXPECT_EQ(shown.title, L"保存先を指定してください");
    EXPECT_EQ(shown.name, L"添付_1.zip");
    EXPECT_EQ(shown.extension, L"zip");
    EXPECT_EQ(shown.flags & 524294u, 524294u);
    EXPECT_EQ(gui::current_directory(), std::filesystem::path{ file(L"x") }.parent_path().wstring());
    RECT place{};
    OptionUser user{ [&](HWND asked) {
        GetWindowRect(asked, &place);
        press(asked, command::add_dropped_files);
    } };
    gui::pump();
    EXPECT_TRUE(user.finish());
    const RECT main = window().rect();
    EXPECT_NEAR(place.left + 133, (main.left + main.right) / 2, 1);
    EXPECT_NEAR(place.top + 45, (main.top + main.bottom) / 2, 1);
    EXPECT_EQ(book().pages[0].files, Files{ file(L"保存.zip") });
    EXPECT_EQ(std::filesystem::file_size(file(L"保存.zip")), 7u);
}

// The dialog of an attachment has its own extension and no filter.
TEST_F(AppDrops, LeaveTheDialogOfTheBookAlone)
{
    open({ page(L"a\r\n") });
    const FileDialogSpy dialogs{ file(L"保存.jpg") };
    const Source source = make_source();
    source->offer_attachments({ { L"a.jpg", "x" } });
    drop_on(*target(), *source.Get());
    OptionUser user{ [](HWND) {} };
    gui::pump();
    user.finish();
    FileDialogSpy::chosen.clear();
    command(command::save_book_as);
    ASSERT_EQ(FileDialogSpy::shown.size(), 2u);
    EXPECT_EQ(FileDialogSpy::shown[1].extension, L"bok");
    EXPECT_EQ(FileDialogSpy::shown[1].name, L"手帖.bok");
}

TEST_F(AppDrops, AskNothingIfNoAttachmentWasSaved)
{
    open({ page(L"a\r\n") });
    const FileDialogSpy dialogs;
    const Source source = make_source();
    source->offer_attachments({ { L"a.jpg", "x" }, { L"b.jpg", "x" } });
    EXPECT_EQ(drop_on(*target(), *source.Get()), 0u);
    EXPECT_EQ(FileDialogSpy::shown.size(), 2u);
    gui::pump();
    EXPECT_EQ(question(), nullptr);
}

TEST_F(AppDrops, ReportAnAttachmentThatCannotBeWritten)
{
    open({ page(L"a\r\n") });
    const FileDialogSpy dialogs{ file(L"無い\\a.jpg") };
    const Source source = make_source();
    source->offer_attachments({ { L"a.jpg", "x" } });
    bool was_accepting = true;
    const gui::MetBox met = answered(
        IDOK, [&] { EXPECT_EQ(drop_on(*target(), *source.Get()), 0u); },
        [&] { was_accepting = window().is_accepting_input(); });
    EXPECT_EQ(met.caption, L"保存エラー");
    EXPECT_TRUE(met.text.ends_with(file(L"無い\\a.jpg")));
    EXPECT_EQ(met.icon, LoadIconW(nullptr, IDI_WARNING));
    EXPECT_FALSE(was_accepting);
}

TEST_F(AppDrops, AreNotMadeByMessagesOfOtherPrograms)
{
    open({ page(L"abc\r\n") });
    const FileDialogSpy dialogs{ file(L"x") };
    std::mt19937_64 random{ 7 };
    for (int i = 0; i < 5000; ++i) {
        const auto code = static_cast<WORD>(i % 2 ? random() % 9 : random());
        const auto address = static_cast<LPARAM>(random());
        SendMessageW(window().hwnd(), app::drop_notification, MAKEWPARAM(random(), code), address);
        SendMessageW(window().hwnd(), app::drop_question, random(), address);
    }
    gui::pump();
    EXPECT_TRUE(FileDialogSpy::shown.empty());
    EXPECT_EQ(question(), nullptr);
    EXPECT_EQ(box_text(command::box_1), L"abc\r\n");
    EXPECT_TRUE(window().is_accepting_input());
}

TEST_F(AppDrops, EndWithTheRegistrationAtClose)
{
    open({ page(L"a\r\n") });
    const Microsoft::WRL::ComPtr<IDropTarget> kept{ target() };
    ASSERT_NE(kept, nullptr);
    const Source source = files({ L"C:\\x" });
    close();
    EXPECT_EQ(drop_on(*kept.Get(), *source.Get()), 1u) << "an object that the system still holds is harmless";
    IDropTarget* const last = kept.Get();
    last->AddRef();
    EXPECT_EQ(last->Release(), 1u) << "only this test refers to it";
}

TEST_F(AppDrops, EndWithAFailedCreation)
{
    static int registered = 0;
    registered = 0;
    const gui::ReplacedImport<decltype(RegisterDragDrop)> starting{ &__imp_RegisterDragDrop,
        [](HWND, IDropTarget*) -> HRESULT {
            ++registered;
            return S_OK;
        } };
    const gui::ReplacedImport<decltype(RevokeDragDrop)> ending{ &__imp_RevokeDragDrop, [](HWND) -> HRESULT {
                                                                   --registered;
                                                                   return S_OK;
                                                               } };
    bool was_registered = false;
    answered_all(
        { IDCANCEL, IDOK }, [&] { EXPECT_FALSE(create()); },
        [&] { was_registered = was_registered || registered == 1; });
    EXPECT_TRUE(was_registered);
    EXPECT_EQ(registered, 0);
}

TEST_F(AppDrops, AreNotNeededToRun)
{
    const gui::ReplacedImport<decltype(RegisterDragDrop)> failing{ &__imp_RegisterDragDrop,
        [](HWND, IDropTarget*) -> HRESULT { return E_OUTOFMEMORY; } };
    open({ page(L"a\r\n") });
    EXPECT_EQ(target(), nullptr);
    SendMessageW(window().hwnd(), app::drop_notification, MAKEWPARAM(0, 3), 0);
    EXPECT_EQ(box_text(command::box_1), L"a\r\n");
}

} // namespace
