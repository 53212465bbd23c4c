// Buttons, counter and combo of the current page.
#include "app/page_views.hpp"
#include "core/command_ids.hpp"
#include "media/display_name.hpp"
#include "tests/support/temp_folder.hpp"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

namespace command = core::command;
using app::ButtonState;

book::Book one_page()
{
    book::Book book;
    book.pages.resize(1);
    return book;
}

ButtonState button(const book::Book& book, int command, bool is_busy = false)
{
    const auto buttons = app::page_buttons(book, is_busy);
    const auto found = std::ranges::find(buttons, command, &ButtonState::command);
    return found == buttons.end() ? ButtonState{} : *found;
}

TEST(PageButtons, FollowThePage)
{
    book::Book book = one_page();
    EXPECT_EQ(button(book, command::toggle_mark), (ButtonState{ 1014, false, true }));
    EXPECT_EQ(button(book, command::toggle_tab), (ButtonState{ 2507, false, true }));
    book.pages[0].mark = -1;
    book.pages[0].tab_number = 3;
    EXPECT_EQ(button(book, command::toggle_mark), (ButtonState{ 1014, true, true }));
    EXPECT_EQ(button(book, command::toggle_tab), (ButtonState{ 2507, true, true }));
}

TEST(PageButtons, FollowTheTracks)
{
    book::Book book = one_page();
    EXPECT_EQ(button(book, command::toggle_mark_tracking), (ButtonState{ 1015, false, true }));
    EXPECT_EQ(button(book, command::toggle_tab_tracking), (ButtonState{ 1016, false, true }));
    book.header.track_marks = 1;
    EXPECT_TRUE(button(book, command::toggle_mark_tracking).checked);
    EXPECT_FALSE(button(book, command::toggle_tab_tracking).checked);
    book.header.track_tabs = 2;
    EXPECT_TRUE(button(book, command::toggle_tab_tracking).checked);
}

TEST(PageButtons, FollowTheOrderWhereReverseCombinesWithEither)
{
    struct {
        std::int32_t mode;
        bool sorted, random, reversed;
    } const rows[] = { { 2700, false, false, false }, { 2701, true, false, false },
        { 2702, false, true, false }, { -2700, false, false, true }, { -2701, true, false, true },
        { -2702, false, true, true } };
    for (const auto& row : rows) {
        book::Book book = one_page();
        book.header.order_mode = row.mode;
        EXPECT_EQ(button(book, command::toggle_sorted_order), (ButtonState{ 1020, row.sorted, true }));
        EXPECT_EQ(button(book, command::toggle_random_order), (ButtonState{ 1018, row.random, true }));
        EXPECT_EQ(button(book, command::reverse_order), (ButtonState{ 1019, row.reversed, true }));
    }
}

TEST(PageButtons, AreAllDisabledWhileAnotherWindowOwnsTheBook)
{
    book::Book book = one_page();
    book.pages[0].tab_number = 1;
    const auto buttons = app::page_buttons(book, true);
    EXPECT_EQ(buttons.size(), 8u);
    for (const ButtonState& state : buttons)
        EXPECT_FALSE(state.enabled) << state.command;
    EXPECT_TRUE(button(book, command::show_book_menu).enabled);
}

TEST(PageButtons, GiveNoTabBeyondTheLimit)
{
    book::Book book = one_page();
    book.tab_count = 255;
    EXPECT_TRUE(button(book, command::toggle_tab).enabled);
    book.tab_count = 256;
    EXPECT_FALSE(button(book, command::toggle_tab).enabled);
    book.pages[0].tab_number = 256; // may be removed
    EXPECT_TRUE(button(book, command::toggle_tab).enabled);
    EXPECT_FALSE(button(book, command::toggle_tab, true).enabled);
}

TEST(PageButtons, OfThePageAreUnchangedWithoutOne)
{
    book::Book book = one_page();
    book.header.position = 1;
    EXPECT_EQ(button(book, command::toggle_mark), ButtonState{});
    EXPECT_EQ(button(book, command::toggle_tab), ButtonState{});
    EXPECT_EQ(app::page_buttons(book, false).size(), 6u);
}

TEST(FolderButton, IsHighlightedForAPageWithAFolder)
{
    book::Book book = one_page();
    EXPECT_EQ(app::folder_button_lit(book), false);
    book.pages[0].reference_folder = L"C:\\資料";
    EXPECT_EQ(app::folder_button_lit(book), true);
    book.header.position = 1;
    EXPECT_EQ(app::folder_button_lit(book), std::nullopt);
}

TEST(FileCounter, ShowsThePositionAndTheCount)
{
    book::Book book = one_page();
    EXPECT_EQ(app::file_counter_text(book), L"");
    book.pages[0].files = { L"a", L"b", L"c" };
    book.pages[0].current_file = 1;
    EXPECT_EQ(app::file_counter_text(book), L"2/3");
    book.header.position = 1;
    EXPECT_EQ(app::file_counter_text(book), L"");
}

TEST(FileCombo, ShowsOneToTenRows)
{
    EXPECT_EQ(app::visible_combo_rows(0), 1u);
    EXPECT_EQ(app::visible_combo_rows(1), 1u);
    EXPECT_EQ(app::visible_combo_rows(10), 10u);
    EXPECT_EQ(app::visible_combo_rows(11), 10u);
}

TEST(FileCombo, NamesTheEntriesOfThePage)
{
    const test_support::TempFolder folder;
    platform::File::create(folder.file(L"絵.png"));
    book::Book book = one_page();
    book.pages[0].files = { folder.file(L"絵.png"), folder.file(L"無い.png"), L"https://example.com/a" };
    book.pages[0].current_file = 2;
    media::PathAnswers paths;
    const auto combo = app::file_combo(book, paths);
    ASSERT_TRUE(combo);
    EXPECT_EQ(combo->rows,
        (std::vector<std::wstring>{ L"絵.png", folder.file(L"無い.png"), L"https://example.com/a" }));
    EXPECT_EQ(combo->selected, 2u);
    EXPECT_EQ(combo->visible_rows, 3u);
}

TEST(FileCombo, OfNoFilesHasNoRowsAndOfNoPageKeepsWhatItShows)
{
    book::Book book = one_page();
    media::PathAnswers paths;
    const auto combo = app::file_combo(book, paths);
    ASSERT_TRUE(combo);
    EXPECT_TRUE(combo->rows.empty());
    EXPECT_EQ(combo->visible_rows, 1u);
    book.header.position = 1;
    EXPECT_FALSE(app::file_combo(book, paths));
}

TEST(DisplayName, IsTheNameOfAFileOrFolder)
{
    const test_support::TempFolder folder;
    platform::File::create(folder.file(L"a.txt"));
    EXPECT_EQ(media::display_name(folder.file(L"a.txt")), L"a.txt");
    ASSERT_TRUE(platform::create_folder(folder.file(L"箱")));
    EXPECT_EQ(media::display_name(folder.file(L"箱")), L"箱");
}

TEST(DisplayName, OfAPathOnAnUnreachableShareIsTheEntryItself)
{
    int asked = 0;
    media::PathAnswers paths{ [&](const std::wstring&) {
        ++asked;
        return platform::PathAnswer{ platform::PathKind::nothing, true };
    } };
    for (const wchar_t* entry : { L"\\\\far\\dead\\a.png", L"\\\\far\\dead\\b.png" })
        EXPECT_EQ(media::display_name(entry, paths), entry);
    EXPECT_EQ(asked, 1);
}

TEST(DisplayName, OfAnythingElseIsTheEntryItself)
{
    const test_support::TempFolder folder;
    EXPECT_EQ(media::display_name(folder.file(L"無い.txt")), folder.file(L"無い.txt"));
    EXPECT_EQ(media::display_name(folder.path() + L"/"), folder.path() + L"/");
    EXPECT_EQ(media::display_name(L"https://example.com/x.png"), L"https://example.com/x.png");
    EXPECT_EQ(media::display_name(L"x"), L"x");
    EXPECT_EQ(media::display_name(L""), L"");
}

// A drive alone is no separator: such an entry is relative to the drive's current folder.
TEST(DisplayName, BeginsAfterASeparatorOnly)
{
    media::PathAnswers paths{ [](const std::wstring&) {
        return platform::PathAnswer{ platform::PathKind::regular_file };
    } };
    EXPECT_EQ(media::display_name(L"C:name.txt", paths), L"C:name.txt");
    EXPECT_EQ(media::display_name(L"C:\\name.txt", paths), L"name.txt");
    EXPECT_EQ(media::display_name(L"C:folder/name.txt", paths), L"name.txt");
}

} // namespace
