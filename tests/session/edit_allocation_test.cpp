// Every allocation of a replacement, a paste and a deletion fails once: the Book is as it was then.
#include "app/edit_actions.hpp"
#include "failing_allocation.hpp"
#include "tests/support/session_fakes.hpp"
#include <gtest/gtest.h>
#include <new>

namespace {

using namespace session_walk;
using book::Book;
using book::ClipMode;
using book::Page;

Book book_of_words()
{
    Book book;
    for (int i = 0; i < 5; ++i) {
        Page page;
        page.stamp = L"2020010203040520210203040506";
        page.text = { L"a word and a word", L"word", L"no hit" };
        page.files = { L"a long path with a word", L"other" };
        page.reference_folder = L"the folder of a word";
        page.selected = static_cast<book::PageSelection>(i % 3);
        book.pages.push_back(page);
    }
    book.pages.shrink_to_fit();
    return book;
}

// Runs `edit` on such a Book with each of its allocations failing in turn, until none fails any more.
template <class Edit> void expect_all_or_nothing(Edit edit)
{
    for (std::size_t nth = 1; nth < 1000; ++nth) {
        Book book = book_of_words();
        const Book before = book;
        bool has_thrown = false;
        try {
            fail_allocation(nth);
            edit(book);
        } catch (const std::bad_alloc&) {
            has_thrown = true;
        }
        spare_allocations();
        if (!has_thrown) {
            EXPECT_GT(nth, 1u) << "nothing was allocated";
            EXPECT_NE(book.pages, before.pages);
            return;
        }
        ASSERT_EQ(book.pages, before.pages) << nth;
        ASSERT_EQ(book.revision, before.revision) << nth;
        ASSERT_EQ(book.header.position, before.header.position) << nth;
        ASSERT_EQ(book.needs_update, before.needs_update) << nth;
    }
    FAIL() << "an allocation failed at every try";
}

TEST(EditWithoutMemory, ReplacesInAllPagesOrInNone)
{
    expect_all_or_nothing([](Book& book) {
        const SpareAllocations spare;
        const book::ReplaceRequest request{ L"word", L"some longer text than before", 7,
            book::LetterCase::folded };
        resume_allocations();
        book::replace_in_pages(book.pages, request);
    });
}

TEST(EditWithoutMemory, PastesAllPagesOrNone)
{
    expect_all_or_nothing([](Book& book) { book.paste_selected(4, ClipMode::copy); });
    expect_all_or_nothing([](Book& book) { book.paste_selected(4, ClipMode::cut); });
}

TEST(EditWithoutMemory, DeletesAllSelectedPagesOrNone)
{
    expect_all_or_nothing([](Book& book) {
        for (Page& page : book.pages)
            page.selected = book::PageSelection::selected;
        try {
            book.delete_selected({});
        } catch (...) {
            for (std::size_t i = 0; i < book.pages.size(); ++i)
                book.pages[i].selected = static_cast<book::PageSelection>(i % 3);
            throw;
        }
    });
}

// A lack of memory in an operation of the session is reported, and the program goes on.
TEST(EditWithoutMemory, IsReportedAndTheProgramGoesOn)
{
    const test_support::DataRoot root;
    test_support::SessionRoom room{ root.file(L"history.txt") };
    Book& book = room.session.book();
    book = book_of_words();
    const std::vector<Page> before = book.pages;
    const book::ReplaceRequest request{ L"word", L"some longer text than before", 7, {} };
    room.session.run([&] {
        // The first allocations are those of the replacement.
        fail_allocation(3);
        EXPECT_EQ(app::replace_in_all_pages(room.session, request), std::nullopt);
        spare_allocations();
    });
    EXPECT_TRUE(has_allocation_failed());
    EXPECT_EQ(room.talk.said, std::vector<std::wstring>{ L"tell 48: 編集に失敗しました" });
    EXPECT_EQ(book.pages, before);
}

} // namespace
