// Copying, moving and deleting the selected pages of a Book.
#include "book/page_selection.hpp"
#include "platform/text.hpp"
#include <gtest/gtest.h>
#include <optional>

namespace {

using book::Book;
using book::ClipMode;
using book::Page;
using book::PageSelection;

constexpr auto none = PageSelection::none;
constexpr auto selected = PageSelection::selected;
constexpr auto pasted = PageSelection::pasted;

Book book_with(std::initializer_list<PageSelection> states)
{
    Book book;
    for (const PageSelection state : states) {
        Page page;
        page.text[0] = std::to_wstring(book.pages.size() + 1);
        page.selected = state;
        book.pages.push_back(page);
    }
    return book;
}

Book book_of_count(std::size_t count)
{
    Book book;
    book.pages.resize(count);
    return book;
}

// "1 2* 3+": the texts, with a star for selected and a plus for pasted pages.
std::wstring pages_text(const Book& book)
{
    std::wstring text;
    for (const Page& page : book.pages) {
        text += text.empty() ? L"" : L" ";
        text += page.text[0];
        text += page.selected == selected ? L"*" : page.selected == pasted ? L"+" : L"";
    }
    return text;
}

// As it is defined: copies first, then removal, then insertion.
std::optional<std::uint64_t> paste_naively(std::vector<Page>& pages, std::size_t index, ClipMode mode)
{
    std::vector<Page> copies;
    std::size_t place = index;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (pages[i].selected != selected)
            continue;
        copies.push_back(pages[i]);
        if (mode == ClipMode::copy)
            copies.back().selected = pasted;
        else if (i < index)
            --place;
    }
    if (index > pages.size() || copies.empty())
        return std::nullopt;
    if (mode == ClipMode::cut)
        for (std::size_t i = pages.size(); i-- > 0;)
            if (pages[i].selected == selected)
                pages.erase(pages.begin() + static_cast<std::ptrdiff_t>(i));
    for (std::size_t i = 0; i < copies.size(); ++i)
        pages.insert(pages.begin() + static_cast<std::ptrdiff_t>(place + i), copies[i]);
    return place + copies.size() - 1;
}

TEST(PasteSelected, EqualsTheSimplestPasteAtEveryIndexOfFivePages)
{
    constexpr unsigned combinations = 3 * 3 * 3 * 3 * 3;
    for (unsigned states = 0; states < combinations; ++states)
        for (std::size_t index = 0; index <= 6; ++index)
            for (const ClipMode mode : { ClipMode::copy, ClipMode::cut }) {
                Book book = book_with({ none, none, none, none, none });
                for (unsigned i = 0, rest = states; i < 5; ++i, rest /= 3)
                    book.pages[i].selected = static_cast<PageSelection>(rest % 3);
                const Book before = book;
                std::vector<Page> expected = book.pages;
                const auto position = paste_naively(expected, index, mode);
                ASSERT_EQ(book.paste_selected(index, mode), position.has_value())
                    << pages_text(before) << index;
                ASSERT_EQ(book.pages, expected) << pages_text(before) << index;
                ASSERT_EQ(book.header.position, position.value_or(0)) << pages_text(before) << index;
                ASSERT_EQ(book.needs_update, position.has_value());
                ASSERT_EQ(book.revision, before.revision + (position ? 1 : 0));
            }
}

TEST(PasteSelected, PutsACopyAtTheEndInStateTwo)
{
    Book book = book_with({ none, selected, none });
    EXPECT_TRUE(book.paste_selected(3, ClipMode::copy));
    EXPECT_EQ(pages_text(book), L"1 2* 3 2+");
    EXPECT_EQ(book.header.position, 3u);
}

TEST(PasteSelected, MovesCutPagesDownByThoseBefore)
{
    Book book = book_with({ selected, selected, none, none, none });
    EXPECT_TRUE(book.paste_selected(4, ClipMode::cut));
    EXPECT_EQ(pages_text(book), L"3 4 1* 2* 5");
    EXPECT_EQ(book.header.position, 3u);
}

TEST(PasteSelected, DoesNothingWithoutAClip)
{
    Book book = book_with({ selected });
    EXPECT_FALSE(book.paste_selected(0, ClipMode::none));
    EXPECT_EQ(pages_text(book), L"1*");
}

TEST(PasteSelected, RefusesTheLimitAlsoForACut)
{
    for (const ClipMode mode : { ClipMode::copy, ClipMode::cut }) {
        Book book = book_of_count(99999);
        book.pages[7].selected = selected;
        book.header.position = 5;
        EXPECT_THROW(book.paste_selected(99999, mode), Book::PageCountOver);
        EXPECT_EQ(book.pages.size(), 99999u);
        EXPECT_EQ(book.pages[7].selected, selected);
        EXPECT_EQ(book.header.position, 5u);
        EXPECT_EQ(book.revision, 0u);
        EXPECT_FALSE(book.needs_update);
        book.pages.pop_back();
        EXPECT_TRUE(book.paste_selected(99998, mode)) << "below the limit";
        EXPECT_EQ(book.pages.size(), mode == ClipMode::copy ? 99999u : 99998u);
    }
}

TEST(PasteSelected, LetsTabsPastTheLimitFallAway)
{
    Book book = book_of_count(200);
    for (Page& page : book.pages) {
        page.selected = selected;
        page.tab_number = 1;
    }
    book.recount();
    EXPECT_TRUE(book.paste_selected(200, ClipMode::copy));
    book.refresh_counts();
    EXPECT_EQ(book.tab_count, 256);
    EXPECT_EQ(book.pages[255].tab_number, 256u);
    EXPECT_EQ(book.pages[256].tab_number, 0u);
}

TEST(DeleteSelected, RemovesExactlyTheSelectedPages)
{
    Book book = book_with({ selected, pasted, none, selected });
    book.header.position = 3;
    EXPECT_TRUE(book.delete_selected({}));
    EXPECT_EQ(pages_text(book), L"2+ 3");
    EXPECT_EQ(book.header.position, 1u);
    EXPECT_TRUE(book.needs_update);
    EXPECT_EQ(book.revision, 1u);
}

TEST(DeleteSelected, LeavesOneEmptyPage)
{
    Book book = book_with({ selected, selected });
    book.header.position = 1;
    EXPECT_TRUE(book.delete_selected({ { 1, 2, 3 }, { 4, 5, 6 } }));
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].text[0], L"");
    EXPECT_EQ(book.pages[0].stamp.size(), 28u);
    EXPECT_EQ(book.pages[0].back_color[2], 6u);
    EXPECT_EQ(book.pages[0].selected, none);
    EXPECT_EQ(book.header.position, 0u);
}

TEST(DeleteSelected, FailsWithoutSelectedPages)
{
    Book book = book_with({ pasted, none });
    EXPECT_FALSE(book.delete_selected({}));
    EXPECT_EQ(pages_text(book), L"1+ 2");
    EXPECT_EQ(book.revision, 0u);
    EXPECT_FALSE(book.needs_update);
}

TEST(SelectPages, StopsAtTheLastPage)
{
    Book book = book_with({ none, pasted, none });
    book::select_pages(book.pages, 1, 7, true);
    EXPECT_EQ(pages_text(book), L"1 2* 3*");
    EXPECT_EQ(book::count_selected(book.pages), 2u);
    book::select_pages(book.pages, 2, 2, false);
    EXPECT_EQ(pages_text(book), L"1 2* 3");
    book::select_pages(book.pages, 3, book::npos, true);
    EXPECT_EQ(pages_text(book), L"1 2* 3");
}

TEST(ClearSelection, ClearsPastedPagesToo)
{
    Book book = book_with({ selected, pasted, none });
    EXPECT_EQ(book::count_selected(book.pages), 1u);
    book::clear_selection(book.pages);
    EXPECT_EQ(pages_text(book), L"1 2 3");
}

} // namespace
