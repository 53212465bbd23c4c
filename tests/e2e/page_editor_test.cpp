// The page editor: pages are selected, moved, copied and deleted by mouse and keyboard.
#include "book/page_editor_view.hpp"
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;
namespace place = book::page_editor_place;

class PageEditing : public MainWindowTest {
protected:
    static constexpr auto close_question = L"変更内容をファイルに保存しますか？\r\n\r\n[はい] "
                                           L"を押すと変更内容をファイルに保存して終了します．\r\n"
                                           L"[いいえ] を押すと編集前の状態に戻して終了します．";

    Window editor() const { return side_window(L"ovlib_bookeditor[344]"); }
    void show_editor(Hand hand)
    {
        main_menu().choose(command::show_book_editor, hand);
        require("the page editor shows", [&] { return program().is_active(editor()); });
        program().await_input();
    }
    POINT in_editor(int x, int y) const
    {
        POINT at{ x, y };
        ClientToScreen(editor().handle(), &at);
        return at;
    }
    POINT on_strip(int x) const { return in_editor(place::strip.left + x, place::strip.top + 8); }
    void click_in_editor(int id) { click(editor().child(id).center()); }
    PopupMenu editor_menu(const book::PageMenuState& state)
    {
        return { program(), book::page_editor_menu(state),
            [this] { right_click(in_editor(200, place::trace_selection.bottom + 4)); } };
    }
    void expect_title(const std::wstring& title, const Where& where = Where::current())
    {
        expect_soon(
            title, [&] { return editor().text(); }, where);
    }
    // The texts of the file's pages, without line breaks.
    static std::wstring stored_texts(const fs::path& file)
    {
        std::wstring all;
        for (const book::Page& page : load_book(file).pages)
            all += page.text[0].substr(0, page.text[0].find(L'\r'));
        return all;
    }
    void close_editor(const std::wstring& question, int answer)
    {
        chord({ VK_MENU, VK_F4 });
        if (!question.empty())
            answer_box(question, Icon::question, answer);
        require("the page editor closes", [&] { return !editor().exists(); });
        main_window().send(WM_NULL); // it saves after it has closed
    }
};

} // namespace

TEST_F(PageEditing, MovesPagesThatWereSelectedByMouse)
{
    const fs::path file = open_numbered(5);
    show_editor(Hand::mouse);
    click_in_editor(command::select_page);
    expect_title(L"ブックエディタ  [ 1ページ選択中 ]");
    click_in_editor(command::next_page);
    expect_page(L"二");
    click_in_editor(command::select_page);
    expect_title(L"ブックエディタ  [ 2ページ選択中 ]");
    editor_menu({ .has_selection = true }).choose(command::cut_pages, Hand::mouse);
    click_in_editor(command::last_page);
    expect_page(L"五");
    editor_menu({ .has_selection = true, .clip_mode = book::ClipMode::cut })
        .choose(command::paste_pages, Hand::mouse);
    answer_box(L"カットした 2 枚のページを位置 [5] に貼付けますか？", Icon::question, IDYES);
    expect_page(L"二");
    EXPECT_EQ(stored_texts(file), L"一二三四五") << "only in memory";
    program().await_input();
    close_editor(close_question, IDYES);
    EXPECT_EQ(stored_texts(file), L"三四一二五");
    EXPECT_EQ(program().focus(), box(command::box_1));
    close();
}

TEST_F(PageEditing, DeletesARangeThatWasSelectedByKeysAndRestoresIt)
{
    const fs::path file = open_numbered(5);
    show_editor(Hand::keys);
    press(VK_RIGHT);
    expect_page(L"二");
    {
        const HeldKey shift{ VK_SHIFT };
        press(VK_RIGHT);
        press(VK_RIGHT);
        expect_page(L"四");
    }
    click_in_editor(command::select_range);
    expect_title(L"ブックエディタ  [ 3ページ選択中 ]");
    press(VK_DELETE);
    answer_box(L"選択した 3 枚のページを削除しますか？", Icon::question, IDYES);
    expect_title(L"ブックエディタ");
    expect_page(L"五");
    program().await_input();
    editor_menu({ .has_changed = true }).choose(command::restore_book, Hand::mouse);
    answer_box(L"編集を取消して最初の状態に戻しますか？", Icon::question, IDYES);
    expect_page(L"一"); // the position of the file
    program().await_input();
    press(VK_ESCAPE);
    require("the page editor closes", [&] { return !editor().exists(); });
    close();
    EXPECT_EQ(stored_texts(file), L"一二三四五");
}

TEST_F(PageEditing, ADragOverTheStripSelectsARange)
{
    const fs::path file = open_numbered(5);
    show_editor(Hand::mouse);
    drag(on_strip(10), on_strip(190));
    expect_page(L"三");
    click_in_editor(command::select_range);
    expect_title(L"ブックエディタ  [ 3ページ選択中 ]");
    editor_menu({ .has_selection = true }).choose(command::copy_pages, Hand::keys);
    editor_menu({ .has_selection = true, .clip_mode = book::ClipMode::copy })
        .choose(command::paste_pages_at_end, Hand::keys);
    answer_box(L"コピーした 3 枚のページを位置 [6] に貼付けますか？", Icon::question, IDYES);
    expect_page(L"三");
    program().await_input();
    close_editor(close_question, IDYES);
    EXPECT_EQ(stored_texts(file), L"一二三四五一二三");
    close();
}

TEST_F(PageEditing, TheWheelOverTheEditorTurnsPages)
{
    open_numbered(3);
    show_editor(Hand::mouse);
    turn_wheel(in_editor(200, place::trace_selection.bottom + 4), -1);
    expect_page(L"二");
    close_editor(L"", 0);
    close();
}

TEST_F(PageEditing, AnEditThatIsNotWantedIsDroppedAtTheOpening)
{
    const fs::path file = open_numbered(2);
    write_first(L"捨");
    main_menu().choose(command::show_book_editor, Hand::mouse);
    answer_box(L"ページの内容が変更されています．\r\nファイルに保存しますか？", Icon::question, IDNO);
    require("the page editor shows", [&] { return editor().exists(); });
    expect_page(L"一");
    EXPECT_TRUE(box(command::box_1).is_read_only());
    program().await_input();
    close_editor(L"", 0);
    expect_soon(false, [&] { return box(command::box_1).is_read_only(); });
    close();
    EXPECT_EQ(stored_texts(file), L"一二");
}
