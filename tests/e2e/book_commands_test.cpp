// Operations on the open Book as a whole: new, open, save as, backup, adding and deleting pages.
#include "driver_test.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

class BookCommands : public EndToEnd {
protected:
    // Sends the command and enters the file in the dialog that it opens.
    void choose(int id, const std::wstring& caption, const fs::path& file)
    {
        main_window().post_command(id);
        const FileDialog dialog = program().wait_for_file_dialog();
        EXPECT_EQ(dialog.caption(), caption);
        dialog.choose(file.wstring());
    }
    fs::path in_root(const std::wstring& name) const { return root().folder() / name; }
    static std::wstring box1_of(const fs::path& file, std::size_t page = 0)
    {
        return load_book(file).pages.at(page).text[0];
    }
};

} // namespace

TEST_F(BookCommands, SaveAsWritesAnotherFileAndContinuesWithIt)
{
    const fs::path file = open_numbered_book(1);
    const std::string before = file_bytes(file);
    write_first(L"あ");
    main_window().post_command(core::command::save_book_as);
    const FileDialog dialog = program().wait_for_file_dialog();
    EXPECT_EQ(dialog.caption(), L"Book に名前を付けて保存する");
    EXPECT_EQ(dialog.file_name(), L"手帖.bok");
    dialog.choose(in_root(L"写し.bok").wstring());
    expect_soon(L"写し", [&] { return title(); });
    EXPECT_EQ(file_bytes(file), before);
    EXPECT_EQ(box1_of(in_root(L"写し.bok")), L"あ一\r\n");
    EXPECT_EQ(root().history(), (std::vector{ in_root(L"写し.bok").wstring(), file.wstring() }));
}

TEST_F(BookCommands, SaveAsOverAFileThatCannotBeWrittenKeepsTheOldName)
{
    const fs::path file = open_numbered_book(1);
    const auto other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    const ReadOnly protection(other);
    SetFileAttributesW(other.c_str(), FILE_ATTRIBUTE_NORMAL);
    choose(core::command::save_book_as, L"Book に名前を付けて保存する", other);
    // The dialog asks whether to overwrite the file.
    program().wait_for_box().answer(IDYES);
    answer_box(L"Error: Book の保存に失敗\r\n" + other.wstring(), Icon::warning, IDOK);
    expect_soon(L"手帖", [&] { return title(); });
    EXPECT_EQ(root().history(), std::vector{ file.wstring() });
}

// A dialog changes the current directory to the folder it showed, such as the desktop, even if it is
// cancelled.
TEST_F(BookCommands, ARelativePathStaysInTheDataRootWhereverADialogWent)
{
    const auto file = root().add_book(L"手帖.bok", { make_page(L"一") });
    open(L"手帖.bok");
    main_window().post_command(core::command::new_book);
    program().wait_for_file_dialog().cancel();
    write_first(L"あ");
    main_window().send_command(core::command::save_if_changed);
    EXPECT_FALSE(program().has_dialog());
    EXPECT_EQ(box1_of(file), L"あ一\r\n");
    main_window().post_command(core::command::backup_book);
    answer_box(
        L"バックアップしました:\r\n" + (in_root(L"book_backup") / L"手帖.bok").wstring(), Icon::none, IDOK);
    EXPECT_EQ(file_bytes(in_root(L"book_backup") / L"手帖.bok"), file_bytes(file));
}

TEST_F(BookCommands, ANewBookIsCreatedAfterTheOldOneIsSaved)
{
    const fs::path file = open_numbered_book(2);
    write_first(L"あ");
    choose(core::command::new_book, L"Book の新規作成", in_root(L"白紙"));
    expect_soon(L"白紙", [&] { return title(); });
    expect_page(L"");
    EXPECT_EQ(box1_of(file), L"あ一\r\n");
    EXPECT_EQ(load_book(in_root(L"白紙.bok")).pages.size(), 1u);
    EXPECT_EQ(root().history(), (std::vector{ in_root(L"白紙.bok").wstring(), file.wstring() }));
}

TEST_F(BookCommands, OpeningAnotherBookSavesTheOneBefore)
{
    const auto other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    const fs::path file = open_numbered_book(1);
    write_first(L"あ");
    choose(core::command::open_book, L"Book を開く", other);
    expect_page(L"ほか");
    EXPECT_EQ(title(), L"ほか");
    EXPECT_EQ(box1_of(file), L"あ一\r\n");
    EXPECT_EQ(root().history(), (std::vector{ other.wstring(), file.wstring() }));
}

TEST_F(BookCommands, OpeningTheOpenBookSavesItAndShowsItAgain)
{
    const fs::path file = open_numbered_book(3);
    main_window().send_command(core::command::next_page);
    expect_page(L"二");
    write_first(L"あ");
    choose(core::command::open_book, L"Book を開く", file);
    expect_soon(L"手帖", [&] { return title(); });
    expect_page(L"あ二");
    EXPECT_EQ(root().history(), std::vector{ file.wstring() });
}

TEST_F(BookCommands, AMissingBookOfTheHistoryLeavesTheOpenOneUntouched)
{
    const fs::path file = root().add_book(L"手帖.bok", { make_page(L"一") });
    const fs::path missing = in_root(L"消えた.bok");
    root().write_history({ file.wstring(), missing.wstring() });
    start().wait_for_window();
    main_window().post_command(core::command::first_history_entry + 1);
    answer_box(L"ファイル [" + missing.wstring() + L"] が見つかりませんでした．", Icon::warning, IDOK);
    expect_page(L"一");
    EXPECT_EQ(title(), L"手帖");
    EXPECT_EQ(root().history(), std::vector{ file.wstring() });
}

TEST_F(BookCommands, AnUnreadableBookOpenedByCommandEndsTheProgram)
{
    const fs::path file = open_numbered_book(1);
    const fs::path broken = in_root(L"壊れた.bok");
    write_bytes(broken, "");
    choose(core::command::open_book, L"Book を開く", broken);
    answer_box(L"BookHeader のロードに失敗\r\n" + broken.wstring() + closing_words, Icon::error, IDOK);
    EXPECT_EQ(program().exit_code(), 0u);
    EXPECT_EQ(root().history(), std::vector{ file.wstring() });
    EXPECT_EQ(box1_of(file), L"一\r\n");
    EXPECT_EQ(file_bytes(broken), "");
}

TEST_F(BookCommands, ReloadShowsTheContentsOfTheFile)
{
    const fs::path file = open_numbered_book(1);
    write_first(L"あ");
    main_window().send_command(core::command::restore_book);
    expect_page(L"一");
    EXPECT_EQ(title(), L"手帖");
    EXPECT_EQ(box1_of(file), L"一\r\n");
}

TEST_F(BookCommands, ABackupIsACopyOfTheFileAndTheSecondOneAsks)
{
    const fs::path file = open_numbered_book(1);
    const fs::path copy = in_root(L"book_backup") / L"手帖.bok";
    main_window().post_command(core::command::backup_book);
    answer_box(L"バックアップしました:\r\n" + copy.wstring(), Icon::none, IDOK);
    EXPECT_EQ(file_bytes(copy), file_bytes(file));
    make_old(copy);
    const auto overwrite = L"手帖.bok はすでにバックアップフォルダに存在します．上書きしますか？";
    main_window().post_command(core::command::backup_book);
    answer_box(overwrite, Icon::question, IDNO);
    main_window().send(WM_NULL);
    EXPECT_FALSE(program().has_dialog());
    EXPECT_TRUE(is_old(copy));
    write_first(L"あ");
    main_window().send_command(core::command::save_if_changed);
    main_window().post_command(core::command::backup_book);
    answer_box(overwrite, Icon::question, IDYES);
    answer_box(L"バックアップしました:\r\n" + copy.wstring(), Icon::none, IDOK);
    EXPECT_EQ(box1_of(copy), L"あ一\r\n");
}

TEST_F(BookCommands, WithTheSettingOnEachLoadMakesABackupSilently)
{
    write_bytes(root().settings_file(), "[COMMON]\r\nAUTOBACKUP=1\r\n");
    const fs::path file = open_numbered_book(1);
    EXPECT_EQ(file_bytes(in_root(L"book_backup") / L"手帖.bok"), file_bytes(file));
    close();
    start().wait_for_window();
    EXPECT_FALSE(program().has_dialog());
}

TEST_F(BookCommands, APageIsAddedAtTheEndOrAtTheCurrentPositionAndSavedAtOnce)
{
    const fs::path file = open_numbered_book(2);
    main_window().send_command(core::command::add_page_at_end);
    expect_page(L"");
    ASSERT_EQ(load_book(file).pages.size(), 3u);
    EXPECT_EQ(box1_of(file, 2), L"");
    main_window().send_command(core::command::first_page);
    expect_page(L"一");
    main_window().send_command(core::command::add_page_here);
    expect_page(L"");
    ASSERT_EQ(load_book(file).pages.size(), 4u);
    EXPECT_EQ(box1_of(file, 0), L"");
    EXPECT_EQ(box1_of(file, 1), L"一\r\n");
}

TEST_F(BookCommands, DeletingAPageAsksWithItsNumber)
{
    const fs::path file = open_numbered_book(2);
    main_window().send_command(core::command::last_page);
    const auto question = L"このページを削除しますか？\r\n[ p.2 ]";
    main_window().post_command(core::command::delete_page);
    answer_box(question, Icon::question, IDNO);
    expect_page(L"二");
    main_window().post_command(core::command::delete_page);
    answer_box(question, Icon::question, IDYES);
    expect_page(L"一");
    ASSERT_EQ(load_book(file).pages.size(), 1u);
    main_window().post_command(core::command::delete_page);
    answer_box(L"このページを削除しますか？\r\n[ p.1 ]", Icon::question, IDYES);
    expect_page(L"");
    close();
    EXPECT_EQ(load_book(file).pages.size(), 1u);
    EXPECT_EQ(box1_of(file), L"");
}
