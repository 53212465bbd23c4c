// The page on the desk: saved with three codes, left, marked, and searched.
#include "tests/support/naive_search.hpp"
#include "tests/support/session_fixture.hpp"

namespace {

using namespace test_support;
using app::SaveCode;
using core::Outcome;

class Saving : public SessionTest { };

TEST_F(Saving, CommitsEditsWithANewStamp)
{
    desk.type(0, L"one\x3 more\r\n \t");
    desk.type(1, L"  heading ");
    EXPECT_TRUE(save(SaveCode::if_changed));
    const book::Page& page = book.pages[0];
    EXPECT_EQ(page.text[0], L"one more");
    EXPECT_EQ(page.text[1], L"heading");
    EXPECT_EQ(page.stamp.size(), 2 * book::time_length);
    EXPECT_TRUE(page.stamp.starts_with(creation));
    EXPECT_NE(page.stamp, old_stamp);
    EXPECT_EQ(book.pages[1].stamp, old_stamp);
    EXPECT_EQ(texts_in(path), (Said{ L"one more", L"two", L"three" }));
    EXPECT_FALSE(desk.has_edits());
    EXPECT_EQ(talk.said, Said{});
}

TEST_F(Saving, WritesWithoutEditsIfAlwaysAndKeepsTheStamp)
{
    platform::remove_file(path);
    EXPECT_TRUE(save(SaveCode::always));
    EXPECT_TRUE(platform::exists(path));
    EXPECT_EQ(book.pages[0].stamp, old_stamp);
}

TEST_F(Saving, IfChangedSkipsWithoutEditsButStoresTheScroll)
{
    platform::remove_file(path);
    desk.scroll = { 7, 9 };
    EXPECT_FALSE(save(SaveCode::if_changed));
    EXPECT_FALSE(platform::exists(path));
    EXPECT_EQ(book.pages[0].scroll_first, 7);
    EXPECT_EQ(book.pages[0].scroll_third, 9);
}

TEST_F(Saving, AfterAQuestionWritesOnYes)
{
    desk.type(2, L"third");
    talk.answers = { true };
    EXPECT_TRUE(save(SaveCode::ask));
    EXPECT_EQ(talk.said, Said{ save_question });
    EXPECT_EQ(on_disk(path).pages[0].text[2], L"third\r\n");
}

TEST_F(Saving, AfterAQuestionDiscardsOnNo)
{
    desk.type(0, L"lost");
    EXPECT_FALSE(save(SaveCode::ask));
    EXPECT_FALSE(desk.has_edits());
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
}

TEST_F(Saving, AsksNothingWithoutEdits)
{
    EXPECT_FALSE(save(SaveCode::ask));
    EXPECT_EQ(talk.said, Said{});
}

TEST_F(Saving, IsRefusedWhileAnotherWindowOwnsTheBook)
{
    for (const SaveCode code : { SaveCode::always, SaveCode::if_changed, SaveCode::ask }) {
        talk.busy = true;
        desk.type(0, L"lost");
        EXPECT_FALSE(save(code));
        EXPECT_FALSE(desk.has_edits());
        EXPECT_EQ(talk.said, Said{});
        EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
    }
}

TEST_F(Saving, ReportsWhyAFileCannotBeWrittenAndKeepsTheEdits)
{
    block(path);
    desk.type(0, L"kept");
    session.box_changed();
    EXPECT_FALSE(save(SaveCode::always));
    EXPECT_EQ(talk.said, Said{ failure(path) });
    EXPECT_TRUE(desk.has_edits());
    EXPECT_EQ(desk.boxes[0].text, L"kept");
    EXPECT_TRUE(desk.has_edited_mark);
}

TEST_F(Saving, DoesNothingWithoutACurrentPageOrAWindow)
{
    platform::remove_file(path);
    book.header.position = 3;
    EXPECT_FALSE(save(SaveCode::always));
    book.header.position = 0;
    talk.gone = true;
    EXPECT_FALSE(save(SaveCode::always));
    EXPECT_FALSE(platform::exists(path));
}

TEST_F(Saving, PutsTheBookFirstInTheHistory)
{
    open({ L"other" }, L"other.bok");
    EXPECT_EQ(session.history().entries(), (Said{ root.file(L"other.bok"), path }));
    load(path);
    session.history().remove(path);
    const int changes = talk.history_changes;
    EXPECT_TRUE(save(SaveCode::always));
    EXPECT_EQ(session.history().entries().front(), path);
    EXPECT_GT(talk.history_changes, changes);
}

TEST_F(Saving, RebuildsAnOrderThatIsDue)
{
    book.header.order_mode = 2701;
    book.needs_update = true;
    EXPECT_TRUE(save(SaveCode::always));
    EXPECT_FALSE(book.needs_update);
    EXPECT_EQ(book.order, (std::vector<std::uint64_t>{ 0, 2, 1 }));
}

class Closing : public SessionTest { };

TEST_F(Closing, SavesTheEdits)
{
    desk.type(0, L"last");
    session.save_at_close();
    EXPECT_EQ(texts_in(path), (Said{ L"last", L"two", L"three" }));
}

TEST_F(Closing, SavesEvenIfTheOrderCannotBeRebuilt)
{
    book.header.order_mode = 2701;
    book.header.sort_key = 3004;
    book.pages[1].stamp = L"short";
    book.needs_update = true;
    desk.type(0, L"last");
    session.save_at_close();
    EXPECT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(texts_in(path).front(), L"last");
}

// The file is the only way back from changes that nobody has confirmed yet.
TEST_F(Closing, KeepsTheFileIfAFailureEndsTheProgramWhileAnotherWindowEditsThePages)
{
    talk.busy = true;
    session.run([&] {
        book.pages[0].text[0] = L"half done";
        talk.busy = true;
        throw std::runtime_error("failure");
    });
    EXPECT_TRUE(talk.gone);
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
    talk.busy = talk.gone = false;
    session.save_at_close();
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
}

TEST_F(Closing, SavesAfterAFailureIfNoOtherWindowEditsThePages)
{
    session.run([&] {
        book.pages[0].text[0] = L"done";
        throw std::runtime_error("failure");
    });
    EXPECT_EQ(texts_in(path), (Said{ L"done", L"two", L"three" }));
}

class LeavingAPage : public SessionTest {
protected:
    bool leave()
    {
        bool left = false;
        session.run([&] { left = session.may_leave_page(); });
        return left;
    }
};

TEST_F(LeavingAPage, NeedsNoQuestionWithoutEdits)
{
    const int shown = desk.shown_count;
    EXPECT_TRUE(leave());
    EXPECT_EQ(talk.said, Said{});
    EXPECT_EQ(desk.shown_count, shown);
}

TEST_F(LeavingAPage, OnYesSaves)
{
    desk.type(0, L"new");
    talk.answers = { true };
    EXPECT_TRUE(leave());
    EXPECT_EQ(texts_in(path).front(), L"new");
}

TEST_F(LeavingAPage, OnNoShowsThePageAgain)
{
    desk.type(0, L"new");
    EXPECT_TRUE(leave());
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
    EXPECT_FALSE(desk.has_edited_mark);
}

TEST_F(LeavingAPage, IsRefusedWhenTheFileCannotBeWritten)
{
    block(path);
    desk.type(0, L"kept");
    talk.answers = { true };
    EXPECT_FALSE(leave());
    EXPECT_EQ(talk.said, (Said{ save_question, failure(path) }));
    EXPECT_EQ(desk.boxes[0].text, L"kept");
    EXPECT_TRUE(desk.has_edits());
}

TEST_F(LeavingAPage, DiscardsEditsWithoutAPage)
{
    desk.type(0, L"homeless");
    book.header.position = 9;
    EXPECT_TRUE(leave());
    EXPECT_FALSE(desk.has_edits());
}

TEST_F(LeavingAPage, IsRefusedWhenTheWindowEnds)
{
    desk.type(0, L"new");
    talk.answers = { true };
    talk.while_open = [&] { talk.gone = true; };
    EXPECT_FALSE(leave());
    EXPECT_EQ(texts_in(path).front(), L"one");
}

class EditedMark : public SessionTest { };

TEST_F(EditedMark, AppearsWithTheFirstEditAndDisappearsWithTheSave)
{
    EXPECT_EQ(desk.title, L"本");
    EXPECT_FALSE(desk.has_edited_mark);
    desk.type(0, L"x");
    session.box_changed();
    EXPECT_EQ(desk.title, L"本 *");
    EXPECT_TRUE(desk.has_edited_mark);
    save(SaveCode::always);
    EXPECT_EQ(desk.title, L"本");
    EXPECT_FALSE(desk.has_edited_mark);
}

TEST_F(EditedMark, IsRenewedFromTheBoxes)
{
    desk.type(0, L"x");
    session.renew_edited_mark();
    EXPECT_TRUE(desk.has_edited_mark);
    desk.boxes[0].is_edited = false;
    session.renew_edited_mark();
    EXPECT_FALSE(desk.has_edited_mark);
    // Undone without a notification, and typed again.
    desk.type(0, L"y");
    session.box_changed();
    EXPECT_TRUE(desk.has_edited_mark);
}

TEST_F(EditedMark, TitleShowsThatTheOrderIsStale)
{
    book.needs_update = true;
    session.update_title();
    EXPECT_EQ(desk.title, L"Book needs update");
}

class ShowingAPage : public SessionTest { };

TEST_F(ShowingAPage, KeepsTheSelectionAndTheScrollOfTheSamePage)
{
    desk.scroll = { 4, 5 };
    run([] { return true; });
    EXPECT_TRUE(desk.was_shown_already);
    EXPECT_EQ(desk.scroll[0], 4);
    EXPECT_EQ(book.pages[0].scroll_third, 5);
    go_to(1);
    EXPECT_FALSE(desk.was_shown_already);
    EXPECT_EQ(desk.scroll[0], 0);
}

TEST_F(ShowingAPage, LeavesEditsAlone)
{
    desk.type(0, L"typed");
    run([] { return true; });
    EXPECT_EQ(desk.boxes[0].text, L"typed");
    EXPECT_TRUE(desk.has_edits());
}

TEST_F(ShowingAPage, FollowsThePositionWhateverViewsWereRequested)
{
    session.run([&] { book.header.position = 2; });
    EXPECT_EQ(desk.boxes[0].text, L"three\r\n");
    EXPECT_EQ(session.shown_page(), &book.pages[2]);
}

TEST_F(ShowingAPage, FollowsAnOrderRebuiltInTheRefresh)
{
    book.header.order_mode = 2701;
    book.header.position = 1;
    session.run([&] {
        book.needs_update = true;
        session.merge(core::refresh::controls);
    });
    EXPECT_EQ(desk.boxes[0].text, L"three\r\n");
}

TEST_F(ShowingAPage, RequestsNothingWhenNothingIsOverdue)
{
    room.served.clear();
    session.run([] {});
    EXPECT_TRUE(room.served.empty());
}

// If filling the boxes fails half way, they show texts of two pages.
TEST_F(ShowingAPage, ThatFailsHalfWayLeavesNoPageOnTheDesk)
{
    desk.while_showing = [] { throw std::bad_alloc(); };
    talk.on_close = [&] {
        desk.while_showing = {};
        EXPECT_EQ(session.shown_page(), nullptr);
        desk.boxes[0].is_edited = true; // text typed now belongs to no page
        session.save_at_close();
    };
    go_to(1);
    EXPECT_EQ(talk.said.back(), L"close");
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
}

class Hits : public SessionTest {
protected:
    Hits() { search({ L"o" }); }

    void search(std::vector<std::wstring> terms)
    {
        desk.asked.terms = std::move(terms);
        desk.asked.in_file_list = true;
        session.run([] {});
    }
    void expect_fresh() const
    {
        const book::Page* page = book.current_page();
        std::vector<book::SearchHit> expected;
        if (page)
            naive::match_page(*page, session.search_query(), expected);
        EXPECT_EQ(book.hits, expected);
    }
    void set_files(std::vector<std::wstring> files)
    {
        book.pages[0].files = std::move(files);
        session.run([&] { session.note_content_change(); });
        expect_fresh();
    }
    book::Page& page() { return book.pages[0]; }
};

TEST_F(Hits, FollowTheQuery)
{
    EXPECT_EQ(book.hits.size(), 1u);
    search({ L"e" });
    expect_fresh();
    search({});
    EXPECT_TRUE(book.hits.empty());
}

TEST_F(Hits, FollowTheBooksOwnFlags)
{
    for (const int command : { core::command::toggle_mark_tracking, core::command::toggle_tab_tracking }) {
        run([&] { return app::toggle_tracking(session, command); });
        expect_fresh();
    }
    EXPECT_EQ(book.header.track_marks, 1);
    EXPECT_EQ(book.header.track_tabs, 1);
}

TEST_F(Hits, FollowASavedEdit)
{
    desk.type(0, L"ooo");
    save(SaveCode::if_changed);
    EXPECT_EQ(book.hits.size(), 3u);
    expect_fresh();
}

// A save trims the text even if nothing was edited.
TEST_F(Hits, FollowTextTrimmedByASave)
{
    search({ L"e\r\n" });
    EXPECT_EQ(book.hits.size(), 1u);
    EXPECT_TRUE(save(SaveCode::always));
    expect_fresh();
    EXPECT_TRUE(book.hits.empty());
}

TEST_F(Hits, FollowEveryChangeOfTheFileList)
{
    const auto lists = [&] {
        set_files({ L"x", L"bo", L"c", L"ao" });
        page().current_file = 1;
    };
    using namespace core::command;
    const std::vector<std::function<Outcome()>> changes{
        [&] { return app::move_file(session, move_file_up); },
        [&] { return app::move_file(session, move_file_to_end); },
        [&] { return app::sort_files(session, sort_files_ascending); },
        [&] { return app::sort_files(session, sort_files_descending); },
        [&] { return app::remove_file(session); },
        [&] { return app::remove_all_files(session); },
        [&] {
            const auto chosen = app::add_files(session, [] { return Said{ L"foo", L"bar" }; });
            return chosen.empty() ? Outcome::failed : Outcome::done;
        },
    };
    for (const auto& change : changes) {
        lists();
        talk.answers = { true };
        // No hit refers past the end in between either.
        session.run([&] {
            EXPECT_EQ(change(), Outcome::done);
            for (const book::SearchHit& hit : book.hits)
                EXPECT_TRUE(
                    hit.place < book::file_place || hit.place - book::file_place < page().files.size());
        });
        expect_fresh();
    }
}

TEST_F(Hits, FollowThePageAndTheOrder)
{
    for (const int command : { core::command::reverse_order, core::command::toggle_sorted_order,
             core::command::toggle_random_order, core::command::toggle_random_order }) {
        run([&] { return app::change_order(session, command); });
        expect_fresh();
    }
    for (const std::uint64_t position : { 2, 1, 0 }) {
        go_to(position);
        expect_fresh();
    }
}

TEST_F(Hits, FollowAddedAndRemovedPages)
{
    run([&] { return app::add_page(session, core::command::add_page_here); });
    expect_fresh();
    EXPECT_TRUE(book.hits.empty());
    talk.answers = { true };
    run([&] { return app::delete_page(session); });
    expect_fresh();
    EXPECT_EQ(book.hits.size(), 1u);
}

TEST_F(Hits, FollowAPageThatAViewChanges)
{
    bool was_changed = false;
    room.while_serving = [&](core::View view) {
        if (view == core::View::tabs && !std::exchange(was_changed, true)) {
            page().text[0] = L"oooo";
            session.note_content_change();
        }
    };
    run([] { return true; });
    EXPECT_TRUE(was_changed);
    EXPECT_EQ(book.hits.size(), 4u);
}

TEST_F(Hits, AndBoxesFollowAPositionThatAViewChanges)
{
    room.while_serving = [&](core::View view) {
        if (view == core::View::status_bar)
            book.header.position = 1;
    };
    run([] { return true; });
    expect_fresh();
    EXPECT_EQ(desk.boxes[0].text, L"two\r\n");
}

TEST_F(Hits, OfAnEditedPageThatIsNotCurrentEndTheRefresh)
{
    desk.type(0, L"typed");
    room.served.clear();
    session.run([&] { book.header.position = 2; });
    EXPECT_LE(std::ranges::count(room.served, core::View::page), 2);
    expect_fresh();
}

} // namespace
