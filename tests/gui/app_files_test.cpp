// Commands on the page's file list, its folder and its tab.
#include "look/tab_strip.hpp"
#include "tests/support/gui_app.hpp"

namespace {

namespace command = core::command;
using gui::AppWindow;
using gui::MetBox;
using Files = std::vector<std::wstring>;

constexpr wchar_t remove_question[] = L"リストからこのファイルを削除しますか？\r\nb.png";

class FileCommands : public AppWindow {
protected:
    void open_with_files(std::uint64_t current = 1)
    {
        book::Book book = book_of({ page(L"1\r\n"), page(L"2\r\n") });
        book.pages[0].files = { L"a.png", L"b.png", L"c.png" };
        book.pages[0].current_file = current;
        open(book);
    }
    const Files& files() const { return shown().files; }
    std::uint64_t current() const { return shown().current_file; }
    // To be called on the box's thread while it is open.
    void send_command(int id) { SendMessageW(window().hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    const book::Page& shown() const { return const_cast<FileCommands*>(this)->book().pages[0]; }
};

TEST_F(FileCommands, SelectEntriesAndStayAtTheEnds)
{
    open_with_files();
    command(command::next_file);
    command(command::next_file);
    EXPECT_EQ(current(), 2u);
    command(command::previous_file);
    EXPECT_EQ(current(), 1u);
    command(command::first_file);
    command(command::previous_file);
    EXPECT_EQ(current(), 0u);
    command(command::last_file);
    EXPECT_EQ(current(), 2u);
}

TEST_F(FileCommands, MoveAnEntryAndKeepItSelected)
{
    open_with_files();
    command(command::move_file_up);
    EXPECT_EQ(files(), (Files{ L"b.png", L"a.png", L"c.png" }));
    EXPECT_EQ(current(), 0u);
    command(command::move_file_to_end);
    EXPECT_EQ(files(), (Files{ L"a.png", L"c.png", L"b.png" }));
    EXPECT_EQ(current(), 2u);
}

TEST_F(FileCommands, NeitherSaveNorChangeTheStamp)
{
    open_with_files();
    const std::wstring stamp = shown().stamp;
    for (int id = command::first_file; id <= command::move_file_to_end; ++id)
        command(id);
    command(command::sort_files_descending);
    EXPECT_EQ(files(), (Files{ L"c.png", L"b.png", L"a.png" }));
    EXPECT_EQ(shown().stamp, stamp);
    EXPECT_EQ(saved().pages[0].files, (Files{ L"a.png", L"b.png", L"c.png" }));
    EXPECT_EQ(title(), L"手帖");
}

TEST_F(FileCommands, RemoveTheEntryThatWasAskedAbout)
{
    open_with_files(1);
    EXPECT_EQ(answered(IDNO, [&] { command(command::remove_file); }).text, remove_question);
    EXPECT_EQ(files().size(), 3u);
    answered(IDYES, [&] { command(command::remove_file); });
    EXPECT_EQ(files(), (Files{ L"a.png", L"c.png" }));
    EXPECT_EQ(current(), 1u);
    answered(IDYES, [&] { command(command::remove_file); });
    EXPECT_EQ(current(), 0u);
}

TEST_F(FileCommands, RemoveNothingIfAnotherEntryWasSelectedMeanwhile)
{
    open_with_files();
    answered(
        IDYES, [&] { command(command::remove_file); }, [&] { send_command(command::next_file); });
    EXPECT_EQ(files().size(), 3u);
    EXPECT_EQ(current(), 2u);
}

TEST_F(FileCommands, RemoveNothingIfTheEntryMovedMeanwhile)
{
    open_with_files();
    answered(
        IDYES, [&] { command(command::remove_file); }, [&] { send_command(command::move_file_up); });
    EXPECT_EQ(files(), (Files{ L"b.png", L"a.png", L"c.png" }));
}

TEST_F(FileCommands, RemoveNothingIfAnotherPageArrivedMeanwhile)
{
    open_with_files();
    for (const int id : { command::remove_file, command::remove_all_files }) {
        answered(
            IDYES, [&] { command(id); }, [&] { send_command(command::add_page_at_end); });
        EXPECT_EQ(files().size(), 3u);
        command(command::first_page);
    }
}

TEST_F(FileCommands, RemoveTheWholeListAfterAQuestion)
{
    open_with_files();
    const MetBox met = answered(IDYES, [&] { command(command::remove_all_files); });
    EXPECT_EQ(met.text, L"リストから全てのファイルを削除しますか？");
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(current(), 0u);
}

TEST_F(FileCommands, DoNothingToAPageWithoutFiles)
{
    open({ page(L"1\r\n") });
    for (int id = command::add_dropped_files + 2; id <= command::show_file_in_folder; ++id) {
        const bool adds_a_page = id >= command::add_page_at_end && id <= command::add_page_here;
        if (id != command::remove_all_files && id != command::search_moved_file && !adds_a_page)
            command(id);
    }
    EXPECT_TRUE(files().empty());
}

TEST_F(FileCommands, ClearTheFolderAfterAQuestionAndSave)
{
    book::Book with_folder = book_of({ page(L"1\r\n") });
    with_folder.pages[0].reference_folder = L"C:\\資料";
    open(with_folder);
    const MetBox met = answered(IDYES, [&] { command(command::clear_reference_folder); });
    EXPECT_EQ(met.text, L"フォルダの選択を取消しますか？\r\nC:\\資料");
    EXPECT_EQ(saved().pages[0].reference_folder, L"");
    command(command::clear_reference_folder); // no second question
}

TEST_F(FileCommands, ToggleTheTabOfThePage)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::toggle_tab);
    EXPECT_EQ(book().tab_count, 1);
    EXPECT_EQ(shown().tab_number, 1u);
    EXPECT_EQ(shown().tab_color, look::tab_color(0).value);
    command(command::toggle_tab);
    EXPECT_EQ(book().tab_count, 0);
}

TEST_F(FileCommands, RemoveTheTabOfTheNamedPageAfterAQuestion)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::toggle_tab);
    command(command::last_page);
    const auto named = reinterpret_cast<std::int64_t>(book().pages.data());
    const MetBox met = answered(IDNO, [&] { command(command::remove_tab, named); });
    EXPECT_EQ(met.text, L"このページのタブを削除しますか？");
    EXPECT_EQ(book().tab_count, 1);
    answered(IDYES, [&] { command(command::remove_tab, named); });
    EXPECT_EQ(book().tab_count, 0);
    command(command::remove_tab, 0); // no page, so no question
    command(command::remove_tab, named + 1);
}

TEST_F(FileCommands, RemoveNoTabIfPagesWereInsertedMeanwhile)
{
    open({ page(L"1\r\n"), page(L"2\r\n") });
    command(command::toggle_tab);
    const auto named = reinterpret_cast<std::int64_t>(book().pages.data());
    answered(
        IDYES, [&] { command(command::remove_tab, named); }, [&] { send_command(command::add_page_here); });
    EXPECT_EQ(book().tab_count, 1);
}

} // namespace
