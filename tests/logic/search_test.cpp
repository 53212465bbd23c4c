// Finding a term in a text, and matching a page.
#include "book/search.hpp"
#include "platform/text.hpp"
#include <gtest/gtest.h>
#include <limits>
#include <map>

namespace {

using book::Page;
using book::SearchHit;
using book::SearchQuery;
using Hits = std::vector<SearchHit>;

constexpr wchar_t high = 0xD842;
constexpr wchar_t low = 0xDFB7;
const std::wstring yoshi{ high, low }; // one code point outside the basic plane
const std::wstring emoji{ wchar_t{ 0xD83D }, wchar_t{ 0xDE00 } };
// Its low half is that of the first one with the bit set in which upper and lower case letters differ.
const std::wstring other_emoji{ wchar_t{ 0xD83D }, wchar_t{ 0xDE20 } };

struct Found {
    bool success;
    std::size_t pos;
    friend bool operator==(const Found&, const Found&) = default;
};

void PrintTo(const Found& found, std::ostream* out)
{
    *out << (found.success ? "found at " : "not found, pos ") << found.pos;
}

Found exact(std::wstring_view text, std::wstring_view term, std::size_t pos = 0)
{
    const bool success = book::find_exact(text, term, pos);
    return { success, pos };
}

Found folded(std::wstring_view text, std::wstring_view term, std::size_t pos = 0)
{
    const bool success = book::find_folded(text, term, pos);
    return { success, pos };
}

TEST(FindExact, ReturnsTheFirstOccurrenceFromThePositionOn)
{
    EXPECT_EQ(exact(L"banana", L"an"), (Found{ true, 1 }));
    EXPECT_EQ(exact(L"banana", L"an", 1), (Found{ true, 1 }));
    EXPECT_EQ(exact(L"banana", L"an", 2), (Found{ true, 3 }));
    EXPECT_EQ(exact(L"banana", L"banana"), (Found{ true, 0 }));
}

TEST(FindExact, LeavesThePositionAtTheEndWhenItFails)
{
    EXPECT_EQ(exact(L"banana", L"an", 4), (Found{ false, 6 }));
    EXPECT_EQ(exact(L"banana", L"bananas"), (Found{ false, 6 }));
    EXPECT_EQ(exact(L"banana", L"AN"), (Found{ false, 6 }));
}

TEST(FindExact, FindsNothingInOrForAnEmptyTextNorAfterTheEnd)
{
    EXPECT_EQ(exact(L"", L"a"), (Found{ false, 0 }));
    EXPECT_EQ(exact(L"abc", L""), (Found{ false, 3 }));
    EXPECT_EQ(exact(L"abc", L"c", 3), (Found{ false, 3 }));
    EXPECT_EQ(exact(L"abc", L"c", 99), (Found{ false, 3 }));
    EXPECT_EQ(exact(L"abc", L"c", std::numeric_limits<std::size_t>::max()), (Found{ false, 3 }));
    EXPECT_EQ(exact({}, {}), (Found{ false, 0 }));
    EXPECT_EQ(folded(L"abc", L"c", 99), (Found{ false, 3 }));
}

TEST(FindExact, TreatsNullsAsOrdinaryUnits)
{
    EXPECT_EQ(exact(std::wstring_view(L"a\0b\0c", 5), std::wstring_view(L"\0c", 2)), (Found{ true, 3 }));
}

TEST(FindExact, NeverStartsOnTheLowHalfOfAPairThatItPasses)
{
    EXPECT_EQ(exact(yoshi + L"x", std::wstring{ low }), (Found{ false, 3 }));
    EXPECT_EQ(exact(yoshi + low, std::wstring{ low }), (Found{ true, 2 }));
    EXPECT_EQ(exact(std::wstring{ high } + yoshi, std::wstring{ low }), (Found{ false, 3 }));
}

TEST(FindExact, MayStartOnALowHalfWhereTheSearchBegins)
{
    EXPECT_EQ(exact(L"x" + yoshi, std::wstring{ low }, 2), (Found{ true, 2 }));
    EXPECT_EQ(exact(L"x" + yoshi, std::wstring{ low }, 1), (Found{ false, 3 }));
}

TEST(FindExact, MayEndBetweenTheHalvesOfAPair)
{
    EXPECT_EQ(exact(L"x" + yoshi, std::wstring{ L'x', high }), (Found{ true, 0 }));
    EXPECT_EQ(exact(yoshi, std::wstring{ high }), (Found{ true, 0 }));
}

TEST(FindExact, FindsATermAtEveryPlaceOfALongText)
{
    const std::wstring term = L"針";
    for (const std::size_t length : { 1, 7, 8, 16, 63, 64, 65, 1023, 1024, 1025, 1056, 2049, 3000 })
        for (std::size_t place = 0; place < length;
             place = place < 70 || place + 70 > length ? place + 1 : place + 13) {
            std::wstring text(length, L'草');
            text[place] = term[0];
            EXPECT_EQ(exact(text, term), (Found{ true, place })) << length;
            EXPECT_EQ(exact(text, term, place + 1), (Found{ false, length })) << length;
        }
}

TEST(FindExact, FindsALongTermAcrossEveryPlaceOfALongText)
{
    const std::wstring term = std::wstring(80, L'あ') + L"い" + std::wstring(80, L'あ');
    for (std::size_t before = 0; before < 2200; before += 37) {
        const std::wstring text = std::wstring(before, L'う') + term + L"う";
        EXPECT_EQ(exact(text, term), (Found{ true, before }));
        EXPECT_EQ(exact(std::wstring_view(text).substr(0, text.size() - 2), term).success, false);
    }
}

TEST(FindFolded, IgnoresTheCaseOfEachUnit)
{
    EXPECT_EQ(folded(L"Straße ÉTÉ", L"été"), (Found{ true, 7 }));
    EXPECT_EQ(folded(L"straße", L"STRA"), (Found{ true, 0 }));
    EXPECT_EQ(folded(L"ＡＢＣ", L"ｂｃ"), (Found{ true, 1 }));
    EXPECT_EQ(folded(L"アイウ", L"あ"), (Found{ false, 3 }));
}

std::wstring every_unit_outside_the_surrogates()
{
    std::wstring units;
    for (std::size_t unit = 0; unit < platform::unit_count; ++unit)
        if (!platform::is_surrogate(static_cast<wchar_t>(unit)))
            units += static_cast<wchar_t>(unit);
    return units;
}

std::map<wchar_t, std::wstring> folding_classes(const std::wstring& units)
{
    std::map<wchar_t, std::wstring> classes;
    for (const wchar_t unit : units)
        classes[platform::to_lower(unit)] += unit;
    std::erase_if(classes, [](const auto& entry) { return entry.second.size() < 2; });
    return classes;
}

std::wstring units_found(const std::wstring& text, wchar_t term)
{
    std::wstring found;
    for (std::size_t pos = 0; book::find_folded(text, { &term, 1 }, pos); ++pos)
        found += text[pos];
    return found;
}

// Units that fold to the same one may differ in many bits, and on some systems three units do so.
TEST(FindFolded, FindsEveryUnitOfAFoldingClassAndNoOther)
{
    const std::wstring units = every_unit_outside_the_surrogates();
    const auto classes = folding_classes(units);
    EXPECT_GT(classes.size(), 800u);
    std::size_t place = 0;
    for (const auto& [lower, members] : classes) {
        const bool is_looked_at = place++ % 16 == 0 || members.size() > 2;
        for (const wchar_t member : is_looked_at ? members : std::wstring())
            EXPECT_EQ(units_found(units, member), members) << static_cast<int>(lower);
    }
}

TEST(FindFolded, ComparesSurrogatesExactly)
{
    EXPECT_EQ(folded(L"x" + other_emoji + emoji, emoji), (Found{ true, 3 }));
    EXPECT_EQ(folded(L"ab" + emoji + L"CD", L"B" + emoji + L"c"), (Found{ true, 1 }));
    EXPECT_EQ(folded(yoshi, std::wstring{ low }), (Found{ false, 2 }));
}

Page page_with(const std::wstring& box1, const std::wstring& box2 = {}, const std::wstring& box3 = {})
{
    Page page;
    page.text = { box1, box2, box3 };
    return page;
}

SearchQuery query_for(std::vector<std::wstring> terms)
{
    SearchQuery query;
    query.terms = std::move(terms);
    return query;
}

struct Match {
    bool matches;
    Hits hits;
    friend bool operator==(const Match&, const Match&) = default;
};

void PrintTo(const Match& match, std::ostream* out)
{
    *out << (match.matches ? "match" : "no match");
    for (const SearchHit& hit : match.hits)
        *out << " [" << testing::PrintToString(hit.term) << " in " << hit.place << " at " << hit.start << '-'
             << hit.end << ']';
}

Match match(const Page& page, const SearchQuery& query)
{
    Hits hits{ { L"left over", 1, 2, 3 } };
    const bool matches = book::match_page(page, query, hits);
    return { matches, hits };
}

TEST(MatchPage, GivesEveryOccurrenceInTheBoxesWithoutOverlaps)
{
    EXPECT_EQ(match(page_with(L"aaaa", L"xaay", L"aa"), query_for({ L"aa" })),
        (Match{ true,
            { { L"aa", 100, 0, 2 }, { L"aa", 100, 2, 4 }, { L"aa", 101, 1, 3 }, { L"aa", 102, 0, 2 } } }));
}

TEST(MatchPage, IgnoresTheFileListUnlessRequested)
{
    Page page = page_with(L"");
    page.files = { L"C:\\a\\a.txt" };
    EXPECT_EQ(match(page, query_for({ L"a" })), (Match{ false, {} }));
}

TEST(MatchPage, GivesOneHitForAnEntryOfTheFileListAndOneForEachInABox)
{
    Page page = page_with(L"a a");
    page.files = { L"b", L"C:\\a\\a.txt", L"aa" };
    SearchQuery query = query_for({ L"a" });
    query.in_file_list = true;
    EXPECT_EQ(match(page, query),
        (Match{
            true, { { L"a", 100, 0, 1 }, { L"a", 100, 2, 3 }, { L"a", 201, 3, 4 }, { L"a", 202, 0, 1 } } }));
}

TEST(MatchPage, DoesNotSearchTheReferenceFolder)
{
    Page page = page_with(L"x");
    page.reference_folder = L"a";
    SearchQuery query = query_for({ L"a" });
    query.in_file_list = true;
    EXPECT_EQ(match(page, query), (Match{ false, {} }));
}

TEST(MatchPage, WithAnyOfTheTermsReturnsTheHitsOfThoseFound)
{
    EXPECT_EQ(match(page_with(L"b"), query_for({ L"a", L"b" })), (Match{ true, { { L"b", 100, 0, 1 } } }));
    EXPECT_EQ(match(page_with(L"ba"), query_for({ L"a", L"b" })),
        (Match{ true, { { L"a", 100, 1, 2 }, { L"b", 100, 0, 1 } } }));
    EXPECT_EQ(match(page_with(L"c"), query_for({ L"a", L"b" })), (Match{ false, {} }));
}

TEST(MatchPage, WithAllTermsKeepsTheHitsOnlyIfNoTermIsMissing)
{
    SearchQuery query = query_for({ L"a", L"b" });
    query.all_terms = true;
    EXPECT_EQ(match(page_with(L"ab"), query), (Match{ true, { { L"a", 100, 0, 1 }, { L"b", 100, 1, 2 } } }));
    EXPECT_EQ(match(page_with(L"a"), query), (Match{ false, {} }));
    EXPECT_EQ(match(page_with(L"b"), query), (Match{ false, {} }));
}

TEST(MatchPage, SearchesEqualTermsSeparately)
{
    EXPECT_EQ(match(page_with(L"a"), query_for({ L"a", L"a" })),
        (Match{ true, { { L"a", 100, 0, 1 }, { L"a", 100, 0, 1 } } }));
}

TEST(MatchPage, FindsNothingForAnEmptyTerm)
{
    EXPECT_EQ(match(page_with(L"a"), query_for({ L"" })), (Match{ false, {} }));
    EXPECT_EQ(match(page_with(L"a"), query_for({ L"", L"a" })), (Match{ true, { { L"a", 100, 0, 1 } } }));
    SearchQuery query = query_for({ L"a", L"" });
    query.all_terms = true;
    EXPECT_EQ(match(page_with(L"a"), query), (Match{ false, {} }));
}

TEST(MatchPage, IgnoresCaseEverywhereOnRequest)
{
    Page page = page_with(L"Ab");
    page.files = { L"AB.TXT" };
    SearchQuery query = query_for({ L"aB", L"B." });
    query.in_file_list = true;
    EXPECT_EQ(match(page, query), (Match{ true, { { L"B.", 200, 1, 3 } } }));
    query.ignore_case = true;
    EXPECT_EQ(match(page, query),
        (Match{ true, { { L"aB", 100, 0, 2 }, { L"aB", 200, 0, 2 }, { L"B.", 200, 1, 3 } } }));
}

TEST(MatchPage, MatchesEveryPageWithoutTermsAndTracking)
{
    EXPECT_EQ(match(page_with(L"a"), {}), (Match{ true, {} }));
}

TEST(MatchPage, WithoutTermsMatchesTrackedPagesOnly)
{
    Page marked = page_with(L"a");
    marked.mark = -1;
    Page tabbed = page_with(L"a");
    tabbed.tab_number = 7;
    SearchQuery by_mark;
    by_mark.track_marks = true;
    SearchQuery by_tab;
    by_tab.track_tabs = true;
    SearchQuery by_both = by_mark;
    by_both.track_tabs = true;
    EXPECT_EQ(match(page_with(L"a"), by_mark), (Match{ false, {} }));
    EXPECT_EQ(match(marked, by_mark), (Match{ true, {} }));
    EXPECT_EQ(match(tabbed, by_mark), (Match{ false, {} }));
    EXPECT_EQ(match(tabbed, by_tab), (Match{ true, {} }));
    EXPECT_EQ(match(marked, by_tab), (Match{ false, {} }));
    EXPECT_EQ(match(marked, by_both), (Match{ true, {} }));
    EXPECT_EQ(match(tabbed, by_both), (Match{ true, {} }));
}

TEST(MatchPage, TrackingWidensAMatchOfTermsAndNeverNarrowsIt)
{
    Page marked = page_with(L"a");
    marked.mark = 1;
    for (const bool all_terms : { false, true }) {
        SearchQuery query = query_for({ L"b" });
        query.track_marks = true;
        query.all_terms = all_terms;
        EXPECT_EQ(match(marked, query), (Match{ true, {} }));
        EXPECT_EQ(match(page_with(L"b"), query), (Match{ true, { { L"b", 100, 0, 1 } } }));
        EXPECT_EQ(match(page_with(L"c"), query), (Match{ false, {} }));
        query.terms = { L"a", L"b" };
        EXPECT_EQ(
            match(marked, query), all_terms ? (Match{ true, {} }) : (Match{ true, { { L"a", 100, 0, 1 } } }));
    }
}

TEST(MatchPage, InASelectionChecksNothingElse)
{
    SearchQuery query = query_for({ L"a" });
    query.selected_only = true;
    query.track_marks = true;
    Page page = page_with(L"a");
    page.mark = 1;
    EXPECT_EQ(match(page, query), (Match{ false, {} }));
    page.selected = book::PageSelection::pasted;
    EXPECT_EQ(match(page, query), (Match{ false, {} }));
    page.selected = book::PageSelection::selected;
    EXPECT_EQ(match(page, query), (Match{ true, {} }));
    page.text[0] = L"x";
    page.mark = 0;
    EXPECT_EQ(match(page, query), (Match{ true, {} }));
}

} // namespace
