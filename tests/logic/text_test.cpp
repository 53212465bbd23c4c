// White space, trimming and the other small operations on text.
#include "book/page_text.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <set>

namespace {

using book::TrimMode;

TEST(WhiteSpace, IsExactlyTheProgramsOwnTable)
{
    const std::set<int> expected{ 0x9, 0xA, 0xB, 0xC, 0xD, 0x20, 0x85, 0xA0, 0x1680, 0x2000, 0x2001, 0x2002,
        0x2003, 0x2004, 0x2005, 0x2006, 0x2007, 0x2008, 0x2009, 0x200A, 0x2028, 0x2029, 0x202F, 0x205F,
        0x3000 };
    for (int unit = 0; unit < 0x10000; ++unit)
        EXPECT_EQ(platform::is_white_space(static_cast<wchar_t>(unit)), expected.contains(unit)) << unit;
}

std::wstring trimmed_in_place(std::wstring text, TrimMode mode)
{
    const std::size_t length = book::trim_text(text, mode);
    EXPECT_EQ(length, text.size());
    return text;
}

TEST(TrimText, TakesWhiteSpaceFromTheSidesOfItsMode)
{
    const std::wstring text = L" \u3000\r\na b\t\x85 ";
    EXPECT_EQ(trimmed_in_place(text, TrimMode::left), L"a b\t\x85 ");
    EXPECT_EQ(trimmed_in_place(text, TrimMode::right), L" \u3000\r\na b");
    EXPECT_EQ(trimmed_in_place(text, TrimMode::both), L"a b");
}

TEST(TrimText, EmptiesTextOfNothingButWhiteSpace)
{
    for (const TrimMode mode : { TrimMode::left, TrimMode::right, TrimMode::both }) {
        EXPECT_EQ(trimmed_in_place(L" \t\r\n\u3000\u2003", mode), L"");
        EXPECT_EQ(trimmed_in_place(L"", mode), L"");
    }
}

TEST(TrimText, LeavesTextWithoutWhiteSpaceAtItsEnds)
{
    const std::wstring text(L"\0 x \uFEFF", 5);
    for (const TrimMode mode : { TrimMode::left, TrimMode::right, TrimMode::both })
        EXPECT_EQ(trimmed_in_place(text, mode), text);
}

TEST(Trimmed, GivesTheSameWithoutACopy)
{
    const std::wstring text = L"  x ";
    const std::wstring_view view = book::trimmed(text, TrimMode::both);
    EXPECT_EQ(view, L"x");
    EXPECT_EQ(view.data(), text.data() + 2);
    EXPECT_EQ(book::trimmed(std::u16string_view(u"\u3000x "), TrimMode::left), u"x ");
}

TEST(RemoveSeparator, ErasesEveryOne)
{
    std::wstring text = L"\3a\3\3b\3";
    book::remove_separator(text);
    EXPECT_EQ(text, L"ab");
    text = L"\3";
    book::remove_separator(text);
    EXPECT_EQ(text, L"");
}

TEST(SameTextIgnoringCase, ComparesUnitByUnit)
{
    EXPECT_TRUE(book::same_text_ignoring_case(L"", L""));
    EXPECT_TRUE(book::same_text_ignoring_case(L"C:\\Book\u00C9\uFF21.BOK", L"c:\\bOOK\u00E9\uFF41.bok"));
    EXPECT_FALSE(book::same_text_ignoring_case(L"a", L"b"));
    EXPECT_FALSE(book::same_text_ignoring_case(L"\u3042", L"\u30A2"));
}

TEST(SameTextIgnoringCase, IsFalseForDifferentLengths)
{
    EXPECT_FALSE(book::same_text_ignoring_case(L"a", L"aa"));
    EXPECT_FALSE(book::same_text_ignoring_case(L"a", L""));
    EXPECT_FALSE(book::same_text_ignoring_case(L"ss", L"\u00DF"));
}

TEST(TimeText, PadsAllButTheYearToTwoDigits)
{
    EXPECT_EQ(book::time_text({ 2024, 1, 2, 3, 4, 5 }), L"20240102030405");
    EXPECT_EQ(book::time_text({ 1999, 12, 31, 23, 59, 60 }), L"19991231235960");
}

TEST(TimeText, GivesFourteenDigitsForNow)
{
    const std::wstring first = book::current_time_text();
    EXPECT_EQ(first.size(), 14u);
    EXPECT_EQ(first.find_first_not_of(L"0123456789"), std::wstring::npos);
    EXPECT_GT(first, L"20240101000000");
    EXPECT_LE(first, book::current_time_text());
}

TEST(TwoDigits, PadsWithAZero)
{
    EXPECT_EQ(platform::two_digits(0), L"00");
    EXPECT_EQ(platform::two_digits(9), L"09");
    EXPECT_EQ(platform::two_digits(10), L"10");
    EXPECT_EQ(platform::two_digits(100), L"100");
}

TEST(Utf8, WritesEveryLengthOfASequence)
{
    EXPECT_EQ(platform::to_utf8(std::wstring(L"a\0\u007F", 3)), std::string("a\0\x7F", 3));
    EXPECT_EQ(platform::to_utf8(L"\u0080\u07FF"), "\xC2\x80\xDF\xBF");
    EXPECT_EQ(platform::to_utf8(L"\u0800\uFFFF"), "\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(platform::to_utf8(std::wstring{ wchar_t{ 0xD800 }, wchar_t{ 0xDC00 } }), "\xF0\x90\x80\x80");
    EXPECT_EQ(platform::to_utf8(std::wstring{ wchar_t{ 0xDBFF }, wchar_t{ 0xDFFF } }), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8, EncodesLoneSurrogatesAsThreeBytes)
{
    const std::wstring text{ wchar_t{ 0xDFB7 }, L'x', wchar_t{ 0xD842 }, wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 },
        wchar_t{ 0xD842 } };
    const std::string bytes = platform::to_utf8(text);
    EXPECT_EQ(bytes, "\xED\xBE\xB7x\xED\xA1\x82\xF0\xA0\xAE\xB7\xED\xA1\x82");
    EXPECT_EQ(platform::from_utf8(bytes), text);
}

TEST(Utf8, RoundTripsAnyUnits)
{
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        std::wstring text;
        for (std::size_t length = random() % 12; text.size() < length;)
            text += static_cast<wchar_t>(random() % 3 ? random() % 0x10000 : 0xD800 + random() % 0x800);
        EXPECT_EQ(platform::from_utf8(platform::to_utf8(text)), text);
    }
}

TEST(Utf8, ReadsMalformedBytesAsReplacementCharacters)
{
    const std::wstring bad = L"\uFFFD";
    EXPECT_EQ(platform::from_utf8("a\x80z"), L"a" + bad + L"z");
    EXPECT_EQ(platform::from_utf8("\xC0\xAF"), bad + bad);
    EXPECT_EQ(platform::from_utf8("\xE0\x80\x80"), bad + bad + bad);
    EXPECT_EQ(platform::from_utf8("\xF0\x80\x80\x80"), bad + bad + bad + bad);
    EXPECT_EQ(platform::from_utf8("\xF4\x90\x80\x80"), bad + bad + bad + bad);
    EXPECT_EQ(platform::from_utf8("\xF8\xFF\xFE"), bad + bad + bad);
}

TEST(Utf8, TreatsATruncatedSequenceAsOneCharacter)
{
    const std::wstring bad = L"\uFFFD";
    EXPECT_EQ(platform::from_utf8("\xC3"), bad);
    EXPECT_EQ(platform::from_utf8("\xE3\x81"), bad);
    EXPECT_EQ(platform::from_utf8("\xF0\xA0\xAE"), bad);
    EXPECT_EQ(platform::from_utf8("\xE3\x81x\xC3y"), bad + L"x" + bad + L"y");
    EXPECT_EQ(platform::from_utf8("\xE3\x81\xE3\x81\x82"), bad + L"\u3042");
}

std::wstring digits_of(const std::wstring& text)
{
    std::wstring digits;
    std::ranges::copy_if(
        text, std::back_inserter(digits), [](wchar_t unit) { return unit >= L'0' && unit <= L'9'; });
    return digits;
}

TEST(GroupedNumber, KeepsTheDigitsWhateverTheGrouping)
{
    for (const std::uint64_t number : { std::uint64_t{ 0 }, std::uint64_t{ 999 }, std::uint64_t{ 1000 },
             std::uint64_t{ 100000 }, static_cast<std::uint64_t>(-1) }) {
        const std::wstring text = platform::grouped_number(number);
        EXPECT_EQ(digits_of(text), std::to_wstring(number));
        EXPECT_EQ(text.front(), digits_of(text).front());
        EXPECT_EQ(text.back(), digits_of(text).back());
    }
}

#if !defined(_WIN32)
class LocaleOfTheEnvironment {
public:
    explicit LocaleOfTheEnvironment(const char* name)
    {
        if (const char* before = std::getenv("LC_ALL"))
            before_ = before;
        setenv("LC_ALL", name, 1);
    }
    ~LocaleOfTheEnvironment()
    {
        if (before_.empty())
            unsetenv("LC_ALL");
        else
            setenv("LC_ALL", before_.c_str(), 1);
    }

private:
    std::string before_;
};

TEST(GroupedNumber, FollowsTheUsersLocale)
{
    const LocaleOfTheEnvironment japanese("ja_JP.UTF-8");
    EXPECT_EQ(platform::grouped_number(100000), L"100,000");
    EXPECT_EQ(platform::grouped_number(999), L"999");
    EXPECT_EQ(platform::grouped_number(1234567), L"1,234,567");
}

TEST(GroupedNumber, IsPlainWhereTheLocaleIsMissing)
{
    const LocaleOfTheEnvironment missing("xx_NOWHERE.UTF-8");
    EXPECT_EQ(platform::grouped_number(100000), L"100000");
}
#endif

} // namespace
