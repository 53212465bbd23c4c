// The settings window.
#include "core/command_ids.hpp"
#include "core/passed_object.hpp"
#include "look/theme.hpp"
#include "look/wnd/settingwnd.hpp"
#include "look/wnd/themed.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_mouse.hpp"
#include "tests/support/gui_panel.hpp"
#include "tests/support/gui_settings.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include "tests/support/gui_window_theme.hpp"
#include <array>
#include <functional>

namespace {

namespace command = core::command;
using look::SettingsChoice;

constexpr SettingsChoice nothing_set{ .sort_key = 3000, .tab_label_box = 4000 };

using gui::SettingsUser;

class SettingsWindow : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top_.create(L"main"));
        top_.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND && LOWORD(message.wparam) == command::write_mail) {
                const auto* address = core::PassedObject::find<std::wstring>(message.lparam);
                mails_.push_back(address ? *address : L"?");
                after_mail();
            }
            return false;
        };
        top_.show(true);
        ASSERT_TRUE(gui::point_at({ 900, 700 }));
        ASSERT_TRUE(gui::bring_to_front(top_));
    }
    void TearDown() override { top_.destroy(); }

    // The result of the window after `act` on the second thread.
    std::optional<SettingsChoice> ask(std::function<void(HWND)> act,
        const SettingsChoice& shown = nothing_set, const std::wstring& address = L"")
    {
        SettingsUser user{ std::move(act) };
        auto result = settings_.ask(shown, address);
        EXPECT_TRUE(user.finish());
        EXPECT_FALSE(settings_.is_open());
        EXPECT_EQ(settings_.hwnd(), nullptr);
        EXPECT_TRUE(top_.is_enabled());
        return result;
    }
    static void press(HWND window, int id) { SendMessageW(GetDlgItem(window, id), BM_CLICK, 0, 0); }
    static void press_ok(HWND window) { press(window, command::close_window); }
    static void select(HWND window, int combo, int row)
    {
        SendMessageW(GetDlgItem(window, combo), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    }
    static HWND focus_of(HWND window)
    {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
        return info.hwndFocus;
    }
    // On the second thread.
    static void type_key(HWND window, WORD key, const std::function<bool()>& until)
    {
        gui::poll_until([&] { return GetForegroundWindow() == window; });
        gui::press_key(key);
        EXPECT_TRUE(gui::poll_until(until)) << key;
    }
    static platform::Rect link_place(HWND window)
    {
        const platform::Rect line = look::settings_layout().mail;
        HFONT const font = look::shared_font(look::SharedFont::ui_9);
        const ovlib::MemDC dc;
        const ovlib::ObjectSelection selected{ dc, font };
        SIZE label{};
        GetTextExtentPoint32W(dc.handle(), look::mail_label, 6, &label);
        (void)window;
        return { line.left + static_cast<int>(label.cx), line.top, line.right, line.bottom };
    }

    const gui::Look look_;
    gui::TopWnd top_;
    look::SettingWnd settings_{ &top_ };
    std::vector<std::wstring> mails_;
    std::function<void()> after_mail = [] {};
};

TEST_F(SettingsWindow, HasItsFrameAndIsModal)
{
    std::wstring title;
    SIZE client{};
    DWORD style = 0;
    HWND owner = nullptr;
    bool is_main_enabled = true;
    ask([&](HWND window) {
        title = gui::text_of(window);
        RECT rect{};
        GetClientRect(window, &rect);
        client = { rect.right, rect.bottom };
        style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
        owner = GetWindow(window, GW_OWNER);
        gui::poll_until([&] { return !IsWindowEnabled(top_.hwnd()); });
        is_main_enabled = IsWindowEnabled(top_.hwnd()) != FALSE;
    });
    EXPECT_EQ(title, L"設定");
    EXPECT_EQ(client.cx, 480);
    EXPECT_EQ(client.cy, 210);
    EXPECT_EQ(style & (WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | WS_MAXIMIZEBOX | WS_THICKFRAME),
        DWORD{ WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN });
    EXPECT_EQ(owner, top_.hwnd());
    EXPECT_FALSE(is_main_enabled);
    EXPECT_EQ(GetActiveWindow(), top_.hwnd());
}

TEST_F(SettingsWindow, HasItsTextsToTheLetterAndShowsThemCompletely)
{
    const auto check = [&](HWND window) {
        const auto text = [&](int id) { return gui::text_of(GetDlgItem(window, id)); };
        EXPECT_EQ(text(2550), L"GIF の自動再生");
        EXPECT_EQ(text(2549), L"ファイルの自動探索の有効化");
        EXPECT_EQ(text(2553), L"テキストを右端で折り返す");
        EXPECT_EQ(text(2552), L"テキスト入力時にTIPを有効化");
        EXPECT_EQ(text(2551), L"Bookのロード時にバックアップを作成");
        EXPECT_EQ(text(2554), L"アプリ終了時にブラウザキャッシュを削除");
        EXPECT_EQ(text(1037), L"OK");
        const auto items = [&](int id) {
            HWND const combo = GetDlgItem(window, id);
            std::vector<std::wstring> texts;
            const auto count = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
            for (int i = 0; i < count; ++i) {
                select(window, id, i);
                texts.push_back(gui::text_of(combo));
                gui::expect_complete_texts(window);
            }
            return texts;
        };
        EXPECT_EQ(items(3007),
            (std::vector<std::wstring>{ L"テキストボックス1", L"テキストボックス2", L"テキストボックス3",
                L"作成日時", L"更新日時", L"データサイズ" }));
        EXPECT_EQ(items(4004),
            (std::vector<std::wstring>{ L"テキストボックス1", L"テキストボックス2", L"テキストボックス3" }));
    };
    for (std::int32_t theme = look::theme_standard; theme <= look::theme_blue; ++theme) {
        look::load_theme(theme);
        SCOPED_TRACE(theme);
        ask(check);
    }
}

TEST_F(SettingsWindow, ReturnsWhatItShowsIfNothingIsChanged)
{
    const SettingsChoice all{ true, true, true, true, true, true, 3004, 4002 };
    EXPECT_EQ(ask(press_ok, all), all);
    EXPECT_EQ(ask(press_ok, nothing_set), nothing_set);
}

TEST_F(SettingsWindow, EachCheckSetsItsValue)
{
    const std::array<std::pair<int, bool SettingsChoice::*>, 6> rows{ {
        { 2549, &SettingsChoice::file_search },
        { 2550, &SettingsChoice::gif_autoplay },
        { 2551, &SettingsChoice::auto_backup },
        { 2552, &SettingsChoice::auto_imm },
        { 2553, &SettingsChoice::wrap_text },
        { 2554, &SettingsChoice::clear_cache },
    } };
    for (const auto& [id, value] : rows) {
        SettingsChoice expected = nothing_set;
        expected.*value = true;
        const auto toggle = [id](HWND window) {
            press(window, id);
            press_ok(window);
        };
        EXPECT_EQ(ask(toggle), expected) << id;
        EXPECT_EQ(ask(toggle, expected), nothing_set) << id;
    }
}

TEST_F(SettingsWindow, EachItemOfTheCombosSetsItsNumber)
{
    for (int row = 0; row < 6; ++row) {
        SettingsChoice expected = nothing_set;
        expected.sort_key = 3000 + row;
        expected.tab_label_box = 4000 + row / 2;
        EXPECT_EQ(ask([&](HWND window) {
            select(window, 3007, row);
            select(window, 4004, row / 2);
            press_ok(window);
        }),
            expected);
        int sort_row = -1;
        int tab_row = -1;
        ask(
            [&](HWND window) {
                sort_row = static_cast<int>(SendMessageW(GetDlgItem(window, 3007), CB_GETCURSEL, 0, 0));
                tab_row = static_cast<int>(SendMessageW(GetDlgItem(window, 4004), CB_GETCURSEL, 0, 0));
            },
            expected);
        EXPECT_EQ(sort_row, row);
        EXPECT_EQ(tab_row, row / 2);
    }
}

TEST_F(SettingsWindow, AnyOtherWayOfClosingReturnsNothing)
{
    EXPECT_EQ(ask([](HWND window) { press(window, 2550); }), std::nullopt) << "WM_CLOSE";
    EXPECT_EQ(ask([](HWND window) {
        press(window, 2550);
        type_key(window, VK_ESCAPE, [&] { return !IsWindow(window); });
    }),
        std::nullopt);
    EXPECT_EQ(ask([](HWND window) { PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0); }), std::nullopt);
}

TEST_F(SettingsWindow, EnterIsOkFromEveryControl)
{
    top_.answer = [](ovlib::WndMessage& message) {
        if (message.message == WM_APP)
            SetFocus(reinterpret_cast<HWND>(message.wparam));
        return message.message == WM_APP;
    };
    for (const int id : { 2550, 2552, 2549, 2551, 2553, 2554, 3007, 4004, 1037 }) {
        EXPECT_EQ(ask([&](HWND window) {
            gui::poll_until([&] { return GetForegroundWindow() == window; });
            HWND const control = GetDlgItem(window, id);
            SendMessageW(top_.hwnd(), WM_APP, reinterpret_cast<WPARAM>(control), 0);
            EXPECT_EQ(focus_of(window), control);
            PostMessageW(control, WM_KEYDOWN, VK_RETURN, 1);
            EXPECT_TRUE(gui::poll_until([&] { return !IsWindow(window); })) << id;
        }),
            nothing_set)
            << id;
    }
}

TEST_F(SettingsWindow, TabGoesThroughTheControlsByReadingDirection)
{
    std::vector<int> order;
    ask([&](HWND window) {
        gui::poll_until([&] { return GetParent(focus_of(window)) == window; });
        for (int i = 0; i < 10; ++i) {
            HWND const focused = focus_of(window);
            order.push_back(GetDlgCtrlID(focused));
            type_key(window, VK_TAB, [&] { return focus_of(window) != focused; });
        }
    });
    EXPECT_EQ(order, (std::vector{ 2550, 2552, 2549, 2551, 2553, 2554, 3007, 4004, 1037, 2550 }));
}

TEST_F(SettingsWindow, SpaceTogglesTheFocusedCheck)
{
    const auto choice = ask([&](HWND window) {
        gui::poll_until([&] { return GetParent(focus_of(window)) == window; });
        auto* const check =
            dynamic_cast<look::MyCheckBox*>(ovlib::Wnd::from_handle(GetDlgItem(window, 2550)));
        type_key(window, VK_SPACE, [&] { return check->is_checked(); });
        press_ok(window);
    });
    ASSERT_TRUE(choice);
    EXPECT_TRUE(choice->gif_autoplay);
}

TEST_F(SettingsWindow, AClickOnTheAddressWritesAMail)
{
    HCURSOR hand = nullptr;
    top_.answer = [this, inner = top_.answer, &hand](ovlib::WndMessage& message) {
        if (message.message != WM_APP)
            return inner(message);
        HWND const window = settings_.hwnd();
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
        if (SendMessageW(
                window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE))
            == TRUE)
            hand = GetCursor();
        return true;
    };
    ask(
        [&](HWND window) {
            const platform::Rect link = link_place(window);
            const LPARAM inside = MAKELPARAM(link.left + 2, link.top + 4);
            SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, inside);
            SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(link.left - 3, link.top + 4));
            SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(link.left + 2, link.top - 3));
            SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(link.right - 2, link.top + 4));
            POINT at{ link.left + 2, link.top + 4 };
            ClientToScreen(window, &at);
            SetCursorPos(at.x, at.y);
            SendMessageW(top_.hwnd(), WM_APP, 0, 0); // the cursor belongs to the window's thread
        },
        nothing_set, L"a@example.com");
    EXPECT_EQ(mails_, std::vector<std::wstring>{ L"a@example.com" });
    EXPECT_EQ(hand, LoadCursorW(nullptr, IDC_HAND));
}

TEST_F(SettingsWindow, WithoutAnAddressThereIsNoLink)
{
    ask([&](HWND window) {
        const platform::Rect link = link_place(window);
        for (int x = link.left - 4; x < link.right; ++x)
            SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, link.top + 4));
    });
    EXPECT_TRUE(mails_.empty());
}

TEST_F(SettingsWindow, ALongAddressEndsBeforeTheButton)
{
    ask(
        [&](HWND window) {
            const RECT button = gui::place_in_parent(GetDlgItem(window, 1037));
            SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(button.left - 5, 176));
        },
        nothing_set, std::wstring(300, L'a'));
    EXPECT_TRUE(mails_.empty());
}

TEST_F(SettingsWindow, SurvivesItsDestructionDuringAMail)
{
    after_mail = [this] { settings_.destroy(); };
    EXPECT_EQ(ask(
                  [&](HWND window) {
                      const platform::Rect link = link_place(window);
                      SendMessageW(
                          window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(link.left + 2, link.top + 4));
                  },
                  nothing_set, L"a@example.com"),
        std::nullopt);
    EXPECT_EQ(mails_.size(), 1u);
}

TEST_F(SettingsWindow, HasTheColoursOfEveryTheme)
{
    for (std::int32_t theme = look::theme_standard; theme <= look::theme_blue; ++theme) {
        look::load_theme(theme);
        ask(
            [&](HWND window) {
                gui::poll_until([&] { return GetForegroundWindow() == window; });
                const look::ThemePalette& colors = look::palette();
                const look::Color back = colors.panel_back;
                EXPECT_EQ(gui::pixel_of(window, 3, 3), back.value) << theme;
                EXPECT_EQ(gui::pixel_of(window, 10, 50), colors.panel_line.value) << theme;
                EXPECT_EQ(gui::pixel_of(window, 5, 149), back.value) << theme;
                for (const int y : { 150, 151 })
                    EXPECT_EQ(gui::pixel_of(window, 5, y), back.shade(-50).value) << theme;
                for (const int y : { 152, 153 })
                    EXPECT_EQ(gui::pixel_of(window, 5, y), back.shade(100).value) << theme;
                for (const int y : { 154, 209 })
                    EXPECT_EQ(gui::pixel_of(window, 5, y), back.shade(-20).value) << theme;
                const std::uint32_t text = colors.list_text.value;
                EXPECT_TRUE(gui::has_color(window, { 20, 4, 130, 20 }, text)) << theme << " heading";
                EXPECT_TRUE(gui::has_color(window, { 20, 92, 130, 110 }, text)) << theme << " sort label";
                EXPECT_TRUE(gui::has_color(window, { 220, 92, 330, 110 }, text)) << theme << " tab label";
                EXPECT_TRUE(gui::has_color(window, { 20, 170, 50, 190 }, text)) << theme << " mail";
                EXPECT_TRUE(gui::has_color(window, { 50, 170, 200, 190 }, colors.link_text.value)) << theme;
                HWND const combo = GetDlgItem(window, 3007);
                EXPECT_TRUE(gui::has_color(combo, { 3, 3, 90, 18 }, colors.box_back.value)) << theme;
                HWND const check = GetDlgItem(window, 2550);
                EXPECT_TRUE(gui::has_color(check, { 18, 0, 90, 18 }, colors.check_text.value)) << theme;
                EXPECT_EQ(gui::pixel_of(check, 17, 1), back.value) << theme;
            },
            nothing_set, L"a@example.com");
    }
}

TEST_F(SettingsWindow, TakesAThemeThatIsChosenWhileItIsOpen)
{
    top_.answer = [inner = top_.answer](ovlib::WndMessage& message) {
        if (message.message == WM_APP) {
            look::load_theme(look::theme_dark);
            look::apply_theme_to_windows();
        }
        return inner(message);
    };
    ask([&](HWND window) {
        SendMessageW(top_.hwnd(), WM_APP, 0, 0);
        const look::ThemePalette dark = look::theme_colors(look::theme_dark);
        EXPECT_EQ(gui::pixel_of(window, 3, 3), dark.panel_back.value);
        HWND const check = GetDlgItem(window, 2550);
        EXPECT_TRUE(gui::has_color(check, { 18, 0, 90, 18 }, dark.check_text.value));
    });
}

TEST_F(SettingsWindow, OpensCentredAndThenWhereTheUserLeftIt)
{
    RECT first{};
    ask([&](HWND window) {
        GetWindowRect(window, &first);
        SetWindowPos(window, nullptr, 40, 60, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    });
    RECT main{};
    GetWindowRect(top_.hwnd(), &main);
    EXPECT_NEAR(first.left + first.right, main.left + main.right, 2);
    EXPECT_NEAR(first.top + first.bottom, main.top + main.bottom, 2);
    RECT second{};
    ask([&](HWND window) { GetWindowRect(window, &second); });
    EXPECT_EQ(second.left, 40);
    EXPECT_EQ(second.top, 60);
}

// A combo box with a visual style would be light in the dark theme.
TEST_F(SettingsWindow, ItsCombosHaveNoVisualStyle)
{
    const gui::UnstyledWindows unstyled;
    ask([&](HWND window) {
        for (const int id : { 3007, 4004 })
            EXPECT_TRUE(unstyled.contains(GetDlgItem(window, id))) << id;
    });
}

TEST_F(SettingsWindow, AControlThatCannotBeMadeKeepsItsValue)
{
    const SettingsChoice all{ true, true, true, true, true, true, 3004, 4002 };
    const gui::RefusedWindows refused{ L"ComboBox" };
    EXPECT_EQ(ask(press_ok, all), all);
}

// Few handles for as many rounds, so that a leak of one handle per round is found.
TEST_F(SettingsWindow, OpeningsCostNoHandles)
{
    const gui::UserCrowd windows{ 60 };
    const gui::GdiCrowd drawing{ 120 };
    for (int i = 0; i < 150; ++i) {
        ASSERT_TRUE(settings_.create(L"")) << i;
        settings_.destroy();
    }
    gui::expect_handles_to_spare(20);
}

TEST_F(SettingsWindow, PaintingCostsNoHandles)
{
    settings_.show(true);
    const gui::GdiCrowd drawing{ 300 };
    for (int i = 0; i < 400; ++i)
        RedrawWindow(settings_.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    gui::expect_handles_to_spare(20);
    settings_.destroy();
}

} // namespace
