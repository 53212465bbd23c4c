// A Book's file: its structure, its fields and how it is saved.
#include "tests/support/book_file_fixture.hpp"
#include <limits>

namespace {

using namespace test_support;

TEST_F(BookFile, BeginsWithTheHeaderMarkerAndNoByteOrderMark)
{
    book.pages.emplace_back();
    book.path = file;
    ASSERT_TRUE(book.save());
    const Bytes bytes = read_bytes(file);
    const Bytes start(bytes.begin(), bytes.begin() + 8);
    const auto expected = { 3, 0, 3, 0, 0xD, 0, 0xA, 0 };
    EXPECT_TRUE(
        std::ranges::equal(start, expected, {}, [](std::byte byte) { return std::to_integer<int>(byte); }));
}

TEST_F(BookFile, HasTheHeaderBetweenTwoMarkersAndThenThePages)
{
    book.header.seed = 0x12345678;
    for (const wchar_t* text : { L"一", L"二" }) {
        Page& page = book.pages.emplace_back();
        page.text[0] = text;
        page.stamp = L"stamp";
        page.back_color = { 1, 2, 3 };
        page.text_color = { 4, 5, 6 };
    }
    const std::wstring line = L"stamp 0 0 0 1 2 3 4 5 6 0 0 0\r\n";
    EXPECT_EQ(saved(),
        header_lines(book.header) + page_lines({ L"一\r\n", L"", L"", L"", L"", line })
            + page_lines({ L"二\r\n", L"", L"", L"", L"", line }));
}

TEST_F(BookFile, WritesAPageWithNothingButNumbersAsSevenLines)
{
    ASSERT_TRUE(load(header_lines() + page_of_box1(L"")));
    const Page page = book.pages.at(0);
    EXPECT_EQ(saved(), header_lines() + stop + stop + stop + stop + stop + numbers + stop);
    ASSERT_TRUE(book.load(file, error, nullptr));
    EXPECT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages.at(0), page);
}

TEST_F(BookFile, TreatsEveryLineThatBeginsWithTheSeparatorAsOne)
{
    const std::wstring odd_stop = L"\3 whatever follows \3\r\n";
    ASSERT_TRUE(load(header_lines() + L"a\r\n" + odd_stop + L"b\r\n\3\3\r\nc\r\n" + stop + stop + odd_stop
        + numbers + L"\3no end"));
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].text[0], L"a\r\n");
    EXPECT_EQ(book.pages[0].text[1], L"b");
    EXPECT_EQ(book.pages[0].text[2], L"c\r\n");
}

TEST_F(BookFile, KeepsASeparatorInsideALineAsText)
{
    const Page& page =
        loaded_page({ L"a\3b\r\n\n\3c\r\n", L"d\3e\r\n", L"f\3\r\n", L"g\3\r\n", L"h\3i\r\n", numbers });
    EXPECT_EQ(page.text[0], L"a\3b\r\n\n\3c\r\n");
    EXPECT_EQ(page.text[1], L"d\3e");
    EXPECT_EQ(page.text[2], L"f\3\r\n");
    EXPECT_EQ(page.files, (std::vector<std::wstring>{ L"g\3" }));
    EXPECT_EQ(page.reference_folder, L"h\3i");
}

TEST_F(BookFile, ReadsBoxes1And3WithEveryLineAndItsEnd)
{
    const std::wstring text = L"  ひとつ\r\n\r\n\tふたつ \nlone\r\n \r\n";
    const Page& page = loaded_page({ text, L"", text + L"x\r\n", L"", L"", numbers });
    EXPECT_EQ(page.text[0], text);
    EXPECT_EQ(page.text[2], text + L"x\r\n");
}

TEST_F(BookFile, ReadsTheLastLineThatIsNotBlankIntoBox2)
{
    EXPECT_EQ(
        loaded_page({ L"", L"first\r\n  \u3000second one\t\r\n \r\n\r\n", L"", L"", L"", numbers }).text[1],
        L"second one");
    EXPECT_EQ(loaded_page({ L"", L" \r\n", L"", L"", L"", numbers }).text[1], L"");
}

TEST_F(BookFile, ReadsOneFilePerLineTrimmedWithoutBlankOnes)
{
    const Page& page = loaded_page({ L"", L"", L"",
        L" C:\\a b.png \r\n\r\n \u3000\r\nhttps://example.com/\r\n", L"", L"s 0 0 0 0 0 0 0 0 0 0 0 9\r\n" });
    EXPECT_EQ(page.files, (std::vector<std::wstring>{ L"C:\\a b.png", L"https://example.com/" }));
    EXPECT_EQ(page.current_file, 1u);
}

TEST_F(BookFile, ReadsTheLastLineThatIsNotBlankIntoTheFolder)
{
    EXPECT_EQ(loaded_page({ L"", L"", L"", L"", L"D:\\one\r\n D:\\two \r\n\r\n", numbers }).reference_folder,
        L"D:\\two");
}

TEST_F(BookFile, ReadsTheLastNumbersLine)
{
    const Page& page = loaded_page(
        { L"", L"", L"", L"", L"", L"first 1 1 1 1 1 1 1 1 1 1 1 1\r\nsecond 0 0 0 0 0 0 0 0 0 0 0 0\r\n" });
    EXPECT_EQ(page.stamp, L"second");
    EXPECT_EQ(page.mark, 0);
}

TEST_F(BookFile, LoadsAPageWithoutANumbersLineAsBlackOnBlackWithoutAStamp)
{
    const Page& page = loaded_page({ L"text\r\n", L"", L"", L"", L"", L"" });
    Page expected;
    expected.text[0] = L"text\r\n";
    EXPECT_EQ(page, expected);
}

TEST_F(BookFile, NeverTrustsSelectionOrTabNumbers)
{
    ASSERT_TRUE(
        load(header_lines() + page_lines({ L"", L"", L"", L"", L"", L"s 0 9 0 0 0 0 0 0 0 0 0 0\r\n" })));
    EXPECT_EQ(book.pages[0].tab_number, 1u);
    EXPECT_EQ(book.pages[0].selected, book::PageSelection::none);
    book.pages[0].selected = book::PageSelection::selected;
    book.pages[0].tab_number = 200;
    EXPECT_EQ(
        saved(), header_lines() + page_lines({ L"", L"", L"", L"", L"", L"s 0 1 0 0 0 0 0 0 0 0 0 0\r\n" }));
}

TEST_F(BookFile, TrimsTheBoxesInMemoryWhenItSaves)
{
    Page& page = book.pages.emplace_back();
    page.stamp = L"s";
    page.text = { L" \u3000one\r\n\r\n \t", L"\r\n two \u3000\r\n", L"\tthree \x85\r\n" };
    EXPECT_EQ(saved(),
        header_lines()
            + page_lines({ L" \u3000one\r\n", L"two\r\n", L"\tthree\r\n", L"", L"",
                L"s 0 0 0 0 0 0 0 0 0 0 0 0\r\n" }));
    EXPECT_EQ(book.pages[0].text, (std::array<std::wstring, 3>{ L" \u3000one", L"two", L"\tthree" }));
}

TEST_F(BookFile, WritesNothingForABoxOfWhiteSpace)
{
    Page& page = book.pages.emplace_back();
    page.stamp = L"s";
    page.text = { L"\r\n\r\n", L" ", L"\u3000" };
    EXPECT_EQ(
        saved(), header_lines() + page_lines({ L"", L"", L"", L"", L"", L"s 0 0 0 0 0 0 0 0 0 0 0 0\r\n" }));
    EXPECT_EQ(book.pages[0].text, (std::array<std::wstring, 3>{}));
}

TEST_F(BookFile, WritesFilesAndFolderAsTheyAre)
{
    Page& page = book.pages.emplace_back();
    page.stamp = L"s";
    page.files = { L" a ", L"", L"b" };
    page.reference_folder = L" folder ";
    const std::wstring line = L"s 0 0 0 0 0 0 0 0 0 0 0 0\r\n";
    EXPECT_EQ(
        saved(), header_lines() + page_lines({ L"", L"", L"", L" a \r\n\r\nb\r\n", L" folder \r\n", line }));
    EXPECT_EQ(book.pages[0].reference_folder, L" folder ");
}

TEST_F(BookFile, IsUnchangedByLoadingAndSavingAgain)
{
    ASSERT_TRUE(load(header_lines() + page_of_box1(L"  text\r\n\r\nmore  \r\n\r\n")));
    EXPECT_EQ(book.pages[0].text[0], L"  text\r\n\r\nmore  \r\n\r\n");
    const std::wstring first = saved();
    EXPECT_EQ(first, header_lines() + page_of_box1(L"  text\r\n\r\nmore\r\n"));
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(book.load(file, error, nullptr));
        EXPECT_EQ(book.pages[0].text[0], L"  text\r\n\r\nmore\r\n");
        EXPECT_EQ(saved(), first);
    }
}

TEST_F(BookFile, IsNotSavedWithoutAPathOrPages)
{
    write_text(file, L"untouched");
    EXPECT_FALSE(book.save());
    book.path = file;
    EXPECT_FALSE(book.save());
    EXPECT_EQ(read_text(file), L"untouched");
    book.path.clear();
    book.pages.emplace_back();
    EXPECT_FALSE(book.save());
    EXPECT_FALSE(book.save_to(L""));
}

TEST_F(BookFile, IsNotSavedWhereNoFileCanBeCreated)
{
    book.pages.emplace_back();
    EXPECT_FALSE(book.save_to(folder.path()));
    EXPECT_FALSE(book.save_to(folder.file(L"missing") + L"/x.bok"));
}

TEST_F(BookFile, ReplacesALongerFileCompletely)
{
    write_text(file, std::wstring(5000, L'x'));
    book.path = file;
    book.pages.emplace_back().stamp = L"s";
    ASSERT_TRUE(book.save());
    EXPECT_EQ(read_text(file),
        header_lines() + page_lines({ L"", L"", L"", L"", L"", L"s 0 0 0 0 0 0 0 0 0 0 0 0\r\n" }));
}

TEST_F(BookFile, ChangesOnlyTheTextsWhenSaved)
{
    book.pages.emplace_back().stamp = L"s";
    book.path = file;
    book.needs_update = true;
    book.order = { 0 };
    book.header.position = 77;
    ASSERT_TRUE(book.save_to(folder.file(L"other.bok")));
    EXPECT_TRUE(book.needs_update);
    EXPECT_EQ(book.path, file);
    EXPECT_EQ(book.order.size(), 1u);
    EXPECT_EQ(book.header.position, 77u);
}

TEST_F(BookFile, PreservesLoneSurrogatesAndZeros)
{
    const std::wstring text =
        std::wstring(L"a\0b", 3) + wchar_t{ 0xD800 } + L"c" + wchar_t{ 0xDFB7 } + L"\uFFFF";
    ASSERT_TRUE(load(header_lines() + page_of_box1(text + L"\r\n")));
    EXPECT_EQ(book.pages[0].text[0], text + L"\r\n");
    EXPECT_EQ(saved(), header_lines() + page_of_box1(text + L"\r\n"));
}

} // namespace
