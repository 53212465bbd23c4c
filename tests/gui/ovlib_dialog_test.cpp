// The classic file dialogs, answered as a user answers them.
#include <gtest/gtest.h>

#include "ovlib/gui/classic_dialog.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_window.hpp"

namespace {

using ovlib::classic::FileOpenDialog;
using ovlib::classic::FileSaveDialog;

constexpr int file_name_field = 1148;

// The edit inside the combo box that holds the name.
HWND name_edit(HWND dialog)
{
    HWND field = GetDlgItem(dialog, file_name_field);
    while (HWND inner = field != nullptr ? GetWindow(field, GW_CHILD) : nullptr)
        field = inner;
    return field;
}

void answer(HWND dialog, const std::wstring& name)
{
    ASSERT_TRUE(gui::poll_until([&] { return name_edit(dialog) != nullptr; }));
    SendMessageW(name_edit(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

void cancel(HWND dialog)
{
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

class ClassicDialog : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.create(L"owner"));
        for (const wchar_t* name : { L"a.bok", L"b.bok", L"第 三.bok", L"d.txt" })
            folder.write(name, { 'x' });
    }
    void TearDown() override
    {
        top.destroy();
        SetCurrentDirectoryW(L"C:\\"); // or the folder could not be removed
    }

    gui::TopWnd top;
    gui::TempFolder folder;
};

TEST_F(ClassicDialog, OpensOneFile)
{
    FileOpenDialog dialog(&top);
    dialog.set_title(L"Book を開く");
    dialog.set_filters({ { L"Book Files", L"*.bok" } });
    dialog.set_default_extension(L"bok");
    dialog.set_options(0x80004);
    dialog.set_folder(folder.path());
    std::wstring title;
    HWND owner = nullptr;
    gui::DialogDriver driver([&](HWND box) {
        title = gui::text_of(box);
        owner = GetWindow(box, GW_OWNER);
        answer(box, L"第 三.bok");
    });
    ASSERT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(title, L"Book を開く");
    EXPECT_EQ(owner, top.hwnd());
    EXPECT_EQ(dialog.results(), (std::vector<std::wstring>{ folder.file(L"第 三.bok") }));
    EXPECT_EQ(dialog.result(), folder.file(L"第 三.bok"));
    EXPECT_EQ(dialog.options() & 0x80004u, 0x80004u);
}

TEST_F(ClassicDialog, CancelGivesNothing)
{
    FileOpenDialog dialog(&top);
    dialog.set_options(OFN_EXPLORER);
    dialog.set_folder(folder.path());
    {
        gui::DialogDriver driver([](HWND box) { answer(box, L"a.bok"); });
        ASSERT_TRUE(dialog.show());
    }
    gui::DialogDriver driver(cancel);
    EXPECT_FALSE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_TRUE(dialog.results().empty()) << "nothing is left of the time before";
    EXPECT_EQ(dialog.result(), L"");
}

TEST_F(ClassicDialog, OpensSeveralFilesByTheirFullPaths)
{
    FileOpenDialog dialog(&top);
    dialog.set_options(OFN_EXPLORER | OFN_ALLOWMULTISELECT);
    dialog.set_folder(folder.path());
    gui::DialogDriver driver([](HWND box) { answer(box, L"\"a.bok\" \"第 三.bok\" \"b.bok\""); });
    ASSERT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(dialog.results(),
        (std::vector<std::wstring>{
            folder.file(L"a.bok"), folder.file(L"第 三.bok"), folder.file(L"b.bok") }));
}

TEST_F(ClassicDialog, OneOfSeveralIsOneFullPath)
{
    FileOpenDialog dialog(&top);
    dialog.set_options(OFN_EXPLORER | OFN_ALLOWMULTISELECT);
    dialog.set_folder(folder.path());
    for (int round = 0; round < 2; ++round) {
        gui::DialogDriver driver([](HWND box) { answer(box, L"b.bok"); });
        ASSERT_TRUE(dialog.show());
        EXPECT_TRUE(driver.finish());
        EXPECT_EQ(dialog.results(), (std::vector<std::wstring>{ folder.file(L"b.bok") }));
    }
}

TEST_F(ClassicDialog, SavesWithTheDefaultExtension)
{
    FileSaveDialog dialog(&top);
    dialog.set_filters({ { L"Book Files", L"*.bok" } });
    dialog.set_default_extension(L"bok");
    dialog.set_options(0x80006);
    dialog.set_folder(folder.path());
    dialog.set_file_name(L"提案.bok");
    std::wstring proposed;
    gui::DialogDriver driver([&](HWND box) {
        gui::poll_until([&] { return name_edit(box) != nullptr && !gui::text_of(name_edit(box)).empty(); });
        proposed = gui::text_of(name_edit(box));
        answer(box, L"新しい");
    });
    ASSERT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(proposed, L"提案.bok");
    EXPECT_EQ(dialog.result(), folder.file(L"新しい.bok"));
}

TEST_F(ClassicDialog, AFileNameThatDoesNotFitIsCutAndHarmless)
{
    FileSaveDialog dialog(&top);
    dialog.set_options(OFN_EXPLORER);
    dialog.set_folder(folder.path());
    dialog.set_file_name(std::wstring(5'000, L'n'));
    gui::DialogDriver driver(cancel);
    EXPECT_FALSE(dialog.show());
    EXPECT_TRUE(driver.finish());
}

TEST(ChosenPaths, AreReadFromTheBuffer)
{
    using ovlib::classic::chosen_paths;
    using Paths = std::vector<std::wstring>;
    EXPECT_EQ(chosen_paths(L"C:\\a\\b.bok\0", false), Paths{ L"C:\\a\\b.bok" });
    EXPECT_EQ(chosen_paths(L"C:\\a\\b.bok\0", true), Paths{ L"C:\\a\\b.bok" });
    EXPECT_EQ(chosen_paths(L"C:\\a\0one\0two\0", true), (Paths{ L"C:\\a\\one", L"C:\\a\\two" }));
    EXPECT_EQ(chosen_paths(L"C:\\\0one\0two\0", true), (Paths{ L"C:\\one", L"C:\\two" }));
    EXPECT_EQ(chosen_paths(L"C:\\a\0ignored\0", false), Paths{ L"C:\\a" });
    EXPECT_EQ(chosen_paths(L"\0", true), Paths{});
}

} // namespace
