// The search results: opened by the button, chosen by mouse and keys, and the keys that turn pages.
#include "driver_main_window.hpp"
#include <commctrl.h>

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;
using Range = std::pair<DWORD, DWORD>;

class Results : public MainWindowTest {
protected:
    void open_cats()
    {
        book::Page first = make_page(L"一\r\n二猫", L"猫", L"犬猫犬");
        first.files = { L"http://x.invalid/犬", L"http://x.invalid/猫" };
        open_settled(root().add_book(L"手帖.bok", { first, make_page(L"猫猫"), make_page(L"鳥") }));
        retype(command::search_box, L"猫");
    }
    Window results() const { return side_window(L"ovlib_book_search_result_wnd[35]"); }
    Window list() const { return results().child(1); }
    void open_results()
    {
        click_control(command::toggle_results);
        require("the results show", [&] { return program().is_active(results()); });
        program().await_input();
    }
    POINT row_place(int row) const
    {
        const RECT place = list().rect();
        const int height = HIWORD(list().send(LVM_APPROXIMATEVIEWRECT, 2, -1))
            - HIWORD(list().send(LVM_APPROXIMATEVIEWRECT, 1, -1));
        constexpr int header = 24;
        return { place.left + 40, place.top + header + row * height + height / 2 };
    }
    int selected() const
    {
        return static_cast<int>(list().send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    }
    void expect_title(const std::wstring& text, const Where& where = Where::current())
    {
        expect_soon(
            text, [&] { return results().text(); }, where);
    }
    void expect_selection(int id, Range range, const Where& where = Where::current())
    {
        expect_soon(
            range, [&] { return box(id).selection(); }, where);
    }
};

} // namespace

TEST_F(Results, OpenByTheButtonWithTheFirstPlaceSelectedAndCloseByItAgain)
{
    open_cats();
    EXPECT_FALSE(results().exists());
    open_results();
    expect_title(L"p.1 の検索結果  [3件]");
    expect_selection(command::box_1, { 4, 5 });
    EXPECT_EQ(list().send(LVM_GETITEMCOUNT), 3);
    EXPECT_EQ(selected(), 0);
    click_control(command::toggle_results);
    expect_soon(false, [&] { return results().exists(); });
}

TEST_F(Results, AClickOnARowSelectsItsPlace)
{
    open_cats();
    open_results();
    click(row_place(2));
    expect_selection(command::box_3, { 1, 2 });
    expect_selection(command::box_1, { 4, 4 });
    click(row_place(1));
    expect_selection(command::box_2, { 0, 1 });
    expect_selection(command::box_3, { 1, 1 });
    box(command::box_2).select(0, 0);
    click({ row_place(1).x + 30, row_place(1).y }); // elsewhere, so that it is no double click
    expect_selection(command::box_2, { 0, 1 });
}

TEST_F(Results, ArrowsAndHomeAndEndChooseRows)
{
    open_cats();
    open_results();
    press(VK_DOWN);
    expect_selection(command::box_2, { 0, 1 });
    press(VK_END);
    expect_selection(command::box_3, { 1, 2 });
    press(VK_UP);
    expect_selection(command::box_2, { 0, 1 });
    press(VK_HOME);
    expect_selection(command::box_1, { 4, 5 });
}

TEST_F(Results, EnterAndADoubleClickGoToThePlaceAndTypingReplacesIt)
{
    open_cats();
    open_results();
    press(VK_DOWN);
    press(VK_RETURN);
    expect_soon(box(command::box_2), [&] { return program().focus(); });
    type_text(L"鳥");
    expect_soon(std::wstring(L"鳥"), [&] { return box(command::box_2).text(); });
    // On a screen without a window manager, Wine puts the main window in front of those that it owns.
    require("the results are in front", [&] {
        SetForegroundWindow(results().handle());
        return program().is_active(results());
    });
    double_click(row_place(2));
    expect_soon(box(command::box_3), [&] { return program().focus(); });
}

TEST_F(Results, AFileOfAHitIsShownInThePane)
{
    open_cats();
    toggle_check(command::toggle_file_list_search, true);
    open_results();
    expect_title(L"p.1 の検索結果  [4件]");
    click(row_place(3));
    expect_soon(LRESULT{ 1 }, [&] { return box(command::file_combo).send(CB_GETCURSEL); });
    expect_selection(command::box_1, { 4, 4 });
}

TEST_F(Results, FollowTypingInTheSearchBoxAndItsButtons)
{
    open_cats();
    open_results();
    retype(command::search_box, L"犬 一");
    expect_title(L"p.1 の検索結果  [3件]");
    expect_selection(command::box_3, { 0, 1 });
    toggle_check(command::toggle_all_terms, true);
    retype(command::search_box, L"犬 無い");
    expect_title(L"p.1 の検索結果");
    click_control(command::clear_search);
    expect_title(L"p.1 の検索結果");
    EXPECT_EQ(list().send(LVM_GETITEMCOUNT), 0);
}

TEST_F(Results, FollowThePageAndASave)
{
    open_cats();
    open_results();
    click_control(command::next_page);
    expect_title(L"p.2 の検索結果  [2件]");
    expect_selection(command::box_1, { 0, 1 });
    click_control(command::last_page);
    expect_title(L"p.3 の検索結果");
    retype(command::box_1, L"猫と猫と猫");
    chord({ VK_CONTROL, 'S' });
    expect_title(L"p.3 の検索結果  [3件]");
    EXPECT_EQ(selected(), -1);
}

TEST_F(Results, AHiddenWindowStillSelectsTheFirstPlace)
{
    open_cats();
    expect_selection(command::box_1, { 4, 5 });
    click_control(command::next_page);
    expect_page(L"猫猫");
    expect_selection(command::box_1, { 0, 1 });
}

TEST_F(Results, F3TurnsThePageForwardAndWithShiftBack)
{
    open_cats();
    program().click_on(box(command::box_3));
    press(VK_F3);
    expect_page(L"猫猫");
    chord({ VK_SHIFT, VK_F3 });
    expect_page(L"一\r\n二猫");
    open_results();
    press(VK_F3);
    expect_page(L"猫猫");
    expect_title(L"p.2 の検索結果  [2件]");
    EXPECT_TRUE(program().is_active(results()));
    press(VK_F3);
    expect_banner();
    chord({ VK_SHIFT, VK_F3 });
    expect_page(L"一\r\n二猫");
}

TEST_F(Results, EscAndAltF4CloseThemAndTheProgramGoesOn)
{
    open_cats();
    open_results();
    press(VK_ESCAPE);
    expect_soon(false, [&] { return results().exists(); });
    type_text(L"x"); // the field that had the focus last
    expect_soon(std::wstring(L"猫x"), [&] { return box(command::search_box).text(); });
    open_results();
    chord({ VK_MENU, VK_F4 });
    expect_soon(false, [&] { return results().exists(); });
    EXPECT_TRUE(program().is_running());
}

TEST_F(Results, KeepTheirPlaceWhileTheProgramRunsAndCloseWithIt)
{
    open_cats();
    const fs::path file = root().folder() / L"手帖.bok";
    open_results();
    SetWindowPos(results().handle(), nullptr, 60, 70, 400, 330, SWP_NOZORDER | SWP_NOACTIVATE);
    expect_soon(LONG{ 60 }, [&] { return results().rect().left; });
    press(VK_ESCAPE);
    expect_soon(false, [&] { return results().exists(); });
    open_results();
    const RECT place = results().rect();
    EXPECT_EQ(place.left, 60);
    EXPECT_EQ(place.top, 70);
    EXPECT_EQ(place.right - place.left, 400);
    EXPECT_EQ(place.bottom - place.top, 330);
    close();
    EXPECT_EQ(load_book(file).pages[0].text[0], L"一\r\n二猫\r\n");
}

TEST_F(Results, GoWithTheMinimisedMainWindowAndComeBack)
{
    open_cats();
    open_results();
    main_window().post(WM_SYSCOMMAND, SC_MINIMIZE);
    expect_soon(false, [&] { return results().exists(); });
    main_window().post(WM_SYSCOMMAND, SC_RESTORE);
    expect_soon(true, [&] { return results().exists(); });
    expect_title(L"p.1 の検索結果  [3件]");
    close();
}
