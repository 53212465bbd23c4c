// The shell's file dialogs, answered as a user does; a fake replaces them for results that a user cannot
// cause.
#include "ovlib/gui/modern_dialog.hpp"
#include "tests/support/fake_file_dialog.hpp"
#include "tests/support/gui_file_dialog.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_log.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <objbase.h>
#include <thread>

namespace {

using gui::cancel_dialog;
using gui::DialogDriver;
using gui::FakeAnswers;
using gui::FakeFileDialog;
using ovlib::modern::FileOpenDialog;
using ovlib::modern::FolderOpenDialog;
using Paths = std::vector<std::wstring>;

class ModernDialog : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        ASSERT_TRUE(top.create(L"owner"));
        for (const wchar_t* name : { L"a.png", L"b.png", L"第 三.png" })
            folder.write(name, { 'x' });
        CreateDirectoryW(folder.file(L"中 身").c_str(), nullptr);
    }
    void TearDown() override
    {
        top.destroy();
        CoUninitialize();
        SetCurrentDirectoryW(L"C:\\"); // otherwise the folder could not be removed
    }
    static void answer(HWND box, const std::wstring& name) { EXPECT_TRUE(gui::answer_with_name(box, name)); }

    gui::TopWnd top;
    gui::TempFolder folder;
    gui::LogEar log;
};

TEST_F(ModernDialog, OpensOneFile)
{
    FileOpenDialog dialog(&top);
    ASSERT_TRUE(dialog.has_dialog());
    dialog.set_title(L"ファイルの選択");
    dialog.set_folder(folder.path());
    dialog.set_filters({ { L"画像", L"*.png" } });
    std::wstring title;
    HWND owner = nullptr;
    DialogDriver driver([&](HWND box) {
        title = gui::text_of(box);
        owner = GetWindow(box, GW_OWNER);
        answer(box, L"第 三.png");
    });
    ASSERT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    Paths paths{ L"old" };
    EXPECT_TRUE(dialog.get_result(paths));
    EXPECT_EQ(paths, Paths{ folder.file(L"第 三.png") });
    EXPECT_EQ(title, L"ファイルの選択");
    EXPECT_EQ(owner, top.hwnd());
    EXPECT_EQ(log.heard(), L"");
}

TEST_F(ModernDialog, OpensSeveralFilesByTheirFullPaths)
{
    FileOpenDialog dialog(&top);
    dialog.allow_multiple(true);
    dialog.set_folder(folder.path());
    DialogDriver driver([](HWND box) { answer(box, L"\"a.png\" \"第 三.png\" \"b.png\""); });
    ASSERT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    Paths paths;
    EXPECT_TRUE(dialog.get_result(paths));
    std::sort(paths.begin(), paths.end());
    EXPECT_EQ(paths, (Paths{ folder.file(L"a.png"), folder.file(L"b.png"), folder.file(L"第 三.png") }));
}

TEST_F(ModernDialog, ChoosesAFolder)
{
    FolderOpenDialog dialog(&top);
    EXPECT_NE(dialog.options() & FOS_PICKFOLDERS, 0u);
    dialog.set_title(L"ライブラリの選択");
    dialog.set_folder(folder.path());
    DialogDriver driver([&](HWND box) { answer(box, folder.file(L"中 身")); });
    ASSERT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    Paths paths;
    EXPECT_TRUE(dialog.get_result(paths));
    EXPECT_EQ(paths, Paths{ folder.file(L"中 身") });
}

TEST_F(ModernDialog, CancelReturnsFalseAndLogsNothing)
{
    FileOpenDialog files(&top);
    FolderOpenDialog folders(&top);
    for (FileOpenDialog* dialog : { &files, static_cast<FileOpenDialog*>(&folders) }) {
        DialogDriver driver(cancel_dialog);
        EXPECT_FALSE(dialog->show());
        EXPECT_TRUE(driver.finish());
    }
    EXPECT_EQ(log.heard(), L"");
}

TEST_F(ModernDialog, SeveralAreAllowedAndForbiddenWithoutChangingOtherOptions)
{
    FileOpenDialog dialog(&top);
    dialog.set_options(FOS_NOCHANGEDIR | FOS_FILEMUSTEXIST);
    dialog.allow_multiple(true);
    EXPECT_EQ(dialog.options(), DWORD{ FOS_NOCHANGEDIR | FOS_FILEMUSTEXIST | FOS_ALLOWMULTISELECT });
    dialog.allow_multiple(true);
    EXPECT_EQ(dialog.options(), DWORD{ FOS_NOCHANGEDIR | FOS_FILEMUSTEXIST | FOS_ALLOWMULTISELECT });
    dialog.allow_multiple(false);
    EXPECT_EQ(dialog.options(), DWORD{ FOS_NOCHANGEDIR | FOS_FILEMUSTEXIST });
}

TEST_F(ModernDialog, APathThatIsNoFolderLetsTheSystemChoose)
{
    const FakeAnswers answers;
    FakeFileDialog fake(answers);
    FileOpenDialog dialog(&top, fake.pointer());
    dialog.set_folder(L"");
    dialog.set_folder(L"C:\\no such\\folder");
    dialog.set_folder(L"http://example.com/");
    EXPECT_EQ(fake.folders_set, 0);
    dialog.set_folder(folder.path());
    EXPECT_EQ(fake.folders_set, 1);
}

TEST_F(ModernDialog, PassesItsTextsToTheSystem)
{
    const FakeAnswers answers;
    FakeFileDialog fake(answers);
    FileOpenDialog dialog(&top, fake.pointer());
    dialog.set_title(L"Book を開く");
    dialog.set_file_name(L"手帖");
    dialog.set_default_extension(L"bok");
    dialog.set_filters({});
    EXPECT_TRUE(fake.type_lists.empty()) << "the system takes a list only once";
    dialog.set_filters({ { L"Book Files", L"*.bok" }, { L"All", L"*.*" } });
    EXPECT_EQ(fake.title, L"Book を開く");
    EXPECT_EQ(fake.file_name, L"手帖");
    EXPECT_EQ(fake.default_extension, L"bok");
    ASSERT_EQ(fake.type_lists.size(), 1u);
    EXPECT_EQ(fake.type_lists[0], (FakeFileDialog::Types{ { L"Book Files", L"*.bok" }, { L"All", L"*.*" } }));
}

TEST_F(ModernDialog, OpensAtItsDefaultForAnEmptyFolder)
{
    FileOpenDialog dialog(&top);
    dialog.set_folder(L"");
    DialogDriver driver([&](HWND box) { answer(box, folder.file(L"a.png")); });
    EXPECT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(log.heard(), L"");
}

TEST_F(ModernDialog, AFailureToShowIsLogged)
{
    FakeAnswers answers;
    answers.show = E_OUTOFMEMORY;
    FakeFileDialog fake(answers);
    FileOpenDialog dialog(&top, fake.pointer());
    EXPECT_FALSE(dialog.show());
    EXPECT_EQ(log.heard(), L"FileDialog::show: <8007000E>\r\n");
    answers.show = static_cast<HRESULT>(0x800704C7);
    EXPECT_FALSE(dialog.show());
    EXPECT_EQ(log.heard(), L"FileDialog::show: <8007000E>\r\n") << "a cancel adds nothing";
}

TEST_F(ModernDialog, EveryFailedStepOfTheResultIsLogged)
{
    struct Case {
        HRESULT FakeAnswers::*step;
        const wchar_t* text;
    };
    const Case cases[] = {
        { &FakeAnswers::query_open_dialog, L"FileOpenDialog::get_result: dialog_.As に失敗\r\n" },
        { &FakeAnswers::results, L"FileOpenDialog::get_result: GetResults に失敗\r\n" },
        { &FakeAnswers::count, L"FileOpenDialog::get_result: GetCount に失敗\r\n" },
    };
    std::wstring expected;
    for (const Case& one : cases) {
        FakeAnswers answers;
        answers.*one.step = E_FAIL;
        FakeFileDialog fake(answers);
        FileOpenDialog dialog(&top, fake.pointer());
        Paths paths{ L"kept" };
        EXPECT_FALSE(dialog.get_result(paths));
        EXPECT_EQ(paths, Paths{ L"kept" });
        EXPECT_EQ(log.heard(), expected += one.text);
    }
}

TEST_F(ModernDialog, AnItemWithoutAPathIsLeftOut)
{
    FakeAnswers answers;
    FakeFileDialog fake(answers);
    FileOpenDialog dialog(&top, fake.pointer());
    Paths paths;
    EXPECT_TRUE(dialog.get_result(paths));
    EXPECT_EQ(paths, (Paths{ L"C:\\a", L"C:\\b", L"C:\\c" }));
    answers.second_path = E_FAIL;
    EXPECT_TRUE(dialog.get_result(paths));
    EXPECT_EQ(paths, (Paths{ L"C:\\a", L"C:\\c" }));
}

TEST_F(ModernDialog, ReleasesTheSystemsDialog)
{
    const FakeAnswers answers;
    FakeFileDialog fake(answers);
    {
        FileOpenDialog dialog(&top, fake.pointer());
        EXPECT_EQ(fake.held, 1);
    }
    EXPECT_EQ(fake.held, 0);
}

// A thread without COM cannot create a dialog.
TEST_F(ModernDialog, ThatCannotBeCreatedIsLoggedAndDoesNothing)
{
    std::thread([&] {
        FileOpenDialog dialog(nullptr);
        EXPECT_FALSE(dialog.has_dialog());
        EXPECT_EQ(log.heard(), L"FileOpenDialog::FileOpenDialog: CoCreateInstance に失敗\r\n<800401F0>");
        dialog.set_title(L"a");
        dialog.set_folder(L"C:\\");
        dialog.set_filters({ { L"a", L"*.*" } });
        dialog.set_file_name(L"a");
        dialog.set_default_extension(L"a");
        dialog.allow_multiple(true);
        EXPECT_EQ(dialog.options(), 0u);
        EXPECT_FALSE(dialog.show());
        Paths paths{ L"kept" };
        EXPECT_FALSE(dialog.get_result(paths));
        EXPECT_EQ(paths, Paths{ L"kept" });
    }).join();
}

} // namespace
