// What the windows that edit pages do to the session: opening, replacing, moving pages, going back, and the
// file list's editor.
#include "app/edit_actions.hpp"
#include "book/page_editor_view.hpp"
#include "book/query.hpp"
#include "tests/support/session_fixture.hpp"

namespace {

using namespace test_support;
using app::Answer;
using app::EditEnd;
using app::SaveCode;
using book::EditResult;
using book::PastePlace;
using core::Outcome;

class PrepareEditing : public SessionTest { };

TEST_F(PrepareEditing, WritesOnceWhenNothingWasEdited)
{
    book.header.position = 1;
    const int changes = talk.history_changes;
    EXPECT_TRUE(app::prepare_editing(session));
    EXPECT_EQ(talk.said, Said{});
    EXPECT_EQ(on_disk(path).header.position, 1u);
    EXPECT_EQ(talk.history_changes, changes + 1) << "one save";
}

TEST_F(PrepareEditing, TakesEditsOverOnYes)
{
    desk.type(0, L"edited");
    talk.answers = { true };
    const int changes = talk.history_changes;
    EXPECT_TRUE(app::prepare_editing(session));
    EXPECT_EQ(talk.said, Said{ save_question });
    EXPECT_EQ(texts_in(path), (Said{ L"edited", L"two", L"three" }));
    EXPECT_EQ(talk.history_changes, changes + 1) << "one save";
}

TEST_F(PrepareEditing, DropsEditsOnNoAndShowsThePageAgain)
{
    desk.type(0, L"edited");
    const int changes = talk.history_changes;
    EXPECT_TRUE(app::prepare_editing(session));
    EXPECT_FALSE(desk.has_edits());
    EXPECT_EQ(desk.boxes[0].text, book.pages[0].text[0]);
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" }));
    EXPECT_EQ(talk.history_changes, changes + 1);
}

TEST_F(PrepareEditing, FailsWithoutASecondSaveWhenTheFirstFailed)
{
    block(path);
    desk.type(0, L"edited");
    talk.answers = { true };
    EXPECT_FALSE(app::prepare_editing(session));
    ASSERT_EQ(talk.said.size(), 2u);
    EXPECT_TRUE(desk.has_edits()) << "what was typed is not lost";
}

TEST_F(PrepareEditing, FailsWhenTheFileCannotBeWritten)
{
    block(path);
    EXPECT_FALSE(app::prepare_editing(session));
    EXPECT_EQ(talk.said.size(), 1u);
}

TEST_F(PrepareEditing, NeedsAPageAndNoOtherEditor)
{
    talk.busy = true;
    desk.type(0, L"edited");
    EXPECT_FALSE(app::prepare_editing(session));
    EXPECT_TRUE(desk.has_edits());
    EXPECT_EQ(talk.said, Said{});
    talk.busy = false;
    book.header.position = 9;
    EXPECT_FALSE(app::prepare_editing(session));
}

class ReplaceInSession : public SessionTest {
protected:
    ReplaceInSession() { talk.busy = true; } // as while the window is open

    static book::ReplaceRequest request(const wchar_t* search, const wchar_t* replacement)
    {
        return { search, replacement, book::replace_target::boxes, book::LetterCase::exact };
    }
};

TEST_F(ReplaceInSession, ShowsThePageWithItsNewTextAndHits)
{
    desk.asked.terms = { L"X" };
    session.run([&] { session.merge(core::refresh::full); }); // the search is known before the replacement
    ASSERT_TRUE(book.hits.empty());
    room.served.clear();
    desk.scroll = { 7, 8 };
    EXPECT_EQ(app::replace_in_all_pages(session, request(L"e", L"X")), 3u);
    EXPECT_EQ(desk.boxes[0].text, L"onX\r\n");
    EXPECT_EQ(desk.scroll[0], 7) << "the page stays where the user has it";
    EXPECT_EQ(book.hits, (std::vector<book::SearchHit>{ { L"X", 100, 2, 3 } }));
    EXPECT_EQ(room.served.size(), core::service_order.size());
    EXPECT_EQ(book.pages[1].stamp, old_stamp);
    EXPECT_NE(book.pages[2].stamp, old_stamp);
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"two", L"three" })) << "the file is the way back";
}

TEST_F(ReplaceInSession, ChangesThePageAtThePositionOnly)
{
    book.header.order_mode = -2700; // reversed
    EXPECT_EQ(app::replace_in_current_page(session, request(L"e", L"X")), 2u);
    EXPECT_EQ(texts_in_book(), (Said{ L"one\r\n", L"two\r\n", L"thrXX\r\n" }));
    EXPECT_EQ(app::replace_in_current_page(session, request(L"absent", L"X")), 0u);
    book.header.position = 9;
    EXPECT_EQ(app::replace_in_current_page(session, request(L"e", L"X")), std::nullopt);
}

TEST_F(ReplaceInSession, IsUndoneByARestoreToTheLetter)
{
    const std::wstring before = read_text(path);
    app::replace_in_all_pages(session, request(L"e", L""));
    EXPECT_TRUE(app::restore_pages(session));
    EXPECT_EQ(texts_in_book(), (Said{ L"one\r\n", L"two\r\n", L"three\r\n" }));
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
    talk.busy = false;
    EXPECT_TRUE(save(SaveCode::always));
    EXPECT_EQ(read_text(path), before);
}

TEST_F(ReplaceInSession, StaysWhenTheFileIsGone)
{
    app::replace_in_all_pages(session, request(L"one", L"1"));
    platform::remove_file(path);
    EXPECT_FALSE(app::restore_pages(session));
    EXPECT_EQ(book.pages[0].text[0], L"1\r\n");
    EXPECT_EQ(talk.said.size(), 1u);
}

TEST_F(ReplaceInSession, EndsBySavingRestoringOrNothing)
{
    app::replace_in_all_pages(session, request(L"one", L"1"));
    talk.busy = false; // the window was closed
    EXPECT_TRUE(app::end_editing(session, EditEnd::unchanged));
    EXPECT_EQ(texts_in(path)[0], L"one");
    EXPECT_TRUE(app::end_editing(session, EditEnd::save));
    EXPECT_EQ(texts_in(path)[0], L"1");
    app::replace_in_all_pages(session, request(L"1", L"one"));
    EXPECT_TRUE(app::end_editing(session, EditEnd::restore));
    EXPECT_EQ(desk.boxes[0].text, L"1\r\n");
    for (const EditEnd end : { EditEnd::unchanged, EditEnd::save, EditEnd::restore }) {
        room.served.clear();
        app::end_editing(session, end);
        EXPECT_GE(room.served.size(), core::service_order.size()) << "boxes and buttons are released";
    }
}

TEST_F(ReplaceInSession, EndsWithAllViewsAlsoWhenTheSaveFails)
{
    talk.busy = false;
    block(path);
    room.served.clear();
    EXPECT_TRUE(app::end_editing(session, EditEnd::save));
    EXPECT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(room.served.size(), core::service_order.size());
}

TEST_F(ReplaceInSession, MustBeShownAgainWhenTheFileIsGoneAtTheEnd)
{
    app::replace_in_all_pages(session, request(L"one", L"1"));
    platform::remove_file(path);
    talk.busy = false;
    EXPECT_FALSE(app::end_editing(session, EditEnd::restore));
    EXPECT_EQ(book.pages[0].text[0], L"1\r\n");
}

class PageEditorInSession : public SessionTest {
protected:
    PageEditorInSession()
    {
        talk.busy = true;
        editor.reset();
        room.while_serving = [this](core::View view) {
            if (view == core::View::book_editor)
                editor.update(book::PageEditor::KeepRange::no, is_shift_down);
        };
    }
    void select(std::size_t index) { book.pages[index].selected = book::PageSelection::selected; }
    EditResult paste(PastePlace place)
    {
        const auto request = editor.paste_request(place);
        return request ? app::paste_pages(session, editor, *request) : EditResult::none;
    }

    book::PageEditor editor{ book };
    bool is_shift_down = false;
};

TEST_F(PageEditorInSession, PastesACopyAndShowsTheLastPastedPage)
{
    select(1);
    editor.copy();
    EXPECT_EQ(paste(PastePlace::at_end), EditResult::done);
    EXPECT_EQ(texts_in_book(), (Said{ L"one\r\n", L"two\r\n", L"three\r\n", L"two\r\n" }));
    EXPECT_EQ(book.header.position, 3u);
    EXPECT_EQ(desk.boxes[0].text, L"two\r\n");
    EXPECT_EQ(session.shown_page(), &book.pages[3]);
    EXPECT_FALSE(book.needs_update);
    EXPECT_TRUE(editor.has_changed());
    EXPECT_EQ(editor.range(), (book::PageRange{ 3, 3 }));
}

TEST_F(PageEditorInSession, CutPagesAreMovedAndTheirHitsFound)
{
    desk.asked.terms = { L"n" };
    select(0);
    go_to(2);
    editor.cut();
    EXPECT_EQ(paste(PastePlace::here), EditResult::done);
    EXPECT_EQ(texts_in_book(), (Said{ L"two\r\n", L"one\r\n", L"three\r\n" }));
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
    EXPECT_EQ(book.hits.size(), 1u);
}

TEST_F(PageEditorInSession, TheLimitIsReportedAndNothingChanged)
{
    book.pages.resize(99999);
    book.refresh_counts();
    select(5);
    editor.cut();
    EXPECT_EQ(paste(PastePlace::at_end), EditResult::none);
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_TRUE(talk.said[0].starts_with(L"tell 48: ページ数の上限 [")) << "and the program goes on";
    EXPECT_EQ(book.pages.size(), 99999u);
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
    EXPECT_FALSE(editor.has_changed());
}

TEST_F(PageEditorInSession, DeletesAndShowsWhatIsLeft)
{
    select(0);
    select(2);
    go_to(2);
    is_shift_down = true;
    EXPECT_EQ(app::delete_pages(session, editor, *editor.delete_request()), EditResult::done);
    EXPECT_EQ(texts_in_book(), (Said{ L"two\r\n" }));
    EXPECT_EQ(desk.boxes[0].text, L"two\r\n");
    EXPECT_EQ(editor.range(), (book::PageRange{ 0, 0 }));
}

TEST_F(PageEditorInSession, DeletingAllLeavesAnEmptyPageInTheColoursOfTheTheme)
{
    for (std::size_t i = 0; i < 3; ++i)
        select(i);
    EXPECT_EQ(app::delete_pages(session, editor, *editor.delete_request()), EditResult::done);
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].back_color, app::new_page_colors().back);
    EXPECT_EQ(desk.boxes[0].text, L"");
    EXPECT_EQ(book.header.position, 0u);
}

TEST_F(PageEditorInSession, ARequestThatNoLongerHoldsDoesNothing)
{
    select(1);
    const auto request = editor.delete_request();
    book.new_page(0, {});
    EXPECT_EQ(app::delete_pages(session, editor, *request), EditResult::none);
    EXPECT_EQ(book.pages.size(), 4u);
}

TEST_F(PageEditorInSession, ARestoreEndsAPendingCut)
{
    select(1);
    editor.cut();
    EXPECT_EQ(paste(PastePlace::at_end), EditResult::done);
    editor.cut();
    EXPECT_TRUE(app::restore_pages(session, editor));
    EXPECT_EQ(texts_in_book(), (Said{ L"one\r\n", L"two\r\n", L"three\r\n" }));
    EXPECT_EQ(editor.clip_mode(), book::ClipMode::none);
    EXPECT_EQ(editor.selected_count(), 0u) << "the file has no selection";
    EXPECT_FALSE(editor.has_changed());
}

TEST_F(PageEditorInSession, ARestoreThatCouldNotLoadKeepsTheChanges)
{
    select(1);
    app::delete_pages(session, editor, *editor.delete_request());
    platform::remove_file(path);
    EXPECT_FALSE(app::restore_pages(session, editor));
    EXPECT_TRUE(editor.has_changed());
    EXPECT_EQ(book.pages.size(), 2u);
}

TEST_F(PageEditorInSession, AJumpKeepsItsRangeThroughTheRefresh)
{
    is_shift_down = true;
    go_to(2);
    is_shift_down = false;
    app::show_position(session, editor.jump(book::RangeSide::first));
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
    EXPECT_EQ(editor.range(), (book::PageRange{ 0, 2 }));
    app::show_position(session, editor.jump(book::RangeSide::first));
    EXPECT_EQ(editor.range(), (book::PageRange{ 0, 2 })) << "already there";
}

TEST_F(PageEditorInSession, ADragShowsEachPageItReaches)
{
    app::show_position(session, editor.begin_drag(369, 370));
    EXPECT_EQ(desk.boxes[0].text, L"three\r\n");
    EXPECT_EQ(editor.range(), (book::PageRange{ 0, 2 }));
    app::show_position(session, editor.drag_to(130, 370));
    EXPECT_EQ(desk.boxes[0].text, L"two\r\n");
    const int shown = desk.shown_count;
    app::show_position(session, editor.drag_to(131, 370));
    EXPECT_EQ(desk.shown_count, shown);
    editor.end_drag();
}

TEST_F(PageEditorInSession, TracksSelectedPagesInBothDirections)
{
    desk.asked.selected_only = true;
    desk.asked.terms = { L"ignored" };
    select(0);
    select(2);
    book.pages[1].selected = book::PageSelection::pasted;
    EXPECT_EQ(run([&] { return app::turn_page(session, 1); }), Outcome::done);
    EXPECT_EQ(book.header.position, 2u);
    EXPECT_EQ(run([&] { return app::turn_page(session, 1); }), Outcome::failed);
    EXPECT_EQ(talk.said.back(), L"banner: 一致条件: 選択中のページ");
    EXPECT_EQ(run([&] { return app::turn_page(session, -1); }), Outcome::done);
    EXPECT_EQ(book.header.position, 0u);
}

TEST_F(PageEditorInSession, SavesWhatAPlainListOfPagesHas)
{
    select(0);
    editor.cut();
    EXPECT_EQ(paste(PastePlace::at_end), EditResult::done);
    talk.busy = false;
    EXPECT_TRUE(app::end_editing(session, EditEnd::save));
    EXPECT_EQ(texts_in(path), (Said{ L"two", L"three", L"one" }));
}

class FileListInSession : public SessionTest {
protected:
    FileListInSession() { book.pages[0].files = { L"a", L"b", L"c" }; }

    std::vector<std::wstring>& files() { return book.pages[0].files; }
};

using Entries = std::vector<std::wstring>;

TEST_F(FileListInSession, ApplyChangesTheShownPageWithoutStampAndSave)
{
    book.pages[0].current_file = 2;
    desk.asked.terms = { L"z" };
    desk.asked.in_file_list = true;
    session.run([&] { session.merge(core::refresh::full); }); // the search is known before the change
    ASSERT_TRUE(book.hits.empty());
    room.served.clear();
    session.run([&] { EXPECT_EQ(app::apply_file_list(session, L"y\r\n z \r\n\r\n"), Outcome::done); });
    EXPECT_EQ(files(), (Entries{ L"y", L"z" }));
    EXPECT_EQ(book.pages[0].current_file, 1u);
    EXPECT_EQ(book.pages[0].stamp, old_stamp);
    EXPECT_EQ(book.hits.size(), 1u);
    using core::View;
    EXPECT_EQ(room.served, (std::vector{ View::file_pane, View::file_combo, View::status_bar }));
    EXPECT_TRUE(on_disk(path).pages[0].files.empty());
}

TEST_F(FileListInSession, ApplyFailsWithoutAShownPage)
{
    book.swap_pages(0, 1);
    EXPECT_EQ(app::apply_file_list(session, L"x"), Outcome::failed);
    EXPECT_EQ(book.pages[1].files.size(), 3u);
}

TEST_F(FileListInSession, ASaveCommitsTheEditedListWithANewStamp)
{
    desk.list_edit = L"x\r\ny";
    EXPECT_TRUE(save(SaveCode::if_changed));
    EXPECT_EQ(on_disk(path).pages[0].files, (Entries{ L"x", L"y" }));
    EXPECT_NE(book.pages[0].stamp, old_stamp);
    EXPECT_EQ(talk.committed_lists, (std::vector<Entries>{ { L"x", L"y" } }));
    EXPECT_FALSE(desk.has_edits());
}

TEST_F(FileListInSession, AnEditThatIsNotWantedIsDropped)
{
    desk.list_edit = L"x";
    EXPECT_FALSE(save(SaveCode::ask));
    EXPECT_EQ(talk.said, Said{ save_question });
    EXPECT_FALSE(desk.has_edits());
    EXPECT_EQ(files().size(), 3u);
    EXPECT_TRUE(talk.committed_lists.empty());
}

TEST_F(FileListInSession, AnEditOfAPageThatIsGoneIsSavedNowhere)
{
    desk.list_edit = L"x";
    book.remove_page_at(0, {});
    save(SaveCode::always);
    for (const book::Page& page : book.pages)
        EXPECT_TRUE(page.files.empty());
}

const std::wstring list_question = L"ask or cancel: 内容が変更されています．\r\n適用しますか？";

// Each command that changes the list, over typed lines "x" and "y".
class ListCommands : public FileListInSession {
protected:
    void run_each(Answer answer, auto expect)
    {
        namespace command = core::command;
        const std::vector<std::function<void()>> commands{
            [&] { app::move_file(session, command::move_file_to_end); },
            [&] { app::sort_files(session, command::sort_files_descending); },
            [&] { app::remove_file(session); },
            [&] { app::remove_all_files(session); },
            [&] { app::add_files(session, [] { return Entries{ L"new" }; }); },
        };
        const std::vector<Entries> applied{ { L"y", L"x" }, { L"y", L"x" }, { L"y" }, {},
            { L"x", L"y", L"new" } };
        const std::vector<Entries> dropped{ { L"b", L"c", L"a" }, { L"c", L"b", L"a" }, { L"b", L"c" }, {},
            { L"a", L"b", L"c", L"new" } };
        for (std::size_t i = 0; i < commands.size(); ++i) {
            SCOPED_TRACE(i);
            files() = { L"a", L"b", L"c" };
            book.pages[0].current_file = 0;
            desk.list_edit = L"x\r\ny";
            talk.choices = { answer };
            talk.answers = { true };
            talk.said.clear();
            session.run(commands[i]);
            EXPECT_EQ(talk.said[0], list_question);
            expect(applied[i], dropped[i]);
        }
    }
};

TEST_F(ListCommands, ApplyTypedLinesFirstOnYes)
{
    run_each(Answer::yes, [&](const Entries& applied, const Entries&) {
        EXPECT_EQ(files(), applied);
        EXPECT_FALSE(desk.list_edit);
    });
}

TEST_F(ListCommands, DropTypedLinesOnNo)
{
    run_each(Answer::no, [&](const Entries&, const Entries& dropped) {
        EXPECT_EQ(files(), dropped);
        EXPECT_FALSE(desk.list_edit);
    });
}

TEST_F(ListCommands, AreGivenUpOnCancel)
{
    run_each(Answer::cancel, [&](const Entries&, const Entries&) {
        EXPECT_EQ(files(), (Entries{ L"a", L"b", L"c" }));
        EXPECT_EQ(desk.list_edit, L"x\r\ny");
    });
}

TEST_F(ListCommands, AreGivenUpWhenAnotherPageCame)
{
    desk.list_edit = L"x";
    desk.boxes[0].is_edited = true;
    talk.choices = { Answer::yes };
    talk.while_open = [&] { book.new_page(0, {}); };
    session.run([&] { app::sort_files(session, core::command::sort_files_descending); });
    for (const book::Page& page : book.pages)
        EXPECT_NE(page.files, (Entries{ L"x" }));
    EXPECT_EQ(desk.list_edit, L"x");
}

TEST_F(ListCommands, AreGivenUpIfThereIsNoPageToApplyTheTypedLinesTo)
{
    desk.list_edit = L"x";
    book.swap_pages(0, 1); // the page in the boxes is not known any more
    talk.choices = { Answer::yes };
    EXPECT_FALSE(app::may_change_list(session));
    EXPECT_EQ(desk.list_edit, L"x");
}

TEST_F(FileListInSession, TypedLinesAreAppliedOnce)
{
    EXPECT_EQ(app::apply_typed_list(session), Outcome::failed) << "nothing was typed";
    EXPECT_EQ(files().size(), 3u);
    desk.list_edit = L" x \r\n\r\ny";
    session.run([&] { session.box_changed(); });
    EXPECT_TRUE(desk.has_edited_mark);
    EXPECT_EQ(app::apply_typed_list(session), Outcome::done);
    EXPECT_EQ(files(), (Entries{ L"x", L"y" }));
    EXPECT_FALSE(desk.has_edits());
    EXPECT_FALSE(desk.has_edited_mark);
}

TEST_F(ListCommands, AskNothingAboutOtherBoxes)
{
    desk.type(0, L"typed");
    session.run([&] { app::sort_files(session, core::command::sort_files_descending); });
    EXPECT_EQ(talk.said, Said{});
    EXPECT_EQ(files()[0], L"c");
    EXPECT_TRUE(desk.has_edits()) << "the other boxes keep what was typed";
}

TEST_F(FileListInSession, AHitSelectsItsEntryOnce)
{
    desk.asked.terms = { L"c" };
    desk.asked.in_file_list = true;
    session.run([&] { session.note_content_change(); });
    ASSERT_EQ(book.hits.size(), 1u);
    const book::SearchHit hit = book.hits[0];
    EXPECT_EQ(app::select_file_of_hit(session, hit), Outcome::done);
    EXPECT_EQ(book.pages[0].current_file, 2u);
    EXPECT_EQ(book.hits.size(), 1u) << "they do not depend on the selected entry";
    EXPECT_EQ(app::select_file_of_hit(session, hit), Outcome::failed) << "it is selected already";
    EXPECT_EQ(app::select_file_of_hit(session, { L"c", 203, 0, 1 }), Outcome::failed) << "no such entry";
    EXPECT_EQ(app::select_file_of_hit(session, { L"c", 102, 0, 1 }), Outcome::failed) << "a box";
    EXPECT_EQ(app::select_file_of_hit(session, {}), Outcome::failed);
    EXPECT_EQ(book.pages[0].current_file, 2u);
}

} // namespace
