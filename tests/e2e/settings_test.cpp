// The settings window, used by mouse and keys.
#include "app/settings_actions.hpp"
#include "driver_main_window.hpp"
#include "look/settings_view.hpp"
#include "process_holdings.hpp"

namespace fs = std::filesystem;
using namespace e2e;

namespace {

namespace command = core::command;

class SettingsOfUser : public MainWindowTest {
protected:
    Window show_settings(Hand hand = Hand::mouse)
    {
        main_menu().choose(command::show_settings, hand);
        return await_settings();
    }
    Window await_settings()
    {
        require("the settings show", [&] { return program().is_active(settings_window()); });
        program().await_input();
        return settings_window();
    }
    // A click of a check box, which gets the focus. A late click would move it away from a key's control.
    void click_setting(int id)
    {
        const Window check = settings_window().child(id);
        click(check.center());
        require("the check has the focus", [&] { return program().focus() == check; });
    }
    void await_closed()
    {
        require("the settings have closed", [&] { return !settings_window().exists(); });
        program().await_input();
    }
    void press_ok()
    {
        click(settings_window().child(command::close_window).center());
        await_closed();
    }
    void tab_to(int id)
    {
        for (int i = 0; i < 10 && program().focus() != settings_window().child(id); ++i) {
            const Window before = program().focus();
            press(VK_TAB);
            require("the focus moves", [&] { return program().focus() != before; });
        }
        require(
            "the control has the focus", [&] { return program().focus() == settings_window().child(id); });
    }
    void step_down(int combo, int steps)
    {
        tab_to(combo);
        for (int i = 0; i < steps; ++i)
            press(VK_DOWN);
        expect_soon(
            static_cast<LRESULT>(steps), [&] { return settings_window().child(combo).send(CB_GETCURSEL); });
    }
    int ini_number(const wchar_t* key) const
    {
        return static_cast<int>(GetPrivateProfileIntW(L"COMMON", key, -1, root().settings_file().c_str()));
    }
    // In a Book that is sorted by box 1; box 2 gives the opposite order.
    fs::path open_sorted()
    {
        book::BookHeader header;
        header.order_mode = 2701;
        const fs::path file = root().add_book(
            L"手帖.bok", { make_page(L"1", L"z"), make_page(L"2", L"y"), make_page(L"3", L"x") }, header);
        open_settled(file);
        return file;
    }
};

} // namespace

TEST_F(SettingsOfUser, AreKeptInTheBookAndInTheIniFile)
{
    const fs::path file = open_numbered(2);
    show_settings();
    for (const int id : { 2549, 2550, 2551, 2552, 2553, 2554 })
        click_setting(id);
    step_down(3007, 4);
    step_down(4004, 2);
    press_ok();
    close();
    const book::BookHeader header = load_book(file).header;
    EXPECT_EQ(header.auto_file_search, 0);
    EXPECT_EQ(header.gif_autoplay, 1);
    EXPECT_EQ(header.wrap_text, 1);
    EXPECT_EQ(header.sort_key, 3004);
    EXPECT_EQ(header.tab_label_box, 4002);
    for (const wchar_t* key : { L"CLEARCACHE", L"AUTOBACKUP", L"AUTOIMM" })
        EXPECT_EQ(ini_number(key), 1) << key;
    start().wait_for_window();
    settle();
    show_settings(Hand::keys);
    EXPECT_EQ(settings_window().child(3007).send(CB_GETCURSEL), 4);
    EXPECT_EQ(settings_window().child(4004).send(CB_GETCURSEL), 2);
    for (const int id : { 2549, 2550, 2551, 2552, 2553, 2554 })
        click_setting(id);
    press_ok();
    close();
    EXPECT_EQ(load_book(file).header.auto_file_search, 1);
    EXPECT_EQ(load_book(file).header.gif_autoplay, 0);
    for (const wchar_t* key : { L"CLEARCACHE", L"AUTOBACKUP", L"AUTOIMM" })
        EXPECT_EQ(ini_number(key), 0) << key;
}

TEST_F(SettingsOfUser, OkWithoutAChangeLeavesTheFilesAsTheyWere)
{
    const fs::path file = open_numbered(3);
    restart();
    close();
    const std::string book = file_bytes(file);
    const std::string ini = file_bytes(root().settings_file());
    start().wait_for_window();
    settle();
    show_settings();
    press(VK_RETURN);
    await_closed();
    close();
    EXPECT_EQ(file_bytes(file), book);
    EXPECT_EQ(file_bytes(root().settings_file()), ini);
}

TEST_F(SettingsOfUser, AreNotKeptAfterEscOrTheCloseButton)
{
    const fs::path file = open_numbered(1);
    show_settings();
    click_setting(2550);
    press(VK_ESCAPE);
    await_closed();
    show_settings();
    click_setting(2552);
    chord({ VK_MENU, VK_F4 });
    await_closed();
    write_first(L"続き"); // the main window accepts input again
    close();
    EXPECT_EQ(load_book(file).header.gif_autoplay, 0);
    EXPECT_EQ(ini_number(L"AUTOIMM"), 0);
}

TEST_F(SettingsOfUser, ASpaceTogglesAndEnterIsOk)
{
    const fs::path file = open_numbered(1);
    show_settings();
    press(VK_SPACE);
    press(VK_RETURN);
    await_closed();
    close();
    EXPECT_EQ(load_book(file).header.gif_autoplay, 1);
}

TEST_F(SettingsOfUser, ANewOrderAsksAboutEditsAndShowsThePageAtThePosition)
{
    const fs::path file = open_sorted();
    expect_page(L"1");
    write_first(L"0");
    show_settings();
    step_down(3007, 1);
    click(settings_window().child(command::close_window).center());
    answer_box(leave_question, Icon::question, IDYES);
    expect_page(L"3");
    close();
    const book::Book saved = load_book(file);
    EXPECT_EQ(saved.header.sort_key, 3001);
    EXPECT_EQ(saved.pages[0].text[0], L"01\r\n");
    EXPECT_EQ(saved.pages[2].text[0], L"3\r\n");
}

TEST_F(SettingsOfUser, ANewOrderWithEditsThatCannotBeSavedIsGivenUp)
{
    const fs::path file = open_sorted();
    expect_page(L"1");
    write_first(L"0");
    {
        const ReadOnly protection(file);
        show_settings();
        step_down(3007, 1);
        click_setting(2553);
        click(settings_window().child(command::close_window).center());
        answer_box(leave_question, Icon::question, IDYES);
        program().wait_for_box().answer(IDOK);
        program().await_input();
        EXPECT_EQ(box(command::box_1).text(), L"01\r\n");
    }
    close();
    EXPECT_EQ(load_book(file).header.sort_key, 3000);
    EXPECT_EQ(load_book(file).header.wrap_text, 1);
    EXPECT_EQ(load_book(file).pages[0].text[0], L"01\r\n");
}

TEST_F(SettingsOfUser, AKeyThatFailsLeavesABookThatCanBeOpened)
{
    book::BookHeader header;
    header.order_mode = 2701;
    book::Page damaged = make_page(L"2");
    damaged.stamp = L"2020";
    const fs::path file = root().add_book(L"手帖.bok", { make_page(L"1"), damaged }, header);
    open_settled(file);
    show_settings();
    step_down(3007, 4);
    click(settings_window().child(command::close_window).center());
    answer_box(app::sort_failure, Icon::warning, IDOK);
    expect_page(L"1");
    close();
    EXPECT_EQ(load_book(file).header.sort_key, 3000);
    start().wait_for_window();
    settle();
    expect_page(L"1");
}

TEST_F(SettingsOfUser, TheMainWindowIsDisabledMeanwhile)
{
    open_numbered(2);
    show_settings();
    EXPECT_FALSE(main_window().is_enabled());
    main_window().post_command(command::show_settings);
    main_window().post_command(command::next_page);
    main_window().send(WM_NULL);
    press(VK_ESCAPE);
    await_closed();
    EXPECT_TRUE(main_window().is_enabled());
    expect_page(L"一");
}

TEST_F(SettingsOfUser, TheProgramEndsWhileTheyAreOpen)
{
    const fs::path file = open_numbered(2);
    show_settings();
    click_setting(2550);
    main_window().post(WM_CLOSE);
    EXPECT_EQ(program().exit_code(), 0u);
    EXPECT_EQ(load_book(file).header.gif_autoplay, 0);
}

TEST_F(SettingsOfUser, TheHandShowsOverTheLink)
{
    write_bytes(
        root().folder() / L"dat" / L"mail_address.txt", utf16_bytes(L"\xFEFFsomeone@example.com\r\n"));
    open_numbered(1);
    const Window window = show_settings();
    const look::SettingsLayout at = look::settings_layout();
    const auto answer_at = [&](int x, int y) {
        POINT point{ x, y };
        ClientToScreen(window.handle(), &point);
        move_mouse(point);
        program().await_input();
        return window.send(
            WM_SETCURSOR, reinterpret_cast<WPARAM>(window.handle()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    };
    expect_soon(LRESULT{ TRUE }, [&] { return answer_at(at.mail.left + 60, at.mail.top + 4); });
    expect_soon(LRESULT{ FALSE }, [&] { return answer_at(at.mail.left + 5, at.mail.top + 4); });
}

TEST_F(SettingsOfUser, OpeningsCostNothing)
{
    open_numbered(1);
    const auto open_and_close = [&](int count) {
        for (int i = 0; i < count; ++i) {
            main_window().post_command(command::show_settings);
            require("the settings show", [&] { return settings_window().exists(); });
            const Window window = settings_window();
            window.post(WM_CLOSE);
            require("the settings have closed", [&] { return !window.exists(); });
        }
    };
    open_and_close(10);
    const Holdings before = holdings_of(program());
    open_and_close(60);
    require_no_growth(before, holdings_of(program()));
}
