// Buttons, counter and combo of the current page.
#include "app/command_ids.hpp"
#include "app/page_views.hpp"
#include "media/display_name.hpp"
#include "tests/support/temp_folder.hpp"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

namespace command = app::command;
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
    book.pages[0].tab_number = 256; // may be given back
    EXPECT_TRUE(button(book, command::toggle_tab).enabled);
    EXPECT_FALSE(button(book, command::toggle_tab, true).enabled);
}

TEST(PageButtons, OfThePageAreLeftAsTheyAreWithoutOne)
{
    book::Book book = one_page();
    book.header.position = 1;
    EXPECT_EQ(button(book, command::toggle_mark), ButtonState{});
    EXPECT_EQ(button(book, command::toggle_tab), ButtonState{});
    EXPECT_EQ(app::page_buttons(book, false).size(), 6u);
}

TEST(FolderButton, IsLitForAPageWithAFolder)
{
    book::Book book = one_page();
    EXPECT_EQ(app::folder_button_lit(book), false);
    book.pages[0].reference_folder = L"C:\\資料";
    EXPECT_EQ(app::folder_button_lit(book), true);
    book.header.position = 1;
    EXPECT_EQ(app::folder_button_lit(book), std::nullopt);
}

TEST(FileCounter, TellsThePlaceAndTheNumber)
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
    const auto combo = app::file_combo(book);
    ASSERT_TRUE(combo);
    EXPECT_EQ(combo->rows,
        (std::vector<std::wstring>{ L"絵.png", folder.file(L"無い.png"), L"https://example.com/a" }));
    EXPECT_EQ(combo->selected, 2u);
    EXPECT_EQ(combo->visible_rows, 3u);
}

TEST(FileCombo, OfNoFilesHasNoRowsAndOfNoPageKeepsWhatItShows)
{
    book::Book book = one_page();
    const auto combo = app::file_combo(book);
    ASSERT_TRUE(combo);
    EXPECT_TRUE(combo->rows.empty());
    EXPECT_EQ(combo->visible_rows, 1u);
    book.header.position = 1;
    EXPECT_FALSE(app::file_combo(book));
}

TEST(DisplayName, IsTheNameOfAFileOrFolder)
{
    const test_support::TempFolder folder;
    platform::File::create(folder.file(L"a.txt"));
    EXPECT_EQ(media::display_name(folder.file(L"a.txt")), L"a.txt");
    ASSERT_TRUE(platform::create_folder(folder.file(L"箱")));
    EXPECT_EQ(media::display_name(folder.file(L"箱")), L"箱");
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

using platform::PathAnswer;
using platform::PathKind;

// Everything on a share is a file, but for a share and a drive that do not answer.
class SilentShare : public testing::Test {
protected:
    PathAnswer ask(const std::wstring& path)
    {
        asked.push_back(path);
        if (path.starts_with(L"\\\\far\\dead\\") || path.starts_with(L"X:"))
            return { PathKind::nothing, true };
        return { path.starts_with(L"\\\\") ? PathKind::regular_file : PathKind::nothing };
    }

    std::vector<std::wstring> asked;
    media::DisplayNames names{ [this](const std::wstring& path) { return ask(path); } };
};

TEST_F(SilentShare, IsAskedOnceForAllItsEntries)
{
    for (const wchar_t* entry :
        { L"\\\\far\\dead\\a.png", L"\\\\far\\dead\\b.png", L"\\\\FAR\\Dead\\c\\d.png", L"//far/dead/e.png" })
        EXPECT_EQ(names.of(entry), entry);
    EXPECT_EQ(asked.size(), 2u) << "a share spelt with other separators is asked for itself";
    EXPECT_EQ(names.of(L"X:\\a"), L"X:\\a");
    EXPECT_EQ(names.of(L"X:\\b"), L"X:\\b");
    EXPECT_EQ(asked.size(), 3u);
}

TEST_F(SilentShare, KeepsNoOtherFromBeingAsked)
{
    names.of(L"\\\\far\\dead\\a.png");
    EXPECT_EQ(names.of(L"\\\\far\\alive\\a.png"), L"a.png");
    EXPECT_EQ(names.of(L"\\\\far\\deader\\a.png"), L"a.png");
    EXPECT_EQ(names.of(L"\\\\near\\dead\\a.png"), L"a.png");
    EXPECT_EQ(names.of(L"C:\\a.png"), L"C:\\a.png");
    EXPECT_EQ(names.of(L"C:\\b.png"), L"C:\\b.png");
    EXPECT_EQ(asked.size(), 6u) << "a file that is merely missing says nothing of its drive";
}

} // namespace
