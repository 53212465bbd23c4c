// A file list as an edited text, and back.
#include "book/file_list_text.hpp"
#include <gtest/gtest.h>

namespace {

using book::file_list_entries;
using book::file_list_text;
using book::Page;
using Entries = std::vector<std::wstring>;

Page page_of(Entries files, std::uint64_t current_file)
{
    Page page;
    page.files = std::move(files);
    page.current_file = current_file;
    return page;
}

TEST(FileListText, HasOneLinePerEntryAndSelectsTheCurrentOne)
{
    const Page page = page_of({ L"one", L"二", L"three" }, 1);
    EXPECT_EQ(file_list_text(page), (book::FileListText{ L"one\r\n二\r\nthree\r\n", 5, 6, 1 }));
}

TEST(FileListText, OfAnEmptyListIsEmpty)
{
    EXPECT_EQ(file_list_text({}), book::FileListText{});
}

TEST(FileListText, ComesBackAsTheSameList)
{
    const Page page = page_of({ L"C:\\a b", L"https://x/?q=1", L"a\nb", L"a\rb" }, 3);
    EXPECT_EQ(file_list_entries(file_list_text(page).text), page.files);
}

TEST(FileListEntries, AreSplitByCrLfOnly)
{
    EXPECT_EQ(file_list_entries(L"a\r\nb\nc\rd\r\ne"), (Entries{ L"a", L"b\nc\rd", L"e" }));
    EXPECT_EQ(file_list_entries(L"a\r\r\n\nb"), (Entries{ L"a", L"b" })) << "blanks at the ends go";
}

TEST(FileListEntries, LeaveBlanksOut)
{
    EXPECT_EQ(file_list_entries(L""), Entries{});
    EXPECT_EQ(file_list_entries(L"\r\n \t\r\n\x3000\r\n\r\n"), Entries{});
    EXPECT_EQ(file_list_entries(L"\r\n  a b \x3000\r\n\r\n\tc"), (Entries{ L"a b", L"c" }));
}

TEST(FileListEntries, LoseSeparators)
{
    EXPECT_EQ(file_list_entries(L"a\x3\x3z\r\n\x3\r\n\x3 c"), (Entries{ L"az", L"c" }));
    EXPECT_EQ(file_list_entries(L"a\r\x3\nz"), (Entries{ L"a", L"z" })) << "no entry holds a line end";
}

TEST(FileListEntries, ManyAreRead)
{
    Page page;
    for (int i = 0; i < 10000; ++i)
        page.files.push_back(std::wstring(60, L'x') + std::to_wstring(i));
    const std::wstring text = file_list_text(page).text;
    EXPECT_GT(text.size(), 600000u);
    EXPECT_EQ(file_list_entries(text), page.files);
}

TEST(SetFileList, KeepsThePlaceOfTheSelection)
{
    Page page = page_of({ L"a", L"b", L"c", L"d", L"e", L"f" }, 5);
    page.stamp = L"stamp";
    set_file_list(page, { L"x", L"y", L"z" });
    EXPECT_EQ(page.files, (Entries{ L"x", L"y", L"z" }));
    EXPECT_EQ(page.current_file, 2u);
    EXPECT_EQ(page.stamp, L"stamp");
    page.current_file = 1;
    set_file_list(page, { L"a", L"b", L"c", L"d" });
    EXPECT_EQ(page.current_file, 1u);
    set_file_list(page, {});
    EXPECT_TRUE(page.files.empty());
    EXPECT_EQ(page.current_file, 0u);
}

TEST(FileListTextLimit, AlwaysLeavesRoomToType)
{
    EXPECT_EQ(book::file_list_text_limit(0), 524288u);
    EXPECT_EQ(book::file_list_text_limit(524288 - 65536), 524288u);
    EXPECT_EQ(book::file_list_text_limit(524288 - 65535), 524289u);
    EXPECT_EQ(book::file_list_text_limit(700000), 765536u);
}

} // namespace
