// The search condition in words.
#include "book/query.hpp"
#include <gtest/gtest.h>

namespace {

using book::condition_text;
using book::SearchQuery;

SearchQuery query_for(std::vector<std::wstring> terms)
{
    SearchQuery query;
    query.terms = std::move(terms);
    return query;
}

TEST(ConditionText, IsEmptyWhenEveryPageMatches)
{
    EXPECT_EQ(condition_text({}), L"");
    SearchQuery query;
    query.all_terms = query.ignore_case = query.in_file_list = true;
    EXPECT_EQ(condition_text(query), L"");
}

TEST(ConditionText, OfASelectionNamesNothingElse)
{
    SearchQuery query = query_for({ L"a", L"b" });
    query.selected_only = query.track_marks = query.track_tabs = true;
    EXPECT_EQ(condition_text(query), L"選択中のページ");
}

TEST(ConditionText, JoinsTermsAndBracketsTwoOrMore)
{
    SearchQuery query = query_for({ L"猫" });
    EXPECT_EQ(condition_text(query), L"猫");
    query.all_terms = true;
    EXPECT_EQ(condition_text(query), L"猫");
    query.terms = { L"猫", L"犬" };
    EXPECT_EQ(condition_text(query), L"<猫 && 犬>");
    query.all_terms = false;
    EXPECT_EQ(condition_text(query), L"<猫 | 犬>");
    query.terms = { L"猫", L"犬", L"鳥" };
    EXPECT_EQ(condition_text(query), L"<猫 | 犬 | 鳥>");
}

TEST(ConditionText, AddsTracking)
{
    SearchQuery query;
    query.track_marks = true;
    EXPECT_EQ(condition_text(query), L"マーク追跡");
    query.track_tabs = true;
    EXPECT_EQ(condition_text(query), L"マーク追跡 | タブ追跡");
    query.terms = { L"a", L"b" };
    EXPECT_EQ(condition_text(query), L"<a | b> | マーク追跡 | タブ追跡");
    query.track_marks = false;
    EXPECT_EQ(condition_text(query), L"<a | b> | タブ追跡");
    query.terms.clear();
    EXPECT_EQ(condition_text(query), L"タブ追跡");
}

TEST(ConditionText, CutsLongTermsAtThirtyTwoCharacters)
{
    EXPECT_EQ(condition_text(query_for({ std::wstring(32, L'あ') })), std::wstring(32, L'あ'));
    EXPECT_EQ(condition_text(query_for({ std::wstring(33, L'あ') })), std::wstring(32, L'あ') + L"...");
}

TEST(ConditionText, CutsInsideTheBracketAndBeforeTracking)
{
    SearchQuery query = query_for({ std::wstring(28, L'a'), L"bcd" });
    EXPECT_EQ(condition_text(query), L"<" + std::wstring(28, L'a') + L" | b...>");
    query.track_tabs = true;
    EXPECT_EQ(condition_text(query), L"<" + std::wstring(28, L'a') + L" | b...> | タブ追跡");
    query.terms = { std::wstring(28, L'a'), L"b" };
    EXPECT_EQ(condition_text(query), L"<" + std::wstring(28, L'a') + L" | b> | タブ追跡");
}

TEST(ConditionText, CountsAPairAsOneCharacterAndNeverCutsIt)
{
    const std::wstring emoji{ wchar_t{ 0xD83D }, wchar_t{ 0xDE00 } };
    std::wstring term;
    for (int i = 0; i < 32; ++i)
        term += emoji;
    EXPECT_EQ(condition_text(query_for({ term })), term);
    EXPECT_EQ(condition_text(query_for({ term + emoji })), term + L"...");
    EXPECT_EQ(condition_text(query_for({ L"a" + term })), L"a" + term.substr(0, 62) + L"...");
    // A lone surrogate counts as one character.
    EXPECT_EQ(
        condition_text(query_for({ emoji.substr(1) + term })), emoji.substr(1) + term.substr(0, 62) + L"...");
}

TEST(ConditionText, DoesNotCutTwentyEmoji)
{
    const std::wstring emoji{ wchar_t{ 0xD83D }, wchar_t{ 0xDE00 } };
    std::wstring term;
    for (int i = 0; i < 20; ++i)
        term += emoji;
    EXPECT_EQ(condition_text(query_for({ term })), term); // 40 units
}

// The brackets are added after the joined text was shortened.
TEST(ConditionText, DoesNotCountTheBrackets)
{
    const std::wstring term(29, L'a');
    EXPECT_EQ(condition_text(query_for({ term })), term);
    EXPECT_EQ(condition_text(query_for({ term.substr(0, 28), L"b" })), L"<" + term.substr(0, 28) + L" | b>");
    EXPECT_EQ(condition_text(query_for({ term, L"b" })), L"<" + term + L" | ...>");
}

TEST(FailedSearchText, NamesTheConditionIfThereIsOne)
{
    EXPECT_EQ(book::failed_search_text(query_for({ L"猫", L"犬" })), L"一致条件: <猫 | 犬>");
    EXPECT_EQ(book::failed_search_text({}), L"");
}

} // namespace
