// The replace window: used by mouse and keyboard, its files checked.
#include "book/replace_view.hpp"
#include "driver_main_window.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class Replacing : public MainWindowTest {
protected:
    static constexpr auto close_question =
        L"変更内容を保存しますか？\r\n\r\n[はい] を押すと変更内容をファイルに保存して終了します．\r\n"
        L"[いいえ] を押すと最初の状態に戻して終了します．";

    fs::path open_three_pages()
    {
        fs::path file = root().add_book(
            L"手帖.bok", { make_page(L"猫と犬"), make_page(L"鳥"), make_page(L"黒猫，白猫") });
        open_settled(file);
        return file;
    }
    Window replace_window() const { return side_window(L"ovlib_replacewnd[112]"); }
    Window field(int id) const { return replace_window().child(id); }
    void show_replace(Hand hand)
    {
        main_menu().choose(command::show_replace, hand);
        require("the replace window shows", [&] { return program().is_active(replace_window()); });
        program().await_input();
    }
    // A menu of the window, opened by a right click beside its controls.
    PopupMenu replace_menu(bool changed)
    {
        const RECT place = replace_window().rect();
        return { program(), book::replace_menu(changed), [this, place] {
                    right_click({ place.right - 30, place.bottom - 12 });
                } };
    }
    void fill(const std::wstring& search, const std::wstring& replacement)
    {
        program().click_into(field(command::replace_search_text));
        type_text(search);
        expect_soon(search, [&] { return field(command::replace_search_text).text(); });
        press(VK_TAB);
        require(
            "the Tab key moves on", [&] { return program().focus() == field(command::replace_new_text); });
        type_text(replacement);
        expect_soon(replacement, [&] { return field(command::replace_new_text).text(); });
    }
    void choose(int id, bool changed, const std::wstring& report)
    {
        replace_menu(changed).choose(id, Hand::mouse);
        answer_box(report, Icon::none, IDOK);
        program().await_input();
    }
    void close_window(const std::wstring& question, int answer)
    {
        chord({ VK_MENU, VK_F4 });
        if (!question.empty())
            answer_box(question, Icon::question, answer);
        require("the replace window closes", [&] { return !replace_window().exists(); });
        main_window().send(WM_NULL); // it saves after it has closed
    }
};

} // namespace

TEST_F(Replacing, ReplacesInAllPagesAndSavesAtTheEnd)
{
    const fs::path file = open_three_pages();
    show_replace(Hand::mouse);
    fill(L"猫", L"兎");
    click(field(command::replace_in_boxes).center());
    choose(command::replace_all_pages, false, L"3件 置換しました\r\n[対象ページ: 全て]");
    expect_page(L"兎と犬");
    EXPECT_EQ(load_book(file).pages[0].text[0], as_loaded(L"猫と犬")) << "only in memory";
    close_window(close_question, IDYES);
    EXPECT_EQ(load_book(file).pages[0].text[0], as_loaded(L"兎と犬"));
    EXPECT_EQ(load_book(file).pages[2].text[0], as_loaded(L"黒兎，白兎"));
    EXPECT_EQ(load_book(file).pages[1].stamp, old_stamp);
    EXPECT_EQ(program().focus(), box(command::box_1)) << "the keyboard is back in the text";
    close();
}

TEST_F(Replacing, ByKeyboardAloneInOnePageAndBack)
{
    const fs::path file = open_three_pages();
    show_replace(Hand::keys);
    fill(L"猫", L"");
    press(VK_TAB);
    press(VK_SPACE); // the first target
    for (int i = 0; i < 4; ++i)
        press(VK_TAB); // through the other checks to the first field
    const PopupMenu menu{ program(), book::replace_menu(false), [this] { press(VK_RETURN); } };
    PopupMenu(menu).choose(command::replace_current_page, Hand::keys);
    answer_box(L"1件 置換しました\r\n[対象ページ: 1]", Icon::none, IDOK);
    expect_page(L"と犬");
    program().await_input();
    press(VK_ESCAPE);
    answer_box(close_question, Icon::question, IDCANCEL);
    program().await_input();
    EXPECT_TRUE(replace_window().exists());
    close_window(close_question, IDNO);
    expect_page(L"猫と犬");
    close();
    EXPECT_EQ(load_book(file).pages[0].text[0], as_loaded(L"猫と犬"));
}

TEST_F(Replacing, RestoresInTheMiddle)
{
    open_three_pages();
    show_replace(Hand::mouse);
    fill(L"猫", L"兎");
    click(field(command::replace_in_boxes).center());
    choose(command::replace_all_pages, false, L"3件 置換しました\r\n[対象ページ: 全て]");
    replace_menu(true).choose(command::restore_book, Hand::mouse);
    answer_box(L"編集を取消して最初の状態に戻しますか？", Icon::question, IDYES);
    expect_page(L"猫と犬");
    program().await_input();
    replace_menu(false).choose_in_vain(command::restore_book, Hand::mouse);
    close_window(L"", 0);
    close();
}

TEST_F(Replacing, TheProgramCannotBeClosedWhileItIsMinimised)
{
    const fs::path file = open_three_pages();
    show_replace(Hand::mouse);
    fill(L"猫", L"兎");
    click(field(command::replace_in_boxes).center());
    choose(command::replace_all_pages, false, L"3件 置換しました\r\n[対象ページ: 全て]");
    const std::string before = file_bytes(file);
    main_window().send(WM_SYSCOMMAND, SC_MINIMIZE);
    require("the window is an icon", [&] { return IsIconic(main_window().handle()) != FALSE; });
    main_window().send(WM_CLOSE);
    EXPECT_TRUE(program().is_running());
    main_window().send(WM_SYSCOMMAND, SC_RESTORE);
    require("the replace window is back", [&] { return replace_window().exists(); });
    EXPECT_EQ(file_bytes(file), before);
    // Without a window manager it may be below its owner now, out of reach of a click.
    replace_window().post(WM_CLOSE);
    answer_box(close_question, Icon::question, IDNO);
    require("the replace window closes", [&] { return !replace_window().exists(); });
    close();
    EXPECT_EQ(load_book(file).pages[0].text[0], as_loaded(L"猫と犬"));
}
