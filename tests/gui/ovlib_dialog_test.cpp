// The classic file dialogs, answered as a user does.
#include "ovlib/gui/classic_dialog.hpp"
#include "tests/support/gui_file_dialog.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_log.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>

namespace {

using ovlib::classic::FileOpenDialog;
using ovlib::classic::FileSaveDialog;

using gui::cancel_dialog;

void answer(HWND dialog, const std::wstring& name)
{
    EXPECT_TRUE(gui::answer_with_name(dialog, name));
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
        SetCurrentDirectoryW(L"C:\\"); // otherwise the folder could not be removed
    }

    gui::TopWnd top;
    gui::TempFolder folder;
    gui::LogEar log;
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

TEST_F(ClassicDialog, StartsEachTimeOnlyWithTheNameThatWasSet)
{
    FileSaveDialog dialog(&top);
    dialog.set_options(OFN_EXPLORER);
    dialog.set_folder(folder.path());
    for (const wchar_t* const name : { L"a long name.bok", L"b.bok" }) {
        dialog.set_file_name(name);
        std::wstring shown;
        gui::DialogDriver driver([&](HWND box) {
            gui::poll_until([&] { return !gui::text_of(gui::name_field(box)).empty(); });
            shown = gui::text_of(gui::name_field(box));
            cancel_dialog(box);
        });
        EXPECT_FALSE(dialog.show());
        EXPECT_TRUE(driver.finish());
        EXPECT_EQ(shown, name);
    }
}

TEST_F(ClassicDialog, ReturnsNothingWhenCancelled)
{
    FileOpenDialog dialog(&top);
    dialog.set_options(OFN_EXPLORER);
    dialog.set_folder(folder.path());
    {
        gui::DialogDriver driver([](HWND box) { answer(box, L"a.bok"); });
        ASSERT_TRUE(dialog.show());
    }
    gui::DialogDriver driver(cancel_dialog);
    EXPECT_FALSE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_TRUE(dialog.results().empty()) << "nothing is left of the time before";
    EXPECT_EQ(dialog.result(), L"");
    EXPECT_EQ(log.heard(), L"");
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
        gui::poll_until(
            [&] { return gui::name_field(box) != nullptr && !gui::text_of(gui::name_field(box)).empty(); });
        proposed = gui::text_of(gui::name_field(box));
        answer(box, L"新しい");
    });
    ASSERT_TRUE(dialog.show());
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(proposed, L"提案.bok");
    EXPECT_EQ(dialog.result(), folder.file(L"新しい.bok"));
}

TEST_F(ClassicDialog, TruncatesAFileNameThatDoesNotFit)
{
    FileSaveDialog dialog(&top);
    dialog.set_options(OFN_EXPLORER);
    dialog.set_folder(folder.path());
    dialog.set_file_name(std::wstring(5'000, L'n'));
    gui::DialogDriver driver(cancel_dialog);
    EXPECT_FALSE(dialog.show());
    EXPECT_TRUE(driver.finish());
}

} // namespace
