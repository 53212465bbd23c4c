// What commands do to the open Book.
#include "app/page_commands.hpp"
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

TEST(CurrentIndex, IsNoneBeyondTheLastPage)
{
    book::Book book = book_of({ L"a", L"b" });
    EXPECT_EQ(app::current_index(book), 0u);
    book.header.order_mode = -2700;
    EXPECT_EQ(app::current_index(book), 1u);
    book.header.position = ~std::uint64_t{ 0 };
    EXPECT_EQ(app::current_index(book), book::npos);
}

TEST(ToggleMark, MarksTheCurrentPageAndCountsAnew)
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

TEST(SwapWithNeighbour, TakesThePageAlong)
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

TEST(SwapWithNeighbour, GoesByTheOrderThatIsShown)
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

TEST(ColorAllPages, GivesEveryPageTheThemesBoxColors)
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
