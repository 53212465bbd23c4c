// The settings window and the main window: what OK changes, and what may happen while it is open.
#include "app/wnd/settings_file.hpp"
#include "book/wnd/historywnd.hpp"
#include "core/folders.hpp"
#include "look/settings_view.hpp"
#include "look/wnd/palettewnd.hpp"
#include "tests/support/gui_app_windows.hpp"
#include "tests/support/gui_links.hpp"
#include "tests/support/gui_settings.hpp"
#include "tests/support/gui_shell_calls.hpp"
#include <fstream>

namespace {

namespace command = core::command;
using gui::SettingsUser;

class AppSettings : public gui::AppWindows {
protected:
    static void press(HWND window, int id) { SendMessageW(GetDlgItem(window, id), BM_CLICK, 0, 0); }
    static void press_ok(HWND window) { press(window, command::close_window); }
    static void select(HWND window, int combo, int row)
    {
        SendMessageW(GetDlgItem(window, combo), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    }
    void settings(const std::function<void(HWND)>& act)
    {
        SettingsUser user{ act };
        command(command::show_settings);
        EXPECT_TRUE(user.finish());
    }
    void send_to_main(int id) { SendMessageW(window().hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }
    void write_address(const char* address) const
    {
        std::ofstream{ std::filesystem::path{ core::folders().dat + L"\\mail_address.txt" } } << address;
    }
    static void click_link(HWND window)
    {
        SendMessageW(
            window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(60, look::settings_layout().mail.top + 4));
    }
};

TEST_F(AppSettings, OkStoresEverythingAlsoInTheFiles)
{
    open({ page(L"a") });
    settings([&](HWND window) {
        for (const int id : { 2549, 2550, 2551, 2552, 2553, 2554 })
            press(window, id);
        select(window, 3007, 5);
        select(window, 4004, 1);
        press_ok(window);
    });
    const look::SettingsChoice expected{ true, false, true, true, true, true, 3005, 4001 };
    EXPECT_EQ(look::current_settings(book().header, core::settings()), expected);
    EXPECT_FALSE(book().needs_update) << "served by the refresh";
    close();
    core::settings() = {};
    app::load_settings();
    EXPECT_EQ(look::current_settings(saved().header, core::settings()), expected);
}

TEST_F(AppSettings, CancellingStoresNothing)
{
    open({ page(L"a") });
    const book::BookHeader before = book().header;
    settings([&](HWND window) {
        for (const int id : { 2549, 2550, 2551, 2552, 2553, 2554 })
            press(window, id);
        select(window, 3007, 5);
    });
    EXPECT_EQ(book().header, before);
    EXPECT_EQ(core::settings(), core::Settings{});
}

TEST_F(AppSettings, ShowThemselvesAgain)
{
    open({ page(L"a") });
    settings([&](HWND window) {
        press(window, 2550);
        press_ok(window);
    });
    settings([&](HWND window) { press_ok(window); });
    EXPECT_EQ(book().header.gif_autoplay, 1);
}

TEST_F(AppSettings, ASecondOneIsRefused)
{
    open({ page(L"a") });
    bool returned = false; // a second run would last until the window closes
    settings([&](HWND window) {
        constexpr UINT limit = 3000;
        DWORD_PTR result = 0;
        returned = SendMessageTimeoutW(this->window().hwnd(), WM_COMMAND, command::show_settings, 0,
                       SMTO_NORMAL, limit, &result)
            != 0;
        press_ok(window);
    });
    EXPECT_TRUE(returned);
}

TEST_F(AppSettings, TheMainWindowAcceptsNoInputMeanwhile)
{
    open({ page(L"a"), page(L"b") });
    bool was_accepting = true;
    bool was_history_enabled = true;
    settings([&](HWND) {
        was_accepting = window().is_accepting_input();
        send_to_main(command::next_page);
        was_history_enabled = the<book::HistoryWnd>().is_enabled();
    });
    EXPECT_FALSE(was_accepting);
    EXPECT_FALSE(was_history_enabled);
    EXPECT_EQ(book().header.position, 0u);
    EXPECT_TRUE(window().is_accepting_input());
    EXPECT_TRUE(the<book::HistoryWnd>().is_enabled());
}

TEST_F(AppSettings, WindowsThatAreOpenMeanwhileKeepTheirState)
{
    open({ page_with_files({ L"a", L"b" }) });
    command(command::show_file_list_editor);
    command(command::toggle_results);
    command(command::show_palette);
    retype_list(L"x");
    bool was_read_only = false;
    settings([&](HWND window) {
        was_read_only = (GetWindowLongW(list_box(), GWL_STYLE) & ES_READONLY) != 0;
        SendMessageW(list_editor().hwnd(), WM_COMMAND, command::apply_file_list, 0);
        press(window, 2553); // wrapping creates the boxes again
        press_ok(window);
    });
    EXPECT_TRUE(was_read_only);
    EXPECT_EQ(book().header.wrap_text, 1);
    EXPECT_EQ(book().pages[0].files.size(), 2u) << "nothing is applied under another window's questions";
    EXPECT_TRUE(list_editor().is_open());
    EXPECT_TRUE(list_editor().is_modified());
    EXPECT_EQ(list_text(), L"x");
    EXPECT_FALSE(GetWindowLongW(list_box(), GWL_STYLE) & ES_READONLY);
    EXPECT_TRUE(results().is_open());
    EXPECT_TRUE(beside<look::PaletteWnd>().is_open());
    for (const int id : { command::box_1, command::box_2, command::box_3 })
        EXPECT_TRUE(IsWindowEnabled(box(id))) << id;
    list_editor().clear_modified();
}

TEST_F(AppSettings, OkForAnotherBookIsDropped)
{
    ASSERT_TRUE(book_of({ page(L"other") }).save_to(file(L"他.bok")));
    ASSERT_TRUE(book_of({ page(L"a") }).save_to(file(L"手帖.bok")));
    set_history({ file(L"手帖.bok"), file(L"他.bok") });
    ASSERT_TRUE(create());
    settings([&](HWND window) {
        press(window, 2550);
        press(window, 2552);
        send_to_main(command::first_history_entry + 1);
        press_ok(window);
    });
    EXPECT_EQ(book().path, file(L"他.bok"));
    EXPECT_EQ(book().header.gif_autoplay, 0);
    EXPECT_FALSE(core::settings().auto_imm);
}

TEST_F(AppSettings, WrappingKeepsALongEditedText)
{
    open({ page(L"a\r\n") });
    const std::wstring text = std::wstring(20'000, L'あ') + L"\r\n" + std::wstring(300, L'い');
    SetWindowTextW(box(command::box_1), text.c_str());
    SendMessageW(box(command::box_1), EM_SETMODIFY, TRUE, 0);
    settings([&](HWND window) {
        press(window, 2553);
        press_ok(window);
    });
    EXPECT_EQ(box_text(command::box_1), text);
    EXPECT_TRUE(is_modified(command::box_1));
    EXPECT_EQ(GetWindowLongW(box(command::box_1), GWL_STYLE) & ES_AUTOHSCROLL, 0);
    command(command::save_if_changed);
    EXPECT_EQ(saved().pages[0].text[0], text + L"\r\n");
}

TEST_F(AppSettings, OkStartsTheLinksOfTheWholeBook)
{
    book::Book quiet = book_of({ page(L"a"), page(L"b") });
    test_support::write_text(file(L"音.mp3"), L"x");
    quiet.pages[1].files = { file(L"音.mp3") };
    quiet.header.auto_file_search = 0;
    open(quiet);
    settings([&](HWND window) {
        press(window, 2549);
        press_ok(window);
    });
    EXPECT_TRUE(gui::pump_until(
        [&] { return std::filesystem::exists(gui::link_of(core::folders().shortcut, file(L"音.mp3"))); }));
}

TEST_F(AppSettings, TheLinkOpensTheMailProgram)
{
    write_address(" someone@example.com \r\nsecond line");
    open({ page(L"a") });
    const gui::ShellCalls shell;
    settings(click_link);
    EXPECT_EQ(gui::ShellCalls::calls,
        std::vector<std::wstring>{ L"open|mailto:someone%40example.com?Subject=&Body=|" });
}

TEST_F(AppSettings, WithoutAnAddressNothingIsOpened)
{
    open({ page(L"a") });
    const gui::ShellCalls shell;
    settings(click_link);
    EXPECT_TRUE(gui::ShellCalls::calls.empty());
}

TEST_F(AppSettings, AFailedMailIsReportedOverTheWindow)
{
    write_address("someone@example.com");
    open({ page(L"a") });
    const gui::ShellCalls shell{ 31 };
    HWND owner = nullptr;
    HICON icon = nullptr;
    std::vector<std::wstring> met;
    settings([&](HWND window) {
        const DWORD thread = GetWindowThreadProcessId(window, nullptr);
        std::thread user{ [&] {
            gui::poll_until([&] { return gui::dialog_of(thread) != nullptr; });
            HWND const dialog = gui::dialog_of(thread);
            owner = GetWindow(dialog, GW_OWNER) == window ? window : nullptr;
            icon = gui::box_icon(dialog);
            met = { gui::text_of(dialog), gui::text_of(GetDlgItem(dialog, 65535)) };
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        } };
        click_link(window);
        user.join();
        EXPECT_FALSE(IsWindowEnabled(this->window().hwnd()));
    });
    EXPECT_NE(owner, nullptr);
    EXPECT_EQ(met,
        (std::vector<std::wstring>{
            core::message_caption(book().path), L"Error: 既定のメーラーを開けませんでした．" }));
    EXPECT_EQ(icon, LoadIconW(nullptr, IDI_WARNING));
}

TEST_F(AppSettings, TheProgramEndsWithItOpen)
{
    open({ page(L"a") });
    HWND const main = window().hwnd();
    SettingsUser user{ [&](HWND window) {
        press(window, 2550);
        PostMessageW(main, WM_CLOSE, 0, 0);
        gui::poll_until([&] { return !IsWindow(main); });
    } };
    command(command::show_settings);
    EXPECT_TRUE(user.finish());
    EXPECT_FALSE(IsWindow(main));
    EXPECT_EQ(saved().header.gif_autoplay, 0);
    EXPECT_TRUE(gui::take_quit()) << "the program's loop ends too";
}

TEST_F(AppSettings, TheProgramEndsWithABoxOverItOpen)
{
    write_address("someone@example.com");
    open({ page(L"a") });
    const gui::ShellCalls shell{ 31 };
    HWND const main = window().hwnd();
    SettingsUser user{ [&](HWND shown) {
        const DWORD thread = GetWindowThreadProcessId(shown, nullptr);
        std::thread closing{ [&] {
            gui::poll_until([&] { return gui::dialog_of(thread) != nullptr; });
            PostMessageW(main, WM_CLOSE, 0, 0);
        } };
        click_link(shown);
        closing.join();
        gui::poll_until([&] { return !IsWindow(main); });
    } };
    command(command::show_settings);
    EXPECT_TRUE(user.finish());
    EXPECT_FALSE(IsWindow(main));
    EXPECT_TRUE(gui::take_quit());
}

TEST_F(AppSettings, IsRefusedWhileABoxIsOpen)
{
    open({ page(L"a"), page(L"b") });
    HWND shown = nullptr;
    answered(
        IDNO, [&] { command(command::delete_page); },
        [&] {
            PostMessageW(window().hwnd(), WM_COMMAND, command::show_settings, 0);
            SendMessageW(window().hwnd(), WM_NULL, 0, 0);
            shown = gui::settings_window_of(GetWindowThreadProcessId(window().hwnd(), nullptr));
        });
    EXPECT_EQ(shown, nullptr);
}

} // namespace
