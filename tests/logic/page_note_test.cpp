// Whether the subject of a question still exists when the user answers it.
#include "app/page_note.hpp"
#include <gtest/gtest.h>

namespace {

using app::is_same;
using app::note_entry;
using app::note_page;

book::Book two_pages()
{
    book::Book book;
    for (const wchar_t* stamp : { L"2020010203040520200102030405", L"2021010203040520210102030405" }) {
        book::Page page;
        page.stamp = stamp;
        page.files = { L"a", L"b", L"c" };
        page.current_file = 1;
        book.pages.push_back(page);
    }
    return book;
}

TEST(PageNote, IsValidWhileNothingChanges)
{
    book::Book book = two_pages();
    const auto note = note_page(book);
    ASSERT_TRUE(note);
    EXPECT_TRUE(is_same(*note, book));
    book.pages[0].text[0] = L"typed";
    EXPECT_TRUE(is_same(*note, book));
}

TEST(PageNote, IsInvalidWhenThePositionChanges)
{
    book::Book book = two_pages();
    const auto note = note_page(book);
    book.header.position = 1;
    EXPECT_FALSE(is_same(*note, book));
    book.header.position = 9;
    EXPECT_FALSE(is_same(*note, book));
}

TEST(PageNote, IsInvalidWhenAnotherPageIsShownAtThePosition)
{
    book::Book book = two_pages();
    const auto note = note_page(book);
    book.header.order_mode = -2700;
    EXPECT_FALSE(is_same(*note, book));
    book.header.order_mode = 2700;
    std::swap(book.pages[0], book.pages[1]);
    EXPECT_FALSE(is_same(*note, book));
}

TEST(PageNote, IsInvalidWhenPagesAreAddedOrRemoved)
{
    book::Book book = two_pages();
    const auto note = note_page(book);
    book.insert_page(2, book.pages[0]);
    book.header.position = note->position;
    EXPECT_FALSE(is_same(*note, book));
}

TEST(PageNote, IsNoneWithoutACurrentPage)
{
    book::Book book = two_pages();
    book.header.position = 2;
    EXPECT_FALSE(note_page(book));
    EXPECT_FALSE(note_entry(book));
}

TEST(EntryNote, IsInvalidWhenItsPagePositionOrTextChanges)
{
    const book::Book before = two_pages();
    const auto note = note_entry(before);
    ASSERT_TRUE(note);
    EXPECT_TRUE(is_same(*note, before));

    book::Book book = before;
    book.header.position = 1;
    EXPECT_FALSE(is_same(*note, book));
    book = before;
    book.pages[0].current_file = 2;
    EXPECT_FALSE(is_same(*note, book));
    book = before;
    book.pages[0].files[1] = L"other";
    EXPECT_FALSE(is_same(*note, book));
    book = before;
    book.pages[0].files.clear();
    EXPECT_FALSE(is_same(*note, book));
}

TEST(EntryNote, IsValidWhenOtherEntriesChange)
{
    book::Book book = two_pages();
    const auto note = note_entry(book);
    book.pages[0].files.push_back(L"d");
    book.pages[0].files[0] = L"other";
    EXPECT_TRUE(is_same(*note, book));
}

TEST(EntryNote, IsNoneWithoutASelectedEntry)
{
    book::Book book = two_pages();
    book.pages[0].current_file = 3;
    EXPECT_FALSE(note_entry(book));
}

} // namespace
