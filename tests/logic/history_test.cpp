// The list of Books and its file.
#include "book/history_list.hpp"
#include "tests/support/memory_stream.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>

namespace {

using book::HistoryList;
using test_support::bytes_of;
using test_support::TempFolder;
using Paths = std::vector<std::wstring>;

Paths paths_in(const std::wstring& text)
{
    test_support::MemorySource source(bytes_of(text));
    return book::read_history(source);
}

class History : public testing::Test {
protected:
    HistoryList loaded(const std::wstring& text)
    {
        test_support::write_text(file, text);
        HistoryList list(file);
        list.load();
        return list;
    }
    HistoryList list_of(std::size_t count)
    {
        std::wstring text;
        for (std::size_t i = 0; i < count; ++i)
            text += std::to_wstring(i) + L".bok\r\n";
        return loaded(text);
    }

    TempFolder folder;
    std::wstring file = folder.file(L"history.txt");
};

TEST(HistoryFile, HasOnePathPerLine)
{
    EXPECT_EQ(paths_in(L"C:\\本\\一.bok\r\nrelative.bok\r\n"), (Paths{ L"C:\\本\\一.bok", L"relative.bok" }));
    EXPECT_EQ(paths_in(L"last without an end"), (Paths{ L"last without an end" }));
    EXPECT_EQ(paths_in(L""), Paths{});
}

TEST(HistoryFile, SkipsBlankLinesAndTrimsTheOthers)
{
    EXPECT_EQ(paths_in(L"\r\n  a b.bok \t\r\n \u3000\r\n\r\nc\r\n"), (Paths{ L"a b.bok", L"c" }));
}

TEST(HistoryFile, DropsOneByteOrderMarkBeforeEveryPath)
{
    EXPECT_EQ(paths_in(L"\uFEFFa\r\n \uFEFFb\r\n\uFEFF\uFEFFc\r\nd\uFEFF\r\n"),
        (Paths{ L"a", L"b", L"\uFEFFc", L"d\uFEFF" }));
}

// The program would try to open an empty entry again at every start.
TEST(HistoryFile, NeverYieldsAnEmptyPath)
{
    EXPECT_EQ(paths_in(L"\uFEFF\r\na\r\n \uFEFF \r\n"), (Paths{ L"a" }));
}

TEST(HistoryFile, KeepsALoneLineFeedInAPath)
{
    EXPECT_EQ(paths_in(L"a\nb\r\nc"), (Paths{ L"a\nb", L"c" }));
}

TEST(HistoryFile, EndsAtAFirstBlockOfOddLength)
{
    test_support::Bytes bytes = bytes_of(L"a\r\nb\r\n");
    bytes.push_back(std::byte{ 0 });
    test_support::MemorySource source(bytes);
    EXPECT_EQ(book::read_history(source), Paths{});
}

TEST_F(History, IsEmptyWithoutAFile)
{
    HistoryList list(file);
    list.load();
    EXPECT_TRUE(list.entries().empty());
    EXPECT_FALSE(platform::exists(file));
    list.add(L"first.bok");
    EXPECT_EQ(test_support::read_text(file), L"first.bok\r\n");
}

TEST_F(History, ReplacesItsEntriesWhenItLoads)
{
    HistoryList list = loaded(L"a\r\n");
    ASSERT_TRUE(platform::remove_file(file));
    list.load();
    EXPECT_TRUE(list.entries().empty());
}

TEST_F(History, WritesNoByteOrderMark)
{
    loaded(L"\uFEFFa\r\nb\r\n").save();
    EXPECT_EQ(test_support::read_text(file), L"a\r\nb\r\n");
}

TEST_F(History, PutsAnAddedPathInFrontAndSaves)
{
    HistoryList list = loaded(L"a\r\nb\r\n");
    list.add(L"c");
    EXPECT_EQ(list.entries(), (Paths{ L"c", L"a", L"b" }));
    EXPECT_EQ(test_support::read_text(file), L"c\r\na\r\nb\r\n");
}

TEST_F(History, MovesAPathInAnotherCaseToTheFrontInItsNewForm)
{
    HistoryList list = loaded(L"a\r\nC:\\Book.bok\r\nb\r\n");
    list.add(L"c:\\BOOK.bok");
    EXPECT_EQ(list.entries(), (Paths{ L"c:\\BOOK.bok", L"a", L"b" }));
}

TEST_F(History, LeavesTheSecondOfTwoEqualNeighbours)
{
    HistoryList list = loaded(L"x\r\nx\r\na\r\nX\r\nx\r\nX\r\n");
    list.add(L"x");
    EXPECT_EQ(list.entries(), (Paths{ L"x", L"x", L"a", L"x" }));
}

TEST_F(History, KeepsAThousandEntries)
{
    HistoryList list = list_of(1000);
    list.add(L"new");
    EXPECT_EQ(list.entries().size(), 1000u);
    EXPECT_EQ(list.entries().front(), L"new");
    EXPECT_EQ(list.entries().back(), L"998.bok");
}

TEST_F(History, DropsOneEntryHoweverLongItIs)
{
    HistoryList list = list_of(1500);
    EXPECT_EQ(list.entries().size(), 1500u);
    list.add(L"new");
    EXPECT_EQ(list.entries().size(), 1500u);
    EXPECT_EQ(list.entries().back(), L"1498.bok");
}

TEST_F(History, AcceptsOneOfItsOwnEntries)
{
    HistoryList list = list_of(30);
    list.add(list.entries()[20]);
    EXPECT_EQ(list.entries().size(), 30u);
    EXPECT_EQ(list.entries().front(), L"20.bok");
}

TEST_F(History, RemovesEveryEqualEntryEvenGivenOneOfThem)
{
    HistoryList list = loaded(L"x\r\na\r\nX\r\nx\r\n");
    list.remove(list.entries().front());
    EXPECT_EQ(list.entries(), Paths{ L"a" });
    EXPECT_EQ(test_support::read_text(file), L"a\r\n");
    list.remove(L"unknown");
    EXPECT_EQ(list.entries(), Paths{ L"a" });
}

TEST_F(History, RemovesTheNewestEntry)
{
    HistoryList list = loaded(L"a\r\nA\r\nb\r\n");
    list.remove_first();
    EXPECT_EQ(list.entries(), (Paths{ L"A", L"b" }));
    EXPECT_EQ(test_support::read_text(file), L"A\r\nb\r\n");
    HistoryList none(folder.file(L"none"));
    none.remove_first();
    EXPECT_TRUE(none.entries().empty());
    EXPECT_FALSE(platform::exists(none.path));
}

TEST_F(History, ContinuesSilentlyWhenItCannotBeSaved)
{
    HistoryList list(folder.path());
    list.load();
    list.add(L"a");
    EXPECT_EQ(list.entries(), Paths{ L"a" });
}

} // namespace
