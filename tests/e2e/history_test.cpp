// The history window: one click opens a Book.
#include "driver_main_window.hpp"
#include <commctrl.h>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class History : public MainWindowTest {
protected:
    // Adds three Books to the history and opens the first one.
    std::vector<fs::path> open_first_of_three()
    {
        std::vector<fs::path> books;
        for (const wchar_t* name : { L"一", L"二", L"三" })
            books.push_back(root().add_book(name + std::wstring(L".bok"), { make_page(name) }));
        root().write_history({ books[0].wstring(), books[1].wstring(), books[2].wstring() });
        start().wait_for_window();
        settle();
        return books;
    }
    Window show_history(Hand hand)
    {
        main_menu().choose(command::show_history, hand);
        require("the history shows", [&] { return program().is_active(history_window()); });
        program().await_input();
        return history_window();
    }
    Window list() const { return history_window().child(1); }
    void click_row(int row, int x = 40) const
    {
        const RECT place = list().rect();
        const int header = 24;
        const int height = row_height();
        click({ place.left + x, place.top + header + row * height + height / 2 });
    }
    int row_height() const
    {
        return HIWORD(list().send(LVM_APPROXIMATEVIEWRECT, 2, -1))
            - HIWORD(list().send(LVM_APPROXIMATEVIEWRECT, 1, -1));
    }
    void expect_count(int count, const Where& where = Where::current())
    {
        expect_soon(
            L"履歴  [" + std::to_wstring(count) + L"件]", [&] { return history_window().text(); }, where);
        EXPECT_EQ(list().send(LVM_GETITEMCOUNT), count);
    }
};

} // namespace

TEST_F(History, AClickOnARowOpensItsBookAndPutsItOnTop)
{
    const auto books = open_first_of_three();
    show_history(Hand::mouse);
    expect_count(3);
    click_row(2);
    expect_page(L"三");
    EXPECT_EQ(title(), L"三");
    const std::vector<std::wstring> order{ books[2].wstring(), books[0].wstring(), books[1].wstring() };
    expect_soon(order, [&] { return root().history(); });
    expect_count(3);
    click_row(1);
    expect_page(L"一");
    EXPECT_TRUE(history_window().exists());
}

TEST_F(History, AClickSavesTheOpenBookWithoutAQuestion)
{
    const auto books = open_first_of_three();
    retype(command::box_1, L"書きかけ");
    show_history(Hand::keys);
    click_row(1);
    expect_page(L"二");
    EXPECT_FALSE(program().has_dialog());
    EXPECT_EQ(load_book(books[0]).pages[0].text[0], L"書きかけ\r\n");
}

TEST_F(History, AMissingEntryIsNamedAndRemoved)
{
    const auto books = open_first_of_three();
    fs::remove(books[1]);
    show_history(Hand::mouse);
    click_row(1);
    const MessageDialog told = program().wait_for_box();
    EXPECT_EQ(told.text(), L"ファイル [" + books[1].wstring() + L"] が見つかりませんでした．");
    EXPECT_FALSE(history_window().is_enabled());
    told.answer(IDOK);
    expect_count(2);
    expect_soon(true, [&] { return history_window().is_enabled(); });
    EXPECT_EQ(root().history(), (std::vector{ books[0].wstring(), books[2].wstring() }));
    expect_page(L"一");
    // On a screen without a window manager, Wine puts the main window in front of those that it owns.
    require("the history is in front", [&] {
        SetForegroundWindow(history_window().handle());
        return program().is_active(history_window());
    });
    click_row(1, 90); // at the same point it could count as a double click
    expect_page(L"三");
}

TEST_F(History, AClickOutsideTheRowsDoesNothing)
{
    open_first_of_three();
    const Window window = show_history(Hand::mouse);
    const RECT place = window.rect();
    click({ (place.left + place.right) / 2, place.bottom - 30 });
    click_row(1);
    expect_page(L"二");
    EXPECT_FALSE(program().has_dialog());
}

TEST_F(History, ClosingTheWindowHidesItAndTheMenuBringsItBack)
{
    open_first_of_three();
    show_history(Hand::keys);
    program().click_on(list());
    chord({ VK_MENU, VK_F4 });
    expect_soon(false, [&] { return history_window().exists(); });
    EXPECT_TRUE(program().is_running());
    show_history(Hand::mouse);
    expect_count(3);
}
