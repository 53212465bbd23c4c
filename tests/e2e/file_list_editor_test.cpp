// The list editor: opened by the file menu, typed in, applied, saved and closed as a user does.
#include "app/menus.hpp"
#include "driver_main_window.hpp"
#include "media/file_links.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;
using Files = std::vector<std::wstring>;

const std::wstring apply_question = L"内容が変更されています．\r\n適用しますか？";

class ListEditor : public MainWindowTest {
protected:
    void open_lists(Files files = { L"http://x.invalid/a", L"http://x.invalid/b" })
    {
        book::Page first = make_page(L"一");
        first.files = std::move(files);
        book::Page second = make_page(L"二");
        second.files = { L"http://x.invalid/z" };
        book_file_ = root().add_book(L"手帖.bok", { first, second });
        open_settled(book_file_);
    }
    PopupMenu file_menu(bool is_editor_open)
    {
        return { program(),
            app::file_menu({ .entry_count = 2,
                .entry = L"http://x.invalid/a",
                .entry_name = L"http://x.invalid/a",
                .is_file_list_editor_open = is_editor_open }),
            [this] {
                move_mouse(background());
                main_window().post_command(command::show_file_menu);
            } };
    }
    Window editor() const { return side_window(L"ovlib_filelist_editor[192]"); }
    Window list() const { return editor().child(command::file_list_box); }
    void open_editor(Hand hand = Hand::mouse)
    {
        file_menu(false).choose(command::show_file_list_editor, hand);
        require("the editor shows", [&] { return editor().exists() && editor().is_visible(); });
        click_list();
    }
    // Puts the caret at the end of the text. On a screen without a window
    // manager, Wine may have put the main window in front of those that it owns.
    void click_list() const
    {
        require("the editor is in front", [&] {
            SetForegroundWindow(editor().handle());
            return program().is_active(editor());
        });
        program().click_into(list());
        chord({ VK_CONTROL, VK_END });
        const auto end = static_cast<DWORD>(list().text().size());
        require("the caret is at the end", [&] { return list().selection() == std::pair{ end, end }; });
    }
    void retype_list(const std::wstring& text)
    {
        list().select(0, list().text().size());
        type_text(text);
        expect_list(text);
    }
    void expect_list(const std::wstring& text, const Where& where = Where::current())
    {
        expect_soon(
            text, [&] { return list().text(); }, where);
    }
    void expect_title(const std::wstring& text, const Where& where = Where::current())
    {
        expect_soon(
            text, [&] { return title(); }, where);
    }
    void expect_lit(bool is_lit, const Where& where = Where::current())
    {
        expect_soon(
            is_lit, [&] { return editor().child(command::apply_file_list).is_enabled(); }, where);
        expect_soon(
            is_lit, [&] { return box(command::save_if_changed).is_enabled(); }, where);
    }
    void click_editor(int id) const { click(editor().child(id).center()); }
    Files in_file(std::size_t page = 0) const { return load_book(book_file_).pages[page].files; }
    LRESULT combo_count() const { return box(command::file_combo).send(CB_GETCOUNT); }

    fs::path book_file_;
};

} // namespace

TEST_F(ListEditor, OpensFromTheMenuWhichIsGreyThen)
{
    open_lists();
    open_editor(Hand::keys);
    EXPECT_EQ(editor().text(), L"リストの編集");
    EXPECT_EQ(list().text(), L"http://x.invalid/a\r\nhttp://x.invalid/b\r\n");
    const RECT main = main_window().rect();
    const RECT place = editor().rect();
    EXPECT_NEAR(place.left + place.right, main.left + main.right, 2);
    EXPECT_NEAR(place.top + place.bottom, main.top + main.bottom, 2);
    file_menu(true).choose_in_vain(command::show_file_list_editor, Hand::mouse);
}

TEST_F(ListEditor, ATypedLineIsAppliedByTheButtonAndSavedByCtrlS)
{
    open_lists();
    open_editor();
    expect_title(L"手帖");
    type_text(L"http://x.invalid/c");
    expect_title(L"手帖 *");
    expect_lit(true);
    click_editor(command::apply_file_list);
    expect_lit(false);
    expect_title(L"手帖");
    expect_soon(LRESULT{ 3 }, [&] { return combo_count(); });
    EXPECT_EQ(in_file().size(), 2u);
    program().click_on(box(command::box_1));
    type_text(L"x");
    chord({ VK_CONTROL, 'S' });
    expect_soon(std::size_t{ 3 }, [&] { return in_file().size(); });
}

TEST_F(ListEditor, CtrlSInTheListAppliesAndAnotherSavesIt)
{
    open_lists();
    open_editor();
    retype_list(L"http://x.invalid/new");
    chord({ VK_CONTROL, 'S' });
    expect_lit(false);
    expect_soon(LRESULT{ 1 }, [&] { return combo_count(); });
    EXPECT_EQ(program().focus(), list());
    EXPECT_EQ(in_file().size(), 2u);
    close();
    EXPECT_EQ(in_file(), Files{ L"http://x.invalid/new" });
}

TEST_F(ListEditor, TheSaveButtonCommitsTheListAndLinksItsFiles)
{
    open_lists();
    const fs::path picture = root().folder() / L"絵.png";
    write_bytes(picture, "x");
    open_editor();
    retype_list(picture.wstring());
    click_control(command::save_if_changed);
    expect_soon(Files{ picture.wstring() }, [&] { return in_file(); });
    media::HashedLinkNames names{ (root().folder() / L"dat" / L"shortcut").wstring() + L"\\" };
    const fs::path link = names.link_of(picture.wstring()).value();
    require("a link is made", [&] { return fs::exists(link); });
}

TEST_F(ListEditor, LeavingThePageAsksAboutTheList)
{
    open_lists();
    open_editor();
    retype_list(L"http://x.invalid/1");
    click_control(command::next_page);
    answer_box(leave_question, Icon::question, IDNO);
    expect_page(L"二");
    expect_list(L"http://x.invalid/z\r\n");
    expect_title(L"手帖");
    click_control(command::previous_page);
    expect_list(L"http://x.invalid/a\r\nhttp://x.invalid/b\r\n");
    click_list();
    retype_list(L"http://x.invalid/2");
    click_control(command::next_page);
    answer_box(leave_question, Icon::question, IDYES);
    expect_page(L"二");
    EXPECT_EQ(in_file(), Files{ L"http://x.invalid/2" });
    EXPECT_EQ(in_file(1), Files{ L"http://x.invalid/z" });
}

TEST_F(ListEditor, DeletingThePageDropsWhatWasTyped)
{
    open_lists();
    open_editor();
    retype_list(L"http://x.invalid/1");
    main_window().post_command(command::delete_page);
    program().wait_for_box().answer(IDYES);
    expect_page(L"二");
    expect_list(L"http://x.invalid/z\r\n");
    EXPECT_EQ(load_book(book_file_).pages.size(), 1u);
    EXPECT_EQ(in_file(), Files{ L"http://x.invalid/z" });
}

TEST_F(ListEditor, AnotherBookAndTheEndOfTheProgramSaveWhatWasTyped)
{
    const fs::path other = root().add_book(L"他.bok", { make_page(L"他") });
    open_lists();
    open_editor();
    retype_list(L"http://x.invalid/1");
    main_window().post_command(command::open_book);
    program().wait_for_file_dialog().choose(other.wstring());
    expect_page(L"他");
    expect_list(L"");
    EXPECT_EQ(in_file(), Files{ L"http://x.invalid/1" });
    click_list();
    retype_list(L"http://x.invalid/2");
    close();
    EXPECT_EQ(load_book(other).pages[0].files, Files{ L"http://x.invalid/2" });
}

TEST_F(ListEditor, EachWayOfClosingAsksAboutWhatWasTyped)
{
    open_lists();
    const std::vector<std::function<void()>> ways{
        [&] { chord({ VK_ESCAPE }); },
        [&] {
            chord({ VK_MENU, VK_F4 });
        },
        [&] { click_editor(command::close_window); },
    };
    for (const auto& way : ways) {
        open_editor();
        retype_list(L"http://x.invalid/1");
        way();
        const MessageDialog asked = program().wait_for_box();
        EXPECT_EQ(asked.text(), apply_question);
        EXPECT_EQ(asked.caption(), L"Pagewick - リストの編集");
        EXPECT_EQ(asked.icon(), Icon::question);
        EXPECT_TRUE(asked.has_button(IDCANCEL));
        asked.answer(IDCANCEL);
        EXPECT_TRUE(editor().exists());
        expect_list(L"http://x.invalid/1");
        way();
        program().wait_for_box().answer(IDNO);
        expect_soon(false, [&] { return editor().exists(); });
        expect_title(L"手帖");
        EXPECT_EQ(combo_count(), 2);
    }
    open_editor();
    retype_list(L"http://x.invalid/1");
    chord({ VK_ESCAPE });
    program().wait_for_box().answer(IDYES);
    expect_soon(false, [&] { return editor().exists(); });
    expect_soon(LRESULT{ 1 }, [&] { return combo_count(); });
}

TEST_F(ListEditor, ACommandOfTheFileMenuAsksAboutTypedLines)
{
    open_lists();
    open_editor();
    retype_list(L"http://x.invalid/1");
    main_window().post_command(command::sort_files_descending);
    answer_box(apply_question, Icon::question, IDCANCEL);
    expect_list(L"http://x.invalid/1");
    main_window().post_command(command::sort_files_descending);
    answer_box(apply_question, Icon::question, IDNO);
    expect_list(L"http://x.invalid/b\r\nhttp://x.invalid/a\r\n");
    click_list();
    type_text(L"http://x.invalid/0");
    expect_list(L"http://x.invalid/b\r\nhttp://x.invalid/a\r\nhttp://x.invalid/0");
    main_window().post_command(command::sort_files_ascending);
    answer_box(apply_question, Icon::question, IDYES);
    expect_list(L"http://x.invalid/0\r\nhttp://x.invalid/a\r\nhttp://x.invalid/b\r\n");
    expect_title(L"手帖");
}

TEST_F(ListEditor, FollowsTheChoiceOfAFileByItsSelection)
{
    open_lists();
    open_editor();
    program().click_on(box(command::box_1));
    click_control(command::last_file);
    expect_soon(std::pair<DWORD, DWORD>{ 20, 38 }, [&] { return list().selection(); });
    EXPECT_FALSE(list().is_modified());
}

TEST_F(ListEditor, CtrlACtrlXAndCtrlZWorkInIt)
{
    open_lists();
    open_editor();
    chord({ VK_CONTROL, 'A' });
    expect_soon(std::pair<DWORD, DWORD>{ 0, 40 }, [&] { return list().selection(); });
    chord({ VK_CONTROL, 'X' });
    expect_list(L"");
    chord({ VK_CONTROL, 'Z' });
    expect_list(L"http://x.invalid/a\r\nhttp://x.invalid/b\r\n");
}

TEST_F(ListEditor, TheProgramEndsWhileItsQuestionIsOpen)
{
    open_lists();
    open_editor();
    retype_list(L"http://x.invalid/1");
    chord({ VK_ESCAPE });
    program().wait_for_box();
    main_window().post(WM_CLOSE);
    EXPECT_EQ(program().exit_code(), 0u);
    EXPECT_EQ(in_file(), Files{ L"http://x.invalid/1" });
}

TEST_F(ListEditor, AnOpenEditorChangesNothingInTheFile)
{
    open_lists();
    close();
    const std::string before = file_bytes(book_file_);
    start().wait_for_window();
    settle();
    open_editor();
    close();
    EXPECT_EQ(file_bytes(book_file_), before);
}
