// Replacing in pages: targets, one pass, line breaks, stamps, and the same result as the simplest
// replacement.
#include "book/replace.hpp"
#include "book/replace_view.hpp"
#include "core/command_ids.hpp"
#include "tests/support/naive_replace.hpp"
#include "tests/support/random_texts.hpp"
#include <gtest/gtest.h>

namespace {

using book::LetterCase;
using book::Page;
using book::replace_in_page;
using book::replace_in_pages;
using book::ReplaceRequest;
namespace target = book::replace_target;

constexpr book::ReplaceTargets all_targets = target::boxes | target::file_list | target::folder;
constexpr wchar_t stamp[] = L"2020010203040520210203040506";

Page page_of_word(const std::wstring& word)
{
    Page page;
    page.stamp = stamp;
    page.text = { word, word, word };
    page.files = { word, L"other", word };
    page.reference_folder = word;
    return page;
}

ReplaceRequest request_for(const std::wstring& search, const std::wstring& replacement,
    book::ReplaceTargets targets = target::boxes, LetterCase letter_case = LetterCase::exact)
{
    return { search, replacement, targets, letter_case };
}

// Box 1 after a replacement.
std::wstring replaced(const std::wstring& text, const ReplaceRequest& request)
{
    Page page;
    page.text[0] = text;
    replace_in_page(page, request);
    return page.text[0];
}

TEST(Replace, ChangesTheChosenTargetsOnly)
{
    for (book::ReplaceTargets targets = 0; targets < 8; ++targets) {
        Page page = page_of_word(L"word");
        const std::size_t count = replace_in_page(page, request_for(L"word", L"new", targets));
        const bool boxes = targets & target::boxes;
        const bool files = targets & target::file_list;
        const bool folder = targets & target::folder;
        EXPECT_EQ(count, (boxes ? 3u : 0u) + (files ? 2u : 0u) + (folder ? 1u : 0u)) << targets;
        for (const std::wstring& text : page.text)
            EXPECT_EQ(text, boxes ? L"new" : L"word") << targets;
        EXPECT_EQ(page.files[0], files ? L"new" : L"word") << targets;
        EXPECT_EQ(page.files[1], L"other") << targets;
        EXPECT_EQ(page.files[2], files ? L"new" : L"word") << targets;
        EXPECT_EQ(page.reference_folder, folder ? L"new" : L"word") << targets;
    }
}

TEST(Replace, RenewsTheStampForTextsOnly)
{
    Page page = page_of_word(L"word");
    replace_in_page(page, request_for(L"word", L"new", target::file_list | target::folder));
    EXPECT_EQ(page.stamp, stamp);
    replace_in_page(page, request_for(L"absent", L"new", target::boxes));
    EXPECT_EQ(page.stamp, stamp) << "nothing was replaced";
    replace_in_page(page, request_for(L"word", L"new", target::boxes));
    EXPECT_EQ(page.stamp.substr(0, 14), L"20200102030405");
    EXPECT_EQ(page.stamp.size(), 28u);
    EXPECT_GT(page.stamp.substr(14), L"20210203040506");
}

TEST(Replace, RenewsTheStampOfOnePageForAHitInAnyBox)
{
    for (std::size_t box = 0; box < book::box_count; ++box) {
        Page page;
        page.stamp = L"20200102030405";
        page.text[box] = L"word";
        replace_in_page(page, request_for(L"word", L"word"));
        EXPECT_EQ(page.stamp.size(), 28u) << box;
    }
}

TEST(Replace, ReplacesTheFoundTextOfAnyCaseByTheReplacementAsTyped)
{
    const ReplaceRequest folded = request_for(L"wOrD", L"NeW", target::boxes, LetterCase::folded);
    EXPECT_EQ(replaced(L"Word WORD word", folded), L"NeW NeW NeW");
    EXPECT_EQ(replaced(L"Word WORD word", request_for(L"word", L"NeW")), L"Word WORD NeW");
}

TEST(Replace, DoesNotSearchTheReplacementAgain)
{
    EXPECT_EQ(replaced(L"banana", request_for(L"a", L"aa")), L"baanaanaa");
    EXPECT_EQ(replaced(L"aaa", request_for(L"aa", L"a")), L"aa") << "the rest and the replacement are no hit";
    EXPECT_EQ(replaced(L"abab", request_for(L"ab", L"ba")), L"baba");
}

TEST(Replace, DeletesByAnEmptyReplacement)
{
    EXPECT_EQ(replaced(L"a-b-c", request_for(L"-", L"")), L"abc");
    EXPECT_EQ(replaced(L"---", request_for(L"-", L"")), L"");
}

TEST(Replace, FindsNothingForAnEmptySearch)
{
    Page page = page_of_word(L"word");
    const Page before = page;
    EXPECT_EQ(replace_in_page(page, request_for(L"", L"x", all_targets)), 0u);
    EXPECT_EQ(page, before);
}

TEST(Replace, NeverSplitsASurrogatePair)
{
    const std::wstring pair{ wchar_t{ 0xD83D }, wchar_t{ 0xDE00 } };
    const std::wstring low{ wchar_t{ 0xDE00 } };
    EXPECT_EQ(replaced(pair + low, request_for(low, L"x")), pair + L"x");
    EXPECT_EQ(replaced(pair, request_for(pair, L"x")), L"x");
}

// The search goes on after the old occurrence, where the low half is a unit by itself.
TEST(Replace, FindsTheLowHalfThatFollowsAnOccurrence)
{
    const std::wstring crossed{ wchar_t{ 0xDE00 }, wchar_t{ 0xD83D } };
    EXPECT_EQ(replaced(crossed + crossed, request_for(crossed, L"x")), L"xx");
    EXPECT_EQ(replaced(L"a" + crossed + crossed, request_for(crossed, L"")), L"a");
}

TEST(Replace, KeepsLineBreaksOutOfSingleLines)
{
    Page page = page_of_word(L"a word");
    EXPECT_EQ(replace_in_page(page, request_for(L"word", L"x\r\ny\rz\n", all_targets)), 6u);
    EXPECT_EQ(page.text[0], L"a x\r\ny\rz\n");
    EXPECT_EQ(page.text[1], L"a xyz");
    EXPECT_EQ(page.text[2], L"a x\r\ny\rz\n");
    EXPECT_EQ(page.files[0], L"a xyz");
    EXPECT_EQ(page.reference_folder, L"a xyz");
}

TEST(Replace, MakesNoLineBreakOfWhatWasApart)
{
    Page page = page_of_word(L"a\r-\nb");
    replace_in_page(page, request_for(L"-", L"", all_targets));
    EXPECT_EQ(page.text[0], L"a\r\nb");
    EXPECT_EQ(page.text[1], L"ab");
    EXPECT_EQ(page.files[2], L"ab");
    EXPECT_EQ(page.reference_folder, L"ab");
}

TEST(Replace, TrimsBoxTwoOnly)
{
    Page page = page_of_word(L"(word)");
    replace_in_page(page, request_for(L"(", L" \x3000", all_targets));
    EXPECT_EQ(page.text[0], L" \x3000word)");
    EXPECT_EQ(page.text[1], L"word)");
    EXPECT_EQ(page.text[2], L" \x3000word)");
    EXPECT_EQ(page.files[0], L" \x3000word)");
    EXPECT_EQ(page.reference_folder, L" \x3000word)");
    page.text[1] = L" word ";
    replace_in_page(page, request_for(L"absent", L"x"));
    EXPECT_EQ(page.text[1], L" word ") << "a box without a hit stays as it is";
}

TEST(Replace, KeepsAnEntryThatBecomesEmpty)
{
    Page page = page_of_word(L"word");
    page.current_file = 2;
    replace_in_page(page, request_for(L"word", L"", target::file_list));
    EXPECT_EQ(page.files, (std::vector<std::wstring>{ L"", L"other", L"" }));
    EXPECT_EQ(page.current_file, 2u);
}

TEST(Replace, CountsOverAllPagesAndLeavesTheOthersAlone)
{
    std::vector<Page> pages{ page_of_word(L"word"), page_of_word(L"none"), page_of_word(L"word word") };
    const Page untouched = pages[1];
    EXPECT_EQ(replace_in_pages(pages, request_for(L"word", L"w", all_targets)), 6u + 12u);
    EXPECT_EQ(pages[0].text[0], L"w");
    EXPECT_EQ(pages[1], untouched);
    EXPECT_EQ(pages[2].text[2], L"w w");
}

// Longer than a piece of the search, with an occurrence across each border.
TEST(Replace, ReplacesManyOccurrencesInALongText)
{
    std::wstring text;
    std::wstring expected;
    for (int i = 0; i < 100000; ++i) {
        text += L"abcde";
        expected += L"abXe";
    }
    EXPECT_EQ(replaced(text, request_for(L"cd", L"X")), expected);
}

TEST(ReplaceOracle, GivesTheSamePagesAsTheSimplestReplacement)
{
    test_support::RandomTexts random(3);
    for (int round = 0; round < 20000; ++round) {
        Page page;
        for (std::wstring& text : page.text)
            text = random.text(round % 100 == 0 ? 2500 : 60);
        for (std::size_t i = random.below(3); i > 0; --i)
            page.files.push_back(random.text(20));
        page.reference_folder = random.text(20);
        const ReplaceRequest request{ random.term_for(page.text[random.below(3)]), random.text(4),
            static_cast<book::ReplaceTargets>(random.below(8)),
            random.coin() ? LetterCase::folded : LetterCase::exact };
        Page expected = page;
        const std::size_t expected_count = naive::replace_in_page(expected, request);
        ASSERT_EQ(replace_in_page(page, request), expected_count) << round;
        expected.stamp = page.stamp; // it has the time of now
        ASSERT_EQ(page, expected) << round;
    }
}

TEST(ReplaceRequest, LosesItsSeparators)
{
    ReplaceRequest request = request_for(L"a\x3"
                                         L"b",
        L"\x3"
        L"c");
    book::remove_separators(request);
    EXPECT_EQ(request.search, L"ab");
    EXPECT_EQ(request.replacement, L"c");
}

TEST(ReplaceStep, LooksAtTheSearchTextBeforeTheTargets)
{
    EXPECT_EQ(book::replace_step(request_for(L"", L"x", 0)), book::ReplaceStep::nothing);
    EXPECT_EQ(book::replace_step(request_for(L"", L"x", 1)), book::ReplaceStep::nothing);
    EXPECT_EQ(book::replace_step(request_for(L"a", L"", 0)), book::ReplaceStep::no_target);
    EXPECT_EQ(book::replace_step(request_for(L"a", L"", 1)), book::ReplaceStep::replace);
}

TEST(ReplaceStep, ReplacesASearchOfSeparatorsOnlyZeroTimes)
{
    ReplaceRequest request = request_for(L"\x3\x3", L"x");
    EXPECT_EQ(book::replace_step(request), book::ReplaceStep::replace);
    book::remove_separators(request);
    Page page = page_of_word(L"word");
    EXPECT_EQ(replace_in_page(page, request), 0u);
}

TEST(ReplaceReport, NamesCountAndPages)
{
    EXPECT_EQ(book::replaced_in_all_text(0), L"0件 置換しました\r\n[対象ページ: 全て]");
    EXPECT_EQ(book::replaced_in_all_text(1234567), L"1234567件 置換しました\r\n[対象ページ: 全て]");
    EXPECT_EQ(book::replaced_in_page_text(1, 41), L"1件 置換しました\r\n[対象ページ: 42]");
}

TEST(ReplaceView, HasItsTexts)
{
    EXPECT_STREQ(book::replace_fields[0].title, L"検索");
    EXPECT_STREQ(book::replace_fields[1].title, L"置換");
    EXPECT_STREQ(book::replace_targets_title, L" 検索ターゲット ");
}

TEST(ReplaceMenu, GreysTheRestoreUntilSomethingChanged)
{
    for (const bool changed : { false, true }) {
        const ovlib::MenuRows rows = book::replace_menu(changed);
        ASSERT_EQ(rows.size(), 6u);
        EXPECT_EQ(rows[0], ovlib::menu_item(2517, L"現在のページを置換"));
        EXPECT_EQ(rows[1], ovlib::menu_item(2516, L"すべてのページを置換"));
        EXPECT_EQ(rows[2], ovlib::menu_separator());
        EXPECT_EQ(rows[3], ovlib::menu_item(1008, L"置換の取消し(復元)", changed));
        EXPECT_EQ(rows[4], ovlib::menu_separator());
        EXPECT_EQ(rows[5], ovlib::menu_item(1037, L"終了"));
    }
}

TEST(ReplaceSelection, IsTakenIntoAnEmptyFieldIfItIsOneLine)
{
    EXPECT_TRUE(book::takes_selection(L"", L"一行"));
    EXPECT_FALSE(book::takes_selection(L"犬", L"一行"));
    EXPECT_FALSE(book::takes_selection(L"", L""));
    EXPECT_FALSE(book::takes_selection(L"", L"一行\r\n二行"));
    EXPECT_FALSE(book::takes_selection(L"", L"一\n"));
}

} // namespace
