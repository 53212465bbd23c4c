// The display order, the commands that change it, and navigation.
#include "book/page_order.hpp"
#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace {

using book::Book;
using book::OrderMode;
using book::SortKey;
using Order = std::vector<std::uint64_t>;

constexpr std::uint64_t far_position = std::numeric_limits<std::uint64_t>::max();
constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();

Book book_of(std::size_t count, std::int32_t mode = 2700)
{
    Book book;
    book.pages.resize(count);
    book.header.order_mode = mode;
    return book;
}

Order shown(const Book& book)
{
    Order order;
    for (std::uint64_t position = 0; position < book.pages.size(); ++position)
        order.push_back(book.position_to_index(position));
    return order;
}

TEST(PositionToIndex, IsTheStoredOrderOfAPlainBook)
{
    EXPECT_EQ(shown(book_of(3)), (Order{ 0, 1, 2 }));
}

TEST(PositionToIndex, OfAReversedBookShowsTheLastPageFirst)
{
    EXPECT_EQ(shown(book_of(3, -2700)), (Order{ 2, 1, 0 }));
}

TEST(PositionToIndex, UsesTheOrderAndReversesOnlyAtLookup)
{
    Book book = book_of(3, 2701);
    book.order = { 1, 2, 0 };
    EXPECT_EQ(shown(book), (Order{ 1, 2, 0 }));
    book.header.order_mode = -2701;
    EXPECT_EQ(shown(book), (Order{ 0, 2, 1 }));
    EXPECT_EQ(book.order, (Order{ 1, 2, 0 }));
}

TEST(PositionToIndex, FallsBackToThePositionWhileTheOrderIsStale)
{
    Book book = book_of(3, 2701);
    book.order = { 1, 0 };
    EXPECT_EQ(shown(book), (Order{ 0, 1, 2 }));
    book.header.order_mode = -2701;
    EXPECT_EQ(shown(book), (Order{ 2, 1, 0 }));
    book.order = { 3, 2, 1, 0 };
    EXPECT_EQ(shown(book), (Order{ 2, 1, 0 }));
}

TEST(PositionToIndex, HasNoAnswerPastTheEnd)
{
    for (const std::int32_t mode : { 2700, -2700, lowest }) {
        EXPECT_EQ(book_of(3, mode).position_to_index(3), book::npos);
        EXPECT_EQ(book_of(3, mode).position_to_index(far_position), book::npos);
        EXPECT_EQ(book_of(0, mode).position_to_index(0), book::npos);
    }
}

TEST(Step, MovesByOnePageAndStopsAtTheEnds)
{
    Book book = book_of(2);
    EXPECT_EQ(book.step(-1), nullptr);
    EXPECT_EQ(book.step(1), &book.pages[1]);
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_EQ(book.step(1), nullptr);
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_EQ(book.step(-1), &book.pages[0]);
    EXPECT_EQ(book.header.position, 0u);
}

TEST(Step, WithoutDirectionStays)
{
    Book book = book_of(2);
    EXPECT_EQ(book.step(0), nullptr);
    EXPECT_EQ(book.header.position, 0u);
}

TEST(Step, FollowsTheDisplayOrder)
{
    Book book = book_of(3, -2700);
    EXPECT_EQ(book.step(1), &book.pages[1]);
    book.order = { 2, 0, 1 };
    EXPECT_EQ(book.step(1), &book.pages[2]);
    EXPECT_EQ(book.header.position, 2u);
}

TEST(Step, FromPastTheEndGoesBackToTheLastPageOnly)
{
    Book book = book_of(2);
    book.header.position = 2;
    EXPECT_EQ(book.step(1), nullptr);
    EXPECT_EQ(book.step(-1), &book.pages[1]);
    EXPECT_EQ(book.header.position, 1u);
    for (const std::uint64_t position : { std::uint64_t{ 3 }, far_position }) {
        book.header.position = position;
        EXPECT_EQ(book.step(-1), nullptr);
        EXPECT_EQ(book.step(1), nullptr);
        EXPECT_EQ(book.header.position, position);
    }
}

TEST(Step, InABookWithoutPagesFindsNone)
{
    Book book = book_of(0);
    EXPECT_EQ(book.step(1), nullptr);
    EXPECT_EQ(book.step(-1), nullptr);
}

TEST(RebuildOrder, IsEmptyForTheStoredOrderAndUnknownModes)
{
    for (const std::int32_t mode :
        { 2700, -2700, 0, 1, -1, 2703, -2699, lowest, std::numeric_limits<std::int32_t>::max() }) {
        Book book = book_of(3, mode);
        book.order = { 2, 1, 0 };
        book.rebuild_order();
        EXPECT_TRUE(book.order.empty()) << mode;
    }
}

TEST(RebuildOrder, LooksAtTheMagnitudeOfTheMode)
{
    Book book = book_of(3, -2701);
    book.pages[0].text[0] = L"b";
    book.pages[1].text[0] = L"c";
    book.pages[2].text[0] = L"a";
    book.rebuild_order();
    EXPECT_EQ(book.order, (Order{ 2, 0, 1 }));
    EXPECT_EQ(shown(book), (Order{ 1, 0, 2 }));
}

Order sorted(Book book, SortKey key)
{
    book.header.order_mode = static_cast<std::int32_t>(OrderMode::sorted);
    book.header.sort_key = static_cast<std::int32_t>(key);
    book.rebuild_order();
    return book.order;
}

TEST(SortedOrder, ComparesTheBoxOfTheKey)
{
    Book book = book_of(3);
    book.pages[0].text = { L"b", L"c", L"a" };
    book.pages[1].text = { L"c", L"a", L"b" };
    book.pages[2].text = { L"a", L"b", L"c" };
    EXPECT_EQ(sorted(book, SortKey::box1), (Order{ 2, 0, 1 }));
    EXPECT_EQ(sorted(book, SortKey::box2), (Order{ 1, 2, 0 }));
    EXPECT_EQ(sorted(book, SortKey::box3), (Order{ 0, 1, 2 }));
}

TEST(SortedOrder, ByCreationLooksAtTheFirstFourteenUnits)
{
    Book book = book_of(4);
    book.pages[0].stamp = L"20260103000000"
                          L"20260101000000";
    book.pages[1].stamp = L"20260102000000"
                          L"20260109000000";
    book.pages[2].stamp = L"2026";
    book.pages[3].stamp = L"";
    EXPECT_EQ(sorted(book, SortKey::created), (Order{ 3, 2, 1, 0 }));
}

TEST(SortedOrder, ByModificationComparesTheWholeRest)
{
    Book book = book_of(4);
    book.pages[0].stamp = L"20260101000000"
                          L"20260103000000";
    book.pages[1].stamp = L"20260102000000"
                          L"20260101000000";
    book.pages[2].stamp = L"20260103000000"
                          L"20260101000000x";
    book.pages[3].stamp = L"20260104000000";
    EXPECT_EQ(sorted(book, SortKey::modified), (Order{ 3, 1, 2, 0 }));
}

TEST(SortedOrder, ByStampsComparesUnitsNotLanguage)
{
    Book book = book_of(2);
    book.pages[0].stamp = L"a";
    book.pages[1].stamp = L"B";
    EXPECT_EQ(sorted(book, SortKey::created), (Order{ 1, 0 }));
    EXPECT_EQ(sorted(book, SortKey::box1).size(), 2u);
}

// The order of equal pages is unspecified, but the sort is deterministic: the parts of a stamp that do not
// count must not change its result.
TEST(SortedOrder, TreatsPagesCreatedInTheSameSecondAsEqual)
{
    constexpr std::size_t count = 40;
    Book rising = book_of(count);
    Book falling = book_of(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto stamp_ending_in = [](std::size_t second) {
            return L"20260101000000202601010000" + std::to_wstring(10 + second);
        };
        rising.pages[i].stamp = stamp_ending_in(i);
        falling.pages[i].stamp = stamp_ending_in(count - i);
    }
    EXPECT_EQ(sorted(rising, SortKey::created), sorted(falling, SortKey::created));
}

TEST(SortedOrder, AShortStampSortedByModificationIsARangeErrorAndLeavesAUsableOrder)
{
    Book book = book_of(3, 2701);
    for (book::Page& page : book.pages)
        page.stamp = L"2026010100000020260101000000";
    book.pages[1].stamp = L"2026010100000";
    book.header.sort_key = static_cast<std::int32_t>(SortKey::modified);
    book.order = { 2, 1, 0 };
    EXPECT_THROW(book.rebuild_order(), std::out_of_range);
    EXPECT_TRUE(std::ranges::is_permutation(shown(book), Order{ 0, 1, 2 }));
    book.header.sort_key = static_cast<std::int32_t>(SortKey::created);
    EXPECT_NO_THROW(book.rebuild_order());
}

TEST(SortedOrder, OfOnePageComparesNothing)
{
    Book book = book_of(1);
    book.pages[0].stamp = L"2026";
    for (std::int32_t key = 2999; key <= 3006; ++key)
        EXPECT_EQ(sorted(book, static_cast<SortKey>(key)), Order{ 0 });
    EXPECT_EQ(sorted(book_of(0), SortKey::modified), Order{});
}

TEST(SortedOrder, BySizeCountsFolderBoxesAndFilesButNotTheStamp)
{
    Book book = book_of(5);
    book.pages[0].reference_folder = L"12345";
    book.pages[1].text = { L"1", L"1", L"1" };
    book.pages[2].files = { L"1", L"123" };
    book.pages[3].stamp = std::wstring(99, L'0');
    book.pages[4].text[2] = L"猫犬";
    EXPECT_EQ(sorted(book, SortKey::size), (Order{ 3, 4, 1, 2, 0 }));
}

TEST(SortedOrder, OfAnUnknownKeyIsSomePermutation)
{
    Book book = book_of(2000);
    Order stored(2000);
    for (std::size_t i = 0; i < stored.size(); ++i)
        stored[i] = i;
    for (const std::int32_t key :
        { 0, 2999, 3006, 9999, -3000, lowest, std::numeric_limits<std::int32_t>::max() }) {
        const Order order = sorted(book, static_cast<SortKey>(key));
        EXPECT_TRUE(std::ranges::is_permutation(order, stored)) << key;
    }
}

TEST(SortedOrder, OfEqualTextsIsSomePermutation)
{
    Book book = book_of(3000);
    for (std::size_t i = 0; i < book.pages.size(); ++i)
        book.pages[i].text[0] = i % 2 ? L"同じ" : L"";
    const Order order = sorted(book, SortKey::box1);
    for (std::size_t i = 0; i < order.size(); ++i)
        ASSERT_EQ(order[i] % 2, i < 1500 ? 0u : 1u);
    Order all = order;
    std::sort(all.begin(), all.end());
    EXPECT_EQ(std::unique(all.begin(), all.end()), all.end());
}

TEST(OrderCommands, TheRandomButtonTakesANewSeedOnlyWhenItSwitchesOn)
{
    Book book = book_of(10);
    book::toggle_random(book, 42);
    EXPECT_EQ(book.header.order_mode, 2702);
    EXPECT_EQ(book.header.seed, 42u);
    EXPECT_EQ(book.order, (Order{ 9, 0, 2, 6, 7, 8, 1, 4, 3, 5 }));
    book::toggle_random(book, 7);
    EXPECT_EQ(book.header.order_mode, 2700);
    EXPECT_EQ(book.header.seed, 42u);
    EXPECT_TRUE(book.order.empty());
}

TEST(OrderCommands, TheRandomButtonOfTheProgramDrawsItsSeed)
{
    std::vector<std::uint32_t> seeds;
    for (int i = 0; i < 4; ++i) {
        Book book = book_of(2);
        book::toggle_random(book);
        seeds.push_back(book.header.seed);
    }
    EXPECT_NE(std::count(seeds.begin(), seeds.end(), seeds[0]), 4);
}

TEST(OrderCommands, TheSortButtonSortsAndGoesBackToTheStoredOrder)
{
    Book book = book_of(2);
    book.pages[0].text[0] = L"b";
    book.pages[1].text[0] = L"a";
    book::toggle_sorted(book);
    EXPECT_EQ(book.header.order_mode, 2701);
    EXPECT_EQ(book.order, (Order{ 1, 0 }));
    book::toggle_sorted(book);
    EXPECT_EQ(book.header.order_mode, 2700);
    EXPECT_TRUE(book.order.empty());
}

TEST(OrderCommands, SortedAndRandomExcludeEachOther)
{
    Book book = book_of(2);
    book::toggle_random(book, 1);
    book::toggle_sorted(book);
    EXPECT_TRUE(book::is_sorted(book.header));
    EXPECT_FALSE(book::is_random(book.header));
    book::toggle_random(book, 1);
    EXPECT_FALSE(book::is_sorted(book.header));
    EXPECT_TRUE(book::is_random(book.header));
}

TEST(OrderCommands, KeepTheDirection)
{
    Book book = book_of(2, -2700);
    book::toggle_sorted(book);
    EXPECT_EQ(book.header.order_mode, -2701);
    EXPECT_TRUE(book::is_sorted(book.header));
    book::toggle_random(book, 1);
    EXPECT_EQ(book.header.order_mode, -2702);
    EXPECT_TRUE(book::is_random(book.header));
    book::toggle_random(book, 1);
    EXPECT_EQ(book.header.order_mode, -2700);
}

TEST(OrderCommands, TheReverseButtonFlipsTheSignAndRebuildsNothing)
{
    Book book = book_of(2, 2701);
    book.order = { 1, 0 };
    book::toggle_reversed(book.header);
    EXPECT_EQ(book.header.order_mode, -2701);
    EXPECT_TRUE(book::is_reversed(book.header));
    EXPECT_EQ(book.order, (Order{ 1, 0 }));
    book::toggle_reversed(book.header);
    EXPECT_EQ(book.header.order_mode, 2701);
}

TEST(OrderCommands, TheReverseButtonIsSafeForTheLowestMode)
{
    Book book = book_of(2, lowest);
    EXPECT_TRUE(book::is_reversed(book.header));
    book::toggle_reversed(book.header);
    EXPECT_FALSE(book::is_reversed(book.header));
    book::toggle_reversed(book.header);
    EXPECT_TRUE(book::is_reversed(book.header));
}

TEST(OrderCommands, KeepThePosition)
{
    Book book = book_of(10);
    book.header.position = 3;
    book::toggle_sorted(book);
    book::toggle_random(book, 1);
    book::toggle_reversed(book.header);
    EXPECT_EQ(book.header.position, 3u);
}

TEST(Navigation, GoesToTheFirstAndTheLastPage)
{
    Book book = book_of(3);
    book.header.position = far_position;
    EXPECT_TRUE(book::go_to_last(book));
    EXPECT_EQ(book.header.position, 2u);
    EXPECT_TRUE(book::go_to_first(book));
    EXPECT_EQ(book.header.position, 0u);
}

TEST(Navigation, InABookWithoutPagesGoesNowhere)
{
    Book book = book_of(0);
    book.header.position = 5;
    EXPECT_FALSE(book::go_to_first(book));
    EXPECT_FALSE(book::go_to_last(book));
    EXPECT_FALSE(book::go_to_tab(book, 1));
    EXPECT_EQ(book.header.position, 5u);
}

TEST(Navigation, StaysInsideTheBook)
{
    Book book = book_of(3);
    EXPECT_TRUE(book::go_to(book, 2));
    EXPECT_FALSE(book::go_to(book, 3));
    EXPECT_FALSE(book::go_to(book, far_position));
    EXPECT_EQ(book.header.position, 2u);
}

TEST(Navigation, FindsATabInDisplayOrder)
{
    Book book = book_of(4, -2701);
    book.order = { 2, 0, 3, 1 }; // shown: 1 3 0 2
    book.pages[3].tab_number = 1;
    book.pages[0].tab_number = 2;
    EXPECT_TRUE(book::go_to_tab(book, 2));
    EXPECT_EQ(book.header.position, 2u);
    EXPECT_TRUE(book::go_to_tab(book, 1));
    EXPECT_EQ(book.header.position, 1u);
}

TEST(Navigation, AnUnknownTabMovesNothing)
{
    Book book = book_of(2);
    book.pages[1].tab_number = 1;
    book.header.position = 1;
    EXPECT_FALSE(book::go_to_tab(book, 2));
    EXPECT_FALSE(book::go_to_tab(book, 0));
    EXPECT_EQ(book.header.position, 1u);
}

TEST(Navigation, ANewPageIsStoredAtThePositionWhateverPageIsShown)
{
    Book book = book_of(3, 2701);
    book.pages[0].text[0] = L"c";
    book.pages[1].text[0] = L"b";
    book.pages[2].text[0] = L"a";
    book.rebuild_order();
    book.new_page(1, {});
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_EQ(book.pages[2].text[0], L"b");
    EXPECT_EQ(book.order.size(), 3u);
    EXPECT_EQ(shown(book), (Order{ 0, 1, 2, 3 })); // the order is stale until the refresh
    book.refresh_counts();
    EXPECT_EQ(shown(book), (Order{ 1, 3, 2, 0 }));
}

TEST(Navigation, DeletesTheShownPageAndStaysInside)
{
    Book book = book_of(3, -2700);
    for (std::size_t i = 0; i < 3; ++i)
        book.pages[i].text[0] = std::to_wstring(i);
    book.header.position = 2;
    EXPECT_TRUE(book.remove_page_at(2, {}));
    EXPECT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.pages[0].text[0], L"1");
    EXPECT_EQ(book.header.position, 1u);
}

TEST(Navigation, DeletingTheOnlyPageLeavesAnEmptyOne)
{
    Book book = book_of(1);
    book.pages[0].text[0] = L"a";
    EXPECT_TRUE(book.remove_page_at(0, {}));
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].text[0], L"");
    EXPECT_EQ(book.header.position, 0u);
}

TEST(Navigation, AsksBeforeDeletingByTheNumberThatIsShown)
{
    EXPECT_EQ(book::delete_page_question(0), L"このページを削除しますか？\r\n[ p.1 ]");
    EXPECT_EQ(book::delete_page_question(99999), L"このページを削除しますか？\r\n[ p.100000 ]");
}

} // namespace
