// The two commands for dropped files: into the current page, and one page for each.
#include "tests/support/session_fixture.hpp"

namespace {

using core::Outcome;
using Files = std::vector<std::wstring>;
using test_support::Said;

class DroppedFiles : public test_support::SessionTest {
protected:
    Files add(const Files& files)
    {
        return run([&] { return app::add_dropped_files(session, files); });
    }
    Outcome add_pages(const Files& files)
    {
        return run([&] { return app::add_pages_of_files(session, files); });
    }
    // Fills the Book up to this many pages.
    void fill(std::size_t count) { book.pages.resize(count, test_support::page_with(L"x")); }
};

TEST_F(DroppedFiles, GoBehindThoseOfThePageAndTheFirstIsSelected)
{
    book.pages[0].files = { L"a" };
    EXPECT_EQ(add({ L"b", L"c" }), (Files{ L"b", L"c" }));
    EXPECT_EQ(book.pages[0].files, (Files{ L"a", L"b", L"c" }));
    EXPECT_EQ(book.pages[0].current_file, 1u);
    EXPECT_EQ(book.pages[0].stamp, test_support::old_stamp) << "as after adding files by the dialog";
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(DroppedFiles, OfNoDropAskNothing)
{
    desk.list_edit = L"typed";
    EXPECT_EQ(add({}), Files{});
    EXPECT_EQ(add_pages({}), Outcome::failed);
    EXPECT_TRUE(talk.said.empty());
    EXPECT_TRUE(desk.list_edit);
}

TEST_F(DroppedFiles, FollowTheTypedListIfTheUserAppliesIt)
{
    desk.list_edit = L"typed";
    EXPECT_EQ(add({ L"b" }), Files{ L"b" });
    EXPECT_EQ(book.pages[0].files, (Files{ L"typed", L"b" }));
    EXPECT_EQ(talk.said.size(), 1u);
}

TEST_F(DroppedFiles, AreNotAddedIfTheUserCancelsThatQuestion)
{
    desk.list_edit = L"typed";
    talk.choices = { app::Answer::cancel };
    EXPECT_EQ(add({ L"b" }), Files{});
    EXPECT_TRUE(book.pages[0].files.empty());
    EXPECT_TRUE(desk.list_edit);
}

TEST_F(DroppedFiles, GoIntoNoOtherPage)
{
    desk.list_edit = L"typed";
    talk.while_open = [&] { book.header.position = 1; };
    EXPECT_EQ(add({ L"b" }), Files{});
    for (const book::Page& page : book.pages)
        EXPECT_TRUE(page.files.empty());
}

TEST_F(DroppedFiles, AreNotAddedWithoutAPage)
{
    book.header.position = 9;
    EXPECT_EQ(add({ L"b" }), Files{});
}

TEST_F(DroppedFiles, MakeAPageEachAtTheEnd)
{
    go_to(1);
    EXPECT_EQ(add_pages({ L"a", L"b" }), Outcome::done);
    ASSERT_EQ(book.pages.size(), 5u);
    EXPECT_EQ(texts_in_book(), (Said{ L"one\r\n", L"two\r\n", L"three\r\n", L"", L"" }));
    EXPECT_EQ(book.pages[3].files, Files{ L"a" });
    EXPECT_EQ(book.pages[4].files, Files{ L"b" });
    EXPECT_EQ(book.pages[4].current_file, 0u);
    EXPECT_EQ(book.pages[4].stamp.size(), 28u);
    EXPECT_EQ(book.header.position, 4u) << "the last one is current";
    EXPECT_EQ(session.shown_page(), &book.pages[4]);
    EXPECT_EQ(desk.boxes[0].text, L"");
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" })) << "nothing is saved";
}

TEST_F(DroppedFiles, RequestEveryView)
{
    room.served.clear();
    session.run([&] { app::add_pages_of_files(session, { L"a" }); });
    EXPECT_EQ(std::ranges::count(room.served, core::View::page), 1);
    EXPECT_EQ(std::ranges::count(room.served, core::View::slider), 1);
}

TEST_F(DroppedFiles, MakePagesInTheColoursOfNewOnes)
{
    run([&] { return app::add_page(session, core::command::add_page_at_end); });
    const book::Page made = book.pages.back();
    add_pages({ L"a" });
    EXPECT_EQ(book.pages.back().text_color, made.text_color);
    EXPECT_EQ(book.pages.back().back_color, made.back_color);
}

TEST_F(DroppedFiles, SaveTheEditedPageFirstIfTheUserWantsIt)
{
    desk.type(0, L"edited");
    talk.answers = { true };
    EXPECT_EQ(add_pages({ L"a" }), Outcome::done);
    EXPECT_EQ(talk.take_said(), Said{ test_support::save_question });
    EXPECT_EQ(book.pages[0].text[0], L"edited");
    EXPECT_EQ(book.pages[3].text[0], L"");
    EXPECT_EQ(texts_in(path)[0], L"edited");
}

TEST_F(DroppedFiles, MakeNoPagesIfTheEditsCannotBeSaved)
{
    block(path);
    desk.type(0, L"edited");
    talk.answers = { true };
    EXPECT_EQ(add_pages({ L"a" }), Outcome::failed);
    EXPECT_EQ(book.pages.size(), 3u);
    EXPECT_EQ(desk.boxes[0].text, L"edited");
}

TEST_F(DroppedFiles, FillABookUpToItsLimit)
{
    fill(book::page_limit - 1);
    EXPECT_EQ(add_pages({ L"a" }), Outcome::done);
    EXPECT_EQ(book.pages.size(), book::page_limit);
}

TEST_F(DroppedFiles, MakeNoPageIfNotAllFit)
{
    fill(book::page_limit - 1);
    const std::uint64_t revision = book.revision;
    session.run([&] { app::add_pages_of_files(session, { L"a", L"b" }); });
    EXPECT_EQ(book.pages.size(), book::page_limit - 1);
    EXPECT_EQ(book.revision, revision);
    EXPECT_EQ(talk.take_said().size(), 1u) << "the limit is reported";
    EXPECT_FALSE(talk.gone);
}

TEST_F(DroppedFiles, AreTooManyForAFullBook)
{
    fill(book::page_limit);
    session.run([&] { app::add_pages_of_files(session, { L"a" }); });
    EXPECT_EQ(book.pages.size(), book::page_limit);
    EXPECT_EQ(talk.said.size(), 1u);
}

TEST_F(DroppedFiles, MakePagesInABookWithoutOne)
{
    book.pages.clear();
    EXPECT_EQ(add_pages({ L"a" }), Outcome::done);
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].files, Files{ L"a" });
}

} // namespace
