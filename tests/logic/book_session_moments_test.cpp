// Pages, Books and entries that change while a message box is open or without a notification to the session,
// and loads that fail in the middle: no text gets into another page, and no answer is used for another
// question.
#include "tests/support/session_fixture.hpp"
#include <new>

namespace {

using namespace test_support;
using app::SaveCode;
using core::Outcome;

class BrokenLoad : public SessionTest {
protected:
    // Damages the header of `other`, so that loading it asks a question, and fails there.
    void fail_at_question()
    {
        std::wstring text = read_text(other);
        text[10] = L'x';
        write_text(other, text);
        other_text = text;
        talk.while_open = [] { throw std::bad_alloc(); };
    }
    void expect_nothing_is_left()
    {
        EXPECT_TRUE(book.pages.empty());
        EXPECT_EQ(book.path, L"");
        EXPECT_EQ(session.shown_page(), nullptr);
        EXPECT_FALSE(session.is_loading());
        EXPECT_FALSE(desk.has_edits());
    }

    const std::wstring other = make_book(L"other.bok", { L"four", L"five" });
    std::wstring other_text = read_text(other);
};

TEST_F(BrokenLoad, LeavesNoBookAndWritesNothingAtClose)
{
    fail_at_question();
    desk.type(0, L"edited");
    talk.on_close = [&] {
        expect_nothing_is_left();
        desk.type(0, L"typed meanwhile");
        session.save_at_close();
    };
    session.run([&] { session.load_book(other); });
    EXPECT_EQ(talk.said.back(), L"close");
    EXPECT_EQ(read_text(other), other_text);
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
}

TEST_F(BrokenLoad, IsNoReasonToRefuseTheNextCommand)
{
    fail_at_question();
    talk.on_close = {};
    session.run([&] { session.load_book(other); });
    bool was_run = false;
    session.run([&] { was_run = true; });
    EXPECT_TRUE(was_run);
}

TEST_F(BrokenLoad, DoesNotStartDuringAnotherLoad)
{
    fail_at_question();
    talk.answers = { true };
    talk.while_open = [&] {
        talk.paths = { root.file(L"new.bok") };
        EXPECT_FALSE(session.load_book(path));
        EXPECT_FALSE(session.open_book(path));
        EXPECT_FALSE(session.create_book());
        talk.answers = { true };
    };
    session.run([&] { session.load_book(other); });
    EXPECT_EQ(texts_in_book(), (Said{ L"four\r\n", L"five\r\n" }));
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
}

// Every way to add, remove and swap stored pages.
class PagesUnderTheDesk : public SessionTest {
protected:
    using Change = std::function<void(book::Book&)>;
    static std::vector<Change> changes()
    {
        return {
            [](book::Book& book) { book.insert_page(0, page_with(L"inserted")); },
            [](book::Book& book) { book.new_page(1, {}); },
            [](book::Book& book) { book.remove_page_at(book.header.position, {}); },
            [](book::Book& book) { book.remove_page_at(0, {}); },
            [](book::Book& book) { book.swap_pages(0, 1); },
            [](book::Book& book) {
                book.pages[0].selected = book::PageSelection::selected;
                book.remove_selected();
            },
            [](book::Book& book) {
                book.clear();
                book.insert_page(0, page_with(L"inserted"));
                book.insert_page(1, page_with(L"inserted"));
            },
        };
    }
};

TEST_F(PagesUnderTheDesk, TakeNeitherEditsNorScroll)
{
    for (const Change& change : changes()) {
        open({ L"one", L"two", L"three" });
        go_to(1);
        desk.type(0, L"typed");
        desk.scroll = { 77, 78 };
        change(book);
        book.path = path;
        const std::vector<book::Page> before = book.pages;
        EXPECT_EQ(session.shown_page(), nullptr);
        save(SaveCode::always);
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_NE(book.pages[i].text[0], L"typed");
            EXPECT_EQ(book.pages[i].stamp, before[i].stamp);
            EXPECT_EQ(book.pages[i].scroll_first, 0);
            EXPECT_EQ(book.pages[i].scroll_third, 0);
        }
        run([] { return true; });
        ASSERT_NE(session.shown_page(), nullptr);
        EXPECT_EQ(desk.boxes[0].text, session.shown_page()->text[0]);
    }
}

TEST_F(PagesUnderTheDesk, TakeNoScrollWhenTheyAreShown)
{
    for (const Change& change : changes()) {
        open({ L"one", L"two", L"three" });
        go_to(1);
        desk.scroll = { 77, 78 };
        change(book);
        run([] { return true; });
        for (const book::Page& page : book.pages)
            EXPECT_EQ(page.scroll_first, 0);
    }
}

class WhileTheSaveQuestionIsOpen : public PagesUnderTheDesk { };

TEST_F(WhileTheSaveQuestionIsOpen, AnotherPageIsNeitherStampedNorWritten)
{
    for (const bool answer : { true, false })
        for (const Change& change : changes()) {
            open({ L"one", L"two", L"three" });
            desk.type(0, L"typed");
            talk.answers = { answer };
            talk.while_open = [&] { change(book); };
            const std::wstring file = read_text(path);
            EXPECT_EQ(run([&] { return app::turn_page(session, 1); }), Outcome::failed);
            EXPECT_EQ(read_text(path), file);
            for (const std::wstring& text : texts_in_book())
                EXPECT_NE(text, L"typed");
        }
}

TEST_F(WhileTheSaveQuestionIsOpen, AnotherBookKeepsItsStampAndItsEdits)
{
    const std::wstring other = make_book(L"other.bok", { L"four", L"five" });
    for (const bool answer : { true, false }) {
        open({ L"one", L"two", L"three" });
        desk.type(0, L"typed");
        talk.answers = { answer };
        talk.while_open = [&] {
            session.run([&] { session.load_book(other); });
            session.show_current_page();
            desk.type(1, L"of the other");
        };
        EXPECT_FALSE(save(SaveCode::ask));
        EXPECT_EQ(book.path, other);
        EXPECT_EQ(book.pages[0].stamp, old_stamp);
        EXPECT_EQ(desk.boxes[1].text, L"of the other");
        EXPECT_TRUE(desk.has_edits());
    }
}

class WhileAQuestionIsOpen : public SessionTest {
protected:
    WhileAQuestionIsOpen()
    {
        for (book::Page& page : book.pages) {
            page.files = { L"a", L"b", L"c" };
            page.reference_folder = L"folder";
            page.tab_number = 1;
        }
        book.recount();
        save(SaveCode::always);
        file_text = read_text(path);
    }

    // Everything that turns, moves, deletes or replaces the page.
    std::vector<std::function<void()>> page_changes()
    {
        return {
            [&] { session.run([&] { app::go_to_position(session, 1); }); },
            [&] { session.run([&] { app::swap_page(session, 1); }); },
            [&] { book.insert_page(0, page_with(L"inserted")); },
            [&] { book.remove_page_at(0, {}); },
            [&] { session.run([&] { session.load_book(path); }); },
            [&] { session.run([&] { app::change_order(session, core::command::reverse_order); }); },
        };
    }
    // Compares the Book with one in which the answer has changed nothing.
    template <class Action>
    void expect_no_effect(const std::vector<std::function<void()>>& changes, Action action)
    {
        for (const auto& change : changes) {
            load(path);
            change();
            run([] { return true; });
            const std::vector<book::Page> changed = book.pages;
            talk.said.clear();
            load(path);
            talk.answers = { true };
            talk.while_open = change;
            EXPECT_EQ(run(action), Outcome::failed);
            ASSERT_EQ(book.pages.size(), changed.size());
            for (std::size_t i = 0; i < changed.size(); ++i) {
                EXPECT_EQ(book.pages[i].text, changed[i].text);
                EXPECT_EQ(book.pages[i].files, changed[i].files);
                EXPECT_EQ(book.pages[i].reference_folder, changed[i].reference_folder);
                EXPECT_EQ(book.pages[i].tab_number, changed[i].tab_number);
            }
            // The next round starts with the same file.
            open_again();
        }
    }
    void open_again()
    {
        write_text(path, file_text);
        load(path);
    }

    std::wstring file_text;
};

TEST_F(WhileAQuestionIsOpen, DeletingAPageIsAboutThatPage)
{
    expect_no_effect(page_changes(), [&] { return app::delete_page(session); });
}

TEST_F(WhileAQuestionIsOpen, RemovingAnEntryIsAboutThatEntry)
{
    auto changes = page_changes();
    changes.push_back([&] { app::select_file(session, 1); });
    changes.push_back([&] { book.current_page()->files[0] = L"other"; });
    changes.push_back([&] { book.current_page()->files.clear(); });
    expect_no_effect(changes, [&] { return app::remove_file(session); });
}

TEST_F(WhileAQuestionIsOpen, RemovingAllEntriesIsAboutThoseEntries)
{
    auto changes = page_changes();
    changes.push_back([&] { book.current_page()->files.push_back(L"new"); });
    changes.push_back([&] { book.current_page()->files[0] = L"other"; });
    expect_no_effect(changes, [&] { return app::remove_all_files(session); });
}

TEST_F(WhileAQuestionIsOpen, ClearingTheFolderIsAboutThatFolder)
{
    auto changes = page_changes();
    changes.push_back([&] { book.current_page()->reference_folder = L"other"; });
    expect_no_effect(changes, [&] { return app::clear_folder(session); });
}

TEST_F(WhileAQuestionIsOpen, RemovingATabIsAboutThatPage)
{
    auto changes = page_changes();
    changes.erase(changes.begin()); // the page is given by its address, so the position does not matter
    changes.pop_back();
    changes.push_back([&] { app::remove_tab(book, 0, 0); });
    expect_no_effect(changes,
        [&] { return app::remove_tab(session, reinterpret_cast<std::uintptr_t>(&book.pages[0]), 1); });
}

TEST_F(WhileAQuestionIsOpen, DialogsAreAboutThePageThatWasCurrent)
{
    const auto choose = [&] {
        talk.choose(L"paths");
        return Said{ L"chosen" };
    };
    expect_no_effect(page_changes(),
        [&] { return app::add_files(session, choose).empty() ? Outcome::failed : Outcome::done; });
    expect_no_effect(page_changes(), [&] { return app::choose_folder(session, choose); });
    const std::wstring copy = root.file(L"copy");
    expect_no_effect(page_changes(), [&] {
        return app::duplicate_file(session, [&](const std::wstring&) {
            talk.choose(L"copy");
            return copy;
        });
    });
    EXPECT_FALSE(platform::exists(copy));
}

// A failure box dispatches messages like a question: another page or Book may arrive while it is open.
class WhileAFailureIsShown : public test_support::SessionTest {
protected:
    // Loads another Book while the box after the next one, or the next one, is open.
    void arrive_in_second_box()
    {
        talk.while_open = [this] { arrive_in_next_box(); };
    }
    void arrive_in_next_box()
    {
        talk.while_open = [this] { session.run([&] { session.load_book(other); }); };
    }
    std::wstring unwritable() const
    {
        std::wstring file = root.file(L"閉.bok");
        block(file);
        return file;
    }
    void expect_the_other_book_untouched()
    {
        EXPECT_EQ(book.path, other);
        EXPECT_EQ(save(app::SaveCode::always), true);
        EXPECT_EQ(texts_in(other), (test_support::Said{ L"A", L"B" }));
        EXPECT_EQ(texts_in(path), (test_support::Said{ L"one", L"two", L"three" }));
    }

    const std::wstring other = make_book(L"他.bok", { L"A", L"B" });
};

TEST_F(WhileAFailureIsShown, LeavingAPageEndsIfAnotherBookArrives)
{
    desk.type(0, L"edit");
    book.path = unwritable();
    talk.answers = { true };
    arrive_in_second_box();
    EXPECT_EQ(run([&] { return app::go_to_last_page(session); }), core::Outcome::failed);
    EXPECT_EQ(book.header.position, 0u);
    expect_the_other_book_untouched();
}

TEST_F(WhileAFailureIsShown, SavingAsLeavesThePathOfAnotherBookAlone)
{
    talk.paths = { unwritable() };
    arrive_in_second_box();
    session.run([&] { session.save_book_as(); });
    expect_the_other_book_untouched();
}

TEST_F(WhileAFailureIsShown, TheEditsOfThePageGoIntoNoOtherBook)
{
    desk.type(0, L"edit");
    book.path = unwritable();
    arrive_in_next_box();
    EXPECT_FALSE(save(app::SaveCode::if_changed));
    EXPECT_EQ(desk.boxes[0].text.substr(0, 1), L"A");
    EXPECT_FALSE(desk.has_edits());
    expect_the_other_book_untouched();
}

} // namespace
