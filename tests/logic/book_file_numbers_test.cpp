// The numbers line, compared with the C++ stream that defines its rules.
#include "book/page_numbers.hpp"
#include "tests/support/memory_stream.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <random>
#include <sstream>

namespace {

using book::Page;
using FileString = std::basic_string<book::FileUnit>;

FileString file_units(const std::wstring& text)
{
    FileString units;
    for (const wchar_t unit : text)
        units += static_cast<book::FileUnit>(unit);
    return units;
}

bool read(const std::wstring& line, Page& page)
{
    return book::read_numbers(file_units(line), page);
}

bool read_by_stream(const std::wstring& line, Page& page)
{
    std::wistringstream stream(line);
    stream.imbue(std::locale::classic());
    std::int32_t has_tab = 0;
    std::uint64_t current_file = 0;
    stream >> page.stamp >> page.mark >> has_tab >> page.tab_color;
    for (std::uint32_t& color : page.back_color)
        stream >> color;
    for (std::uint32_t& color : page.text_color)
        stream >> color;
    stream >> page.scroll_first >> page.scroll_third >> current_file;
    if (stream.fail())
        return false;
    page.tab_number = has_tab != 0 ? 1 : 0;
    if (current_file < page.files.size())
        page.current_file = current_file;
    return true;
}

Page page_with_files(std::size_t count)
{
    Page page;
    page.files.assign(count, L"x");
    page.current_file = count > 0 ? count - 1 : 0;
    return page;
}

void expect_like_stream(const std::wstring& line)
{
    Page page = page_with_files(3);
    Page expected = page_with_files(3);
    const bool is_expected = read_by_stream(line, expected);
    ASSERT_EQ(read(line, page), is_expected) << platform::to_utf8(line);
    if (is_expected) {
        EXPECT_EQ(page, expected) << platform::to_utf8(line);
    }
}

std::wstring written(const Page& page)
{
    test_support::MemorySink sink;
    book::LineWriter writer(sink);
    book::write_numbers(writer, page);
    writer.flush();
    std::wstring text;
    for (std::size_t i = 0; i < sink.bytes.size(); i += 2)
        text += static_cast<wchar_t>(
            std::to_integer<unsigned>(sink.bytes[i]) | std::to_integer<unsigned>(sink.bytes[i + 1]) << 8);
    return text;
}

const std::wstring plain_line = L"2024010112345620240202235959 1 1 2 3 4 5 6 7 8 9 10 1\r\n";

TEST(NumbersLine, HasThirteenTokensWithBackgroundBeforeText)
{
    Page page = page_with_files(2);
    ASSERT_TRUE(read(plain_line, page));
    EXPECT_EQ(page.stamp, L"2024010112345620240202235959");
    EXPECT_EQ(page.mark, 1);
    EXPECT_EQ(page.tab_number, 1u);
    EXPECT_EQ(page.tab_color, 2u);
    EXPECT_EQ(page.back_color, (std::array<std::uint32_t, 3>{ 3, 4, 5 }));
    EXPECT_EQ(page.text_color, (std::array<std::uint32_t, 3>{ 6, 7, 8 }));
    EXPECT_EQ(page.scroll_first, 9);
    EXPECT_EQ(page.scroll_third, 10);
    EXPECT_EQ(page.current_file, 1u);
    EXPECT_EQ(written(page), plain_line);
}

TEST(NumbersLine, WritesSignedAndUnsignedNumbersUngrouped)
{
    Page page;
    page.stamp = L"s";
    page.mark = std::numeric_limits<std::int32_t>::min();
    page.tab_number = 256;
    page.tab_color = std::numeric_limits<std::uint32_t>::max();
    page.back_color = { 1000000, 0, 4294967295u };
    page.scroll_first = -1;
    page.scroll_third = std::numeric_limits<std::int32_t>::max();
    page.current_file = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(written(page),
        L"s -2147483648 1 4294967295 1000000 0 4294967295 0 0 0 -1 2147483647 18446744073709551615\r\n");
}

TEST(NumbersLine, FailsForEachMissingToken)
{
    std::wstring line = plain_line.substr(0, plain_line.size() - 2);
    for (int count = 13; count > 0; --count) {
        Page page;
        EXPECT_EQ(read(line + L"\r\n", page), count == 13) << count;
        line.resize(count > 1 ? line.rfind(L' ') : 0);
    }
    Page page;
    EXPECT_FALSE(read(L"\r\n", page));
    EXPECT_FALSE(read(L" \t\r\n", page));
}

TEST(NumbersLine, NeedsNoLineEndAndIgnoresFurtherTokens)
{
    Page page;
    EXPECT_TRUE(read(plain_line.substr(0, plain_line.size() - 2), page));
    EXPECT_TRUE(read(L" \t" + plain_line + L"more 99999999999999999999", page));
}

TEST(NumbersLine, KeepsTheLastFileForACurrentFilePastTheEnd)
{
    Page page = page_with_files(2);
    ASSERT_TRUE(read(L"s 0 0 0 0 0 0 0 0 0 0 0 2\r\n", page));
    EXPECT_EQ(page.current_file, 1u);
    ASSERT_TRUE(read(L"s 0 0 0 0 0 0 0 0 0 0 0 18446744073709551615\r\n", page));
    EXPECT_EQ(page.current_file, 1u);
    ASSERT_TRUE(read(L"s 0 0 0 0 0 0 0 0 0 0 0 0\r\n", page));
    EXPECT_EQ(page.current_file, 0u);
    Page without;
    ASSERT_TRUE(read(L"s 0 0 0 0 0 0 0 0 0 0 0 7\r\n", without));
    EXPECT_EQ(without.current_file, 0u);
}

TEST(NumbersLine, TreatsEveryTabTokenButZeroAsATab)
{
    for (const auto& [token, expected] :
        { std::pair{ L"0", 0u }, { L"-0", 0u }, { L"1", 1u }, { L"-1", 1u }, { L"7", 1u } }) {
        Page page;
        ASSERT_TRUE(read(std::wstring(L"s 0 ") + token + L" 0 0 0 0 0 0 0 0 0 0\r\n", page));
        EXPECT_EQ(page.tab_number, expected) << platform::to_utf8(token);
    }
}

TEST(NumbersLine, ReadsEveryFormOfANumberAsAStreamDoes)
{
    const std::wstring tokens[] = { L"0", L"-0", L"+0", L"7", L"+7", L"-7", L"007", L"-007", L"+-7", L"--7",
        L"+", L"-", L"", L"12abc", L"abc", L"0x10", L"0X1f", L"1e3", L"1.5", L".5", L"1,000", L"2147483647",
        L"2147483648", L"-2147483648", L"-2147483649", L"4294967295", L"4294967296", L"-4294967295",
        L"-4294967296", L"18446744073709551615", L"18446744073709551616", L"-18446744073709551615",
        L"-18446744073709551616", L"99999999999999999999999999", L"00000000000000000000000000000000005",
        L"\uFF11", L"1\uFF11", L"1 ", L" 1", L"\t1", L"\v1", L"\f1", L"1\n", L"- 1", L"1-", L"1+1", L"inf",
        L"true" };
    for (const std::wstring& token : tokens) {
        for (int place = 1; place < 13; ++place) {
            std::wstring line = L"stamp";
            for (int i = 1; i < 13; ++i)
                line += L" " + (i == place ? token : std::wstring(L"1"));
            expect_like_stream(line + L"\r\n");
            expect_like_stream(line);
        }
    }
}

TEST(NumbersLine, ReadsRandomLinesAsAStreamDoes)
{
    std::mt19937 random(7);
    const std::wstring digits = L"0123456789";
    const std::wstring others = L"+-xXaf.,\u3042 \t\v\n1";
    for (int round = 0; round < 100000; ++round) {
        std::wstring line = L"s";
        for (int i = 1; i < 13; ++i) {
            line += random() % 50 ? L' ' : others[random() % others.size()];
            if (random() % 8 == 0)
                line += random() % 2 ? L'-' : L'+';
            for (std::size_t length = random() % 60 ? 1 + random() % 8 : random() % 24; length > 0; --length)
                line += random() % 500 ? digits[random() % digits.size()] : others[random() % others.size()];
        }
        expect_like_stream(line + L"\r\n");
    }
}

// A C library may treat more characters as space in its default locale; a Book must read the same everywhere.
TEST(NumbersLine, EndsAStampOnlyAtAsciiWhiteSpace)
{
    for (const wchar_t unit : { L'\u0085', L'\u00A0', L'\u3000', L'\u2003', L'\uFEFF', L'\0' }) {
        Page page;
        const std::wstring stamp = std::wstring(L"a") + unit + L"b";
        ASSERT_TRUE(read(stamp + L" 0 0 0 0 0 0 0 0 0 0 0 0\r\n", page));
        EXPECT_EQ(page.stamp, stamp);
    }
    for (const wchar_t unit : { L' ', L'\t', L'\n', L'\v', L'\f', L'\r' }) {
        Page page;
        ASSERT_TRUE(read(std::wstring(L"a") + unit + L"0 0 0 0 0 0 0 0 0 0 0 0\r\n", page));
        EXPECT_EQ(page.stamp, L"a");
    }
}

} // namespace
