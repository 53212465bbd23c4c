// Books that cannot be written. The user's text must never end up in another page.
#include "driver_test.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

constexpr auto question = L"ページの内容が変更されています．\r\nファイルに保存しますか？";

class FailingSave : public EndToEnd {
protected:
    static std::wstring failure_text(const fs::path& file)
    {
        return L"Error: Book の保存に失敗\r\n" + file.wstring() + L"\r\n\r\nこのファイルは読取り専用";
    }
    void expect_failure(const fs::path& file)
    {
        const MessageDialog failure = program().wait_for_box();
        EXPECT_EQ(failure.caption(), L"Pagewick v1.06 - 手帖");
        answer_box(failure_text(file), Icon::warning, IDOK);
    }
};

} // namespace

TEST_F(FailingSave, CtrlSReportsThatTheFileIsReadOnlyAndKeepsTheEdit)
{
    const fs::path file = open_numbered_book(2);
    const std::string before = file_bytes(file);
    const ReadOnly protection(file);
    write_first(L"あ");
    chord({ VK_CONTROL, 'S' });
    expect_failure(file);
    EXPECT_EQ(title(), L"手帖 *");
    EXPECT_EQ(box(core::command::box_1).text(), L"あ一\r\n");
    EXPECT_EQ(file_bytes(file), before);
}

TEST_F(FailingSave, AFileHeldByAnotherProgramIsNotCalledReadOnly)
{
    const fs::path file = open_numbered_book(1);
    const ReadOnly protection(file);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    main_window().post_command(core::command::save_always);
    answer_box(L"Error: Book の保存に失敗\r\n" + file.wstring(), Icon::warning, IDOK);
}

TEST_F(FailingSave, TheStepIsCancelledAndTheNextOneAsksAgain)
{
    const fs::path file = open_numbered_book(3);
    {
        const ReadOnly protection(file);
        write_first(L"あ");
        for (const int step : { core::command::next_page, core::command::last_page }) {
            main_window().post_command(step);
            answer_box(question, Icon::question, IDYES);
            expect_failure(file);
            EXPECT_EQ(box(core::command::box_1).text(), L"あ一\r\n");
            EXPECT_EQ(title(), L"手帖 *");
        }
    }
    main_window().post_command(core::command::next_page);
    answer_box(question, Icon::question, IDYES);
    expect_page(L"二");
    close();
    const book::Book book = load_book(file);
    EXPECT_EQ(book.pages[0].text[0], L"あ一\r\n");
    EXPECT_EQ(book.pages[1].text[0], L"二\r\n");
    EXPECT_EQ(book.pages[2].text[0], L"三\r\n");
}

TEST_F(FailingSave, AfterANoTheStepIsTaken)
{
    const fs::path file = open_numbered_book(2);
    const ReadOnly protection(file);
    write_first(L"あ");
    main_window().post_command(core::command::next_page);
    answer_box(question, Icon::question, IDNO);
    expect_page(L"二");
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(FailingSave, ANewPageIsNotCreatedFromTheTextThatCouldNotBeSaved)
{
    const fs::path file = open_numbered_book(2);
    {
        const ReadOnly protection(file);
        write_first(L"あ");
        main_window().post_command(core::command::add_page_at_end);
        answer_box(question, Icon::question, IDYES);
        expect_failure(file);
        EXPECT_EQ(box(core::command::box_1).text(), L"あ一\r\n");
    }
    close();
    const book::Book book = load_book(file);
    ASSERT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.pages[0].text[0], L"あ一\r\n");
    EXPECT_EQ(book.pages[1].text[0], L"二\r\n");
}

TEST_F(FailingSave, AtShutdownTheFailureIsShownOverAHiddenWindowAndTheProgramStillEnds)
{
    const fs::path file = open_numbered_book(1);
    const std::string before = file_bytes(file);
    const ReadOnly protection(file);
    write_first(L"あ");
    main_window().post(WM_CLOSE);
    const MessageDialog failure = program().wait_for_box();
    EXPECT_EQ(failure.text(), failure_text(file));
    EXPECT_TRUE(main_window().exists());
    EXPECT_FALSE(main_window().is_visible());
    // A second close in the meantime is refused, not nested.
    main_window().post(WM_CLOSE);
    failure.answer(IDOK);
    EXPECT_EQ(program().exit_code(), 0u);
    EXPECT_EQ(file_bytes(file), before);
    EXPECT_TRUE(fs::exists(root().settings_file()));
}

TEST_F(FailingSave, AnotherBookNeverReceivesTheUnsavedTextOfTheOneBefore)
{
    const auto other = root().add_book(L"ほか.bok", { make_page(L"ほか") });
    const fs::path file = root().add_book(L"手帖.bok", { make_page(L"一") });
    root().write_history({ file.wstring(), other.wstring() });
    start().wait_for_window();
    const ReadOnly protection(file);
    write_first(L"あ");
    main_window().post_command(core::command::first_history_entry + 1);
    expect_failure(file);
    expect_page(L"ほか");
    expect_soon(L"ほか", [&] { return title(); });
    close();
    EXPECT_EQ(load_book(other).pages[0].text[0], L"ほか\r\n");
}
