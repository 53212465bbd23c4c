// The user's linguistic order, and the order bytes that represent it.
#include "book/linguistic_sort.hpp"
#include "platform/collation.hpp"
#include "platform/collation_prefix.hpp"
#include <algorithm>
#include <array>
#include <compare>
#include <gtest/gtest.h>
#include <random>

namespace {

using platform::compare_linguistic;
using platform::Ordering;

TEST(CompareLinguistic, DistinguishesLessEqualAndGreater)
{
    EXPECT_EQ(compare_linguistic(L"a", L"b"), Ordering::less);
    EXPECT_EQ(compare_linguistic(L"b", L"a"), Ordering::greater);
    EXPECT_EQ(compare_linguistic(L"a", L"a"), Ordering::equal);
    EXPECT_EQ(compare_linguistic(L"", L""), Ordering::equal);
    EXPECT_EQ(compare_linguistic(L"", L"a"), Ordering::less);
    EXPECT_EQ(compare_linguistic(L"ab", L"a"), Ordering::greater);
    EXPECT_EQ(compare_linguistic(L"あ", L"か"), Ordering::less);
}

TEST(CompareLinguistic, ComparesTextsUpToTheirFirstNull)
{
    EXPECT_EQ(compare_linguistic(std::wstring(L"a\0z", 3), std::wstring(L"a\0b", 3)), Ordering::equal);
    EXPECT_EQ(compare_linguistic(std::wstring(L"a\0z", 3), L"a"), Ordering::equal);
    EXPECT_EQ(compare_linguistic(std::wstring(L"\0", 1), L""), Ordering::equal);
}

TEST(CompareLinguistic, AcceptsLoneSurrogates)
{
    const std::wstring high{ wchar_t{ 0xD842 } };
    const std::wstring low{ wchar_t{ 0xDFB7 } };
    for (const std::wstring& text : { high, low, low + high, high + low, high + high + low })
        EXPECT_EQ(compare_linguistic(text, text), Ordering::equal);
}

#if defined(_WIN32)
TEST(CompareLinguistic, FollowsTheLanguageAndNotTheCodeUnits)
{
    EXPECT_EQ(compare_linguistic(L"a", L"B"), Ordering::less);
    EXPECT_EQ(compare_linguistic(L"e\u0301", L"\u00E9"), Ordering::equal);
}
#endif

TEST(CollationPrefix, IsTheWholeOfAShortText)
{
    const platform::CollationPrefix prefix = platform::collation_prefix(L"abc", 10);
    EXPECT_EQ(prefix.text, L"abc");
    EXPECT_TRUE(prefix.is_whole);
}

TEST(CollationPrefix, EndsAtANull)
{
    const platform::CollationPrefix prefix = platform::collation_prefix({ L"abc\0def", 7 }, 5);
    EXPECT_EQ(prefix.text, L"abc");
    EXPECT_TRUE(prefix.is_whole);
}

TEST(CollationPrefix, IsCutOnlyAfterPlainUnits)
{
    const std::wstring text = std::wstring(20, L'あ') + L"\u0301" + std::wstring(20, L'亜');
    EXPECT_EQ(platform::collation_prefix(text, 20).text.size(), 20u);
    EXPECT_EQ(platform::collation_prefix(text, 21).text.size(), 29u);
    EXPECT_FALSE(platform::collation_prefix(text, 21).is_whole);
    EXPECT_EQ(platform::collation_prefix(text, 35).text.size(), 35u);
    EXPECT_TRUE(platform::collation_prefix(text, 41).is_whole);
    EXPECT_TRUE(platform::collation_prefix(std::wstring(50, L'\u0301'), 10).is_whole);
}

struct UnitRange {
    unsigned first;
    unsigned last;
};

struct Script {
    const char* name;
    std::vector<UnitRange> ranges;
};

const std::vector<Script> scripts{
    { "Japanese",
        { { 0x20, 0x7E }, { 0x3041, 0x30FF }, { 0x4E00, 0x4FFF }, { 0xFF61, 0xFF9F }, { 0x3099, 0x309E },
            { 0x300, 0x304 }, { 0x2D, 0x2D }, { 0x30FC, 0x30FC }, { 0xFF70, 0xFF70 } } },
    { "hard kana",
        { { 0x304B, 0x304D }, { 0x30AB, 0x30AC }, { 0xFF76, 0xFF77 }, { 0x3099, 0x309E }, { 0x30FC, 0x30FE },
            { 0xFF70, 0xFF70 }, { 0xFF9E, 0xFF9F }, { 0x27, 0x27 }, { 0x2D, 0x2D }, { 0x41, 0x42 },
            { 0x61, 0x62 }, { 0xFF41, 0xFF42 }, { 0x301, 0x302 }, { 0x3005, 0x3005 } } },
    { "Latin", { { 0x20, 0x24F }, { 0x300, 0x36F }, { 0x1E00, 0x1EFF } } },
    { "Hangul", { { 0x1100, 0x11FF }, { 0xAC00, 0xD7A3 }, { 0x20, 0x7E } } },
    { "surrogates", { { 0xD800, 0xDFFF }, { 0x4E00, 0x4E10 } } },
    { "Arabic", { { 0x600, 0x6FF }, { 0xFB50, 0xFDFF }, { 0xFE70, 0xFEFC }, { 0x61, 0x62 } } },
    { "Indic and Thai", { { 0x900, 0xE7F }, { 0x61, 0x62 } } },
    { "controls", { { 1, 0x20 }, { 0x61, 0x62 }, { 0x2000, 0x206F }, { 0xAD, 0xAD } } },
    { "everything", { { 1, 0xFFFF } } },
};

class RandomTexts {
public:
    RandomTexts(const Script& script, unsigned seed)
        : script_(script)
        , generator_(seed)
    {
    }

    std::size_t below(std::size_t limit) { return generator_() % limit; }

    wchar_t unit()
    {
        const UnitRange range = script_.ranges[below(script_.ranges.size())];
        return static_cast<wchar_t>(range.first + below(range.last - range.first + 1));
    }

    std::wstring text(std::size_t longest)
    {
        std::wstring made(below(longest + 1), L'\0');
        std::generate(made.begin(), made.end(), [&] { return unit(); });
        return made;
    }

    // The same text with one or two other units or another end.
    std::wstring neighbour_of(std::wstring text)
    {
        for (std::size_t changes = below(3); changes > 0 && !text.empty(); --changes)
            text[below(text.size())] = unit();
        if (below(2) == 0)
            text += this->text(9);
        if (below(3) == 0 && !text.empty())
            text.erase(below(text.size()));
        return text;
    }

private:
    const Script& script_;
    std::mt19937 generator_;
};

// Returns whether the system has order bytes for both.
template <std::size_t size> bool expect_bytes_to_order(const std::wstring& left, const std::wstring& right)
{
    std::array<std::uint8_t, size> left_bytes;
    std::array<std::uint8_t, size> right_bytes;
    if (!platform::fill_order_bytes(left, left_bytes) || !platform::fill_order_bytes(right, right_bytes))
        return false;
    const auto by_bytes = left_bytes <=> right_bytes;
    const Ordering expected = by_bytes < 0 ? Ordering::less : Ordering::greater;
    EXPECT_TRUE(by_bytes == 0 || compare_linguistic(left, right) == expected)
        << testing::PrintToString(left) << testing::PrintToString(right);
    return true;
}

TEST(OrderBytes, DifferOnlyAsTheTextsCompare)
{
    for (const Script& script : scripts) {
        SCOPED_TRACE(script.name);
        RandomTexts random(script, 1);
        int told = 0;
        for (int round = 0; round < 4000; ++round) {
            const std::wstring left = random.text(round % 3 ? 80 : 6);
            const std::wstring right =
                round % 2 ? random.neighbour_of(left) : random.text(round % 3 ? 80 : 6);
            told += expect_bytes_to_order<8>(left, right);
            told += expect_bytes_to_order<16>(left, right);
            told += expect_bytes_to_order<64>(left, right);
        }
        EXPECT_GT(told, 1000);
    }
}

TEST(OrderBytes, OfOrdinaryTextExistAndEqualThoseOfItsBeginning)
{
    const std::wstring beginning = L"こうしょう\r\n(n) negotiation; 交渉 ";
    std::array<std::uint8_t, 16> bytes;
    std::array<std::uint8_t, 16> longer;
    ASSERT_TRUE(platform::fill_order_bytes(beginning + std::wstring(50, L'あ'), bytes));
    ASSERT_TRUE(platform::fill_order_bytes(beginning + std::wstring(5000, L'ん'), longer));
    EXPECT_EQ(bytes, longer);
    EXPECT_NE(bytes.back(), 0);
    ASSERT_TRUE(platform::fill_order_bytes(L"", bytes));
    EXPECT_EQ(bytes.back(), 0);
    EXPECT_LT(bytes, longer);
}

using Order = std::vector<std::uint64_t>;

Order linguistic_order_of(const std::vector<std::wstring>& texts)
{
    std::vector<const std::wstring*> pointers;
    for (const std::wstring& text : texts)
        pointers.push_back(&text);
    return book::linguistic_order(pointers);
}

void expect_the_order_of_comparing(const std::vector<std::wstring>& texts)
{
    const Order order = linguistic_order_of(texts);
    Order all = order;
    std::sort(all.begin(), all.end());
    ASSERT_EQ(all.size(), texts.size());
    for (std::size_t i = 0; i < all.size(); ++i)
        ASSERT_EQ(all[i], i);
    for (std::size_t i = 1; i < order.size(); ++i)
        ASSERT_NE(compare_linguistic(texts[order[i - 1]], texts[order[i]]), Ordering::greater)
            << testing::PrintToString(texts[order[i - 1]]) << testing::PrintToString(texts[order[i]]);
}

TEST(LinguisticOrder, EqualsSortingByComparison)
{
    for (const Script& script : scripts) {
        SCOPED_TRACE(script.name);
        RandomTexts random(script, 2);
        std::vector<std::wstring> texts;
        for (int i = 0; i < 1500; ++i)
            texts.push_back(i % 3 ? random.neighbour_of(texts[random.below(texts.size())]) : random.text(60));
        expect_the_order_of_comparing(texts);
    }
}

TEST(LinguisticOrder, DistinguishesTextsWithLongCommonBeginnings)
{
    std::vector<std::wstring> texts;
    for (const std::size_t alike : { 0, 5, 12, 40, 300 })
        for (const wchar_t* end : { L"", L"い", L"あ", L"ア", L"A", L"a", L"亜", L"\u0301", L"ー", L"-" })
            texts.push_back(std::wstring(alike, L'お') + end);
    expect_the_order_of_comparing(texts);
}

// A heading that all pages share, with various characters at its end and where the texts begin to differ.
TEST(LinguisticOrder, ComparesAfterWhatTextsShare)
{
    for (const Script& script : scripts) {
        SCOPED_TRACE(script.name);
        RandomTexts random(script, 3);
        for (int round = 0; round < 20; ++round) {
            const std::wstring heading =
                random.text(40) + L"日付：　場所：　" + random.text(round % 2 ? 3 : 0);
            std::vector<std::wstring> texts;
            for (int i = 0; i < 60; ++i)
                texts.push_back(heading + random.text(4) + heading + random.text(6));
            expect_the_order_of_comparing(texts);
        }
    }
}

TEST(LinguisticOrder, TreatsTextsThatShareTheirFirstNullAsEqual)
{
    std::vector<std::wstring> texts;
    for (int i = 0; i < 20; ++i)
        texts.push_back(std::wstring(L"同じ\0", 3) + std::to_wstring(i));
    texts.push_back(L"同");
    EXPECT_EQ(linguistic_order_of(texts).front(), 20u);
    expect_the_order_of_comparing(texts);
}

// Every level separates one text from the rest.
TEST(LinguisticOrder, IsSafeForTextsThatSeparateOnePerLevel)
{
    std::vector<std::wstring> texts;
    for (std::size_t i = 0; i < 400; ++i)
        texts.push_back(std::wstring(i * 37 % 400 * 40, L'あ') + L"い");
    expect_the_order_of_comparing(texts);
}

TEST(OrderBytesStart, KeepsPlainUnitsBeforeTheDifference)
{
    const std::wstring text = std::wstring(20, L'あ') + L"\u3099\u3099" + std::wstring(10, L'亜');
    EXPECT_EQ(platform::order_bytes_start(text, 20), 12u);
    EXPECT_EQ(platform::order_bytes_start(text, 22), 12u);
    EXPECT_EQ(platform::order_bytes_start(text, 29), 12u);
    EXPECT_EQ(platform::order_bytes_start(text, 30), 22u);
    EXPECT_EQ(platform::order_bytes_start(text, 99), 24u);
    EXPECT_EQ(platform::order_bytes_start(text, 7), 0u);
    EXPECT_EQ(platform::order_bytes_start(L"", 0), 0u);
}

TEST(LinguisticOrder, OfNothingIsEmptyAndOfEqualTextsSomePermutation)
{
    EXPECT_EQ(linguistic_order_of({}), Order{});
    EXPECT_EQ(linguistic_order_of({ L"a" }), Order{ 0 });
    expect_the_order_of_comparing(
        std::vector<std::wstring>(3000, L"同じ文章です。同じ文章です。同じ文章です。"));
    expect_the_order_of_comparing(std::vector<std::wstring>(3000));
}

} // namespace
