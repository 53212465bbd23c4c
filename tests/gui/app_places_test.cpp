// The initial folders of the main window's file dialogs, and the input while they are open. Paths are
// resolved against the data root, whatever the current directory is.
#include "app/wnd/shell_folders.hpp"
#include "tests/support/gui_app_controls.hpp"
#include "tests/support/gui_file_dialog.hpp"
#include "tests/support/gui_links.hpp"
#include "tests/support/gui_shell_calls.hpp"

namespace {

namespace command = core::command;
using gui::FileDialogSpy;
using gui::MetBox;
using Texts = std::vector<std::wstring>;

class OlderDialogs : public gui::AppControls {
protected:
    std::wstring made(const std::wstring& name, const std::wstring& text = L"x") const
    {
        test_support::write_text(file(name), text);
        return file(name);
    }
    std::wstring made_folder(const std::wstring& name) const
    {
        EXPECT_TRUE(platform::create_folder(file(name)));
        return file(name);
    }
    void open_with(std::vector<std::wstring> files)
    {
        book::Book book = book_of({ page(L"1\r\n"), page(L"2\r\n") });
        book.pages[0].files = std::move(files);
        open(book);
    }
    static FileDialogSpy::Shown only_shown()
    {
        EXPECT_EQ(FileDialogSpy::shown.size(), 1u);
        return FileDialogSpy::shown.empty() ? FileDialogSpy::Shown{} : FileDialogSpy::shown.front();
    }
    const std::wstring& root() const { return ovlib::WinApp::data_root; }
    void go_elsewhere() const
    {
        platform::create_folder(file(L"elsewhere"));
        EXPECT_TRUE(SetCurrentDirectoryW(file(L"elsewhere").c_str()));
    }

    gui::ComOnThread com;
};

TEST_F(OlderDialogs, ForANewBookStartEmptyOnTheDesktop)
{
    open({ page(L"1\r\n") });
    const FileDialogSpy spy;
    command(command::save_book_as); // leaves its own folder and name in the same dialog
    command(command::new_book);
    ASSERT_EQ(FileDialogSpy::shown.size(), 2u);
    const FileDialogSpy::Shown& shown = FileDialogSpy::shown[1];
    EXPECT_EQ(shown.title, L"Book の新規作成");
    EXPECT_EQ(shown.folder, app::desktop_folder());
    EXPECT_NE(shown.folder, L"");
    EXPECT_EQ(shown.name, L"");
    EXPECT_EQ(shown.extension, L"bok");
    EXPECT_EQ(shown.flags, 0x80006u);
}

TEST_F(OlderDialogs, ForAnotherNameStartAtTheBook)
{
    made_folder(L"棚");
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"棚\\手帖.bok")));
    for (const std::wstring& path : { file(L"棚\\手帖.bok"), std::wstring{ L"棚\\手帖.bok" } }) {
        set_history({ path });
        ASSERT_TRUE(create());
        const FileDialogSpy spy;
        command(command::save_book_as);
        const FileDialogSpy::Shown shown = only_shown();
        EXPECT_EQ(shown.title, L"Book に名前を付けて保存する");
        EXPECT_EQ(shown.folder, file(L"棚"));
        EXPECT_EQ(shown.name, L"手帖.bok");
        EXPECT_EQ(shown.flags, 0x80006u);
        close();
        DeleteFileW(core::history_file(core::folders()).c_str());
    }
}

TEST_F(OlderDialogs, ForABookToOpenLetTheSystemChooseTheFolder)
{
    open({ page(L"1\r\n") });
    const FileDialogSpy spy;
    command(command::open_book);
    const FileDialogSpy::Shown shown = only_shown();
    EXPECT_EQ(shown.title, L"Book を開く");
    EXPECT_EQ(shown.folder, L"");
    EXPECT_EQ(shown.flags, 0x80004u);
}

TEST_F(OlderDialogs, ForACopyProposeTheFilesName)
{
    open_with({ made(L"元.png") });
    const FileDialogSpy spy;
    command(command::duplicate_file);
    const FileDialogSpy::Shown shown = only_shown();
    EXPECT_EQ(shown.title, L"ファイルの保存先を指定してください");
    EXPECT_EQ(shown.name, L"元.png");
    EXPECT_EQ(shown.extension, L"png");
    EXPECT_EQ(shown.flags, 0x80006u);
}

// Neither a command nor the wheel may turn a page meanwhile.
TEST_F(OlderDialogs, HoldTheInputWhileTheyAreOpen)
{
    open_with({ made(L"元.png") });
    const FileDialogSpy spy;
    FileDialogSpy::meanwhile = [&] {
        EXPECT_FALSE(window().is_accepting_input());
        command(command::next_page);
        window().send(WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
        EXPECT_EQ(book().header.position, 0u);
    };
    for (const int id :
        { command::open_book, command::new_book, command::save_book_as, command::duplicate_file }) {
        command(id);
        EXPECT_TRUE(window().is_accepting_input()) << id;
    }
    EXPECT_EQ(FileDialogSpy::shown.size(), 4u);
}

TEST_F(OlderDialogs, DoNotReleaseInputThatAnotherWindowHolds)
{
    open_with({ made(L"元.png") });
    const FileDialogSpy spy;
    for (const int id : { command::open_book, command::new_book, command::save_book_as }) {
        command(command::set_accepting_input, 0);
        command(id);
        EXPECT_FALSE(window().is_accepting_input()) << id;
        command(command::set_accepting_input, 1);
        EXPECT_TRUE(window().is_accepting_input()) << id;
    }
    EXPECT_EQ(FileDialogSpy::shown.size(), 3u);
    command(command::set_accepting_input, 0);
    command(command::duplicate_file); // the viewer sends it while a dialog is open
    command(command::set_accepting_input, 1);
    EXPECT_EQ(FileDialogSpy::shown.size(), 3u) << "no dialog in a dialog";
}

TEST_F(OlderDialogs, HoldTheInputWhileTheFailureOfACopyIsShown)
{
    open_with({ file(L"無い.png") });
    const FileDialogSpy spy{ file(L"写し.png") };
    bool was_accepting = true;
    const MetBox met = answered(
        IDOK, [&] { command(command::duplicate_file); },
        [&] { was_accepting = window().is_accepting_input(); });
    EXPECT_EQ(met.caption, L"Pagewick");
    EXPECT_FALSE(was_accepting);
    EXPECT_TRUE(window().is_accepting_input());
}

using CurrentDirectory = OlderDialogs;

TEST_F(CurrentDirectory, IsTheDataRootBeforeTheSettingsAreRead)
{
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok") });
    test_support::write_text(core::settings_file(core::folders()), L"\xFEFF[COMMON]\r\nAUTOBACKUP=1\r\n");
    go_elsewhere();
    // The program was started by a relative path. The history is equal in both folders.
    made_folder(L"elsewhere\\dat");
    CopyFileW(file(L"dat\\history.txt").c_str(), file(L"elsewhere\\dat\\history.txt").c_str(), FALSE);
    core::init_folders(L".");
    ASSERT_TRUE(create());
    EXPECT_TRUE(core::settings().auto_backup);
}

TEST_F(CurrentDirectory, IsTheDataRootBeforeABookIsLookedFor)
{
    ASSERT_TRUE(book_of({ page(L"1\r\n") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok"), file(L"無い.bok") });
    ASSERT_TRUE(create());
    go_elsewhere();
    std::wstring met;
    answered(
        IDOK, [&] { command(command::first_history_entry + 1); }, [&] { met = gui::current_directory(); });
    EXPECT_EQ(met, root());
}

TEST_F(CurrentDirectory, IsTheDataRootBeforeTheDialogsOfBooks)
{
    open({ page(L"1\r\n") });
    const FileDialogSpy spy;
    for (const int id : { command::open_book, command::new_book, command::save_book_as }) {
        go_elsewhere();
        command(id);
        ASSERT_FALSE(FileDialogSpy::shown.empty());
        EXPECT_EQ(FileDialogSpy::shown.back().directory, root()) << id;
    }
}

TEST_F(CurrentDirectory, IsTheDataRootForABackup)
{
    open({ page(L"1\r\n") });
    go_elsewhere();
    std::wstring met;
    answered(
        IDOK, [&] { command(command::backup_book); }, [&] { met = gui::current_directory(); });
    EXPECT_EQ(met, root());
}

TEST_F(CurrentDirectory, IsTheDataRootForAReferenceFolder)
{
    book::Book with_folder = book_of({ page(L"1\r\n") });
    with_folder.pages[0].reference_folder = L"資料";
    open(with_folder);
    go_elsewhere();
    const gui::ShellCalls shell;
    command(command::open_reference_folder);
    EXPECT_EQ(gui::ShellCalls::calls, Texts{ L"open|資料|" });
    EXPECT_EQ(gui::current_directory(), root());
}

TEST_F(CurrentDirectory, IsTheDataRootForAnEntryPassedToTheShell)
{
    open_with({ L"絵.png" });
    made(L"絵.png");
    const gui::ShellCalls shell;
    go_elsewhere();
    made(L"elsewhere\\絵.png");
    command(command::open_file);
    go_elsewhere();
    command(command::show_file_in_folder);
    EXPECT_EQ(gui::ShellCalls::calls,
        (Texts{ L"open|" + file(L"絵.png") + L"|",
            L"open|explorer.exe| /select, \"" + file(L"絵.png") + L"\"" }));
}

TEST_F(CurrentDirectory, IsTheDataRootForAnEntryToBeCopied)
{
    open_with({ L"元.png" });
    made(L"元.png", L"中身");
    const FileDialogSpy spy{ file(L"写し.png") };
    go_elsewhere();
    const MetBox met = answered(IDOK, [&] { command(command::duplicate_file); });
    EXPECT_EQ(met.text,
        L"ファイルを複製しました．\r\n\r\nFrom:\r\n" + file(L"元.png") + L"\r\n\r\nTo:\r\n"
            + file(L"写し.png"));
    EXPECT_EQ(test_support::read_text(file(L"写し.png")), L"中身");
}

TEST_F(CurrentDirectory, IsTheDataRootAfterADialogChangedIt)
{
    open_with({ made(L"元.png") });
    const FileDialogSpy spy;
    FileDialogSpy::meanwhile = [&] { go_elsewhere(); };
    command(command::duplicate_file);
    EXPECT_EQ(FileDialogSpy::shown.size(), 1u);
    EXPECT_EQ(gui::current_directory(), root());
    for (const int id : { command::add_files, command::choose_reference_folder }) {
        gui::DialogDriver driver{ [&](HWND dialog) {
            EXPECT_TRUE(gui::poll_until([&] { return gui::name_field(dialog) != nullptr; }));
            go_elsewhere();
            gui::cancel_dialog(dialog);
        } };
        command(id);
        EXPECT_TRUE(driver.finish());
        EXPECT_EQ(gui::current_directory(), root()) << id;
    }
}

TEST_F(CurrentDirectory, IsTheDataRootForTheNamesOfEntries)
{
    made_folder(L"箱");
    open_with({ L"箱\\絵.png" });
    ovlib::ComboBox& combo = control<ovlib::ComboBox>(command::file_combo);
    ASSERT_EQ(combo.item_text(0), L"箱\\絵.png") << "what is not there stands as it was written";
    made(L"箱\\絵.png");
    go_elsewhere();
    command(command::request_refresh, 0x4);
    EXPECT_EQ(combo.item_text(0), L"絵.png");
}

TEST_F(CurrentDirectory, IsTheDataRootForTheSearchForAMovedFile)
{
    open_with({ L"無い.png" });
    go_elsewhere();
    const auto met = answered_all({ IDOK, IDNO }, [&] { command(command::search_moved_file); });
    ASSERT_EQ(met.size(), 2u);
    EXPECT_EQ(met[0].text, L"ショートカットファイルが見つかりませんでした\r\n" + file(L"無い.png"));
}

} // namespace
