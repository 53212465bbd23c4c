// Actions on pages and file lists, with their questions and saves.
#include "tests/support/session_fixture.hpp"

namespace {

using namespace test_support;
using core::Outcome;

class PageAction : public SessionTest { };

TEST_F(PageAction, TurningGoesToTheNearestMatchAndReportsWhenThereIsNone)
{
    EXPECT_EQ(run([&] { return app::turn_page(session, 1); }), Outcome::done);
    EXPECT_EQ(desk.boxes[0].text, L"two\r\n");
    EXPECT_EQ(talk.take_said(), Said{ L"banner: " });
    desk.asked.terms = { L"one" };
    EXPECT_EQ(run([&] { return app::turn_page(session, 1); }), Outcome::failed);
    EXPECT_EQ(desk.boxes[0].text, L"two\r\n");
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_NE(talk.said[0].find(L"one"), std::wstring::npos);
    EXPECT_EQ(run([&] { return app::turn_page(session, -1); }), Outcome::done);
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
}

TEST_F(PageAction, EachThatLeavesThePageIsRefusedIfLeavingIs)
{
    using namespace core::command;
    block(path);
    desk.type(0, L"kept");
    const std::vector<std::function<Outcome()>> actions{
        [&] { return app::turn_page(session, 1); },
        [&] { return app::go_to_first_page(session); },
        [&] { return app::go_to_last_page(session); },
        [&] { return app::go_to_tab(session, 1); },
        [&] { return app::go_to_position(session, 2); },
        [&] { return app::change_order(session, reverse_order); },
        [&] { return app::add_page(session, add_page_here); },
        [&] { return app::add_page(session, add_page_at_end); },
        [&] {
            app::swap_page(session, 1);
            return Outcome::failed;
        },
    };
    for (const auto& action : actions) {
        talk.answers = { true };
        EXPECT_EQ(run(action), Outcome::failed);
        EXPECT_EQ(talk.take_said(), (Said{ save_question, failure(path) }));
        EXPECT_EQ(book.header.position, 0u);
        EXPECT_EQ(book.pages.size(), 3u);
        EXPECT_TRUE(desk.has_edits());
        EXPECT_EQ(desk.boxes[0].text, L"kept");
    }
}

TEST_F(PageAction, GoesToTheEndsToATabAndToAPosition)
{
    book.pages[1].tab_number = 1;
    run([&] { return app::go_to_last_page(session); });
    EXPECT_EQ(desk.boxes[0].text, L"three\r\n");
    run([&] { return app::go_to_first_page(session); });
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
    run([&] { return app::go_to_tab(session, 1); });
    EXPECT_EQ(desk.boxes[0].text, L"two\r\n");
    session.run([&] { EXPECT_EQ(app::go_to_position(session, 2), Outcome::done); });
    EXPECT_EQ(desk.boxes[0].text, L"three\r\n");
    session.run([&] { EXPECT_EQ(app::go_to_position(session, 3), Outcome::failed); });
    EXPECT_EQ(desk.boxes[0].text, L"three\r\n");
}

TEST_F(PageAction, AddsAPageBeforeOrAfterAllAndSaves)
{
    go_to(1);
    run([&] { return app::add_page(session, core::command::add_page_here); });
    EXPECT_EQ(desk.boxes[0].text, L"");
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"", L"two", L"three" }));
    desk.type(0, L"new");
    session.save(app::SaveCode::always);
    run([&] { return app::add_page(session, core::command::add_page_at_end); });
    EXPECT_EQ(texts_in(path), (Said{ L"one", L"new", L"two", L"three", L"" }));
    EXPECT_EQ(book.header.position, 4u);
}

TEST_F(PageAction, AFullBookAcceptsNoPageAndStaysUsable)
{
    book.pages.resize(book::page_limit, page_with(L"x"));
    session.run([&] { app::add_page(session, core::command::add_page_at_end); });
    EXPECT_EQ(talk.said, Said{ L"tell 48: " + book::Book::PageCountOver().message });
    EXPECT_FALSE(talk.gone);
}

TEST_F(PageAction, DeletesThePageWithItsEdits)
{
    desk.type(0, L"typed");
    talk.answers = { true };
    EXPECT_EQ(run([&] { return app::delete_page(session); }), Outcome::done);
    EXPECT_EQ(talk.said, Said{ L"ask 36: このページを削除しますか？\r\n[ p.1 ]" });
    EXPECT_EQ(texts_in(path), (Said{ L"two", L"three" }));
    EXPECT_EQ(desk.boxes[0].text, L"two");
    EXPECT_EQ(run([&] { return app::delete_page(session); }), Outcome::failed);
    EXPECT_EQ(book.pages.size(), 2u);
}

TEST_F(PageAction, DeletingTheLastPageLeavesAnEmptyOne)
{
    open({ L"only" });
    talk.answers = { true };
    run([&] { return app::delete_page(session); });
    EXPECT_EQ(texts_in(path), Said{ L"" });
    EXPECT_EQ(desk.boxes[0].text, L"");
}

TEST_F(PageAction, SwappingMovesThePositionWithThePage)
{
    session.run([&] { app::swap_page(session, 1); });
    EXPECT_EQ(texts_in_book(), (Said{ L"two\r\n", L"one\r\n", L"three\r\n" }));
    EXPECT_EQ(desk.boxes[0].text, L"one\r\n");
    desk.type(0, L"edited");
    save(app::SaveCode::always);
    EXPECT_EQ(texts_in(path), (Said{ L"two", L"edited", L"three" }));
}

TEST_F(PageAction, AnOrderThatCannotBeAppliedIsNotKept)
{
    book.header.sort_key = 3004;
    book.pages[1].stamp = L"short";
    session.run([&] { app::change_order(session, core::command::toggle_sorted_order); });
    EXPECT_EQ(talk.said.back(), L"close");
    EXPECT_EQ(book.header.order_mode, 2700);
}

TEST_F(PageAction, EditsStayWithTheirPageWhileTheOrderChanges)
{
    desk.type(0, L"zzz");
    talk.answers = { true };
    run([&] { return app::change_order(session, core::command::toggle_sorted_order); });
    EXPECT_EQ(texts_in(path), (Said{ L"zzz", L"two", L"three" }));
    EXPECT_EQ(desk.boxes[0].text, L"three");
}

TEST_F(PageAction, ATabGetsTheGivenColour)
{
    EXPECT_EQ(run([&] { return app::toggle_tab(session, 0x123456); }), Outcome::done);
    EXPECT_EQ(book.pages[0].tab_number, 1u);
    EXPECT_EQ(book.pages[0].tab_color, 0x123456u);
    run([&] { return app::toggle_tab(session, 0x654321); });
    EXPECT_EQ(book.pages[0].tab_number, 0u);
    EXPECT_EQ(book.pages[0].tab_color, 0x654321u);
    run([&] { return app::toggle_tab(session, 0xAAAAAA); });
    talk.answers = { false, true };
    const auto address = reinterpret_cast<std::uintptr_t>(&book.pages[0]);
    EXPECT_EQ(run([&] { return app::remove_tab(session, address, 5); }), Outcome::failed);
    EXPECT_EQ(book.pages[0].tab_color, 0xAAAAAAu);
    EXPECT_EQ(run([&] { return app::remove_tab(session, address, 5); }), Outcome::done);
    EXPECT_EQ(book.pages[0].tab_color, 5u);
    EXPECT_EQ(book.tab_count, 0);
    EXPECT_EQ(run([&] { return app::remove_tab(session, address + 1, 5); }), Outcome::failed);
}

TEST_F(PageAction, MarksTheCurrentPage)
{
    EXPECT_EQ(run([&] { return app::toggle_mark(session); }), Outcome::done);
    EXPECT_EQ(book.mark_count, 1);
    book.header.position = 7;
    EXPECT_EQ(run([&] { return app::toggle_mark(session); }), Outcome::failed);
}

class FileAction : public SessionTest {
protected:
    FileAction() { page().files = { L"b", L"c", L"a" }; }
    book::Page& page() { return book.pages[0]; }
};

TEST_F(FileAction, RemovesTheSelectedEntryAfterAQuestion)
{
    page().current_file = 1;
    EXPECT_EQ(run([&] { return app::remove_file(session); }), Outcome::failed);
    EXPECT_EQ(talk.take_said(), Said{ L"ask 36: リストからこのファイルを削除しますか？\r\nc" });
    talk.answers = { true, true };
    EXPECT_EQ(run([&] { return app::remove_file(session); }), Outcome::done);
    EXPECT_EQ(page().files, (Said{ L"b", L"a" }));
    EXPECT_EQ(run([&] { return app::remove_all_files(session); }), Outcome::done);
    EXPECT_EQ(talk.said.back(), L"ask 36: リストから全てのファイルを削除しますか？");
    EXPECT_TRUE(page().files.empty());
    EXPECT_EQ(run([&] { return app::remove_file(session); }), Outcome::failed);
}

TEST_F(FileAction, SelectsMovesAndSorts)
{
    using namespace core::command;
    EXPECT_EQ(run([&] { return app::select_file(session, 2); }), Outcome::done);
    EXPECT_EQ(run([&] { return app::select_file(session, 3); }), Outcome::failed);
    EXPECT_EQ(run([&] { return app::select_file(session, -1); }), Outcome::failed);
    EXPECT_EQ(page().current_file, 2u);
    EXPECT_EQ(run([&] { return app::select_file_by(session, previous_file); }), Outcome::done);
    EXPECT_EQ(run([&] { return app::move_file(session, move_file_to_top); }), Outcome::done);
    EXPECT_EQ(page().files, (Said{ L"c", L"b", L"a" }));
    EXPECT_EQ(run([&] { return app::sort_files(session, sort_files_ascending); }), Outcome::done);
    EXPECT_EQ(page().files, (Said{ L"a", L"b", L"c" }));
    EXPECT_EQ(run([&] { return app::sort_files(session, sort_files_descending); }), Outcome::done);
    EXPECT_EQ(page().files, (Said{ L"c", L"b", L"a" }));
}

TEST_F(FileAction, AddsTheChosenFiles)
{
    EXPECT_EQ(run([&] { return app::add_files(session, [] {
                            return Said{ L"x", L"y" };
                        }); }),
        (Said{ L"x", L"y" }));
    EXPECT_EQ(page().files, (Said{ L"b", L"c", L"a", L"x", L"y" }));
    EXPECT_EQ(page().current_file, 3u);
    EXPECT_EQ(run([&] { return app::add_files(session, [] { return Said{}; }); }), Said{});
}

TEST_F(FileAction, CopiesTheSelectedFileAndReportsIt)
{
    const std::wstring source = root.file(L"source");
    const std::wstring copy = root.file(L"copy");
    write_text(source, L"contents");
    page().files = { source };
    const auto choose = [&](const std::wstring& from) {
        EXPECT_EQ(from, source);
        return copy;
    };
    EXPECT_EQ(run([&] { return app::duplicate_file(session, choose); }), Outcome::done);
    EXPECT_EQ(read_text(copy), L"contents");
    ASSERT_EQ(talk.take_said().size(), 1u);
    platform::remove_file(source);
    EXPECT_EQ(run([&] { return app::duplicate_file(session, choose); }), Outcome::failed);
    EXPECT_TRUE(talk.said.at(0).starts_with(L"system error "));
}

TEST_F(FileAction, ChoosesAndClearsTheFolderAndSaves)
{
    EXPECT_EQ(
        run([&] { return app::choose_folder(session, [] { return Said{ L"folder" }; }); }), Outcome::done);
    EXPECT_EQ(on_disk(path).pages[0].reference_folder, L"folder");
    EXPECT_EQ(run([&] { return app::clear_folder(session); }), Outcome::failed);
    EXPECT_EQ(talk.said.back(), L"ask 36: フォルダの選択を取消しますか？\r\nfolder");
    talk.answers = { true };
    EXPECT_EQ(run([&] { return app::clear_folder(session); }), Outcome::done);
    EXPECT_EQ(on_disk(path).pages[0].reference_folder, L"");
}

} // namespace
