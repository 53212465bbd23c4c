// info, pages, order and find: their output for a valid Book, and what they refuse.
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

struct BokRead : testing::Test {
    BokFolder folder;

    // A Book of pages titled a, b, c ... with these settings.
    std::string book_of(int count, const book::BookHeader& header = {})
    {
        std::wstring text = header_lines(header);
        for (int i = 0; i < count; ++i)
            text += PageText{ .box2 = std::wstring(1, static_cast<wchar_t>(L'a' + i)) + L"\r\n" }.text();
        return folder.write(L"a.bok", text);
    }
    std::string out_of(const std::vector<std::string>& arguments)
    {
        const Outcome outcome = bok(arguments);
        EXPECT_EQ(outcome.code, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
};

TEST_F(BokRead, InfoShowsCountsAndEveryMemberOfTheHeader)
{
    book::BookHeader header;
    header.version = 4294967295u;
    header.position = 18446744073709551615u;
    header.seed = 4000000000u;
    header.wrap_text = 1;
    header.track_tabs = 2;
    header.track_marks = 255;
    header.auto_file_search = 0;
    header.gif_autoplay = 1;
    header.order_mode = -2702;
    header.sort_key = 3004;
    header.tab_label_box = 4002;
    header.divider = 100;
    header.theme = 6002;
    header.fonts = {};
    header.fonts[0].height = -30000;
    header.fonts[0].weight = 700;
    header.fonts[0].face_name.fill(u'x'); // without a terminating zero
    header.fonts[1].face_name = { u'"', 0xD800, u'\0', u'z' };
    PageText page;
    page.numbers = L"2026010203040520260607080910 1 1 0 0 0 0 0 0 0 0 0 0\r\n";
    const std::wstring text = header_lines(header) + PageText{}.text() + page.text();
    const std::string path = folder.write(L"a.bok", text);
    EXPECT_EQ(out_of({ "info", path, "--json" }),
        R"({"pages":2,"tabs":1,"marks":1,"file_size":)" + std::to_string(text.size() * 2)
            + R"(,"header":{"version":4294967295,"position":18446744073709551615,"seed":4000000000,"wrap_text":1,)"
              R"("track_tabs":2,"track_marks":255,"auto_file_search":0,"gif_autoplay":1,"order_mode":-2702,)"
              R"("sort_key":3004,"tab_label_box":4002,"divider":100,"theme":6002,"fonts":[)"
              R"({"face":"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx","height":-30000,"weight":700},)"
              R"({"face":"\"\ud800","height":0,"weight":0},{"face":"","height":0,"weight":0}]}})"
              "\n");
}

TEST_F(BokRead, InfoShowsTheSameAsATable)
{
    const std::string out = out_of({ "info", book_of(3) });
    EXPECT_NE(out.find("pages             3\n"), std::string::npos) << out;
    EXPECT_NE(out.find("fonts[0]          メイリオ"), std::string::npos) << out;
}

TEST_F(BokRead, PagesShowsEveryMemberWithTheTextsAsLoaded)
{
    PageText page;
    page.box1 = L"\"q\"\r\n\x3042 \r\n";
    page.box2 = L" \x3000 title\xD83D\xDE00 \r\n";
    page.box3 = std::wstring(L"\t\\ \xDC00") + wchar_t{ 0x2028 } + L"\r\n";
    page.files = L"C:\\a|b.txt\r\nhttps://a.example/\r\n";
    page.folder = L"C:\\dir\r\n";
    page.numbers = L"2026010203040520260607080910 -7 1 16777215 1 2 3 4294967295 5 6 -1 2147483647 0\r\n";
    const std::string path = folder.write(L"a.bok", header_lines() + page.text());
    EXPECT_EQ(out_of({ "pages", path, "--json" }),
        "{\"position\":0,\"index\":0,\"stamp\":\"2026010203040520260607080910\","
        "\"text\":[\"\\\"q\\\"\\r\\nあ \\r\\n\",\"title😀\",\"\\t\\\\ \\udc00\\u2028\\r\\n\"],"
        "\"files\":[\"C:\\\\a|b.txt\",\"https://a.example/\"],\"current_file\":0,"
        "\"reference_folder\":\"C:\\\\dir\",\"tab_number\":1,\"mark\":-7,\"text_color\":[4294967295,5,6],"
        "\"back_color\":[1,2,3],\"tab_color\":16777215,\"scroll_first\":-1,\"scroll_third\":2147483647}\n");
}

TEST_F(BokRead, PagesAreInDisplayOrder)
{
    book::BookHeader header;
    header.order_mode = -2700;
    const std::string out = out_of({ "pages", book_of(3, header), "--json" });
    EXPECT_TRUE(out.starts_with("{\"position\":0,\"index\":2,")) << out;
    EXPECT_EQ(std::ranges::count(out, '\n'), 3);
}

TEST_F(BokRead, ARangeIncludesBothEndsAndStopsAtTheLastPage)
{
    const std::string path = book_of(5);
    const auto count = [&](const char* range) {
        const std::string out = out_of({ "pages", path, "--json", "--range", range });
        return std::ranges::count(out, '\n');
    };
    EXPECT_EQ(count("1-3"), 3);
    EXPECT_EQ(count("4-4"), 1);
    EXPECT_EQ(count("4"), 1);
    EXPECT_EQ(count("3-"), 2);
    EXPECT_EQ(count("3-18446744073709551615"), 2);
    EXPECT_EQ(count("5-9"), 0);
}

TEST_F(BokRead, OrderFollowsTheBookUnlessAnOptionOverridesIt)
{
    book::BookHeader header;
    header.order_mode = -2702;
    header.seed = 1;
    const std::string path = book_of(10, header);
    EXPECT_EQ(out_of({ "order", path, "--json" }), "[9,1,4,6,8,0,7,2,5,3]\n");
    EXPECT_EQ(out_of({ "order", path, "--json", "--seed", "42" }), "[5,3,4,1,8,7,6,2,0,9]\n");
    EXPECT_EQ(out_of({ "order", path, "--json", "--mode", "random" }), "[3,5,2,7,0,8,6,4,1,9]\n");
    EXPECT_EQ(
        out_of({ "order", path, "--json", "--mode", "random", "--seed", "5489" }), "[4,0,3,1,5,7,6,2,9,8]\n");
    EXPECT_EQ(out_of({ "order", path, "--json", "--mode", "stored" }), "[0,1,2,3,4,5,6,7,8,9]\n");
    EXPECT_EQ(
        out_of({ "order", path, "--json", "--mode", "stored", "--reverse" }), "[9,8,7,6,5,4,3,2,1,0]\n");
}

TEST_F(BokRead, ReverseAloneReversesTheDirectionOfTheBook)
{
    EXPECT_EQ(out_of({ "order", book_of(3), "--json", "--reverse" }), "[2,1,0]\n");
    book::BookHeader header;
    header.order_mode = -2700;
    EXPECT_EQ(out_of({ "order", book_of(3, header), "--json", "--reverse" }), "[0,1,2]\n");
}

TEST_F(BokRead, OrderAcceptsTheOneModeThatCannotBeNegated)
{
    book::BookHeader header;
    header.order_mode = std::numeric_limits<std::int32_t>::min();
    const std::string path = book_of(3, header);
    EXPECT_EQ(out_of({ "order", path, "--json" }), "[2,1,0]\n");
    EXPECT_EQ(out_of({ "order", path, "--json", "--reverse" }), "[0,1,2]\n");
}

TEST_F(BokRead, OrderSortsByTheGivenKey)
{
    std::wstring text = header_lines();
    for (const wchar_t* stamp : { L"2026010100000020260301000000", L"2025010100000020260201000000",
             L"2024010100000020260101000000" }) {
        PageText page{ .box2 = std::wstring(stamp, 4) + L"\r\n" };
        page.numbers.replace(0, 28, stamp);
        text += page.text();
    }
    const std::string path = folder.write(L"a.bok", text);
    EXPECT_EQ(out_of({ "order", path, "--json", "--mode", "sorted", "--key", "3001" }), "[2,1,0]\n");
    EXPECT_EQ(out_of({ "order", path, "--json", "--mode", "sorted", "--key", "3004" }), "[2,1,0]\n");
    EXPECT_EQ(
        out_of({ "order", path, "--json", "--mode", "sorted", "--key", "3004", "--reverse" }), "[0,1,2]\n");
    EXPECT_EQ(out_of({ "order", path, "--json", "--key", "3001" }), "[0,1,2]\n");
}

TEST_F(BokRead, AStampTooShortToSortByIsAProblemOfTheBook)
{
    PageText page;
    page.numbers.replace(0, 28, L"2026");
    const std::string path = folder.write(L"a.bok", header_lines() + page.text() + page.text());
    const Outcome outcome = bok({ "order", path, "--mode", "sorted", "--key", "3004", "--json" });
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.complaints(), 1);
    EXPECT_NE(outcome.err.find("stamp"), std::string::npos);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(bok({ "order", path, "--mode", "sorted", "--key", "3003", "--json" }).code, 0);
}

struct BokFind : BokRead {
    std::string path = [this] {
        PageText first{
            .box1 = L"Apple pie\r\nand apple\r\n", .box2 = L"a b\r\n", .files = L"C:\\apple\\apple.txt\r\n"
        };
        PageText second{ .box2 = L"pear\r\n" };
        second.numbers.replace(29, 3, L"1 0");
        PageText third{ .box3 = L"plum\r\n" };
        third.numbers.replace(29, 3, L"0 1");
        return folder.write(L"a.bok", header_lines() + first.text() + second.text() + third.text());
    }();

    std::string found(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), { "find", path, "--json" });
        return out_of(arguments);
    }
};

TEST_F(BokFind, ReportsThePositionOfEachTerm)
{
    EXPECT_EQ(found({ "apple pear" }),
        "{\"position\":0,\"index\":0,\"hits\":[{\"term\":\"apple\",\"place\":100,\"start\":15,\"end\":20}]}\n"
        "{\"position\":1,\"index\":1,\"hits\":[{\"term\":\"pear\",\"place\":101,\"start\":0,\"end\":4}]}\n");
}

TEST_F(BokFind, IgnoresCaseAndSearchesFilesOnRequest)
{
    EXPECT_EQ(found({ "APPLE", "--ignore-case", "--files" }),
        "{\"position\":0,\"index\":0,\"hits\":[{\"term\":\"APPLE\",\"place\":100,\"start\":0,\"end\":5},"
        "{\"term\":\"APPLE\",\"place\":100,\"start\":15,\"end\":20},"
        "{\"term\":\"APPLE\",\"place\":200,\"start\":3,\"end\":8}]}\n");
}

TEST_F(BokFind, SplitsTheQueryAsTheSearchBoxDoes)
{
    EXPECT_EQ(found({ "\"a b\"" }),
        "{\"position\":0,\"index\":0,\"hits\":[{\"term\":\"a b\",\"place\":101,\"start\":0,\"end\":3}]}\n");
    EXPECT_EQ(found({ "pe\x03"
                      "ar" }),
        found({ "pear" }));
    EXPECT_EQ(found({ "apple\u3000pear", "--all" }), "");
}

TEST_F(BokFind, TracksMarksAndTabs)
{
    EXPECT_EQ(found({ "nothing", "--track-marks" }), "{\"position\":1,\"index\":1,\"hits\":[]}\n");
    EXPECT_EQ(found({ "", "--track-tabs" }), "{\"position\":2,\"index\":2,\"hits\":[]}\n");
}

TEST_F(BokFind, WithoutTermsEveryPageMatches)
{
    const std::string out = found({ "" });
    EXPECT_EQ(std::ranges::count(out, '\n'), 3);
}

TEST_F(BokFind, ShowsTheLineOfEachHit)
{
    const std::string out = out_of({ "find", path, "apple", "--files" });
    EXPECT_EQ(out, "0  [0]  a b\n    box 1  15-20  and apple\n    file 1  3-8  C:\\apple\\apple.txt\n");
}

// Every command that only reads refuses files that it could misread, and names the command that helps.
struct BokRefuses : BokRead {
    std::vector<std::vector<std::string>> readers(const std::string& path)
    {
        return { { "info", path, "--json" }, { "pages", path, "--json" }, { "order", path, "--json" },
            { "find", path, "x", "--json" }, { "export", path, "--to", "json" } };
    }
    void expect_refused(const std::string& path, std::string_view word)
    {
        for (const auto& arguments : readers(path)) {
            // Even on a terminal, whatever the user types.
            const Outcome outcome = bok(arguments, "y\ny\n", Terminal::yes);
            EXPECT_EQ(outcome.code, 1) << arguments[0];
            EXPECT_EQ(outcome.complaints(), 1) << outcome.err;
            EXPECT_NE(outcome.err.find(word), std::string::npos) << outcome.err;
            EXPECT_EQ(outcome.out, "");
        }
    }
};

TEST_F(BokRefuses, TheOlderFormat)
{
    expect_refused(folder.write(L"a.bok", L"\xFEFFtext\r\n" + PageText{}.text()), "convert");
}

TEST_F(BokRefuses, ADamagedHeader)
{
    expect_refused(
        folder.write(L"a.bok", L"\x03\x03\r\n00ff\r\n\x03\x03\r\n" + PageText{}.text()), "convert");
}

TEST_F(BokRefuses, FilesThatAreNotBooks)
{
    expect_refused(folder.write(L"a.bok", L""), "empty");
    expect_refused(folder.write_utf8(L"a.bok", "odd"), "header");
    expect_refused(folder.write(L"a.bok", header_lines()), "no complete page");
    expect_refused(folder.write(L"a.bok", L"\x03\x03\r\n"), "header");
    expect_refused(folder.path(L"missing.bok"), "no such file");
    expect_refused("", "no such file");
    expect_refused(folder.path(L"."), "folder");
}

TEST_F(BokRefuses, UnreadableNumbersWithTheirPosition)
{
    PageText damaged;
    damaged.numbers = L"2026010203040520260607080910 0 0 x\r\n";
    expect_refused(folder.write(L"a.bok", header_lines() + PageText{}.text() + damaged.text()),
        "page index 1 (line 16)");
}

TEST_F(BokRefuses, OnlyTheIncompletePageOfATruncatedFile)
{
    const std::wstring text = header_lines() + PageText{ .box2 = L"whole\r\n" }.text() + PageText{}.text();
    const std::string path = folder.write(L"a.bok", text.substr(0, text.size() - 4));
    EXPECT_NE(out_of({ "info", path, "--json" }).find("\"pages\":1,"), std::string::npos);
}

#if !defined(_WIN32)
TEST_F(BokRefuses, WhatIsNotAnOrdinaryFile)
{
    expect_refused("/dev/zero", "not an ordinary file");
}
#endif

} // namespace
