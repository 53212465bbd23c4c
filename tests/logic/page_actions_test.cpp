// Actions of commands on the pages of the open Book.
#include "app/page_actions.hpp"
#include <gtest/gtest.h>

namespace {

book::Book book_of(std::initializer_list<const wchar_t*> texts)
{
    book::Book made;
    for (const wchar_t* text : texts) {
        book::Page page;
        page.stamp = L"2024010101010120240101010101";
        page.text[0] = text;
        made.pages.push_back(page);
    }
    return made;
}

std::wstring texts_of(const book::Book& book)
{
    std::wstring all;
    for (const book::Page& page : book.pages)
        all += page.text[0];
    return all;
}

std::wstring shown_texts(const book::Book& book)
{
    std::wstring all;
    for (std::uint64_t position = 0; position < book.pages.size(); ++position)
        all += book.pages[book.position_to_index(position)].text[0];
    return all;
}

TEST(CurrentIndex, IsNoneBeyondTheLastPage)
{
    book::Book book = book_of({ L"a", L"b" });
    EXPECT_EQ(book.current_index(), 0u);
    book.header.order_mode = -2700;
    EXPECT_EQ(book.current_index(), 1u);
    book.header.position = ~std::uint64_t{ 0 };
    EXPECT_EQ(book.current_index(), book::npos);
}

TEST(ToggleMark, MarksTheCurrentPageAndRecounts)
{
    book::Book book = book_of({ L"a", L"b" });
    book.pages[0].mark = 7;
    book.header.position = 1;
    EXPECT_TRUE(app::toggle_mark(book));
    EXPECT_EQ(book.pages[1].mark, 1);
    EXPECT_EQ(book.mark_count, 2);
    book.header.position = 0;
    EXPECT_TRUE(app::toggle_mark(book));
    EXPECT_EQ(book.pages[0].mark, 0);
    EXPECT_EQ(book.mark_count, 1);
}

TEST(ToggleMark, ChangesNothingWithoutACurrentPage)
{
    book::Book book = book_of({ L"a" });
    book.header.position = 5;
    EXPECT_FALSE(app::toggle_mark(book));
    EXPECT_EQ(book.pages[0].mark, 0);
}

TEST(SwapWithNeighbour, FollowsThePage)
{
    book::Book book = book_of({ L"a", L"b", L"c" });
    book.header.position = 1;
    EXPECT_TRUE(app::swap_with_neighbour(book, 1));
    EXPECT_EQ(texts_of(book), L"acb");
    EXPECT_EQ(book.current_page()->text[0], L"b");
    EXPECT_TRUE(app::swap_with_neighbour(book, -1));
    EXPECT_EQ(texts_of(book), L"abc");
    EXPECT_EQ(book.header.position, 1u);
}

TEST(SwapWithNeighbour, UsesTheDisplayOrder)
{
    book::Book book = book_of({ L"a", L"b", L"c" });
    book.header.order_mode = -2700;
    book.header.position = 0; // shows c
    EXPECT_TRUE(app::swap_with_neighbour(book, 1));
    EXPECT_EQ(texts_of(book), L"acb");
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_EQ(book.current_page()->text[0], L"c");
}

TEST(SwapWithNeighbour, RenumbersTabs)
{
    book::Book book = book_of({ L"a", L"b" });
    book.pages[0].tab_number = 1;
    book.pages[1].tab_number = 2;
    EXPECT_TRUE(app::swap_with_neighbour(book, 1));
    EXPECT_EQ(book.pages[0].tab_number, 1u);
    EXPECT_EQ(book.pages[0].text[0], L"b");
    EXPECT_FALSE(book.needs_update);
}

TEST(SwapWithNeighbour, FollowsThePageInASortedBookToo)
{
    book::Book book = book_of({ L"b", L"a" });
    book.header.order_mode = 2701;
    book.rebuild_order();
    book.header.position = 0; // shows a
    EXPECT_TRUE(app::swap_with_neighbour(book, 1));
    EXPECT_EQ(book.current_page()->text[0], L"a");
}

TEST(SwapWithNeighbour, InAShuffledBookMovesThePageByOne)
{
    book::Book book = book_of({ L"a", L"b", L"c", L"d" });
    book.header.order_mode = -2702;
    book.header.seed = 7;
    book.rebuild_order();
    book.header.position = 1;
    const std::wstring before = shown_texts(book);
    EXPECT_TRUE(app::swap_with_neighbour(book, 1));
    const std::wstring after{ before[0], before[2], before[1], before[3] };
    EXPECT_EQ(shown_texts(book), after);
    EXPECT_EQ(book.header.position, 2u);
}

TEST(SwapWithNeighbour, InASortedBookKeepsThePosition)
{
    for (const std::int32_t mode : { 2701, -2701 }) {
        book::Book book = book_of({ L"c", L"a", L"b" });
        book.header.order_mode = mode;
        book.rebuild_order();
        book.header.position = 1;
        EXPECT_TRUE(app::swap_with_neighbour(book, -1));
        EXPECT_EQ(shown_texts(book), mode > 0 ? L"abc" : L"cba");
        EXPECT_EQ(book.header.position, 1u);
        EXPECT_EQ(book.current_page()->text[0], L"b");
    }
}

TEST(SwapWithNeighbour, EndsAtBothEnds)
{
    book::Book book = book_of({ L"a", L"b" });
    EXPECT_FALSE(app::swap_with_neighbour(book, -1));
    EXPECT_FALSE(app::swap_with_neighbour(book, 0));
    book.header.position = 1;
    EXPECT_FALSE(app::swap_with_neighbour(book, 1));
    book.header.position = 2;
    EXPECT_FALSE(app::swap_with_neighbour(book, -1));
    EXPECT_EQ(texts_of(book), L"ab");
    EXPECT_FALSE(book.needs_update);
}

TEST(ToggleTab, AddsAndRemovesATabAndRecounts)
{
    book::Book book = book_of({ L"a", L"b", L"c" });
    book.pages[2].tab_number = 1;
    book.recount();
    EXPECT_TRUE(app::toggle_tab(book, 0xB3574A));
    EXPECT_EQ(book.pages[0].tab_number, 1u);
    EXPECT_EQ(book.pages[2].tab_number, 2u);
    EXPECT_EQ(book.pages[0].tab_color, 0xB3574Au);
    EXPECT_EQ(book.tab_count, 2);
    EXPECT_TRUE(app::toggle_tab(book, 0x698C20));
    EXPECT_EQ(book.pages[0].tab_number, 0u);
    EXPECT_EQ(book.pages[2].tab_number, 1u);
    EXPECT_EQ(book.pages[0].tab_color, 0x698C20u);
    EXPECT_EQ(book.tab_count, 1);
}

TEST(ToggleTab, AddsNoneBeyondTheLimitButSetsTheColor)
{
    book::Book book;
    book.pages.resize(257);
    for (std::size_t i = 1; i < 257; ++i)
        book.pages[i].tab_number = 1;
    book.recount();
    EXPECT_TRUE(app::toggle_tab(book, 0x403CBE));
    EXPECT_EQ(book.pages[0].tab_number, 0u);
    EXPECT_EQ(book.pages[0].tab_color, 0x403CBEu);
    EXPECT_EQ(book.pages[256].tab_number, 256u); // no other page loses its tab
    book.header.position = 3;
    EXPECT_TRUE(app::toggle_tab(book, 0));
    book.header.position = 0;
    EXPECT_TRUE(app::toggle_tab(book, 0));
    EXPECT_EQ(book.pages[0].tab_number, 1u);
    EXPECT_EQ(book.pages[256].tab_number, 256u);
}

TEST(ToggleTab, DoesNothingWithoutACurrentPage)
{
    book::Book book = book_of({ L"a" });
    book.header.position = 5;
    EXPECT_FALSE(app::toggle_tab(book, 0));
    EXPECT_EQ(book.pages[0].tab_number, 0u);
}

TEST(RemoveTab, RemovesItFromTheGivenPage)
{
    book::Book book = book_of({ L"a", L"b" });
    book.pages[0].tab_number = book.pages[1].tab_number = 1;
    book.recount();
    EXPECT_TRUE(app::remove_tab(book, 0, 0x535864));
    EXPECT_EQ(book.pages[0].tab_number, 0u);
    EXPECT_EQ(book.pages[0].tab_color, 0x535864u);
    EXPECT_EQ(book.pages[1].tab_number, 1u);
    EXPECT_FALSE(app::remove_tab(book, 2, 0));
}

TEST(IndexOf, KnowsThePagesOfTheBookOnly)
{
    const book::Book book = book_of({ L"a", L"b" });
    const auto address = [](const book::Page* page) { return reinterpret_cast<std::uintptr_t>(page); };
    const book::Page* first = book.pages.data();
    EXPECT_EQ(app::index_of(book, address(first)), 0u);
    EXPECT_EQ(app::index_of(book, address(first + 1)), 1u);
    EXPECT_EQ(app::index_of(book, address(first + 2)), book::npos);
    EXPECT_EQ(app::index_of(book, address(first) + 1), book::npos);
    EXPECT_EQ(app::index_of(book, address(first) - sizeof(book::Page)), book::npos);
    EXPECT_EQ(app::index_of(book, 0), book::npos);
    EXPECT_EQ(app::index_of({}, 0), book::npos);
}

TEST(ColorAllPages, AppliesTheThemesBoxColorsToEveryPage)
{
    book::Book book = book_of({ L"a", L"b" });
    look::ThemePalette palette;
    palette.box1_text = ovlib::Color{ 1 };
    palette.box2_text = ovlib::Color{ 2 };
    palette.box3_text = ovlib::Color{ 3 };
    palette.box_back = ovlib::Color{ 4 };
    app::color_all_pages(book, palette);
    for (const book::Page& page : book.pages) {
        EXPECT_EQ(page.text_color, (std::array<std::uint32_t, 3>{ 1, 2, 3 }));
        EXPECT_EQ(page.back_color, (std::array<std::uint32_t, 3>{ 4, 4, 4 }));
    }
}

} // namespace
