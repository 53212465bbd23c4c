// Importing and exporting tables: the meaning of a cell, the messages of refused ones, and that nothing is
// lost.
#include "tests/support/bok_import.hpp"

namespace {

using test_support::bok;
using test_support::header_lines;
using test_support::Outcome;
using test_support::PageText;

struct BokTsv : test_support::BokImport {
    BokTsv()
        : BokImport("tsv")
    {
    }
};

TEST_F(BokTsv, MakesAPageOfEachLine)
{
    const book::Book book =
        imported("意味\t語\t例文\tC:\\temp\\new.txt|https://a.example/\tC:\\資料\nb1\tb2\tb3\t\t\n");
    ASSERT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.pages[0].text, (std::array<std::wstring, 3>{ L"意味\r\n", L"語", L"例文\r\n" }));
    EXPECT_EQ(
        book.pages[0].files, (std::vector<std::wstring>{ L"C:\\temp\\new.txt", L"https://a.example/" }));
    EXPECT_EQ(book.pages[0].current_file, 0u);
    EXPECT_EQ(book.pages[0].reference_folder, L"C:\\資料");
    EXPECT_EQ(book.pages[1].files, std::vector<std::wstring>{});
}

TEST_F(BokTsv, GivesPagesTheDefaultsOfNewOnes)
{
    const book::Book book = imported("\t\t\t\t");
    ASSERT_EQ(book.pages.size(), 1u);
    const book::Page& page = book.pages[0];
    EXPECT_EQ(page.stamp.size(), 28u);
    EXPECT_EQ(page.stamp.substr(0, 14), page.stamp.substr(14));
    EXPECT_EQ(page.text_color, (std::array<std::uint32_t, 3>{ 0, 0, 0 }));
    EXPECT_EQ(page.back_color, (std::array<std::uint32_t, 3>{ 0xFFFFFF, 0xFFFFFF, 0xFFFFFF }));
    EXPECT_EQ(page.mark, 0);
    EXPECT_EQ(page.tab_number, 0u);
    EXPECT_EQ(bok({ "check", target }).code, 0);
}

TEST_F(BokTsv, AcceptsAnyLineEndAndAByteOrderMark)
{
    for (const char* table :
        { "a\tb\tc\t\t\nd\te\tf\t\t\n", "a\tb\tc\t\t\r\nd\te\tf\t\t\r\n", "a\tb\tc\t\t\nd\te\tf\t\t",
            "\xEF\xBB\xBF"
            "a\tb\tc\t\t\r\nd\te\tf\t\t" }) {
        const book::Book book = imported(table);
        ASSERT_EQ(book.pages.size(), 2u);
        EXPECT_EQ(book.pages[0].text[0], L"a\r\n");
        EXPECT_EQ(book.pages[1].text[2], L"f\r\n");
    }
}

TEST_F(BokTsv, ReadsTheEscapesOfTheBoxes)
{
    const book::Book book = imported("one\\ntwo\\n\\nfour\t\\\\n \\u{41}\t\\t\\u{1F600}\\u{d800}|\t\t");
    const book::Page& page = book.pages.at(0);
    EXPECT_EQ(page.text[0], L"one\r\ntwo\r\n\r\nfour\r\n");
    EXPECT_EQ(page.text[1], L"\\n A");
    EXPECT_EQ(page.text[2],
        (std::wstring{ L'\t', wchar_t{ 0xD83D }, wchar_t{ 0xDE00 }, wchar_t{ 0xD800 } } + L"|\r\n"));
}

TEST_F(BokTsv, KeepsABackslashInAPath)
{
    const book::Book book = imported("\t\t\tC:\\new\\temp\\\\u\\|\\\\server\\a\\u{7c}b\tD:\\n\\");
    const book::Page& page = book.pages.at(0);
    EXPECT_EQ(page.files, (std::vector<std::wstring>{ L"C:\\new\\temp\\\\u\\", L"\\\\server\\a|b" }));
    EXPECT_EQ(page.reference_folder, L"D:\\n\\");
}

TEST_F(BokTsv, TrimsWhatTheProgramTrims)
{
    const book::Book book = imported("  lead \t \u3000title \tbody\\n \\n\t a.txt | b.txt \t folder ");
    const book::Page& page = book.pages.at(0);
    EXPECT_EQ(page.text, (std::array<std::wstring, 3>{ L"  lead\r\n", L"title", L"body\r\n" }));
    EXPECT_EQ(page.files, (std::vector<std::wstring>{ L"a.txt", L"b.txt" }));
    EXPECT_EQ(page.reference_folder, L"folder");
}

TEST_F(BokTsv, RefusesAWrongNumberOfColumnsWithTheLine)
{
    expect_refused("a\tb\tc\t\t\nd\te\tf\t\n", "line 2: 4 columns instead of 5");
    expect_refused("a\tb\tc\t\t\t\n", "line 1: 6 columns instead of 5");
    expect_refused("a\tb\tc\t\t\n\nd\te\tf\t\t\n", "line 2: 1 column instead of 5");
    expect_refused("", "the table is empty");
    expect_refused("\xEF\xBB\xBF", "the table is empty");
}

TEST_F(BokTsv, RefusesTextThatWouldBreakTheFileWithLineAndColumn)
{
    expect_refused("a\tb\tc\t\t\na\x03\tb\tc\t\t\n", "line 2, column 1 (box 1): contains U+0003");
    expect_refused("a\tb\\u{3}\tc\t\t\n", "line 1, column 2 (box 2): contains U+0003");
    expect_refused("a\tb\tc\x03\t\t\n", "column 3 (box 3): contains U+0003");
    expect_refused("a\tb\tc\tx|y\x03\t\n", "column 4 (files): entry 2 contains U+0003");
    expect_refused("a\tb\tc\t\td\x03\n", "column 5 (folder): contains U+0003");
    expect_refused("a\tb\\nb\tc\t\t\n", "column 2 (box 2): contains a line break");
    expect_refused("a\tb\\u{d}b\tc\t\t\n", "column 2 (box 2): contains a line break");
    expect_refused("a\tb\tc\tx\\u{d}\\u{a}y\t\n", "column 4 (files): entry 1 contains a line break");
    expect_refused("a\tb\tc\t\td\\u{a}d\n", "column 5 (folder): contains a line break");
    expect_refused("a\rb\tb\tc\t\t\n", "column 1 (box 1): contains a carriage return");
    expect_refused("a\tb\tc\t\td\rd\n", "column 5 (folder): contains a carriage return");
}

TEST_F(BokTsv, RefusesBlankEntries)
{
    expect_refused("a\tb\tc\tx||y\t\n", "column 4 (files): entry 2 is blank");
    expect_refused("a\tb\tc\tx|\t\n", "entry 2 is blank");
    expect_refused("a\tb\tc\t|x\t\n", "entry 1 is blank");
    expect_refused("a\tb\tc\t \t\n", "entry 1 is blank");
    expect_refused("a\tb\tc\tx|\u3000|y\t\n", "entry 2 is blank");
}

TEST_F(BokTsv, RefusesBytesThatAreNotUtf8)
{
    for (const char* bytes : { "\xFF", "\xC3", "\xC0\x80", "\xE3\x81", "\xED\xA0\x80", "\xF4\x90\x80\x80",
             "\x80", "\xF0\x9F\x98", "\xE0\x80\x80" })
        expect_refused("a\tb\tc" + std::string(bytes) + "\t\t\n",
            "line 1, column 3 (box 3): contains bytes that are not UTF-8");
    expect_refused("a\tb\tc\t\xFE\t\n", "column 4 (files): contains bytes that are not UTF-8");
    expect_refused(std::string_view("\xFF\xFE"
                                    "a\0",
                       4),
        "UTF-16");
}

TEST_F(BokTsv, RefusesUnknownEscapes)
{
    for (const char* cell :
        { "\\", "\\x", "\\u", "\\u{", "\\u{}", "\\u{110000}", "\\u{g}", "\\u{0000041}", "C:\\Users" })
        expect_refused("a\t" + std::string(cell) + "\tc\t\t\n", "column 2 (box 2): unknown escape");
    expect_refused("a\tb\tc\tC:\\u{x}\t\n", "column 4 (files): \\u{...}");
}

TEST_F(BokTsv, AcceptsAsManyPagesAsABook)
{
    std::string table;
    for (int i = 0; i < 100000; ++i)
        table += "\t\t\t\t\n";
    EXPECT_EQ(imported(table).pages.size(), 100000u);
    expect_refused(table + "\t\t\t\t\n", "line 100001: a Book has at most 100000 pages");
}

TEST_F(BokTsv, IsReadFromStandardInputToo)
{
    const Outcome outcome = bok({ "import", "-", "--from", "tsv", "-o", target }, "a\tb\tc\t\t\n");
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(loaded().pages.at(0).text[1], L"b");
}

TEST_F(BokTsv, IsRefusedWhenItCannotBeRead)
{
    for (const std::string& path : { folder.path(L"missing.tsv"), folder.path(L"."), std::string() })
        EXPECT_EQ(bok({ "import", path, "--from", "tsv", "-o", target }).code, 1);
}

// A Book that is exported to a table and imported again has the same texts, files and folders, whatever they
// are.
TEST_F(BokTsv, RoundTripsPages)
{
    PageText page;
    page.box1 = L"\tx\\n|\r\n\r\n a\rb\nc \xD800\r\nend \r\n";
    page.box2 = L"  \\u{41}\xFEFF\x2028\x85 t\t\xD83D\xDE00\r\n";
    page.box3 = L"\xFEFF\x1\x7F\x3000last\r\n\r\n\r\n";
    page.files = L"C:\\a\\u{41}b|c\\n.txt\r\nx\ty\xDC00.txt\r\n\\u{\r\nC:\\u\r\n";
    page.folder = L"D:\\r\\|\\u{7c}\\\r\n";
    const std::string first = folder.write(L"a.bok", header_lines() + page.text() + PageText{}.text());
    const Outcome table = bok({ "export", first, "--to", "tsv" });
    ASSERT_EQ(table.code, 0) << table.err;
    EXPECT_EQ(std::ranges::count(table.out, '\n'), 2);
    const book::Book back = imported(table.out);
    const book::Book book = loaded(L"a.bok");
    ASSERT_EQ(back.pages.size(), book.pages.size());
    for (std::size_t i = 0; i < book.pages.size(); ++i) {
        EXPECT_EQ(back.pages[i].files, book.pages[i].files);
        EXPECT_EQ(back.pages[i].reference_folder, book.pages[i].reference_folder);
        EXPECT_EQ(back.pages[i].text[1], book.pages[i].text[1]);
    }
    EXPECT_EQ(back.pages[0].text[0], L"\tx\\n|\r\n\r\n a\rb\nc \xD800\r\nend\r\n");
    EXPECT_EQ(back.pages[0].text[2], L"\xFEFF\x1\x7F\x3000last\r\n");
    EXPECT_EQ(bok({ "export", target, "--to", "tsv" }).out, table.out);
}

TEST_F(BokTsv, IsWrittenInStoredOrder)
{
    book::BookHeader header;
    header.order_mode = -2700;
    PageText first;
    first.box2 = L"first\r\n";
    const std::string path = folder.write(L"a.bok", header_lines(header) + first.text() + PageText{}.text());
    EXPECT_EQ(bok({ "export", path, "--to", "tsv" }).out, "\tfirst\t\t\t\n\t\t\t\t\n");
}

} // namespace
