// The Book in memory: its pages, counts and limits.
#include "book/book.hpp"
#include "book/page_text.hpp"
#include "look/theme.hpp"
#include "platform/text.hpp"
#include <gtest/gtest.h>
#include <limits>

namespace {

using book::Book;
using book::Page;
using book::PageColors;
using book::PageSelection;

Page named(const std::wstring& name)
{
    Page page;
    page.text[1] = name;
    return page;
}

Book book_of(const std::vector<std::wstring>& names)
{
    Book book;
    for (const std::wstring& name : names)
        book.pages.push_back(named(name));
    return book;
}

std::vector<std::wstring> names_of(const Book& book)
{
    std::vector<std::wstring> names;
    for (const Page& page : book.pages)
        names.push_back(page.text[1]);
    return names;
}

using Names = std::vector<std::wstring>;

TEST(PageRecord, StartsEmpty)
{
    const Page page;
    EXPECT_EQ(page.text_color, (std::array<std::uint32_t, 3>{}));
    EXPECT_EQ(page.back_color, (std::array<std::uint32_t, 3>{}));
    EXPECT_EQ(page.tab_color, 0u);
    EXPECT_EQ(page.tab_number, 0u);
    EXPECT_EQ(page.scroll_first, 0);
    EXPECT_EQ(page.scroll_third, 0);
    EXPECT_EQ(page.mark, 0);
    EXPECT_EQ(page.selected, PageSelection::none);
    EXPECT_EQ(page.current_file, 0u);
}

TEST(BookClear, ResetsEverything)
{
    Book book = book_of({ L"a", L"b" });
    book.header.seed = 4;
    book.path = L"x.bok";
    book.order = { 1, 0 };
    book.file_size = 9;
    book.tab_count = 1;
    book.mark_count = 2;
    book.needs_update = true;
    book.hits.emplace_back();
    book.clear();
    EXPECT_EQ(book.header, book::BookHeader());
    EXPECT_TRUE(book.path.empty());
    EXPECT_TRUE(book.pages.empty());
    EXPECT_TRUE(book.order.empty());
    EXPECT_TRUE(book.hits.empty());
    EXPECT_EQ(book.file_size, 0u);
    EXPECT_EQ(book.tab_count, 0);
    EXPECT_EQ(book.mark_count, 0);
    EXPECT_FALSE(book.needs_update);
}

TEST(BookInsertPage, ShiftsLaterPagesAndGoesToTheNewOne)
{
    Book book = book_of({ L"a", L"b" });
    book.header.position = 7;
    const Page* inner = book.insert_page(1, named(L"new"));
    EXPECT_EQ(inner, &book.pages[1]);
    EXPECT_EQ(names_of(book), (Names{ L"a", L"new", L"b" }));
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_TRUE(book.needs_update);
    const Page* last = book.insert_page(3, named(L"last"));
    EXPECT_EQ(last, &book.pages[3]);
    const Page* first = book.insert_page(0, named(L"first"));
    EXPECT_EQ(first, &book.pages[0]);
    EXPECT_EQ(names_of(book), (Names{ L"first", L"a", L"new", L"b", L"last" }));
}

TEST(BookInsertPage, InsertsAPageOfTheBookItself)
{
    Book book = book_of({ L"a", L"b" });
    book.pages.shrink_to_fit();
    book.insert_page(0, book.pages[1]);
    EXPECT_EQ(names_of(book), (Names{ L"b", L"a", L"b" }));
}

TEST(BookInsertPage, DoesNothingPastTheEnd)
{
    Book book = book_of({ L"a" });
    book.header.position = 5;
    EXPECT_EQ(book.insert_page(2, named(L"x")), nullptr);
    EXPECT_EQ(book.insert_page(book::npos, named(L"x")), nullptr);
    EXPECT_EQ(names_of(book), Names{ L"a" });
    EXPECT_EQ(book.header.position, 5u);
    EXPECT_FALSE(book.needs_update);
}

TEST(BookInsertPage, SucceedsUpToTheLimit)
{
    Book book;
    book.pages.resize(book::page_limit - 1);
    EXPECT_NE(book.insert_page(50000, named(L"x")), nullptr);
    EXPECT_EQ(book.pages.size(), book::page_limit);
}

TEST(BookInsertPage, ThrowsOnAFullBookAtAnyIndexAndLeavesItUnchanged)
{
    Book book;
    book.pages.resize(book::page_limit);
    book.header.position = 3;
    for (const std::size_t index :
        { std::size_t{ 0 }, std::size_t{ 777 }, book::page_limit, book::page_limit + 1, book::npos })
        EXPECT_THROW(book.insert_page(index, named(L"x")), Book::PageCountOver) << index;
    EXPECT_THROW(book.new_page(0, {}), Book::PageCountOver);
    EXPECT_EQ(book.pages.size(), book::page_limit);
    EXPECT_EQ(book.header.position, 3u);
    EXPECT_FALSE(book.needs_update);
    EXPECT_EQ(book.pages[0], Page());
}

TEST(PageCountOver, NamesTheLimitAndIsNotFatal)
{
    const Book::PageCountOver over;
    EXPECT_EQ(over.code, 0u);
    EXPECT_FALSE(over.is_fatal());
    EXPECT_EQ(over.message, L"ページ数の上限 [" + platform::grouped_number(100000) + L"] を超えます");
    const MyException& as_base = over;
    EXPECT_EQ(as_base.message, over.message);
}

TEST(MyExceptionCode, OfOneIsFatal)
{
    EXPECT_TRUE(MyException(L"x", 1).is_fatal());
    EXPECT_FALSE(MyException(L"x", 0).is_fatal());
    EXPECT_FALSE(MyException(L"x", 2).is_fatal());
}

TEST(BookNewPage, TakesTheThemesColoursAndTheTimeTwice)
{
    for (const std::int32_t theme : { look::theme_dark, look::theme_standard }) {
        look::load_theme(theme);
        Book book;
        const std::wstring before = book::current_time_text();
        book.new_page(0, look::page_colors(look::palette()));
        const std::wstring after = book::current_time_text();
        const Page& page = book.pages.at(0);
        ASSERT_EQ(page.stamp.size(), 2 * book::time_length);
        EXPECT_EQ(page.stamp.substr(0, 14), page.stamp.substr(14));
        EXPECT_GE(page.stamp.substr(14), before);
        EXPECT_LE(page.stamp.substr(14), after);
        const std::uint32_t text = theme == look::theme_dark ? 0xFFFFFF : 0;
        const std::uint32_t back = theme == look::theme_dark ? 0x141414 : 0xFFFFFF;
        EXPECT_EQ(page.text_color, (std::array<std::uint32_t, 3>{ text, text, text }));
        EXPECT_EQ(page.back_color, (std::array<std::uint32_t, 3>{ back, back, back }));
        Page rest = page;
        rest.stamp.clear();
        rest.text_color = {};
        rest.back_color = {};
        EXPECT_EQ(rest, Page());
        EXPECT_EQ(book.header.position, 0u);
        EXPECT_TRUE(book.needs_update);
    }
}

TEST(BookNewPage, SetsThePositionToItsIndex)
{
    Book book = book_of({ L"a", L"b", L"c" });
    book.header.order_mode = -2700;
    book.new_page(2, {});
    EXPECT_EQ(names_of(book), (Names{ L"a", L"b", L"", L"c" }));
    EXPECT_EQ(book.header.position, 2u);
}

TEST(BookNewPage, TakesTheColoursItIsGiven)
{
    const PageColors colors{ { 1, 2, 3 }, { 4, 5, 6 } };
    Book book = book_of({ L"a" });
    book.new_page(1, colors);
    EXPECT_EQ(book.pages[1].text_color, colors.text);
    EXPECT_EQ(book.pages[1].back_color, colors.back);
    book.remove_page_at(0, colors);
    book.header.position = 0;
    book.refresh_counts();
    book.remove_page_at(0, { { 7, 8, 9 }, { 10, 11, 12 } });
    EXPECT_EQ(book.pages[0].text_color[2], 9u) << "also the page that an emptied Book gets";
}

TEST(BookRemoveSelected, ErasesExactlyTheSelectedPages)
{
    Book book = book_of({ L"a", L"b", L"c", L"d" });
    book.pages[0].selected = PageSelection::selected;
    book.pages[1].selected = PageSelection::pasted;
    book.pages[3].selected = PageSelection::selected;
    EXPECT_TRUE(book.remove_selected());
    EXPECT_EQ(names_of(book), (Names{ L"b", L"c" }));
    EXPECT_TRUE(book.needs_update);
}

TEST(BookRemoveSelected, ReturnsFalseWhenNothingIsRemoved)
{
    Book book = book_of({ L"a" });
    book.pages[0].selected = PageSelection::pasted;
    EXPECT_FALSE(book.remove_selected());
    EXPECT_EQ(book.pages.size(), 1u);
    EXPECT_FALSE(book.needs_update);
    EXPECT_FALSE(Book().remove_selected());
}

TEST(BookRemovePageAt, ErasesThePageShownThere)
{
    Book book = book_of({ L"a", L"b", L"c" });
    book.header.order_mode = -2700;
    book.header.position = 0;
    EXPECT_TRUE(book.remove_page_at(0, {}));
    EXPECT_EQ(names_of(book), (Names{ L"a", L"b" }));
    EXPECT_EQ(book.header.position, 0u);
    EXPECT_TRUE(book.needs_update);
}

TEST(BookRemovePageAt, KeepsThePositionInRange)
{
    Book book = book_of({ L"a", L"b", L"c" });
    book.header.position = 2;
    EXPECT_TRUE(book.remove_page_at(2, {}));
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_TRUE(book.remove_page_at(0, {}));
    EXPECT_EQ(book.header.position, 0u);
    EXPECT_EQ(names_of(book), Names{ L"b" });
}

TEST(BookRemovePageAt, LeavesOneEmptyPageInAnEmptiedBook)
{
    Book book = book_of({ L"a" });
    book.pages[0].mark = 1;
    EXPECT_TRUE(book.remove_page_at(0, {}));
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].text[1], L"");
    EXPECT_EQ(book.pages[0].mark, 0);
    EXPECT_EQ(book.pages[0].stamp.size(), 28u);
    EXPECT_EQ(book.header.position, 0u);
}

TEST(BookRemovePageAt, ReturnsFalseWithoutAPageThere)
{
    Book book = book_of({ L"a" });
    book.header.position = 9;
    EXPECT_FALSE(book.remove_page_at(1, {}));
    EXPECT_FALSE(book.remove_page_at(std::numeric_limits<std::uint64_t>::max(), {}));
    EXPECT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.header.position, 9u);
    EXPECT_FALSE(book.needs_update);
    EXPECT_FALSE(Book().remove_page_at(0, {}));
}

TEST(BookCurrentPage, IsThePageShownAtThePosition)
{
    Book book = book_of({ L"a", L"b", L"c" });
    EXPECT_EQ(book.current_page(), &book.pages[0]);
    book.header.order_mode = -2700;
    EXPECT_EQ(book.current_page(), &book.pages[2]);
    book.header.position = 3;
    EXPECT_EQ(book.current_page(), nullptr);
    EXPECT_EQ(Book().current_page(), nullptr);
}

TEST(BookInsertPage, FallsBackToStoredIndicesUntilTheRefresh)
{
    Book book = book_of({ L"a", L"b" });
    book.order = { 1, 0 };
    EXPECT_EQ(book.current_page(), &book.pages[1]);
    book.insert_page(2, named(L"c"));
    for (std::size_t position = 0; position < 3; ++position)
        EXPECT_EQ(book.position_to_index(position), position);
}

TEST(BookRecount, NumbersTabsInStoredOrderAndCountsMarks)
{
    Book book = book_of({ L"a", L"b", L"c", L"d" });
    book.pages[1].tab_number = 40;
    book.pages[2].tab_number = 1;
    book.pages[3].mark = -7;
    book.pages[0].mark = 1;
    book.tab_count = 99;
    book.mark_count = 99;
    book.recount();
    EXPECT_EQ(book.tab_count, 2);
    EXPECT_EQ(book.mark_count, 2);
    EXPECT_EQ(book.pages[0].tab_number, 0u);
    EXPECT_EQ(book.pages[1].tab_number, 1u);
    EXPECT_EQ(book.pages[2].tab_number, 2u);
}

TEST(BookRecount, DropsTheTabsBeyondTheLimitButNoMarks)
{
    Book book;
    book.pages.resize(300);
    for (Page& page : book.pages) {
        page.tab_number = 1;
        page.mark = 1;
    }
    book.recount();
    EXPECT_EQ(book.tab_count, 256);
    EXPECT_EQ(book.mark_count, 300);
    for (std::size_t i = 0; i < 300; ++i)
        EXPECT_EQ(book.pages[i].tab_number, i < 256 ? i + 1 : 0);
}

TEST(BookTabs, AreFoundByTheirNumber)
{
    Book book = book_of({ L"a", L"b", L"c", L"d" });
    book.pages[1].tab_number = 40;
    book.pages[3].tab_number = 1;
    book.recount();
    EXPECT_EQ(book.tab_indices, (std::vector<std::size_t>{ 1, 3 }));
    EXPECT_EQ(book.page_of_tab(1), &book.pages[1]);
    EXPECT_EQ(book.page_of_tab(2), &book.pages[3]);
    EXPECT_EQ(book.page_of_tab(3), nullptr);
    EXPECT_EQ(book.page_of_tab(0), nullptr);
}

TEST(BookTabs, AreFoundEvenAfterPagesMovedSinceTheRecount)
{
    Book book = book_of({ L"a", L"b", L"c", L"d" });
    book.pages[1].tab_number = 1;
    book.pages[3].tab_number = 1;
    book.recount();
    book.pages.erase(book.pages.begin());
    EXPECT_EQ(book.page_of_tab(1), &book.pages[0]);
    EXPECT_EQ(book.page_of_tab(2), &book.pages[2]);
    book.pages.pop_back();
    EXPECT_EQ(book.page_of_tab(2), nullptr);
    book.pages[1].tab_number = 77;
    EXPECT_EQ(book.page_of_tab(77), &book.pages[1]);
}

TEST(BookTabs, KeepNoIndexOfADroppedTab)
{
    Book book;
    book.pages.resize(300);
    for (Page& page : book.pages)
        page.tab_number = 1;
    book.recount();
    EXPECT_EQ(book.tab_indices.size(), 256u);
    EXPECT_EQ(book.page_of_tab(256), &book.pages[255]);
    EXPECT_EQ(book.page_of_tab(257), nullptr);
}

TEST(BookRefreshCounts, DoesNothingUnlessAnUpdateIsNeeded)
{
    Book book = book_of({ L"b", L"a" });
    book.hits.emplace_back();
    book.pages[0].mark = 1;
    book.order = { 1, 0 };
    book.refresh_counts();
    EXPECT_EQ(book.hits.size(), 1u);
    EXPECT_EQ(book.mark_count, 0);
    EXPECT_EQ(book.order.size(), 2u);
}

TEST(BookRefreshCounts, DropsHitsRecountsAndRebuildsTheOrder)
{
    Book book = book_of({ L"b", L"a" });
    book.header.order_mode = 2701;
    book.header.sort_key = 3001;
    book.hits.emplace_back();
    book.pages[0].mark = 1;
    book.pages[1].tab_number = 9;
    book.needs_update = true;
    book.refresh_counts();
    EXPECT_FALSE(book.needs_update);
    EXPECT_TRUE(book.hits.empty());
    EXPECT_EQ(book.mark_count, 1);
    EXPECT_EQ(book.tab_count, 1);
    EXPECT_EQ(book.order, (std::vector<std::uint64_t>{ 1, 0 }));
}

} // namespace
