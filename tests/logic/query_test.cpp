// The search box's text, split into terms.
#include "book/query.hpp"
#include <gtest/gtest.h>

namespace {

using Terms = std::vector<std::wstring>;

Terms terms_of(std::wstring_view text)
{
    Terms terms;
    book::split_terms(text, terms);
    return terms;
}

TEST(SplitTerms, SplitsAtSpacesTabsAndIdeographicSpaces)
{
    EXPECT_EQ(terms_of(L"a b\tc\u3000d"), (Terms{ L"a", L"b", L"c", L"d" }));
    EXPECT_EQ(terms_of(L"  a \u3000\t b  "), (Terms{ L"a", L"b" }));
}

TEST(SplitTerms, SplitsAtNothingElse)
{
    EXPECT_EQ(terms_of(L"a\r\nb"), (Terms{ L"a\r\nb" }));
    EXPECT_EQ(terms_of(L"a\u00A0b\u2003c,d"), (Terms{ L"a\u00A0b\u2003c,d" }));
}

TEST(SplitTerms, YieldsNothingForAnEmptyOrBlankText)
{
    EXPECT_EQ(terms_of(L""), Terms{});
    EXPECT_EQ(terms_of(L" \t\u3000"), Terms{});
}

TEST(SplitTerms, AQuotedPhraseKeepsItsSpacesAndEndsAtItsQuote)
{
    EXPECT_EQ(terms_of(L"\"a b\"c"), (Terms{ L"a b", L"c" }));
    EXPECT_EQ(terms_of(L"x\"a\u3000b\""), (Terms{ L"x", L"a\u3000b" }));
    EXPECT_EQ(terms_of(L"\"a\"\"b\""), (Terms{ L"a", L"b" }));
    EXPECT_EQ(terms_of(L"\" \""), (Terms{ L" " }));
}

TEST(SplitTerms, EmptyQuotesYieldNoTerm)
{
    EXPECT_EQ(terms_of(L"\"\""), Terms{});
    EXPECT_EQ(terms_of(L"a\"\"b"), (Terms{ L"a", L"b" }));
}

TEST(SplitTerms, AnUnclosedQuoteIsAnOrdinaryCharacter)
{
    EXPECT_EQ(terms_of(L"ab\"cd"), (Terms{ L"ab\"cd" }));
    EXPECT_EQ(terms_of(L"\""), (Terms{ L"\"" }));
    EXPECT_EQ(terms_of(L"\"a\"b\" c"), (Terms{ L"a", L"b\"", L"c" }));
}

// Built from units: where wchar_t has 32 bits, a literal would contain no surrogate pair.
TEST(SplitTerms, KeepsASurrogatePairWhole)
{
    const std::wstring yoshi{ wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } };
    EXPECT_EQ(terms_of(yoshi + L"\u3000野家" + yoshi), (Terms{ yoshi, L"野家" + yoshi }));
    EXPECT_EQ(terms_of(yoshi.substr(1) + L" " + yoshi.substr(0, 1)),
        (Terms{ yoshi.substr(1), yoshi.substr(0, 1) }));
}

TEST(SplitTerms, AppendsAndKeepsEqualTerms)
{
    Terms terms{ L"x" };
    book::split_terms(L"a a", terms);
    EXPECT_EQ(terms, (Terms{ L"x", L"a", L"a" }));
}

TEST(QueryTerms, ErasesTheSeparatorBeforeItSplits)
{
    EXPECT_EQ(book::query_terms(L"a\x03"
                                L"b \x03 c"),
        (Terms{ L"ab", L"c" }));
    EXPECT_EQ(book::query_terms(L"\x03"), Terms{});
    EXPECT_EQ(book::query_terms(L""), Terms{});
}

} // namespace
