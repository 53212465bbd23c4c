// check lists the problems of a file, page by page; convert repairs what it can.
#include "book/book.hpp"
#include "tests/support/bok_run.hpp"
#include <gtest/gtest.h>

namespace {

using test_support::bok;
using test_support::BokFolder;
using test_support::header_lines;
using test_support::Outcome;
using test_support::PageText;
using test_support::Terminal;

PageText page_with_numbers(const std::wstring& numbers)
{
    PageText page;
    page.numbers = numbers;
    return page;
}

struct BokCheck : testing::Test {
    BokFolder folder;

    std::string write(std::wstring_view text) { return folder.write(L"a.bok", text); }
    Outcome check(std::wstring_view text) { return bok({ "check", write(text) }); }
    void expect_finding(std::wstring_view text, std::string_view words)
    {
        const Outcome outcome = check(text);
        EXPECT_EQ(outcome.code, 1) << words;
        EXPECT_NE(outcome.out.find(words), std::string::npos) << words << "\nnot in:\n" << outcome.out;
        EXPECT_EQ(outcome.complaints(), 1);
    }
    void expect_header_finding(void (*spoil)(book::BookHeader&), std::string_view words)
    {
        book::BookHeader header;
        spoil(header);
        expect_finding(header_lines(header) + PageText{}.text(), words);
    }
};

TEST_F(BokCheck, FindsNothingInAValidBook)
{
    PageText page;
    page.box1 = L"\r\n a\r\n\x3000\r\n";
    page.box2 = L"title\r\n";
    page.files = L"a\r\nb\r\n";
    page.folder = L"c\r\n";
    page.numbers = L"2026010203040520260607080910 5 1 16777215 1 2 3 4 5 6 7 8 1\r\n";
    const Outcome outcome = check(header_lines() + page.text() + PageText{}.text());
    EXPECT_EQ(outcome.code, 0) << outcome.out << outcome.err;
    EXPECT_EQ(outcome.out, "no problems: pages 2, tabs 1, marks 1\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(BokCheck, FindsNothingInASavedBook)
{
    book::Book book;
    for (std::size_t i = 0; i < 300; ++i) {
        book.new_page(i, {});
        book.pages[i].tab_number = 1;
        book.pages[i].text = { L" a\r\n\r\n", L" b ", L"\t" };
        book.pages[i].files = { L"x", L"y" };
    }
    book.recount();
    ASSERT_TRUE(book.save_to(folder.wide_path(L"a.bok")));
    const Outcome outcome = bok({ "check", folder.path(L"a.bok") });
    EXPECT_EQ(outcome.code, 0) << outcome.out;
    EXPECT_EQ(outcome.out, "no problems: pages 300, tabs 256, marks 0\n");
}

TEST_F(BokCheck, NamesPageAndLine)
{
    PageText bad;
    bad.box2 = L"one\r\n \r\ntwo\r\n";
    expect_finding(header_lines() + PageText{}.text() + bad.text(),
        "page index 1 (line 14): box 2 has more than one line");
}

TEST_F(BokCheck, FindsTextThatAFieldWouldLose)
{
    PageText page;
    page.files = L"a\r\n \r\nb\r\n";
    expect_finding(header_lines() + page.text(), "page index 0 (line 8): a blank entry");
    page = {};
    page.folder = L"a\r\nb\r\n";
    expect_finding(header_lines() + page.text(), "the folder has more than one line");
    page = {};
    page.box1 = L"a\x03"
                L"b\r\n";
    expect_finding(header_lines() + page.text(), "U+0003 inside box 1");
    page = {};
    page.box3 = std::wstring(L"a\0b\r\n", 5);
    expect_finding(header_lines() + page.text(), "U+0000 inside box 3");
    page = {};
    page.box1 = L"\xFEFF"
                L"a\r\n";
    expect_finding(header_lines() + page.text(), "U+FEFF at the beginning of box 1");
    page = {};
    page.box1 = L"a\r\n\x03 lost\r\n";
    page.box2 = L"";
    expect_finding(header_lines() + page.text(), "text after U+0003 at the end of box 1 is lost");
}

TEST_F(BokCheck, FindsTextThatTheNextSaveWouldBreak)
{
    expect_finding(
        header_lines() + page_with_numbers(L"").text(), "a Book saved with it can never be opened again");
    for (std::wstring PageText::*field :
        { &PageText::box2, &PageText::files, &PageText::folder, &PageText::numbers }) {
        PageText page;
        page.*field = L" \x03" + (field == &PageText::numbers ? page.numbers : L"x\r\n");
        expect_finding(header_lines() + page.text(), "once saved the Book is broken here");
    }
    PageText page;
    page.box1 = L"\xFEFF\x03x\r\n";
    expect_finding(header_lines() + page.text(), "once saved the Book is broken here");
}

TEST_F(BokCheck, FindsStampsThatAreNotTimes)
{
    const auto with_stamp = [](const std::wstring& stamp) {
        return header_lines() + page_with_numbers(stamp + L" 0 0 0 0 0 0 0 0 0 0 0 0\r\n").text();
    };
    expect_finding(with_stamp(L"2026"), "stamp \"2026\" is too short");
    expect_finding(with_stamp(L"2026010203040"), "is too short");
    expect_finding(with_stamp(L"20260102030405"), "has no complete modification time");
    expect_finding(with_stamp(L"202601020304052026010203040"), "has no complete modification time");
    expect_finding(with_stamp(L"20260102030405202601020304056"), "is not two times");
    expect_finding(with_stamp(L"2026010203040x20260102030405"), "is not two times");
}

TEST_F(BokCheck, FindsNumbersThatAreUnreadableOrIgnored)
{
    const std::wstring good = PageText{}.numbers;
    const auto with_numbers = [](const std::wstring& numbers) {
        return header_lines() + page_with_numbers(numbers).text();
    };
    expect_finding(with_numbers(L"20260102030405 0 0\r\n"), "cannot be read (3 of 13 tokens)");
    expect_finding(with_numbers(L"\r\n"), "cannot be read (0 of 13 tokens)");
    expect_finding(
        with_numbers(L"s 0 0 4294967296 0 0 0 0 0 0 0 0 0\r\n"), "cannot be read (13 of 13 tokens)");
    expect_finding(with_numbers(good.substr(0, good.size() - 2) + L" 7\r\n"), "more than thirteen tokens");
    expect_finding(with_numbers(good + good), "more than one line of numbers");
    expect_finding(with_numbers(L"2026010203040520260607080910 0 0 0 0 0 0 0 0 16777216 0 0 0\r\n"),
        "colour 16777216 (token 10)");
}

TEST_F(BokCheck, ContinuesAfterUnreadableNumbers)
{
    PageText later;
    later.box2 = L"a\r\nb\r\n";
    expect_finding(
        header_lines() + page_with_numbers(L"x\r\n").text() + later.text(), "page index 1 (line 13): box 2");
}

TEST_F(BokCheck, FindsACurrentFilePastTheEndOfTheList)
{
    const auto with_current = [](const std::wstring& files, const std::wstring& current) {
        PageText page =
            page_with_numbers(L"2026010203040520260607080910 0 0 0 0 0 0 0 0 0 0 0 " + current + L"\r\n");
        page.files = files;
        return header_lines() + page.text();
    };
    expect_finding(with_current(L"a\r\nb\r\n", L"2"), "current_file 2 is past the end");
    expect_finding(with_current(L"", L"1"), "current_file 1 is past the end");
    EXPECT_EQ(check(with_current(L"a\r\nb\r\n", L"1")).code, 0);
    EXPECT_EQ(check(with_current(L"", L"0")).code, 0);
}

// A stream needs no space before a sign.
TEST_F(BokCheck, CountsAdjacentNumbers)
{
    const std::wstring stamp = L"2026010203040520260607080910";
    const auto with_numbers = [&](const std::wstring& numbers) {
        return header_lines() + page_with_numbers(stamp + numbers + L"\r\n").text();
    };
    EXPECT_EQ(check(with_numbers(L" 0 0 0 0 0 0+0 0 0 0 0 0")).code, 0);
    expect_finding(with_numbers(L" 0 0 0 0 0 0 0 0 0 0 0+5"), "current_file +5 is past the end");
    expect_finding(with_numbers(L" 0 0 0 0 0 0 0 0 0 0 0 0-1"), "more than thirteen tokens");
}

TEST_F(BokCheck, FindsTabsBeyondTheLimit)
{
    std::wstring text = header_lines();
    const PageText tabbed = page_with_numbers(L"2026010203040520260607080910 0 1 0 0 0 0 0 0 0 0 0 0\r\n");
    for (int i = 0; i < 256; ++i)
        text += tabbed.text();
    EXPECT_EQ(check(text).code, 0);
    expect_finding(text + tabbed.text(), "page index 256");
    expect_finding(text + tabbed.text(), "the 257th tab");
}

TEST_F(BokCheck, FindsMorePagesThanTheLimit)
{
    std::wstring text = header_lines();
    const std::wstring page = PageText{}.text();
    text.reserve(page.size() * 100001 + text.size());
    for (int i = 0; i < 100001; ++i)
        text += page;
    expect_finding(text, "100001 pages, more than the limit of the program");
}

TEST_F(BokCheck, FindsTheEndOfATruncatedFile)
{
    const std::wstring whole = header_lines() + PageText{}.text();
    PageText second;
    second.box1 = L"text\r\n";
    expect_finding(whole + L"tail", "page index 1 (line 11): lines after the last complete page are dropped");
    expect_finding(
        whole + L"text\r\n\x03\r\nti", "page index 1 (line 13): the file ends inside this page, at box 2");
    expect_finding(whole.substr(0, whole.size() - 2), "the last line has no CR LF");
    expect_finding(header_lines() + L"text\r\n", "no complete page");
    // Every truncation is reported, except one exactly between two pages.
    const std::wstring two = whole + second.text();
    const std::size_t inside_header = 20;
    for (std::size_t length = 0; length < two.size(); length += length == inside_header ? 640 : 1)
        EXPECT_EQ(check(two.substr(0, length)).code, length == whole.size() ? 0 : 1) << length;
}

TEST_F(BokCheck, FindsAnOddNumberOfBytes)
{
    auto bytes = test_support::bytes_of(header_lines() + PageText{}.text());
    bytes.push_back(std::byte{ 'x' });
    test_support::write_bytes(folder.wide_path(L"a.bok"), bytes);
    const Outcome outcome = bok({ "check", folder.path(L"a.bok") });
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.out.find("odd number of bytes"), std::string::npos);
}

TEST_F(BokCheck, DistinguishesOlderAndDamagedFiles)
{
    expect_finding(L"", "the file is empty");
    expect_finding(L"\x03\x03\r\n", "the three lines of the header are incomplete");
    expect_finding(L"\xFEFFtext\r\n" + PageText{}.text(), "the older format");
    expect_finding(
        L"\x03\x03\r\nabc\r\n\x03\x03\r\n" + PageText{}.text(), "the BookHeader in line 2 is damaged");
    expect_finding(L"\xFEFF" + PageText{}.text(), "box 1 of the first page is empty");
}

TEST_F(BokCheck, FindsHeaderValuesOutsideTheirRange)
{
    expect_header_finding([](auto& h) { h.position = 1; }, "position is 1, past the last page");
    expect_header_finding([](auto& h) { h.wrap_text = 2; }, "wrap_text is 2");
    expect_header_finding([](auto& h) { h.track_tabs = 2; }, "track_tabs is 2");
    expect_header_finding([](auto& h) { h.track_marks = 255; }, "track_marks is 255");
    expect_header_finding([](auto& h) { h.auto_file_search = 9; }, "auto_file_search is 9");
    expect_header_finding([](auto& h) { h.gif_autoplay = 9; }, "gif_autoplay is 9");
    expect_header_finding([](auto& h) { h.order_mode = 2703; }, "order_mode is 2703");
    expect_header_finding(
        [](auto& h) { h.order_mode = std::numeric_limits<std::int32_t>::min(); }, "is 2147483648");
    expect_header_finding([](auto& h) { h.sort_key = 3006; }, "sort_key is 3006");
    expect_header_finding([](auto& h) { h.tab_label_box = 3999; }, "tab_label_box is 3999");
    expect_header_finding([](auto& h) { h.divider = -1; }, "divider is -1");
    expect_header_finding([](auto& h) { h.theme = 0; }, "theme is 0");
    expect_header_finding([](auto& h) { h.fonts[2].height = -30000; }, "fonts[2].height is -30000");
    expect_header_finding([](auto& h) { h.fonts[0].weight = 1001; }, "fonts[0].weight is 1001");
    expect_header_finding(
        [](auto& h) { h.fonts[1].face_name.fill(u'x'); }, "fonts[1].face has no terminating zero");
}

TEST_F(BokCheck, AcceptsEveryValueThatTheProgramWrites)
{
    book::BookHeader header;
    header.order_mode = -2702;
    header.theme = 6006;
    header.divider = 600;
    EXPECT_EQ(check(header_lines(header) + PageText{}.text()).code, 0);
}

TEST_F(BokCheck, RefusesPathsThatAreNotFiles)
{
    for (const std::string& path : { folder.path(L"."), folder.path(L"missing"), std::string() }) {
        const Outcome outcome = bok({ "check", path });
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.complaints(), 1);
        EXPECT_EQ(outcome.out, "");
    }
}

struct BokConvert : BokCheck {
    std::string target = folder.path(L"out.bok");
    const std::wstring older = L"\xFEFFlead\r\n" + PageText{}.text();
    const std::wstring damaged = L"\x03\x03\r\n00ff\r\n\x03\x03\r\n" + PageText{}.text();

    Outcome convert(std::wstring_view text, std::vector<std::string> more = {}, const std::string& input = {},
        Terminal terminal = Terminal::no)
    {
        more.insert(more.begin(), { "convert", write(text), "-o", target });
        return bok(more, input, terminal);
    }
    book::Book converted()
    {
        book::Book book;
        std::wstring error;
        EXPECT_TRUE(book.load(folder.wide_path(L"out.bok"), error, {})) << platform::to_utf8(error);
        return book;
    }
};

TEST_F(BokConvert, WritesTheCurrentFormatOfAnOlderBook)
{
    EXPECT_EQ(convert(older, { "--yes" }).code, 0);
    EXPECT_EQ(converted().pages.at(0).text[0], L"lead\r\n");
    EXPECT_EQ(converted().header, book::BookHeader());
    EXPECT_EQ(bok({ "check", target }).code, 0);
}

TEST_F(BokConvert, ContinuesWithDefaultsForADamagedHeader)
{
    EXPECT_EQ(convert(damaged, { "--yes" }).code, 0);
    EXPECT_EQ(converted().header, book::BookHeader());
    EXPECT_EQ(bok({ "check", target }).code, 0);
}

TEST_F(BokConvert, AsksAtATerminal)
{
    const Outcome yes = convert(older, {}, "y\n", Terminal::yes);
    EXPECT_EQ(yes.code, 0) << yes.err;
    EXPECT_NE(yes.err.find("older format"), std::string::npos);
    EXPECT_NE(yes.err.find("[y/N]"), std::string::npos);
    EXPECT_NE(
        convert(damaged, {}, "Yes\n", Terminal::yes).err.find("BookHeader is damaged"), std::string::npos);
}

TEST_F(BokConvert, TreatsAnyOtherAnswerAsNo)
{
    for (const char* answer : { "n\n", "\n", "", "no\n", " y\n", "はい\n" }) {
        const Outcome outcome = convert(older, {}, answer, Terminal::yes);
        EXPECT_EQ(outcome.code, 1) << answer;
        EXPECT_FALSE(platform::exists(folder.wide_path(L"out.bok")));
    }
}

TEST_F(BokConvert, DeclinesWithoutATerminal)
{
    for (const std::wstring& text : { older, damaged }) {
        const Outcome outcome = convert(text, {}, "y\n");
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.complaints(), 1);
        EXPECT_NE(outcome.err.find("--yes"), std::string::npos);
        EXPECT_FALSE(platform::exists(folder.wide_path(L"out.bok")));
    }
}

TEST_F(BokConvert, AsksNothingForACurrentBook)
{
    const std::wstring text = header_lines() + PageText{}.text();
    const Outcome outcome = convert(text);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(test_support::read_text(folder.wide_path(L"out.bok")), text);
}

TEST_F(BokConvert, CanOverwriteItsSource)
{
    const std::string path = write(older);
    EXPECT_EQ(bok({ "convert", path, "-o", path, "--yes" }).code, 0);
    EXPECT_EQ(bok({ "check", path }).code, 0);
}

TEST_F(BokConvert, GivesAPageWithoutAStampTheCurrentTimeTwice)
{
    const Outcome outcome = convert(header_lines() + page_with_numbers(L"").text()
        + page_with_numbers(L"2026 0 0 0 0 0 0 0 0 0 0 0 0\r\n").text());
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.complaints(), 2) << outcome.err;
    for (const book::Page& page : converted().pages) {
        EXPECT_EQ(page.stamp.size(), 28u);
        EXPECT_EQ(page.stamp.substr(0, 14), page.stamp.substr(14));
    }
    EXPECT_EQ(bok({ "check", target }).code, 0);
}

TEST_F(BokConvert, KeepsACompleteCreationTime)
{
    EXPECT_EQ(
        convert(header_lines() + page_with_numbers(L"20260102030405 0 0 0 0 0 0 0 0 0 0 0 0\r\n").text())
            .code,
        0);
    EXPECT_EQ(converted().pages.at(0).stamp.substr(0, 14), L"20260102030405");
    EXPECT_EQ(converted().pages.at(0).stamp.size(), 28u);
}

TEST_F(BokConvert, RemovesSeparatorsThatWouldBreakASavedBook)
{
    PageText page;
    page.box1 = L"\xFEFF\x03 a\x03\r\n";
    page.box2 = L" \x03title\r\n";
    page.files = L"first\r\n \x03\r\n \x03last\r\n";
    page.folder = L"\t\x03"
                  L"folder\r\n";
    page.numbers = L" \x03"
                   L"2026010203040520260607080910 0 0 0 0 0 0 0 0 0 0 0 2\r\n";
    const Outcome outcome = convert(header_lines() + page.text() + PageText{}.text());
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    const book::Book book = converted();
    ASSERT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.pages[0].text[0], L" a\r\n");
    EXPECT_EQ(book.pages[0].text[1], L"title");
    EXPECT_EQ(book.pages[0].files, (std::vector<std::wstring>{ L"first", L"last" }));
    EXPECT_EQ(book.pages[0].current_file, 1u);
    EXPECT_EQ(book.pages[0].reference_folder, L"folder");
    EXPECT_EQ(book.pages[0].stamp, L"2026010203040520260607080910");
}

TEST_F(BokConvert, ReplacesAStampOfSeparatorsByTheCurrentTime)
{
    const std::wstring numbers = L" " + std::wstring(30, L'\x03') + L" 0 0 0 0 0 0 0 0 0 0 0 0\r\n";
    EXPECT_EQ(convert(header_lines() + page_with_numbers(numbers).text()).code, 0);
    EXPECT_EQ(converted().pages.at(0).stamp.size(), 28u);
}

TEST_F(BokConvert, ExplainsWhyItCannotContinue)
{
    const Outcome text = convert(L"Dear diary,\r\n", { "--yes" });
    EXPECT_EQ(text.code, 1);
    EXPECT_NE(text.err.find("no complete page"), std::string::npos) << text.err;
    const Outcome numbers = convert(header_lines() + page_with_numbers(L"x\r\n").text(), { "--yes" });
    EXPECT_EQ(numbers.code, 1);
    EXPECT_NE(numbers.err.find("page index 0"), std::string::npos) << numbers.err;
    EXPECT_EQ(convert(L"", { "--yes" }).code, 1);
    EXPECT_FALSE(platform::exists(folder.wide_path(L"out.bok")));
}

} // namespace
