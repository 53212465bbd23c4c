// Starting: the history, the first Book, the guard against a second start.
#include "driver_test.hpp"
#include <algorithm>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

class Start : public EndToEnd {
protected:
    void make_book_by_dialog(const fs::path& file)
    {
        const FileDialog dialog = program().wait_for_file_dialog();
        EXPECT_EQ(dialog.caption(), L"Book の新規作成");
        EXPECT_EQ(dialog.file_name(), L"");
        dialog.choose(file.wstring());
        program().wait_for_window();
    }
    void cancel_new_book()
    {
        const FileDialog dialog = program().wait_for_file_dialog();
        EXPECT_EQ(dialog.caption(), L"Book の新規作成");
        dialog.cancel();
    }
    static std::wstring missing_text(const fs::path& file)
    {
        return L"ファイル [" + file.wstring() + L"] が見つかりませんでした．";
    }
};

std::vector<std::wstring> lines_of(const fs::path& file)
{
    std::vector<std::wstring> lines;
    std::wstring text = utf16_text(file_bytes(file));
    for (std::size_t end; (end = text.find(L"\r\n")) != text.npos; text.erase(0, end + 2))
        lines.push_back(text.substr(0, end));
    EXPECT_EQ(text, L"") << "the file ends inside a line";
    return lines;
}

bool is_lower_hex(const std::wstring& text)
{
    return text.find_first_not_of(L"0123456789abcdef") == text.npos;
}

} // namespace

TEST_F(Start, WithAnEmptyHistoryCreatesTheBookThatTheDialogNames)
{
    start();
    make_book_by_dialog(root().folder() / L"新しい手帖");
    const fs::path file = root().folder() / L"新しい手帖.bok";
    expect_soon(L"新しい手帖", [&] { return title(); });
    EXPECT_EQ(box(core::command::box_1).text(), L"");
    EXPECT_EQ(root().history(), std::vector{ file.wstring() });
    close();

    const auto lines = lines_of(file);
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_EQ(lines[0], L"\x3\x3");
    EXPECT_EQ(lines[1].size(), 656u);
    EXPECT_TRUE(is_lower_hex(lines[1]));
    EXPECT_EQ(lines[2], L"\x3\x3");
    for (const std::size_t separator : { 3, 4, 5, 6, 7, 9 })
        EXPECT_EQ(lines[separator], L"\x3");
    EXPECT_EQ(std::count(lines[8].begin(), lines[8].end(), L' '), 12);

    const book::Book book = load_book(file);
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].stamp.size(), 28u);
    EXPECT_EQ(book.pages[0].stamp.substr(0, 14), book.pages[0].stamp.substr(14));
    EXPECT_EQ(book.header.theme, book::standard_theme);
}

TEST_F(Start, WithAnEmptyHistoryAndTheDialogCancelledEndsTheProgram)
{
    start();
    cancel_new_book();
    const MessageDialog box = program().wait_for_box();
    EXPECT_EQ(box.caption(), L"Pagewick v1.06");
    expect_fatal_start(L"Book を開けませんでした");
}

TEST_F(Start, ShowsTheFirstPageOfTheNewestBook)
{
    auto page = make_page(L"  一行目\r\n二行目", L"見出し", L"本文\r\n\r\n終わり");
    const auto file = root().add_book(L"旅の 手帖.2.bok", { page, make_page(L"次") });
    const auto other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    root().write_history({ file.wstring(), other.wstring() });

    const Window window = start().wait_for_window();

    EXPECT_EQ(window.text(), L"旅の 手帖.2");
    EXPECT_EQ(box(core::command::box_1).text(), L"  一行目\r\n二行目\r\n");
    EXPECT_EQ(box(core::command::box_2).text(), L"見出し");
    EXPECT_EQ(box(core::command::box_3).text(), L"本文\r\n\r\n終わり\r\n");
    EXPECT_FALSE(box(core::command::box_1).is_modified());
    EXPECT_EQ(root().history(), (std::vector{ file.wstring(), other.wstring() }));
}

TEST_F(Start, TheWindowIsCentredOnTheScreen)
{
    open(root().add_book(L"手帖.bok", { make_page(L"一") }));
    const RECT rect = main_window().rect();
    EXPECT_EQ(rect.right - rect.left, 1380);
    EXPECT_EQ(rect.bottom - rect.top, 854);
    EXPECT_EQ(rect.left, (GetSystemMetrics(SM_CXSCREEN) - 1380) / 2);
    EXPECT_EQ(rect.top, (GetSystemMetrics(SM_CYSCREEN) - 854) / 2);
    EXPECT_EQ(main_window().style() & (WS_THICKFRAME | WS_MAXIMIZEBOX), 0);
}

TEST_F(Start, IgnoresItsArguments)
{
    const auto file = root().add_book(L"手帖.bok", { make_page(L"一") });
    const auto other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    root().write_history({ file.wstring() });
    start(L"\"" + other.wstring() + L"\" /open --help").wait_for_window();
    EXPECT_EQ(title(), L"手帖");
    expect_page(L"一");
    EXPECT_FALSE(program().has_dialog());
}

TEST_F(Start, CountsARelativePathOfTheHistoryFromTheDataRoot)
{
    fs::create_directories(root().folder() / L"書庫");
    const auto file = root().add_book(L"書庫\\手帖.bok", { make_page(L"一") });
    open(L"書庫\\手帖.bok");
    EXPECT_EQ(title(), L"手帖");
    expect_page(L"一");
    make_old(file);
    main_window().send_command(core::command::save_always);
    EXPECT_FALSE(is_old(file));
    EXPECT_EQ(root().history(), std::vector<std::wstring>{ L"書庫\\手帖.bok" });
}

TEST_F(Start, NamesAMissingBookForgetsItAndOpensTheNext)
{
    const fs::path missing = root().folder() / L"消えた.bok";
    const auto file = root().add_book(L"手帖.bok", { make_page(L"一") });
    root().write_history({ missing.wstring(), file.wstring() });
    start();
    EXPECT_EQ(program().wait_for_box().caption(), L"Pagewick v1.06");
    answer_box(missing_text(missing), Icon::warning, IDOK);
    program().wait_for_window();
    EXPECT_EQ(title(), L"手帖");
    EXPECT_EQ(root().history(), std::vector{ file.wstring() });
}

TEST_F(Start, AsksForANewBookWhenEveryBookOfTheHistoryIsMissing)
{
    const fs::path first = root().folder() / L"甲.bok";
    const fs::path second = root().folder() / L"乙.bok";
    root().write_history({ first.wstring(), second.wstring() });
    start();
    answer_box(missing_text(first), Icon::warning, IDOK);
    answer_box(missing_text(second), Icon::warning, IDOK);
    make_book_by_dialog(root().folder() / L"丙.bok");
    expect_soon(L"丙", [&] { return title(); });
    EXPECT_EQ(root().history(), std::vector{ (root().folder() / L"丙.bok").wstring() });
}

TEST_F(Start, ANewBookThatCannotBeWrittenEndsTheProgram)
{
    const fs::path taken = root().add_book(L"手帖.bok", { make_page(L"一") });
    const std::string before = file_bytes(taken);
    const ReadOnly protection(taken);
    SetFileAttributesW(taken.c_str(), FILE_ATTRIBUTE_NORMAL);
    start();
    program().wait_for_file_dialog().choose(taken.wstring());
    // The dialog asks whether to overwrite the file.
    program().wait_for_box().answer(IDYES);
    answer_box(L"Book の作成に失敗", Icon::warning, IDOK);
    expect_fatal_start(L"Book を開けませんでした");
    EXPECT_EQ(file_bytes(taken), before);
}

TEST_F(Start, AHistoryOfNothingButAByteOrderMarkAsksOnceForANewBook)
{
    write_bytes(root().history_file(), utf16_bytes(L"\xFEFF\r\n"));
    start();
    cancel_new_book();
    expect_fatal_start(L"Book を開けませんでした");
}

TEST_F(Start, AByteOrderMarkBeforeTheFirstPathIsNotPartOfIt)
{
    const auto file = root().add_book(L"手帖.bok", { make_page(L"一") });
    write_bytes(root().history_file(), utf16_bytes(L"\xFEFF" + file.wstring() + L"\r\n"));
    start().wait_for_window();
    EXPECT_EQ(title(), L"手帖");
    EXPECT_EQ(root().history(), std::vector{ file.wstring() });
}

TEST_F(Start, RunsWithDefaultsWhereTheDatFolderIsMissing)
{
    fs::remove_all(root().folder() / L"dat");
    start();
    make_book_by_dialog(root().folder() / L"手帖.bok");
    close();
    EXPECT_FALSE(fs::exists(root().folder() / L"dat"));
    EXPECT_TRUE(fs::exists(root().folder() / L"手帖.bok"));
}

TEST_F(Start, RunsInAFolderWithAJapaneseName)
{
    const DataRoot japanese(L"書斎 （机の上）");
    const auto file = japanese.add_book(L"手帖.bok", { make_page(L"一") });
    japanese.write_history({ file.wstring() });
    const Program other(japanese.program(), L"");
    const Window window = other.wait_for_window();
    EXPECT_EQ(window.text(), L"手帖");
    window.post(WM_CLOSE);
    EXPECT_EQ(other.exit_code(), 0u);
    EXPECT_TRUE(fs::exists(japanese.settings_file()));
    japanese.remove();
}

TEST_F(Start, ASecondStartIsRefusedAndLeavesTheFirstRunning)
{
    const auto file = open_numbered_book(2);
    make_old(file);
    {
        const Program second(root().program(), L"");
        const MessageDialog box = second.wait_for_box();
        EXPECT_EQ(box.text(), L"This application is already running.");
        EXPECT_EQ(box.caption(), L"Pagewick");
        EXPECT_EQ(box.icon(), Icon::warning);
        box.answer(IDOK);
        EXPECT_EQ(second.exit_code(), failed_exit_code);
    }
    EXPECT_TRUE(program().is_running());
    EXPECT_TRUE(is_old(file));
    main_window().send_command(core::command::next_page);
    expect_page(L"二");
    close();
    // The guard has been released.
    start().wait_for_window();
}
