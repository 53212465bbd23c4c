// Every row of the Book menu, chosen by mouse and by keys.
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

constexpr auto save_as_title = L"Book に名前を付けて保存する";

class BookMenu : public MainWindowTest, public testing::WithParamInterface<Hand> {
protected:
    void choose(int id, bool has_edits = false) { book_menu(has_edits).choose(id, GetParam()); }
    FileDialog dialog_of(int id, const std::wstring& caption)
    {
        choose(id);
        const FileDialog dialog = program().wait_for_file_dialog();
        EXPECT_EQ(dialog.caption(), caption);
        return dialog;
    }
    fs::path in_root(const std::wstring& name) const { return root().folder() / name; }
    fs::path open_one_page()
    {
        const fs::path file = open_numbered(1);
        return file;
    }
    std::wstring box1_of(const fs::path& file) const { return load_book(file).pages.at(0).text[0]; }
};

INSTANTIATE_TEST_SUITE_P(By, BookMenu, testing::Values(Hand::mouse, Hand::keys),
    [](const auto& test) { return std::string(test.param == Hand::mouse ? "Mouse" : "Keys"); });

} // namespace

TEST_P(BookMenu, CreatesANewBook)
{
    open_one_page();
    dialog_of(command::new_book, L"Book の新規作成").choose(in_root(L"白紙.bok").wstring());
    expect_soon(L"白紙", [&] { return title(); });
    expect_page(L"");
    EXPECT_EQ(load_book(in_root(L"白紙.bok")).pages.size(), 1u);
}

TEST_P(BookMenu, OpensAnotherBook)
{
    const fs::path other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    open_one_page();
    dialog_of(command::open_book, L"Book を開く").choose(other.wstring());
    expect_page(L"ほか");
    EXPECT_EQ(title(), L"ほか");
}

TEST_P(BookMenu, SavesAnEdit)
{
    const fs::path file = open_one_page();
    write_first(L"あ");
    choose(command::save_always, true);
    expect_soon(L"手帖", [&] { return title(); });
    EXPECT_EQ(box1_of(file), L"あ一\r\n");
}

TEST_P(BookMenu, SavesNothingWhileNothingIsEdited)
{
    const fs::path file = open_one_page();
    make_old(file);
    book_menu(false).choose_in_vain(command::save_always, GetParam());
    // Commands are served in order: when the backup is done, the save before it is done too.
    choose(command::backup_book);
    program().wait_for_box().answer(IDOK);
    EXPECT_TRUE(is_old(file));
}

TEST_P(BookMenu, SavesAsOverAnExistingFileAfterAQuestion)
{
    const fs::path other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    const fs::path file = open_one_page();
    const FileDialog dialog = dialog_of(command::save_book_as, save_as_title);
    dialog.choose(other.wstring());
    program().wait_for_box().answer(IDNO);
    EXPECT_EQ(box1_of(other), L"ほか\r\n");
    dialog.choose(other.wstring());
    program().wait_for_box().answer(IDYES);
    expect_soon(L"ほか", [&] { return title(); });
    EXPECT_EQ(box1_of(other), L"一\r\n");
    EXPECT_EQ(root().history(), (std::vector{ other.wstring(), file.wstring() }));
    EXPECT_EQ(box1_of(file), L"一\r\n");
}

TEST_P(BookMenu, MakesABackupAndAsksBeforeTheSecond)
{
    const fs::path file = open_one_page();
    const fs::path copy = in_root(L"book_backup") / L"手帖.bok";
    const std::wstring done = L"バックアップしました:\r\n" + copy.wstring();
    choose(command::backup_book);
    answer_box(done, Icon::none, IDOK);
    EXPECT_EQ(file_bytes(copy), file_bytes(file));
    choose(command::backup_book);
    answer_box(L"手帖.bok はすでにバックアップフォルダに存在します．上書きしますか？", Icon::question, IDYES);
    answer_box(done, Icon::none, IDOK);
}

TEST_P(BookMenu, EndsTheProgram)
{
    open_one_page();
    choose(command::close_program);
    EXPECT_EQ(program().exit_code(), 0u);
}
