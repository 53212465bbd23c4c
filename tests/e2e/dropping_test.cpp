// Drops from another program, and files dragged out of the pane.
#include "app/file_texts.hpp"
#include "driver_drag.hpp"
#include "driver_main_window.hpp"
#include <set>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;
using test_support::FakeSource;
using Files = std::vector<std::wstring>;
using Attachments = std::vector<std::pair<std::wstring, std::string>>;
using Then = DragPartner::Then;

class Dropping : public MainWindowTest {
protected:
    void open_pages(std::vector<book::Page> pages)
    {
        book_ = root().add_book(L"手帖.bok", std::move(pages));
        open_settled(book_);
    }
    void open_one() { open_pages({ make_page(L"一") }); }

    Window question() const { return side_window(L"ovlib_drop_option_wnd[34]"); }
    void answer(int id)
    {
        require("the question shows", [this] { return program().is_active(question()); });
        const Window asked = question();
        click(asked.child(id).center());
        require("the question closes", [&] { return !asked.exists(); });
    }
    void drop(const std::function<void(FakeSource&)>& fill, POINT at)
    {
        partner_.drag_to(at, fill);
        partner_.release();
    }
    void drop_files(const Files& paths)
    {
        drop([&](FakeSource& source) { source.offer_files(paths); }, background());
    }
    void drop_text(const std::wstring& text, POINT at)
    {
        drop([&](FakeSource& source) { source.offer_text(text); }, at);
    }
    // The dialogs of the attachments are open when it returns.
    void drop_attachments(const Attachments& files)
    {
        partner_.drag_to(background(), [&](FakeSource& source) { source.offer_attachments(files); });
        partner_.release(Then::answer_dialogs);
    }
    Files made(const Files& names) const
    {
        Files paths;
        for (const std::wstring& name : names) {
            write_bytes(root().folder() / name, "x");
            paths.push_back((root().folder() / name).wstring());
        }
        return paths;
    }
    book::Book closed_book()
    {
        close();
        return load_book(book_);
    }
    std::set<std::wstring> tree() const
    {
        std::set<std::wstring> names;
        for (const auto& entry : fs::recursive_directory_iterator(root().folder().parent_path()))
            names.insert(entry.path().wstring());
        return names;
    }

    DragPartner partner_;
    fs::path book_;
};

} // namespace

TEST_F(Dropping, FilesGoIntoThePage)
{
    open_one();
    const Files one = made({ L"一.txt" });
    drop_files(one);
    EXPECT_EQ(partner_.effect(), DWORD{ DROPEFFECT_COPY });
    answer(command::add_dropped_files);
    const Files three = made({ L"二.txt", L"三.txt", L"四.txt" });
    drop_files(three);
    answer(command::add_dropped_files);
    expect_soon(1, [this] { return box(command::file_combo).send(CB_GETCURSEL); });
    const book::Book book = closed_book();
    ASSERT_EQ(book.pages.size(), 1u);
    EXPECT_EQ(book.pages[0].files, (Files{ one[0], three[0], three[1], three[2] }));
}

TEST_F(Dropping, FilesBecomePages)
{
    open_one();
    const Files files = made({ L"一.txt", L"二.txt", L"三.txt" });
    drop_files(files);
    answer(command::add_dropped_pages);
    expect_page(L"");
    const book::Book book = closed_book();
    ASSERT_EQ(book.pages.size(), 4u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(book.pages[i + 1].files, Files{ files[i] });
    EXPECT_EQ(book.header.position, 3u);
}

TEST_F(Dropping, NothingIsAddedIfTheQuestionIsClosed)
{
    open_one();
    drop_files(made({ L"一.txt" }));
    require("the question shows", [this] { return program().is_active(question()); });
    press(VK_ESCAPE);
    require("the question closes", [this] { return !question().exists(); });
    EXPECT_TRUE(closed_book().pages[0].files.empty());
}

TEST_F(Dropping, TheKeysOfTheQuestionChoose)
{
    open_one();
    const Files files = made({ L"一.txt" });
    for (const WORD key : { WORD{ '1' }, WORD{ '2' }, WORD{ VK_RETURN } }) {
        drop_files(files);
        require("the question shows", [this] { return program().is_active(question()); });
        press(key);
        require("the question closes", [this] { return !question().exists(); });
        program().await_input();
    }
    const book::Book book = closed_book();
    ASSERT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.pages[0].files, files);
    EXPECT_EQ(book.pages[1].files, (Files{ files[0], files[0] }));
}

TEST_F(Dropping, FilesWinOverText)
{
    open_one();
    const Files files = made({ L"一.txt" });
    drop(
        [&](FakeSource& source) {
            source.offer_text(L"text");
            source.offer_files(files);
        },
        box(command::box_1).center());
    answer(command::add_dropped_files);
    EXPECT_EQ(box(command::box_1).text(), as_loaded(L"一"));
    EXPECT_EQ(closed_book().pages[0].files, files);
}

TEST_F(Dropping, AttachmentsAreSavedWhereTheUserSays)
{
    open_one();
    const fs::path target = root().folder() / L"保存.txt";
    drop_attachments({ { L"添付.txt", "content" } });
    const FileDialog dialog = program().wait_for_file_dialog();
    EXPECT_EQ(dialog.caption(), app::attachment_title);
    EXPECT_EQ(dialog.file_name(), L"添付.txt");
    dialog.choose(target.wstring());
    partner_.wait_for_end();
    EXPECT_EQ(partner_.effect(), DWORD{ DROPEFFECT_COPY });
    answer(command::add_dropped_files);
    EXPECT_EQ(file_bytes(target), "content");
    EXPECT_EQ(closed_book().pages[0].files, Files{ target.wstring() });
}

TEST_F(Dropping, ADeclinedAttachmentIsLeftOut)
{
    open_one();
    drop_attachments({ { L"a.txt", "1" }, { L"b.txt", "2" }, { L"c.txt", "3" } });
    const fs::path folder = root().folder();
    program().wait_for_file_dialog().choose((folder / L"a.txt").wstring());
    require("the second dialog shows",
        [this] { return program().wait_for_file_dialog().file_name() == L"b.txt"; });
    program().wait_for_file_dialog().cancel();
    require("the third dialog shows",
        [this] { return program().wait_for_file_dialog().file_name() == L"c.txt"; });
    program().wait_for_file_dialog().choose((folder / L"c.txt").wstring());
    partner_.wait_for_end();
    answer(command::add_dropped_pages);
    EXPECT_FALSE(fs::exists(folder / L"b.txt"));
    const book::Book book = closed_book();
    ASSERT_EQ(book.pages.size(), 3u);
    EXPECT_EQ(book.pages[1].files, Files{ (folder / L"a.txt").wstring() });
    EXPECT_EQ(book.pages[2].files, Files{ (folder / L"c.txt").wstring() });
}

TEST_F(Dropping, IfAllAttachmentsAreDeclinedNothingIsTaken)
{
    open_one();
    drop_attachments({ { L"a.txt", "1" } });
    program().wait_for_file_dialog().cancel();
    partner_.wait_for_end();
    EXPECT_EQ(partner_.effect(), DWORD{ DROPEFFECT_NONE });
    EXPECT_FALSE(question().exists());
}

TEST_F(Dropping, AnAttachmentThatCannotBeWrittenIsReported)
{
    open_one();
    const fs::path target = root().folder() / L"固定.txt";
    write_bytes(target, "old");
    const ReadOnly locked{ target };
    drop_attachments({ { L"a.txt", "new" } });
    program().wait_for_file_dialog().choose(target.wstring());
    const MessageDialog overwrite = program().wait_for_box();
    overwrite.answer(IDYES);
    require(
        "the failure is reported", [this] { return program().wait_for_box().caption() == L"保存エラー"; });
    const MessageDialog failure = program().wait_for_box();
    EXPECT_TRUE(failure.text().ends_with(target.wstring()));
    EXPECT_EQ(failure.icon(), Icon::warning);
    failure.answer(IDOK);
    partner_.wait_for_end();
    EXPECT_EQ(partner_.effect(), DWORD{ DROPEFFECT_NONE });
    EXPECT_EQ(file_bytes(target), "old");
}

TEST_F(Dropping, AnExistingFileIsReplacedAfterOneQuestion)
{
    open_one();
    const fs::path target = root().folder() / L"既存.txt";
    write_bytes(target, "old and longer");
    drop_attachments({ { L"a.txt", "new" } });
    program().wait_for_file_dialog().choose(target.wstring());
    program().wait_for_box().answer(IDYES);
    partner_.wait_for_end();
    answer(command::add_dropped_files);
    EXPECT_FALSE(program().has_dialog());
    EXPECT_EQ(file_bytes(target), "new");
}

TEST_F(Dropping, EmptyAndStreamedAttachmentsAreNotTaken)
{
    open_one();
    drop(
        [](FakeSource& source) {
            source.offer_attachments({ { L"empty.txt", "" }, { L"stream.txt", "x" } });
            source.contents[1].medium = TYMED_ISTREAM;
        },
        background());
    EXPECT_EQ(partner_.effect(), DWORD{ DROPEFFECT_NONE });
    EXPECT_FALSE(program().has_dialog());
    EXPECT_FALSE(question().exists());
}

TEST_F(Dropping, HostileNamesAreProposedHarmlesslyAndWriteNothing)
{
    open_one();
    const auto before = tree();
    const Attachments names{ { L"..\\..\\x.txt", "1" }, { L"C:\\x.exe", "2" }, { L"nul.txt", "3" },
        { L"a:b?.txt", "4" }, { L"\\\\server\\share\\y", "5" }, { L"..", "6" } };
    const Files proposals{ L"x.txt", L"x.exe", L"_nul.txt", L"a_b_.txt", L"y", L"_" };
    drop_attachments(names);
    for (const std::wstring& expected : proposals) {
        const auto shows = [&] { return program().wait_for_file_dialog().file_name() == expected; };
        require("the next dialog shows", shows);
        program().wait_for_file_dialog().cancel();
    }
    partner_.wait_for_end();
    EXPECT_EQ(tree(), before);
}

TEST_F(Dropping, TextGoesIntoTheBoxUnderIt)
{
    open_pages({ make_page(L"abcd", L"efgh", L"ijkl") });
    for (const int id : { command::box_1, command::box_2, command::box_3 }) {
        box(id).select(1, 3);
        drop_text(L"語", box(id).center());
        require("the box has the focus", [&] { return program().focus() == box(id); });
    }
    EXPECT_EQ(box(command::box_1).text(), as_loaded(L"a語bcd"));
    EXPECT_EQ(box(command::box_2).text(), L"e語fgh");
    EXPECT_EQ(box(command::box_3).text(), as_loaded(L"i語jkl"));
    program().click_into(box(command::box_2));
    chord({ VK_CONTROL, 'Z' });
    expect_soon(std::wstring{ L"efgh" }, [this] { return box(command::box_2).text(); });
}

TEST_F(Dropping, TextOfTwoLinesLeavesTheBookReadable)
{
    open_pages({ make_page(L"一", L"二", L"三"), make_page(L"四") });
    drop_text(L"x\r\ny", box(command::box_2).center());
    drop_text(L"x\r\ny", box(command::box_3).center());
    const book::Book book = closed_book();
    ASSERT_EQ(book.pages.size(), 2u);
    EXPECT_EQ(book.pages[0].text[1], L"x二");
    EXPECT_EQ(book.pages[0].text[2], as_loaded(L"x\r\ny三"));
    EXPECT_EQ(book.pages[1].text[0], as_loaded(L"四"));
}

TEST_F(Dropping, TextOutsideTheBoxesIsLost)
{
    open_one();
    drop_text(L"x", background());
    EXPECT_EQ(box(command::box_1).text(), as_loaded(L"一"));
    EXPECT_EQ(title().find(L'*'), std::wstring::npos);
}

TEST_F(Dropping, IsRefusedUnderAMessageBox)
{
    open_one();
    main_window().post_command(command::delete_page);
    const MessageDialog asked = program().wait_for_box();
    drop_files(made({ L"一.txt" }));
    EXPECT_EQ(partner_.effect(), DWORD{ DROPEFFECT_NONE });
    EXPECT_FALSE(question().exists());
    asked.answer(IDNO);
    EXPECT_TRUE(closed_book().pages[0].files.empty());
}

TEST_F(Dropping, IsRefusedWhileAnotherWindowEditsThePages)
{
    open_pages({ make_page(L"abcd") });
    main_window().send_command(command::show_replace);
    require("the window shows", [this] { return side_window(L"ovlib_replacewnd[112]").exists(); });
    drop_text(L"x", box(command::box_3).center());
    EXPECT_EQ(partner_.effect(), DWORD{ DROPEFFECT_NONE });
    EXPECT_EQ(box(command::box_3).text(), as_loaded(L""));
    EXPECT_FALSE(question().exists());
}

TEST_F(Dropping, FilesThatAFullBookHasNoRoomForAreRefusedTogether)
{
    std::vector<book::Page> pages(book::page_limit - 1, make_page(L"一"));
    open_pages(pages);
    drop_files(made({ L"一.txt", L"二.txt" }));
    answer(command::add_dropped_pages);
    const MessageDialog limit = program().wait_for_box();
    EXPECT_NE(limit.text().find(L"100,000"), std::wstring::npos);
    limit.answer(IDOK);
    drop_files(made({ L"一.txt" }));
    answer(command::add_dropped_pages);
    expect_page(L"");
    EXPECT_EQ(closed_book().pages.size(), book::page_limit);
}

TEST_F(Dropping, PagesOfASortedBookAreAllThere)
{
    book::BookHeader header;
    header.order_mode = 2701;
    book_ = root().add_book(L"手帖.bok", { make_page(L"二"), make_page(L"一"), make_page(L"三") }, header);
    open_settled(book_);
    const Files files = made({ L"一.txt", L"二.txt" });
    drop_files(files);
    answer(command::add_dropped_pages);
    expect_soon(std::wstring{ L"" }, [this] { return question().exists() ? L"open" : std::wstring{}; });
    const book::Book book = closed_book();
    ASSERT_EQ(book.pages.size(), 5u);
    EXPECT_EQ(book.pages[3].files, Files{ files[0] });
    EXPECT_EQ(book.pages[4].files, Files{ files[1] });
    EXPECT_EQ(book.pages[0].text[0], as_loaded(L"二"));
}

TEST_F(Dropping, EndsWithEscape)
{
    open_one();
    const Files files = made({ L"一.txt" });
    partner_.drag_to(background(), [&](FakeSource& source) { source.offer_files(files); });
    partner_.cancel();
    EXPECT_EQ(partner_.result(), DRAGDROP_S_CANCEL);
    EXPECT_FALSE(question().exists());
}

class DraggingOut : public Dropping {
protected:
    void open_with(const std::wstring& entry)
    {
        book::Page page = make_page(L"一");
        page.files = { entry };
        open_pages({ page });
    }
    static std::wstring repeated(const std::wstring& text, int count)
    {
        std::wstring all;
        for (int i = 0; i < count; ++i)
            all += text;
        return all;
    }
    // Takes up the file in the pane and leads it onto the other program's window.
    void drag_out()
    {
        const POINT pane = middle(layout().file_pane);
        press_mouse(pane);
        require("the drag begins", [&] {
            return DragPartner::moves_on({ pane.x + 40, pane.y }) && program().holds_mouse();
        });
        lead_mouse(pane, partner_.place());
        require("the drag enters",
            [this] { return DragPartner::moves_on(partner_.place()) && partner_.entries() == 1; });
    }
    void drop_out()
    {
        drag_out();
        release_mouse(partner_.place());
        require("the file arrives", [this] { return partner_.drops() == 1; });
    }
};

TEST_F(DraggingOut, DeliversARelativeEntryByItsFullPath)
{
    const Files files = made({ L"資料の図.txt" });
    open_with(L"資料の図.txt");
    drop_out();
    EXPECT_EQ(partner_.received(), files);
}

TEST_F(DraggingOut, DeliversALongPath)
{
    const fs::path folder = root().folder() / repeated(L"資", 120) / repeated(L"料", 120);
    const fs::path file = folder / (repeated(L"図", 60) + L".txt");
    const std::wstring prefix = L"\\\\?\\";
    CreateDirectoryW((prefix + folder.parent_path().wstring()).c_str(), nullptr);
    CreateDirectoryW((prefix + folder.wstring()).c_str(), nullptr);
    write_bytes(prefix + file.wstring(), "x");
    open_with(file.wstring());
    drop_out();
    EXPECT_EQ(partner_.received(), Files{ file.wstring() });
}

TEST_F(DraggingOut, IsRefusedByTheProgramItself)
{
    const Files files = made({ L"図.txt" });
    open_with(files[0]);
    drag_out();
    lead_mouse(partner_.place(), box(command::box_3).center());
    release_mouse(box(command::box_3).center());
    program().click_into(box(command::box_1)); // a question would be in the way
    EXPECT_FALSE(question().exists());
    EXPECT_EQ(partner_.drops(), 0);
    EXPECT_EQ(closed_book().pages[0].files, files);
}

TEST_F(DraggingOut, EndsWithEscape)
{
    open_with(made({ L"図.txt" })[0]);
    drag_out();
    e2e::press(VK_ESCAPE);
    release_mouse(partner_.place());
    program().await_input();
    EXPECT_EQ(partner_.drops(), 0);
}

TEST_F(DraggingOut, NeedsAPressedButton)
{
    open_with(made({ L"図.txt" })[0]);
    const POINT pane = middle(layout().file_pane);
    click(pane);
    lead_mouse(pane, { pane.x - 40, pane.y });
    lead_mouse(pane, partner_.place());
    program().await_input();
    main_window().send(WM_NULL);
    EXPECT_EQ(partner_.entries(), 0);
    EXPECT_EQ(partner_.drops(), 0);
    EXPECT_FALSE(question().exists());
}
