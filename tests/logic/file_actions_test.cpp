// Selecting, moving, removing and sorting the entries of a page.
#include "app/file_actions.hpp"
#include "core/command_ids.hpp"
#include "tests/support/session_fixture.hpp"
#include <gtest/gtest.h>

namespace {

namespace command = core::command;
using app::FileOrder;
using Files = std::vector<std::wstring>;

constexpr wchar_t stamp[] = L"2020010203040520200102030405";

book::Page page_of(Files files, std::uint64_t current)
{
    book::Page page;
    page.stamp = stamp;
    page.files = std::move(files);
    page.current_file = current;
    return page;
}

std::uint64_t selected_by(int command, std::uint64_t current)
{
    book::Page page = page_of({ L"a", L"b", L"c", L"d" }, current);
    EXPECT_TRUE(app::select_file_by(page, command));
    EXPECT_EQ(page.files, (Files{ L"a", L"b", L"c", L"d" }));
    return page.current_file;
}

class FileCommandsOfSession : public test_support::SessionTest { };

// They depend on the texts and the list, not on the selected entry.
TEST_F(FileCommandsOfSession, ChoosingAnEntryKeepsTheHits)
{
    book.pages[0].files = { L"one.txt", L"two.txt" };
    desk.asked.terms = { L"one" };
    desk.asked.in_file_list = true;
    run([] { return true; });
    const std::vector<book::SearchHit> hits = book.hits;
    ASSERT_EQ(hits.size(), 2u);
    session.run([&] {
        EXPECT_EQ(app::select_file(session, 1), core::Outcome::done);
        EXPECT_EQ(book.hits, hits) << "not dropped";
        EXPECT_EQ(app::select_file_by(session, core::command::first_file), core::Outcome::done);
        EXPECT_EQ(book.hits, hits);
    });
}

TEST(SelectFile, StepsAndJumpsAndStaysAtTheEnds)
{
    EXPECT_EQ(selected_by(command::previous_file, 2), 1u);
    EXPECT_EQ(selected_by(command::previous_file, 0), 0u);
    EXPECT_EQ(selected_by(command::next_file, 2), 3u);
    EXPECT_EQ(selected_by(command::next_file, 3), 3u);
    EXPECT_EQ(selected_by(command::first_file, 3), 0u);
    EXPECT_EQ(selected_by(command::last_file, 0), 3u);
}

TEST(SelectFile, AcceptsOnlyAnIndexOfTheList)
{
    book::Page page = page_of({ L"a", L"b" }, 0);
    EXPECT_TRUE(app::select_file(page, 1));
    EXPECT_EQ(page.current_file, 1u);
    EXPECT_FALSE(app::select_file(page, 2));
    EXPECT_EQ(page.current_file, 1u);
}

TEST(SelectFile, DoesNothingToAnEmptyList)
{
    book::Page page = page_of({}, 0);
    for (int id = command::first_file; id <= command::next_file; ++id)
        EXPECT_FALSE(app::select_file_by(page, id));
    EXPECT_EQ(page.current_file, 0u);
}

Files moved_by(int command, std::uint64_t current, std::uint64_t expected)
{
    book::Page page = page_of({ L"a", L"b", L"c", L"d" }, current);
    EXPECT_TRUE(app::move_file(page, command));
    EXPECT_EQ(page.current_file, expected);
    EXPECT_EQ(page.stamp, stamp);
    return page.files;
}

TEST(MoveFile, MovesTheSelectionToo)
{
    EXPECT_EQ(moved_by(command::move_file_up, 2, 1), (Files{ L"a", L"c", L"b", L"d" }));
    EXPECT_EQ(moved_by(command::move_file_down, 1, 2), (Files{ L"a", L"c", L"b", L"d" }));
    EXPECT_EQ(moved_by(command::move_file_to_top, 2, 0), (Files{ L"c", L"a", L"b", L"d" }));
    EXPECT_EQ(moved_by(command::move_file_to_end, 1, 3), (Files{ L"a", L"c", L"d", L"b" }));
}

TEST(MoveFile, StaysAtTheEnds)
{
    EXPECT_EQ(moved_by(command::move_file_up, 0, 0), (Files{ L"a", L"b", L"c", L"d" }));
    EXPECT_EQ(moved_by(command::move_file_to_top, 0, 0), (Files{ L"a", L"b", L"c", L"d" }));
    EXPECT_EQ(moved_by(command::move_file_down, 3, 3), (Files{ L"a", L"b", L"c", L"d" }));
    EXPECT_EQ(moved_by(command::move_file_to_end, 3, 3), (Files{ L"a", L"b", L"c", L"d" }));
}

TEST(MoveFile, DoesNothingWithoutASelectedEntry)
{
    book::Page empty = page_of({}, 0);
    EXPECT_FALSE(app::move_file(empty, command::move_file_to_end));
    book::Page beyond = page_of({ L"a" }, 5);
    EXPECT_FALSE(app::move_file(beyond, command::move_file_up));
}

TEST(RemoveFile, SelectsTheNextOrTheLast)
{
    book::Page page = page_of({ L"a", L"b", L"c" }, 1);
    EXPECT_TRUE(app::remove_file(page));
    EXPECT_EQ(page.files, (Files{ L"a", L"c" }));
    EXPECT_EQ(page.current_file, 1u);
    EXPECT_TRUE(app::remove_file(page));
    EXPECT_EQ(page.files, (Files{ L"a" }));
    EXPECT_EQ(page.current_file, 0u);
    EXPECT_TRUE(app::remove_file(page));
    EXPECT_TRUE(page.files.empty());
    EXPECT_EQ(page.current_file, 0u);
    EXPECT_FALSE(app::remove_file(page));
}

TEST(RemoveFile, OfTheWholeListSelectsNothing)
{
    book::Page page = page_of({ L"a", L"b", L"c" }, 2);
    EXPECT_TRUE(app::remove_all_files(page));
    EXPECT_TRUE(page.files.empty());
    EXPECT_EQ(page.current_file, 0u);
    EXPECT_FALSE(app::remove_all_files(page));
}

TEST(AppendFiles, SelectsTheFirstNewEntry)
{
    book::Page page = page_of({ L"a" }, 0);
    EXPECT_TRUE(app::append_files(page, { L"b", L"c" }));
    EXPECT_EQ(page.files, (Files{ L"a", L"b", L"c" }));
    EXPECT_EQ(page.current_file, 1u);
    EXPECT_FALSE(app::append_files(page, {}));
    EXPECT_EQ(page.current_file, 1u);
}

TEST(SortFiles, UsesTheLinguisticOrderAndKeepsTheSelectedPosition)
{
    book::Page page = page_of({ L"b", L"c", L"a" }, 1);
    EXPECT_TRUE(app::sort_files(page, FileOrder::ascending));
    EXPECT_EQ(page.files, (Files{ L"a", L"b", L"c" }));
    EXPECT_EQ(page.current_file, 1u);
    EXPECT_EQ(page.stamp, stamp);
    EXPECT_TRUE(app::sort_files(page, FileOrder::descending));
    EXPECT_EQ(page.files, (Files{ L"c", L"b", L"a" }));
}

TEST(SortFiles, KeepsEveryEntryOfEqualOnes)
{
    book::Page page = page_of({ L"a", L"b", L"a", L"b" }, 3);
    EXPECT_TRUE(app::sort_files(page, FileOrder::descending));
    EXPECT_EQ(page.files, (Files{ L"b", L"b", L"a", L"a" }));
    book::Page empty = page_of({}, 0);
    EXPECT_FALSE(app::sort_files(empty, FileOrder::ascending));
}

TEST(CurrentEntry, IsNoneBeyondTheList)
{
    book::Page page = page_of({ L"a" }, 0);
    ASSERT_NE(book::selected_entry(page), nullptr);
    EXPECT_EQ(*book::selected_entry(page), L"a");
    page.current_file = 1;
    EXPECT_EQ(book::selected_entry(page), nullptr);
}

} // namespace
