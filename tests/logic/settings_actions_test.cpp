// What OK in the settings window changes.
#include "app/settings_actions.hpp"
#include "tests/support/session_fixture.hpp"
#include <limits>
#include <utility>
#include <vector>

namespace {

using core::Outcome;
using test_support::Said;

constexpr std::int32_t by_modified = 3004;
constexpr std::int32_t by_box_2 = 3001;

class SettingsActions : public test_support::SessionTest {
protected:
    // Box 1 and box 2 order the pages differently.
    void open_sorted()
    {
        open({ L"a", L"b", L"c" });
        for (std::size_t i = 0; i < 3; ++i)
            book.pages[i].text[1] = std::wstring(1, static_cast<wchar_t>(L'z' - i));
        run([&] { return app::change_order(session, core::command::toggle_sorted_order); });
        talk.said.clear();
    }
    look::SettingsChoice shown() const { return look::current_settings(book.header, settings); }
    Outcome ok(const look::SettingsChoice& choice)
    {
        Outcome outcome{};
        const app::BookNote asked = app::note_book(book);
        session.run([&] {
            outcome = app::apply_settings(session, settings, asked, choice);
            if (outcome == Outcome::done)
                session.merge(core::refresh::full_but_page);
        });
        return outcome;
    }
    Outcome ok_with_key(std::int32_t key)
    {
        look::SettingsChoice choice = shown();
        choice.sort_key = key;
        choice.wrap_text = true;
        return ok(choice);
    }

    core::Settings settings;
};

TEST_F(SettingsActions, TheSameKeyLeavesTheOrderAlone)
{
    open_sorted();
    const std::vector<std::uint64_t> order = std::exchange(book.order, { 2, 1, 0 });
    session.run([&] {
        EXPECT_EQ(app::apply_settings(session, settings, app::note_book(book), shown()), Outcome::done);
        EXPECT_FALSE(book.needs_update);
    });
    EXPECT_EQ(book.order, (std::vector<std::uint64_t>{ 2, 1, 0 })) << "not built again";
    EXPECT_NE(order, book.order);
}

TEST_F(SettingsActions, AFlagWithAnOddValueKeepsItIfItStaysOn)
{
    book.header.auto_file_search = 2;
    const book::BookHeader before = book.header;
    EXPECT_EQ(ok(shown()), Outcome::done);
    EXPECT_EQ(book.header, before);
}

TEST_F(SettingsActions, UnchangedChangeNothing)
{
    const book::BookHeader before = book.header;
    const std::uint64_t revision = book.revision;
    EXPECT_EQ(ok(shown()), Outcome::done);
    EXPECT_EQ(book.header, before);
    EXPECT_EQ(settings, core::Settings{});
    EXPECT_FALSE(book.needs_update);
    EXPECT_EQ(book.revision, revision);
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(SettingsActions, EachValueIsStoredInItsPlace)
{
    const look::SettingsChoice base = shown();
    const auto with = [&](auto member, auto value) {
        look::SettingsChoice choice = base;
        choice.*member = value;
        EXPECT_EQ(ok(choice), Outcome::done);
    };
    with(&look::SettingsChoice::gif_autoplay, true);
    EXPECT_EQ(book.header.gif_autoplay, 1);
    with(&look::SettingsChoice::file_search, false);
    EXPECT_EQ(book.header.gif_autoplay, 0);
    EXPECT_EQ(book.header.auto_file_search, 0);
    with(&look::SettingsChoice::wrap_text, true);
    EXPECT_EQ(book.header.auto_file_search, 1);
    EXPECT_EQ(book.header.wrap_text, 1);
    with(&look::SettingsChoice::auto_imm, true);
    EXPECT_TRUE(settings.auto_imm);
    with(&look::SettingsChoice::auto_backup, true);
    EXPECT_FALSE(settings.auto_imm);
    EXPECT_TRUE(settings.auto_backup);
    with(&look::SettingsChoice::clear_cache, true);
    EXPECT_TRUE(settings.clear_cache_at_exit);
    with(&look::SettingsChoice::tab_label_box, 4002);
    EXPECT_EQ(book.header.tab_label_box, 4002);
    with(&look::SettingsChoice::sort_key, by_box_2);
    EXPECT_EQ(book.header.sort_key, by_box_2);
}

TEST_F(SettingsActions, NumbersAreClamped)
{
    look::SettingsChoice choice = shown();
    choice.sort_key = 2999;
    choice.tab_label_box = std::numeric_limits<std::int32_t>::max();
    ok(choice);
    EXPECT_EQ(book.header.sort_key, 3000);
    EXPECT_EQ(book.header.tab_label_box, 4002);
    book.header.sort_key = 2999;
    EXPECT_EQ(shown().sort_key, 3000);
    ok(shown());
    EXPECT_EQ(book.header.sort_key, 3000);
}

TEST_F(SettingsActions, ANewKeyMakesTheOrderStale)
{
    look::SettingsChoice choice = shown();
    choice.sort_key = by_box_2;
    session.run([&] {
        EXPECT_EQ(app::apply_settings(session, settings, app::note_book(book), choice), Outcome::done);
        EXPECT_TRUE(book.needs_update);
        session.merge(core::refresh::full_but_page);
    });
    EXPECT_FALSE(book.needs_update);
}

TEST_F(SettingsActions, AnUnsortedBookKeepsItsEdits)
{
    desk.type(0, L"書きかけ");
    EXPECT_EQ(ok_with_key(by_box_2), Outcome::done);
    EXPECT_TRUE(talk.said.empty());
    EXPECT_TRUE(desk.has_edits());
    EXPECT_EQ(desk.boxes[0].text, L"書きかけ");
}

TEST_F(SettingsActions, ANewKeyOfASortedBookShowsThePageAtItsPosition)
{
    open_sorted();
    ASSERT_EQ(desk.boxes[0].text, L"a\r\n");
    EXPECT_EQ(ok_with_key(by_box_2), Outcome::done);
    EXPECT_EQ(book.header.sort_key, by_box_2);
    EXPECT_EQ(book.order, (std::vector<std::uint64_t>{ 2, 1, 0 }));
    EXPECT_EQ(book.header.position, 0u);
    EXPECT_EQ(desk.boxes[0].text, L"c\r\n");
    EXPECT_EQ(session.shown_page(), book.current_page());
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(SettingsActions, ANewKeyThatKeepsThePageDoesNotShowItAgain)
{
    open_sorted();
    go_to(1);
    const int shown_before = desk.shown_count;
    ok_with_key(by_box_2);
    EXPECT_EQ(book.current_index(), 1u);
    EXPECT_EQ(desk.shown_count, shown_before);
}

TEST_F(SettingsActions, EditsAreSavedBeforeANewOrderIfTheUserWantsThat)
{
    open_sorted();
    desk.type(0, L"書きかけ");
    talk.answers = { true };
    EXPECT_EQ(ok_with_key(by_box_2), Outcome::done);
    EXPECT_EQ(talk.said, Said{ test_support::save_question });
    EXPECT_EQ(texts_in(path), (Said{ L"書きかけ", L"b", L"c" }));
    EXPECT_EQ(desk.boxes[0].text, L"c");
    EXPECT_FALSE(desk.has_edits());
}

TEST_F(SettingsActions, EditsAreDiscardedBeforeANewOrderIfTheUserWantsThat)
{
    open_sorted();
    desk.type(0, L"書きかけ");
    talk.answers = { false };
    EXPECT_EQ(ok_with_key(by_box_2), Outcome::done);
    EXPECT_EQ(book.pages[0].text[0], L"a\r\n");
    EXPECT_EQ(book.header.sort_key, by_box_2);
    EXPECT_EQ(desk.boxes[0].text, L"c\r\n");
}

TEST_F(SettingsActions, ASortedBookWithItsOldKeyKeepsItsEdits)
{
    open_sorted();
    desk.type(0, L"書きかけ");
    EXPECT_EQ(ok_with_key(3000), Outcome::done);
    EXPECT_TRUE(talk.said.empty());
    EXPECT_TRUE(desk.has_edits());
    EXPECT_EQ(book.header.wrap_text, 1);
}

TEST_F(SettingsActions, EditsThatCannotBeSavedKeepTheOldKey)
{
    open_sorted();
    desk.type(0, L"書きかけ");
    block(path);
    talk.answers = { true };
    EXPECT_EQ(ok_with_key(by_box_2), Outcome::done);
    EXPECT_EQ(talk.said, (Said{ test_support::save_question, failure(path) }));
    EXPECT_EQ(book.header.sort_key, 3000);
    EXPECT_EQ(book.header.wrap_text, 1) << "the rest is stored";
    EXPECT_TRUE(desk.has_edits());
    EXPECT_EQ(session.shown_page(), &book.pages[0]);
}

TEST_F(SettingsActions, AKeyThatCannotOrderThePagesIsReportedAndNotStored)
{
    open_sorted();
    book.pages[1].stamp = L"2020";
    EXPECT_EQ(ok_with_key(by_modified), Outcome::done);
    EXPECT_EQ(talk.said, Said{ L"tell 48: ソート条件の変更に失敗しました．" });
    EXPECT_EQ(book.header.sort_key, 3000);
    EXPECT_EQ(book.header.wrap_text, 1);
    EXPECT_EQ(book.order, (std::vector<std::uint64_t>{ 0, 1, 2 }));
    session.save_at_close();
    load(path);
    EXPECT_EQ(book.pages.size(), 3u) << "the Book can be opened again";
}

TEST_F(SettingsActions, OfAnotherBookAreDropped)
{
    const std::wstring other = make_book(L"他.bok", { L"other" });
    const app::BookNote asked = app::note_book(book);
    look::SettingsChoice choice = shown();
    choice.wrap_text = true;
    choice.auto_imm = true;
    load(other);
    const book::BookHeader before = book.header;
    EXPECT_EQ(app::apply_settings(session, settings, asked, choice), Outcome::failed);
    EXPECT_EQ(book.header, before);
    EXPECT_EQ(settings, core::Settings{});
}

TEST_F(SettingsActions, OfTheSameFileReadAgainAreDropped)
{
    const app::BookNote asked = app::note_book(book);
    load(path);
    EXPECT_EQ(app::apply_settings(session, settings, asked, shown()), Outcome::failed);
}

TEST_F(SettingsActions, AreDroppedIfABookArrivesDuringTheQuestion)
{
    open_sorted();
    const std::wstring other = make_book(L"他.bok", { L"other" });
    desk.type(0, L"書きかけ");
    talk.while_open = [&] { session.load_book(other); };
    talk.answers = { true };
    EXPECT_EQ(ok_with_key(by_box_2), Outcome::failed);
    EXPECT_EQ(book.path, other);
    EXPECT_EQ(book.header.wrap_text, 0);
    EXPECT_EQ(book.header.sort_key, 3000);
}

TEST_F(SettingsActions, AreDroppedWhenTheWindowIsGone)
{
    look::SettingsChoice choice = shown();
    choice.wrap_text = true;
    const app::BookNote asked = app::note_book(book);
    talk.gone = true;
    EXPECT_EQ(app::apply_settings(session, settings, asked, choice), Outcome::failed);
    EXPECT_EQ(book.header.wrap_text, 0);
}

} // namespace
