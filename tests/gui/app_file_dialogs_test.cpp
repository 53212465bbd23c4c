// Commands on files and folders that show dialogs or pass something to the shell.
#include "app/wnd/shell_folders.hpp"
#include "tests/support/gui_app_controls.hpp"
#include "tests/support/gui_file_dialog.hpp"
#include "tests/support/gui_links.hpp"
#include "tests/support/gui_shell_calls.hpp"
#include <fstream>

namespace {

namespace command = core::command;
namespace fs = std::filesystem;
using gui::DialogDriver;
using gui::MetBox;
using gui::ShellCalls;
using test_support::write_text;
using Files = std::vector<std::wstring>;
using Texts = std::vector<std::wstring>;

class AppFileDialogs : public gui::AppControls {
protected:
    std::wstring made(const std::wstring& name, const std::wstring& text = L"x") const
    {
        write_text(file(name), text);
        return file(name);
    }
    void open_with(Files files, std::uint64_t current = 0)
    {
        book::Book book = book_of({ page(L"1\r\n"), page(L"2\r\n") });
        book.pages[0].files = std::move(files);
        book.pages[0].current_file = current;
        open(book);
    }
    const Files& files() { return book().pages[0].files; }
    ovlib::ComboBox& combo() const { return control<ovlib::ComboBox>(command::file_combo); }
    // To be called on a dialog's thread while it is open.
    void send_command(int id) { SendMessageW(window().hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }

    // Runs a command and answers its dialog with that name; an empty name cancels it.
    void choose(
        int id, const std::wstring& name, const std::function<void()>& meanwhile = [] {})
    {
        DialogDriver driver{ [&](HWND dialog) {
            caption = gui::text_of(dialog);
            proposed = gui::poll_until([&] { return gui::name_field(dialog) != nullptr; })
                ? gui::text_of(gui::name_field(dialog))
                : L"";
            accepted_input = window().is_accepting_input();
            meanwhile();
            if (name.empty())
                gui::cancel_dialog(dialog);
            else
                EXPECT_TRUE(gui::answer_with_name(dialog, name));
        } };
        command(id);
        EXPECT_TRUE(driver.finish());
    }

    std::wstring caption;
    std::wstring proposed;
    bool accepted_input = true;
    gui::ComOnThread com;
};

class AddFiles : public AppFileDialogs { };

TEST_F(AddFiles, AppendsTheChosenFileAndSelectsIt)
{
    const gui::LogEar log;
    open_with({ L"http://x.invalid/a" });
    choose(command::add_files, made(L"絵 一.png"));
    EXPECT_EQ(caption, L"ファイルの選択");
    EXPECT_FALSE(accepted_input) << "page turns wait for the dialog";
    EXPECT_TRUE(window().is_accepting_input());
    EXPECT_EQ(files(), (Files{ L"http://x.invalid/a", file(L"絵 一.png") }));
    EXPECT_EQ(book().pages[0].current_file, 1u);
    EXPECT_EQ(combo().count(), 2);
    EXPECT_EQ(combo().selected(), 1);
    EXPECT_EQ(combo().item_text(1), L"絵 一.png");
    EXPECT_EQ(
        gui::link_lines(log), L"start_shortcut_creation_async()\r\nstart_shortcut_creation_async()\r\n");
    const std::wstring link = gui::link_of(core::folders().shortcut, file(L"絵 一.png"));
    EXPECT_TRUE(gui::pump_until([&] { return fs::exists(link); }));
    EXPECT_EQ(saved().pages[0].files.size(), 1u) << "the Book is not saved by this";
}

TEST_F(AddFiles, AppendsSeveralAndSelectsTheFirstOfThem)
{
    open_with({ L"http://x.invalid/a" });
    for (const wchar_t* name : { L"一.png", L"二.png", L"三.png" })
        made(name);
    choose(command::add_files,
        L"\"" + file(L"一.png") + L"\" \"" + file(L"二.png") + L"\" \"" + file(L"三.png") + L"\"");
    ASSERT_EQ(files().size(), 4u);
    EXPECT_EQ(book().pages[0].current_file, 1u);
    Files chosen{ files().begin() + 1, files().end() };
    std::sort(chosen.begin(), chosen.end());
    Files expected{ file(L"一.png"), file(L"二.png"), file(L"三.png") };
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(chosen, expected);
}

TEST_F(AddFiles, DoesNothingIfTheDialogIsCancelled)
{
    const gui::LogEar log;
    open_with({ L"http://x.invalid/a" });
    choose(command::add_files, L"");
    EXPECT_EQ(files(), Files{ L"http://x.invalid/a" });
    EXPECT_EQ(gui::link_lines(log), L"start_shortcut_creation_async()\r\n") << "that of the load alone";
}

// The files of one page must not be added to another.
TEST_F(AddFiles, AddsNothingToAPageThatArrivedMeanwhile)
{
    open_with({});
    choose(command::add_files, made(L"絵.png"), [&] { send_command(command::add_page_at_end); });
    for (const book::Page& page : book().pages)
        EXPECT_TRUE(page.files.empty());
}

TEST_F(AddFiles, LeavesTheCurrentDirectoryAtTheDataRoot)
{
    open_with({});
    CreateDirectoryW(file(L"箱").c_str(), nullptr);
    choose(command::add_files, made(L"箱\\絵.png"));
    EXPECT_EQ(fs::current_path().wstring(), fs::path(ovlib::WinApp::data_root).wstring());
}

class DuplicateFile : public AppFileDialogs {
protected:
    // The boxes after the dialog, answered in order, including boxes of the dialog itself.
    Texts told(
        const std::wstring& name, const std::vector<int>& answers,
        const std::function<void()>& meanwhile = [] {})
    {
        Texts texts;
        std::thread user{ [&, thread = GetCurrentThreadId()] {
            if (!gui::poll_until([&] { return gui::dialog_of(thread) != nullptr; }))
                return;
            HWND const dialog = gui::dialog_of(thread);
            caption = gui::text_of(dialog);
            gui::poll_until([&] { return gui::name_field(dialog) != nullptr; });
            proposed = gui::text_of(gui::name_field(dialog));
            meanwhile();
            SendMessageW(gui::name_field(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
            for (const int answer : answers) {
                HWND box = nullptr;
                if (!gui::poll_until([&] {
                        box = gui::dialog_of(thread);
                        return box != nullptr && GetDlgItem(box, 65535) != nullptr;
                    }))
                    return;
                texts.push_back(gui::text_of(GetDlgItem(box, 65535)));
                PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
                gui::poll_until([&] { return !IsWindow(box); });
            }
        } };
        command(command::duplicate_file);
        user.join();
        return texts;
    }
    std::wstring done(const std::wstring& from, const std::wstring& to) const
    {
        return L"ファイルを複製しました．\r\n\r\nFrom:\r\n" + from + L"\r\n\r\nTo:\r\n" + to;
    }
    static std::wstring text_in(const std::wstring& path) { return test_support::read_text(path); }
};

TEST_F(DuplicateFile, CopiesTheSelectedFileToTheChosenPlace)
{
    open_with({ L"http://x.invalid/a", made(L"元.png", L"中身") }, 1);
    EXPECT_EQ(told(file(L"写し.png"), { IDOK }), Texts{ done(file(L"元.png"), file(L"写し.png")) });
    EXPECT_EQ(caption, L"ファイルの保存先を指定してください");
    EXPECT_EQ(proposed, L"元.png");
    EXPECT_EQ(text_in(file(L"写し.png")), L"中身");
    EXPECT_EQ(files().size(), 2u);
}

TEST_F(DuplicateFile, GivesTheCopyItsExtension)
{
    open_with({ made(L"元.png") });
    EXPECT_EQ(told(file(L"写し"), { IDOK }), Texts{ done(file(L"元.png"), file(L"写し.png")) });
    EXPECT_TRUE(fs::exists(file(L"写し.png")));
}

TEST_F(DuplicateFile, OntoItselfReportsSuccessAndChangesNothing)
{
    open_with({ made(L"元.png", L"中身") });
    const auto before = fs::last_write_time(file(L"元.png"));
    const Texts boxes = told(file(L"元.PNG"), { IDYES, IDOK }); // the first box is the dialog's own question
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[1], done(file(L"元.png"), file(L"元.PNG")));
    EXPECT_EQ(text_in(file(L"元.png")), L"中身");
    EXPECT_EQ(fs::last_write_time(file(L"元.png")), before);
}

TEST_F(DuplicateFile, OverwritesAnExistingFileAfterTheDialogsQuestion)
{
    made(L"写し.png", L"古い");
    open_with({ made(L"元.png", L"新しい") });
    const Texts boxes = told(file(L"写し.png"), { IDYES, IDOK });
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[1], done(file(L"元.png"), file(L"写し.png")));
    EXPECT_EQ(text_in(file(L"写し.png")), L"新しい");
}

TEST_F(DuplicateFile, OfARelativeEntryReportsItsFullPath)
{
    made(L"元.png", L"中身");
    open_with({ L"元.png" });
    EXPECT_EQ(told(file(L"写し.png"), { IDOK }), Texts{ done(file(L"元.png"), file(L"写し.png")) });
}

TEST_F(DuplicateFile, ReportsAFailureWithTheSystemsMessage)
{
    open_with({ file(L"無い.png") });
    const Texts boxes = told(file(L"写し.png"), { IDOK });
    ASSERT_EQ(boxes.size(), 1u);
    wchar_t* words = nullptr;
    FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ERROR_FILE_NOT_FOUND,
        0, reinterpret_cast<wchar_t*>(&words), 0, nullptr);
    EXPECT_NE(boxes[0].find(std::wstring{ words }.substr(0, 6)), std::wstring::npos);
    LocalFree(words);
    EXPECT_FALSE(fs::exists(file(L"写し.png")));
}

TEST_F(DuplicateFile, LeavesACopyThatCannotBeWritten)
{
    open_with({ made(L"元.png", L"新しい") });
    made(L"写し.png", L"古い");
    const gui::Unwritable protection{ file(L"写し.png") };
    const Texts boxes = told(file(L"写し.png"), { IDYES, IDOK });
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[1].find(L"ファイルを複製しました"), std::wstring::npos);
    EXPECT_EQ(text_in(file(L"写し.png")), L"古い");
}

TEST_F(DuplicateFile, DoesNothingIfTheDialogIsCancelled)
{
    open_with({ made(L"元.png") });
    choose(command::duplicate_file, L"");
    EXPECT_TRUE(window().is_accepting_input());
}

TEST_F(DuplicateFile, CopiesNothingIfAnotherEntryWasSelectedMeanwhile)
{
    open_with({ made(L"元.png"), made(L"別.png") });
    told(file(L"写し.png"), {}, [&] { send_command(command::next_file); });
    EXPECT_FALSE(fs::exists(file(L"写し.png")));
}

class OpenByTheShell : public AppFileDialogs {
protected:
    std::wstring told(int id)
    {
        return answered(IDOK, [&] { command(id); }).text;
    }
};

TEST_F(OpenByTheShell, PassesTheFilesFullPath)
{
    made(L"絵.png");
    open_with({ L"絵.png" });
    const ShellCalls shell;
    command(command::open_file);
    EXPECT_EQ(ShellCalls::calls, Texts{ L"open|" + file(L"絵.png") + L"|" });
}

TEST_F(OpenByTheShell, PassesAnAddressUnchanged)
{
    open_with({ L"http://x.invalid/a b?c" });
    const ShellCalls shell;
    command(command::open_file);
    EXPECT_EQ(ShellCalls::calls, Texts{ L"open|http://x.invalid/a b?c|" });
}

TEST_F(OpenByTheShell, ReportsTheEntryThatCouldNotBeOpened)
{
    open_with({ L"無い.png" });
    const ShellCalls shell{ 32 };
    EXPECT_EQ(told(command::open_file), L"Error: ファイルを開けませんでした.\r\n無い.png");
    EXPECT_EQ(ShellCalls::calls, Texts{ L"open|無い.png|" });
}

TEST_F(OpenByTheShell, ShowsAFileInItsFolder)
{
    made(L"絵 一.png");
    open_with({ L"絵 一.png" });
    const ShellCalls shell;
    command(command::show_file_in_folder);
    EXPECT_EQ(ShellCalls::calls, Texts{ L"open|explorer.exe| /select, \"" + file(L"絵 一.png") + L"\"" });
}

TEST_F(OpenByTheShell, ReportsTheFileThatCouldNotBeShown)
{
    open_with({ made(L"絵.png") });
    const ShellCalls shell{ 2 };
    EXPECT_EQ(told(command::show_file_in_folder),
        L"Error: ファイルの場所を開けませんでした.\r\n" + file(L"絵.png"));
}

TEST_F(OpenByTheShell, ShowsOnlyRegularFilesInTheirFolder)
{
    CreateDirectoryW(file(L"箱").c_str(), nullptr);
    open_with({ L"箱", L"無い.png", L"http://x.invalid/a" });
    const ShellCalls shell;
    const std::wstring failure = L"Error: ファイルの場所を開けませんでした.\r\n";
    EXPECT_EQ(told(command::show_file_in_folder), failure + file(L"箱"));
    command(command::next_file);
    EXPECT_EQ(told(command::show_file_in_folder), failure + file(L"無い.png"));
    command(command::next_file);
    EXPECT_EQ(told(command::show_file_in_folder), failure + L"http://x.invalid/a");
    EXPECT_TRUE(ShellCalls::calls.empty());
}

class ReferenceFolder : public AppFileDialogs {
protected:
    void open_with_folder(const std::wstring& folder)
    {
        book::Book book = book_of({ page(L"1\r\n"), page(L"2\r\n") });
        book.pages[0].reference_folder = folder;
        open(book);
    }
    const std::wstring& folder() { return book().pages[0].reference_folder; }
    // Answers the shell's folder dialog.
    void choose_folder(
        const std::wstring& path, const std::function<void()>& meanwhile = [] {})
    {
        choose(command::choose_reference_folder, path, meanwhile);
    }
    bool is_lit() const { return button(command::show_folder_menu).is_highlighted(); }
};

TEST_F(ReferenceFolder, IsChosenInADialogAndSaved)
{
    CreateDirectoryW(file(L"資 料").c_str(), nullptr);
    open_with_folder(L"");
    EXPECT_FALSE(is_lit());
    choose_folder(file(L"資 料"));
    EXPECT_EQ(caption, L"ライブラリの選択");
    EXPECT_FALSE(accepted_input);
    EXPECT_EQ(folder(), file(L"資 料"));
    EXPECT_EQ(saved().pages[0].reference_folder, file(L"資 料"));
    EXPECT_TRUE(is_lit());
}

TEST_F(ReferenceFolder, StaysIfTheDialogIsCancelled)
{
    open_with_folder(L"C:\\資料");
    choose_folder(L"");
    EXPECT_EQ(folder(), L"C:\\資料");
}

TEST_F(ReferenceFolder, IsNotGivenToAPageThatArrivedMeanwhile)
{
    CreateDirectoryW(file(L"資料").c_str(), nullptr);
    open_with_folder(L"");
    choose_folder(file(L"資料"), [&] { send_command(command::add_page_at_end); });
    for (const book::Page& page : book().pages)
        EXPECT_EQ(page.reference_folder, L"");
}

TEST_F(ReferenceFolder, IsOpenedByTheShell)
{
    open_with_folder(L"C:\\資料");
    const ShellCalls shell;
    command(command::open_reference_folder);
    EXPECT_EQ(ShellCalls::calls, Texts{ L"open|C:\\資料|" });
}

TEST_F(ReferenceFolder, ThatCannotBeOpenedIsReported)
{
    open_with_folder(L"C:\\資料");
    const ShellCalls shell{ 2 };
    const MetBox met = answered(IDOK, [&] { command(command::open_reference_folder); });
    EXPECT_EQ(met.text, L"ライブラリを開けませんでした．\r\nC:\\資料");
}

} // namespace
