// Whole Books as JSON: export and import give the same bytes, and people may write a simpler form.
#include "tests/support/bok_import.hpp"
#include "tools/bok/json_reader.hpp"
#include "tools/bok/json_writer.hpp"
#include <random>

namespace {

using bok::JsonError;
using bok::JsonReader;
using bok::JsonWriter;
using test_support::bok;
using test_support::header_lines;
using test_support::Outcome;
using test_support::PageText;

std::wstring read_string(std::string_view json)
{
    JsonReader reader(json);
    std::wstring text;
    reader.read(text);
    reader.finish();
    return text;
}

std::string written(std::wstring_view text)
{
    std::string json;
    JsonWriter(json).value(text);
    return json;
}

TEST(JsonText, RoundTripsEveryUnit)
{
    std::wstring every;
    for (std::uint32_t unit = 0; unit < 0x10000; ++unit)
        every.push_back(static_cast<wchar_t>(unit));
    EXPECT_EQ(read_string(written(every)), every);
    std::ranges::reverse(every); // low halves before high ones
    EXPECT_EQ(read_string(written(every)), every);
}

TEST(JsonText, IsUtf8WithTheEscapesThatJsonAndLinesNeed)
{
    const std::wstring text{ L'"', L'\\', L'\n', L'\r', L'\t', wchar_t{ 0 }, wchar_t{ 0x1F }, wchar_t{ 0x7F },
        wchar_t{ 0x3042 }, wchar_t{ 0xD83D }, wchar_t{ 0xDE00 }, wchar_t{ 0xD800 }, wchar_t{ 0xDC00 - 1 },
        wchar_t{ 0x2028 }, wchar_t{ 0x85 } };
    EXPECT_EQ(written(text),
        "\"\\\"\\\\\\n\\r\\t\\u0000\\u001f\x7F"
        "あ😀\\ud800\\udbff\\u2028\\u0085\"");
}

TEST(JsonText, AcceptsEveryEscape)
{
    EXPECT_EQ(read_string(R"("\"\\\/\b\f\n\r\t\u0041\uD83D\ude00\ud800")"),
        (std::wstring(L"\"\\/\b\f\n\r\tA") + wchar_t{ 0xD83D } + wchar_t{ 0xDE00 } + wchar_t{ 0xD800 }));
}

TEST(JsonText, IsRefusedWhenMalformed)
{
    for (const char* json :
        { "", "x", "\"", "\"a", "\"\\\"", "\"\\x\"", "\"\\u12\"", "\"\\u12g4\"", "\"\\u-123\"", "\"\\",
            "\"\t\"", "\"\n\"", "\"\xFF\"", "\"\xED\xA0\x80\"", "\"\xC0\xAF\"", "\"a\" b", "'a'", "null" })
        EXPECT_THROW(read_string(json), JsonError) << json;
}

template <class Number> Number read_number(std::string_view json)
{
    JsonReader reader(json);
    Number number = 0;
    reader.read(number);
    reader.finish();
    return number;
}

TEST(JsonNumber, CoversTheRangeOfItsType)
{
    EXPECT_EQ(read_number<std::uint64_t>("18446744073709551615"), 18446744073709551615u);
    EXPECT_EQ(read_number<std::int32_t>("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(read_number<std::int32_t>(" 2147483647\n"), 2147483647);
    EXPECT_EQ(read_number<std::uint8_t>("255"), 255);
    EXPECT_EQ(read_number<std::uint32_t>("-0"), 0u);
}

TEST(JsonNumber, IsRefusedOutOfRange)
{
    EXPECT_THROW(read_number<std::uint64_t>("18446744073709551616"), JsonError);
    EXPECT_THROW(read_number<std::int32_t>("-2147483649"), JsonError);
    EXPECT_THROW(read_number<std::int32_t>("2147483648"), JsonError);
    EXPECT_THROW(read_number<std::uint8_t>("256"), JsonError);
    EXPECT_THROW(read_number<std::uint32_t>("-1"), JsonError);
    for (const char* json :
        { "1.0", "1e3", "01", "-", "+1", "0x1", "\"1\"", "", "1 2", "99999999999999999999999" })
        EXPECT_THROW(read_number<std::int32_t>(json), JsonError) << json;
}

TEST(JsonReader, ReportsLineAndColumn)
{
    JsonReader reader("{\n  \"a\": 1,\n  \"b\": x }");
    std::string name;
    int number = 0;
    reader.enter_object();
    ASSERT_TRUE(reader.next_member(name));
    reader.read(number);
    ASSERT_TRUE(reader.next_member(name));
    EXPECT_EQ(name, "b");
    try {
        reader.read(number);
        FAIL();
    } catch (const JsonError& error) {
        EXPECT_EQ(error.line, 3u);
        EXPECT_EQ(error.column, 8u);
    }
}

struct BokJson : test_support::BokImport {
    BokJson()
        : BokImport("json")
    {
    }
    // Exports to JSON and imports again, and compares with loading and saving the same file.
    void expect_same_bytes(std::wstring_view text)
    {
        const std::string path = folder.write(L"a.bok", text);
        book::Book book;
        std::wstring error;
        ASSERT_TRUE(book.load(folder.wide_path(L"a.bok"), error, {})) << platform::to_utf8(error);
        ASSERT_TRUE(book.save_to(folder.wide_path(L"saved.bok")));
        const Outcome outcome = bok({ "export", path, "--to", "json", "-o", folder.path(L"a.json") });
        ASSERT_EQ(outcome.code, 0) << outcome.err;
        const Outcome back = bok({ "import", folder.path(L"a.json"), "--from", "json", "-o", target });
        ASSERT_EQ(back.code, 0) << back.err << folder.read_utf8(L"a.json");
        EXPECT_EQ(folder.read(L"out.bok"), folder.read(L"saved.bok")) << folder.read_utf8(L"a.json");
    }
};

TEST_F(BokJson, GivesTheSameBytesForAPlainBook)
{
    PageText page;
    page.box1 = L"lead\r\n\r\n more\r\n";
    page.box2 = L"title\r\n";
    page.files = L"a\r\nb\r\n";
    page.folder = L"C:\\x\r\n";
    page.numbers = L"2026010203040520260607080910 1 1 1 2 3 4 5 6 7 8 9 1\r\n";
    const std::wstring text = header_lines() + page.text() + PageText{}.text();
    expect_same_bytes(text);
    EXPECT_EQ(test_support::read_text(folder.wide_path(L"out.bok")), text);
}

TEST_F(BokJson, KeepsEveryByteOfTheHeader)
{
    std::mt19937 random(7);
    for (int round = 0; round < 50; ++round) {
        book::BookHeader header;
        auto bytes = std::as_writable_bytes(std::span(&header, 1));
        for (std::byte& byte : bytes)
            byte = static_cast<std::byte>(random() & 0xFF);
        if (round % 2 == 0)
            header.fonts[1].face_name[static_cast<std::size_t>(round) / 2 % 32] = u'\0';
        expect_same_bytes(header_lines(header) + PageText{}.text());
    }
}

TEST_F(BokJson, GivesTheSameBytesForTextThatNoBoxCouldHold)
{
    PageText page;
    page.box1 = L"\xFEFF\xFEFF"
                L"a\rb\nc \x03 d\r\r\n\n\x1\xD800\r\n\xDC00\r\n";
    page.box2 = L" x\ry\nz\x03 \xFEFF\r\n";
    page.box3 = std::wstring(L"a\0b", 3) + L"\x2028\x85\r\n";
    page.files = L"a\rb\nc\x03\r\n \x3000 d\te \r\n";
    page.folder = L"\xD83D\n\x03\r\n";
    page.numbers = L"2\x3000\x03 -2147483648 7 4294967295 -1 0 0 0 0 0 -5 2147483647 99\r\n";
    expect_same_bytes(header_lines() + page.text() + page.text());
    PageText longer = page;
    longer.numbers = L"202601020304052026060708091011 1 0 0 0 0 0 0 0 0 0 0 1\r\n";
    expect_same_bytes(header_lines() + longer.text());
}

TEST_F(BokJson, GivesTheSameBytesForRandomPages)
{
    std::mt19937 random(42);
    const std::wstring alphabet = L"ab \t\r\n\x03\x3000\xFEFF\xD83D\xDE00\"\\|{}\x85\x2028";
    const auto field = [&] {
        std::wstring text;
        for (auto length = random() % 12; length > 0; --length) {
            const wchar_t unit = alphabet[random() % alphabet.size()];
            // After white space alone, a separator would end the field, at once or after the next save.
            const std::size_t line = text.rfind(L'\n') + 1;
            if (unit == 3 && text.find_first_of(L"ab\"\\|{}", line) == text.npos)
                continue;
            text += unit;
        }
        return text.empty() || text.ends_with(L"\r\n") ? text : text + L"\r\n";
    };
    for (int round = 0; round < 100; ++round) {
        PageText page;
        for (std::wstring* text : { &page.box1, &page.box2, &page.box3, &page.files, &page.folder })
            *text = field();
        expect_same_bytes(header_lines() + page.text() + page.text());
        if (HasFailure())
            return;
    }
}

// Loading trims the line, so the next save would write the separator as the end of a field.
TEST_F(BokJson, RefusesASeparatorHiddenByWhiteSpace)
{
    PageText page;
    page.box2 = L" \x03 x\r\n";
    const std::string path = folder.write(L"a.bok", header_lines() + page.text());
    const Outcome outcome = bok({ "export", path, "--to", "json" });
    EXPECT_EQ(outcome.code, 0);
    expect_refused(outcome.out, "pages[0]: text[1] begins with U+0003");
}

TEST_F(BokJson, KeepsTheOrderOfTabs)
{
    std::wstring text = header_lines();
    for (const wchar_t* tab : { L"0", L"1", L"0", L"1" }) {
        PageText page;
        page.numbers.replace(31, 1, tab);
        text += page.text();
    }
    expect_same_bytes(text);
}

TEST_F(BokJson, DropsTabsBeyondTheLimitAndReportsIt)
{
    std::string json = R"({"pages":[)";
    for (int i = 0; i < 300; ++i)
        json += std::string(i > 0 ? "," : "") + R"({"tab_number":1})";
    const Outcome outcome = import(json + "]}");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_NE(outcome.err.find("44 tabs beyond 256"), std::string::npos) << outcome.err;
    EXPECT_NE(bok({ "info", target, "--json" }).out.find("\"tabs\":256,"), std::string::npos);
}

TEST_F(BokJson, FillsOmittedMembersWithDefaults)
{
    const book::Book book = imported(R"({ "header": { "theme": 6002, "wrap_text": 1 }, "pages": [ {} ] })");
    EXPECT_EQ(book.header.wrap_text, 1);
    EXPECT_EQ(book.header.version, 106u);
    EXPECT_EQ(book.header.sort_key, 3000);
    EXPECT_EQ(book.header.fonts, book::BookHeader().fonts);
    const book::Page& page = book.pages.at(0);
    EXPECT_EQ(page.stamp.size(), 28u);
    EXPECT_EQ(page.text_color[0], 0xFFFFFFu);
    EXPECT_EQ(page.back_color[2], 0x141414u);
}

TEST_F(BokJson, AcceptsLinesAndWebColours)
{
    const book::Book book = imported(R"({"pages":[{"text":[["","one","","two"],"title",[]],
        "text_color":["#010203",255,"#FFFFFF"],"tab_color":"#4a57b3","tab_number":9}]})");
    const book::Page& page = book.pages.at(0);
    EXPECT_EQ(page.text, (std::array<std::wstring, 3>{ L"\r\none\r\n\r\ntwo\r\n", L"title", L"" }));
    EXPECT_EQ(page.text_color, (std::array<std::uint32_t, 3>{ 0x030201, 255, 0xFFFFFF }));
    EXPECT_EQ(page.tab_color, 0xB3574Au);
    EXPECT_EQ(page.tab_number, 1u);
}

TEST_F(BokJson, TurnsEveryLineBreakOfABoxIntoCrLf)
{
    const book::Book book = imported(R"({"pages":[{"text":["a\nb\rc\r\nd\n\r\n","t","\n\ne"]}]})");
    EXPECT_EQ(book.pages.at(0).text[0], L"a\r\nb\r\nc\r\nd\r\n");
    EXPECT_EQ(book.pages.at(0).text[2], L"\r\n\r\ne\r\n");
    EXPECT_EQ(imported(R"({"pages":[{"text":["a\rb","",""]}]})").pages.at(0).text[0], L"a\r\nb\r\n");
}

TEST_F(BokJson, RefusesTextThatWouldBreakTheFileWithItsPosition)
{
    expect_refused(R"({"pages":[{},
 {"text":["a\u0003","",""]}]})",
        "line 2, column 2: pages[1]: text[0] contains U+0003");
    expect_refused(R"({"pages":[{"text":["","",["x","\u0003"]]}]})", "text[2] contains U+0003");
    expect_refused(R"({"pages":[{"text":["","a\u0003",""]}]})", "text[1] contains U+0003");
    expect_refused(R"({"pages":[{"text":["","a\nb",""]}]})", "text[1] contains a line break");
    expect_refused(R"({"pages":[{"text":["","a\rb",""]}]})", "text[1] contains a line break");
    expect_refused(R"({"pages":[{"files":["a","b\r\nc"]}]})", "files[1] contains a line break");
    expect_refused(R"({"pages":[{"files":["a","\u0003"]}]})", "files[1] contains U+0003");
    expect_refused(R"({"pages":[{"files":["a","","b"]}]})", "files[1] is blank");
    expect_refused(R"({"pages":[{"files":["\u3000 "]}]})", "files[0] is blank");
    expect_refused(R"({"pages":[{"reference_folder":"a\rb"}]})", "reference_folder contains a line break");
    expect_refused(R"({"pages":[{"stamp":""}]})", "stamp is empty");
    expect_refused(R"({"pages":[{"stamp":"2026 01"}]})", "stamp contains white space");
    expect_refused(R"({"pages":[{"stamp":"2026\u300001"}]})", "stamp contains white space");
    expect_refused(R"({"pages":[{"stamp":"2026\u000301"}]})", "stamp contains U+0003");
    expect_refused(R"({"pages":[{"files":["a"],"current_file":1}]})", "current_file is past the end");
    expect_refused(R"({"pages":[{"current_file":1}]})", "current_file is past the end");
}

TEST_F(BokJson, RefusesEvenAVerbatimPageThatWouldComeBackDifferently)
{
    const auto verbatim = [](const std::string& members) {
        return R"({"pages":[{"verbatim":true,)" + members + "}]}";
    };
    expect_refused(
        verbatim(R"("text":["a\r\n\u0003b","",""])"), "text[0] has a line that begins with U+0003");
    expect_refused(verbatim(R"("text":["","",["\u0003"]])"), "text[2] has a line that begins with U+0003");
    expect_refused(verbatim(R"("text":[""," \u0003",""])"), "text[1] begins with U+0003");
    expect_refused(verbatim(R"("text":["","a\r\nb",""])"), "text[1] contains a line break");
    expect_refused(verbatim(R"("files":["\u0003"])"), "files[0] begins with U+0003");
    expect_refused(verbatim(R"("files":["a\r\nb"])"), "files[0] contains a line break");
    expect_refused(verbatim(R"("files":[" "])"), "files[0] is blank");
    expect_refused(verbatim(R"("reference_folder":"\u0003")"), "reference_folder begins with U+0003");
    expect_refused(verbatim(R"("stamp":"")"), "stamp is empty");
    expect_refused(verbatim(R"("stamp":"a b")"), "stamp contains white space");
    expect_refused(verbatim(R"("stamp":"\u0003")"), "stamp begins with U+0003");
    expect_refused(verbatim(R"("current_file":3)"), "current_file is past");
}

TEST_F(BokJson, RefusesOtherForms)
{
    expect_refused("", "the text ends unexpectedly");
    expect_refused("[]", "expected '{'");
    expect_refused("{}", "a Book needs a page");
    expect_refused(R"({"pages":[]})", "a Book needs a page");
    expect_refused(R"({"pages":[{}]} x)", "unexpected text after the end");
    expect_refused(R"({"pages":[{}],})", "");
    expect_refused(R"({"pages":[{},]})", "");
    expect_refused(R"({"pages":[{}],"extra":1})", "unknown member \"extra\"");
    expect_refused(R"({"pages":[{"txet":[]}]})", "pages[0]: unknown member \"txet\"");
    expect_refused(R"({"pages":[{"mark":1,"mark":0}]})", "duplicate member \"mark\"");
    expect_refused(R"({"format":"other","pages":[{}]})", "format");
    expect_refused(R"({"pages":[{"text":["a","b"]}]})", "needs 3 elements");
    expect_refused(R"({"pages":[{"text":["a","b","c","d"]}]})", "needs 3 elements");
    expect_refused(R"({"pages":[{"tab_color":"red"}]})", "a colour is");
    expect_refused(R"({"pages":[{"tab_color":"#12345"}]})", "a colour is");
    expect_refused(R"({"pages":[{"tab_color":"#+12345"}]})", "a colour is");
    expect_refused(R"({"pages":[{"mark":2147483648}]})", "out of range");
    expect_refused(R"({"header":{"wrap_text":256},"pages":[{}]})", "out of range");
    expect_refused(R"({"header":{"fonts":[{}]},"pages":[{}]})", "needs 3 elements");
    expect_refused(
        R"({"header":{"fonts":[{"face":"123456789012345678901234567890123"},{},{}]},"pages":[{}]})",
        "at most 32 units");
    expect_refused(
        R"({"header":{"fonts":[{"face":"12345678901234567890123456789012","face_tail":"x"},{},{}]}})",
        "at most 32 units");
    expect_refused(R"({"pages":null})", "expected '['");
    expect_refused("\xEF\xBB\xBF{", "the text ends unexpectedly");
    expect_refused("{\"pages\":[{\"stamp\":\"\xFF\"}]}", "line 1, column 21: pages[0]: not UTF-8");
}

TEST_F(BokJson, SurvivesDeepNesting)
{
    expect_refused(std::string(1000000, '['), "expected '{'");
    expect_refused(R"({"pages":)" + std::string(1000000, '['), "expected '{'");
}

TEST_F(BokJson, AcceptsAsManyPagesAsABook)
{
    std::string json = R"({"pages":[{})";
    for (int i = 1; i < 100000; ++i)
        json += ",{}";
    EXPECT_EQ(import(json + "]}").code, 0);
    expect_refused(json + ",{}]}", "at most 100000 pages");
}

TEST_F(BokJson, ExportsButDoesNotImportAPageWithoutAStamp)
{
    PageText page;
    page.numbers = L"";
    const std::string path = folder.write(L"a.bok", header_lines() + page.text());
    const Outcome outcome = bok({ "export", path, "--to", "json" });
    EXPECT_EQ(outcome.code, 0);
    expect_refused(outcome.out, "stamp is empty");
}

} // namespace
