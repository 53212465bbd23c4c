// The window in which a page's file list is edited as a text.
#include "book/file_list_text.hpp"
#include "book/wnd/filelist_editor.hpp"
#include "core/command_ids.hpp"
#include "look/wnd/themed.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_input.hpp"
#include "tests/support/gui_look.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <optional>

extern "C" void* __imp_ShowWindow;

namespace {

namespace command = core::command;

int last_show_command = -1;

class FileListWindow : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top_.create(L"top"));
        top_.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND)
                sent_.push_back({ LOWORD(message.wparam), HIWORD(message.wparam), message.lparam });
            return message.message == WM_COMMAND;
        };
        top_.show(true);
        ASSERT_TRUE(gui::point_at({ 900, 700 }));
    }
    ~FileListWindow() override { top_.destroy(); }

    void open(std::vector<std::wstring> files, std::uint64_t current = 0)
    {
        page_.emplace();
        page_->files = std::move(files);
        page_->current_file = current;
        window_.show(true);
        gui::pump();
    }
    // Opens it and gives it the focus, as a click does.
    void open_active(std::vector<std::wstring> files, std::uint64_t current = 0)
    {
        open(std::move(files), current);
        ASSERT_TRUE(gui::bring_to_front(window_));
        ASSERT_TRUE(gui::pump_until([&] { return GetFocus() == box(); }));
    }
    HWND control(int id) const { return GetDlgItem(window_.hwnd(), id); }
    HWND box() const { return control(command::file_list_box); }
    HWND apply_button() const { return control(command::apply_file_list); }
    bool is_lit() const
    {
        const bool is_enabled = IsWindowEnabled(apply_button()) != FALSE;
        const auto& button = dynamic_cast<look::ImageButton&>(*ovlib::Wnd::from_handle(apply_button()));
        EXPECT_EQ(button.is_highlighted(), is_enabled);
        return is_enabled;
    }
    std::wstring text() const { return gui::text_of(box()); }
    std::pair<DWORD, DWORD> selection() const
    {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(box(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return { start, end };
    }
    LRESULT top_line() const { return SendMessageW(box(), EM_GETFIRSTVISIBLELINE, 0, 0); }
    void type(const std::wstring& typed) const
    {
        for (const wchar_t unit : typed)
            SendMessageW(box(), WM_CHAR, unit, 1);
    }
    static void press(WORD key)
    {
        gui::press_key(key);
        gui::pump_until([&] { return GetAsyncKeyState(key) >= 0; });
        gui::pump();
    }

    struct Sent {
        int id;
        int code;
        std::int64_t lparam;
        friend bool operator==(const Sent&, const Sent&) = default;
    };
    using Commands = std::vector<Sent>;
    Commands take_sent() { return std::exchange(sent_, {}); }

    const gui::Look look_;
    gui::TopWnd top_;
    std::optional<book::Page> page_;
    int applied_ = 0;
    std::vector<std::wstring> applied_texts_;
    bool may_close_ = true;
    int asked_ = 0;
    Commands sent_;
    book::FileListEditor window_{ &top_, 0,
        { [this] { return page_ ? &*page_ : nullptr; },
            [this] {
                applied_texts_.push_back(window_.typed_text());
                window_.clear_modified();
            },
            [this] {
                ++asked_;
                return may_close_;
            } } };
};

TEST_F(FileListWindow, HasItsClassTitleAndClientSizeAndIsCentredEachTime)
{
    EXPECT_EQ(window_.hwnd(), nullptr) << "it is created at its first opening";
    for (int round = 0; round < 2; ++round) {
        open({ L"a" });
        wchar_t name[64] = {};
        GetClassNameW(window_.hwnd(), name, 64);
        EXPECT_EQ(std::wstring(name), L"ovlib_filelist_editor[192]");
        EXPECT_EQ(window_.text(), L"リストの編集");
        EXPECT_EQ(window_.client_size().cx, 680);
        EXPECT_EQ(window_.client_size().cy, 400);
        EXPECT_EQ(GetWindow(window_.hwnd(), GW_OWNER), top_.hwnd());
        const RECT place = window_.rect();
        const RECT over = top_.rect();
        EXPECT_NEAR(place.left + place.right, over.left + over.right, 2);
        EXPECT_NEAR(place.top + place.bottom, over.top + over.bottom, 2);
        window_.move(300, 200, false);
        window_.show(false);
    }
    EXPECT_FALSE(GetWindowLongW(window_.hwnd(), GWL_STYLE) & (WS_MAXIMIZEBOX | WS_THICKFRAME));
}

TEST_F(FileListWindow, IsShownWithoutBeingActivated)
{
    last_show_command = -1;
    const gui::ReplacedImport<decltype(ShowWindow)> recording{ &__imp_ShowWindow,
        [](HWND hwnd, int how) -> BOOL {
            last_show_command = how;
            return SetWindowPos(hwnd, nullptr, 0, 0, 0, 0,
                SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOZORDER
                    | static_cast<UINT>(how == SW_HIDE ? SWP_HIDEWINDOW : SWP_SHOWWINDOW));
        } };
    ASSERT_TRUE(gui::bring_to_front(top_));
    open({ L"a" });
    EXPECT_EQ(last_show_command, SW_SHOWNA);
    EXPECT_EQ(GetForegroundWindow(), top_.hwnd());
}

TEST_F(FileListWindow, ShowsEachEntryOnALineAndSelectsTheCurrentOne)
{
    open({ L"C:\\一.txt", L"C:\\二.txt", L"https://例.jp" }, 1);
    EXPECT_EQ(text(), L"C:\\一.txt\r\nC:\\二.txt\r\nhttps://例.jp\r\n");
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>{ 10, 18 }));
    EXPECT_FALSE(is_lit());
    EXPECT_FALSE(window_.is_modified());
    ASSERT_FALSE(sent_.empty());
    EXPECT_EQ(sent_.back(), (Sent{ command::renew_edited_mark, 0, 0 }));
}

TEST_F(FileListWindow, ScrollsTheCurrentEntryToTheTop)
{
    std::vector<std::wstring> files;
    for (int i = 0; i < 200; ++i)
        files.push_back(L"C:\\" + std::to_wstring(i) + L".txt");
    open(files, 120);
    EXPECT_EQ(top_line(), 120);
    const auto expected = book::file_list_text(*page_);
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>(expected.start, expected.end)));
    page_->current_file = 3;
    window_.load_page();
    EXPECT_EQ(top_line(), 3);
}

TEST_F(FileListWindow, IsEmptyForAnEmptyListAndWithoutAPage)
{
    open({ L"a" });
    page_->files.clear();
    window_.load_page();
    EXPECT_EQ(text(), L"");
    page_->files = { L"b" };
    window_.load_page();
    page_.reset();
    take_sent();
    window_.load_page();
    EXPECT_EQ(text(), L"");
    EXPECT_EQ(take_sent(), (Commands{ { command::renew_edited_mark, 0, 0 } }));
}

TEST_F(FileListWindow, KeepsCaretAndScrollPositionIfItsTextIsTheSame)
{
    std::vector<std::wstring> files(100, L"C:\\同じ.txt");
    open(files, 0);
    SendMessageW(box(), EM_SETSEL, 5, 7);
    SendMessageW(box(), EM_LINESCROLL, 0, 40);
    const LRESULT line = top_line();
    ASSERT_GT(line, 20);
    window_.load_page();
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>{ 5, 7 }));
    EXPECT_EQ(top_line(), line);
    page_->current_file = 2;
    window_.load_page();
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>{ 22, 31 })) << "another entry is the selected one";
}

TEST_F(FileListWindow, TypingLightsTheButtonAndIsForwarded)
{
    open({ L"a" });
    take_sent();
    type(L"x");
    EXPECT_TRUE(is_lit());
    EXPECT_TRUE(window_.is_modified());
    ASSERT_EQ(sent_.size(), 1u);
    EXPECT_EQ(sent_[0].id, command::file_list_box);
    EXPECT_EQ(sent_[0].code, command::edit_changed);
    window_.clear_modified();
    EXPECT_FALSE(is_lit());
    EXPECT_FALSE(window_.is_modified());
}

TEST_F(FileListWindow, ATypedTextIsReplacedByTheListOnceItIsUnmodified)
{
    open({ L"a" });
    type(L"x");
    window_.clear_modified();
    window_.load_page();
    EXPECT_EQ(text(), L"a\r\n");
}

TEST_F(FileListWindow, AppliesOnlyATypedText)
{
    open({ L"a" });
    window_.send_command(command::apply_file_list, 0, 0);
    EXPECT_TRUE(applied_texts_.empty());
    SendMessageW(box(), EM_SETSEL, 0, -1);
    type(L"b\r\nc");
    SendMessageW(apply_button(), BM_CLICK, 0, 0);
    ASSERT_EQ(applied_texts_.size(), 1u);
    EXPECT_EQ(applied_texts_[0].substr(0, 1), L"b");
    EXPECT_FALSE(is_lit());
    type(L"d");
    SendMessageW(box(), WM_COMMAND, MAKEWPARAM(command::accelerator_save, 1), 0);
    EXPECT_EQ(applied_texts_.size(), 2u);
}

TEST_F(FileListWindow, TheFocusLeavesTheButtonBeforeItIsDisabled)
{
    open_active({ L"a" });
    type(L"x");
    SetFocus(apply_button());
    press(VK_RETURN);
    EXPECT_EQ(applied_texts_.size(), 1u);
    EXPECT_EQ(GetFocus(), box());
    type(L"y");
    SetFocus(apply_button());
    SendMessageW(box(), WM_COMMAND, MAKEWPARAM(command::accelerator_save, 1), 0);
    EXPECT_EQ(GetFocus(), box());
}

TEST_F(FileListWindow, TabGoesFromTheBoxToTheButtons)
{
    open_active({ L"a" });
    type(L"x");
    press(VK_TAB);
    EXPECT_EQ(GetFocus(), apply_button());
    press(VK_TAB);
    EXPECT_EQ(GetFocus(), control(command::close_window));
    press(VK_TAB);
    EXPECT_EQ(GetFocus(), box());
    window_.clear_modified();
    press(VK_TAB);
    EXPECT_EQ(GetFocus(), control(command::close_window)) << "a disabled button is skipped";
    EXPECT_EQ(text(), L"x\r\n");
}

TEST_F(FileListWindow, CtrlASelectsAllAndCtrlZUndoes)
{
    open_active({ L"abc", L"def" });
    {
        const gui::HeldKey control(VK_CONTROL);
        press('A');
    }
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>{ 0, 10 }));
    EXPECT_FALSE(window_.is_modified());
    EXPECT_FALSE(is_lit()) << "selecting changes nothing";
    press('X');
    ASSERT_TRUE(gui::pump_until([&] { return text().size() == 1; }));
    const gui::HeldKey control(VK_CONTROL);
    press('Z');
    EXPECT_TRUE(gui::pump_until([&] { return text() == L"abc\r\ndef\r\n"; })) << text().size();
}

// The character is what the system sends for Ctrl+A. A multi-line box would drop it.
TEST_F(FileListWindow, TheCharacterOfCtrlASelectsAllAndIsNotTyped)
{
    open_active({ L"abc", L"def" });
    SendMessageW(box(), WM_CHAR, 1, 1);
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>{ 0, 10 }));
    EXPECT_EQ(text(), L"abc\r\ndef\r\n");
    EXPECT_FALSE(window_.is_modified());
}

TEST_F(FileListWindow, PaintsANewListAtOnce)
{
    open_active({ L"■■■", L"■■■" });
    RedrawWindow(box(), nullptr, nullptr, RDW_UPDATENOW);
    const auto has_text = [&] {
        const ovlib::ClientDC dc{ *ovlib::Wnd::from_handle(box()) };
        const COLORREF ground = GetPixel(dc.handle(), 300, 300);
        for (int x = 4; x < 40; ++x)
            if (GetPixel(dc.handle(), x, 9) != ground)
                return true;
        return false;
    };
    ASSERT_TRUE(has_text());
    page_->files.clear();
    window_.load_page();
    EXPECT_FALSE(has_text());
}

TEST_F(FileListWindow, ClosesUnmodifiedWithoutAQuestionInEachWay)
{
    const std::vector<std::function<void()>> ways{
        [&] { press(VK_ESCAPE); },
        [&] { SendMessageW(window_.hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0); },
        [&] { SendMessageW(control(command::close_window), BM_CLICK, 0, 0); },
        [&] { SendMessageW(window_.hwnd(), WM_CLOSE, 0, 0); },
    };
    for (std::size_t i = 0; i < ways.size(); ++i) {
        open_active({ L"a" });
        take_sent();
        ways[i]();
        EXPECT_FALSE(window_.is_open()) << i;
        EXPECT_FALSE(window_.is_visible()) << i;
        EXPECT_EQ(asked_, 0) << i;
        EXPECT_EQ(take_sent(),
            (Commands{ { command::renew_edited_mark, 0, 0 }, { command::request_refresh, 0, 32774 } }))
            << i;
        EXPECT_EQ(text(), L"") << "a closed window keeps no text";
    }
}

TEST_F(FileListWindow, EscTheCloseButtonAndTheXAskAboutATypedText)
{
    const std::vector<std::function<void()>> ways{
        [&] { press(VK_ESCAPE); },
        [&] { SendMessageW(window_.hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0); },
        [&] { SendMessageW(control(command::close_window), BM_CLICK, 0, 0); },
    };
    for (std::size_t i = 0; i < ways.size(); ++i) {
        open_active({ L"a" });
        type(L"x");
        may_close_ = false;
        asked_ = 0;
        ways[i]();
        EXPECT_EQ(asked_, 1) << i;
        EXPECT_TRUE(window_.is_open()) << i;
        EXPECT_EQ(text(), L"x\r\n") << "the first entry was selected";
        may_close_ = true;
        ways[i]();
        EXPECT_EQ(asked_, 2) << i;
        EXPECT_FALSE(window_.is_open()) << i;
    }
}

TEST_F(FileListWindow, ABareCloseDropsATypedTextWithoutAQuestion)
{
    open({ L"a" });
    type(L"x");
    take_sent();
    window_.send(WM_CLOSE, 0, 0);
    EXPECT_FALSE(window_.is_open());
    EXPECT_EQ(asked_, 0);
    EXPECT_FALSE(window_.is_modified());
    open({ L"a" });
    EXPECT_EQ(text(), L"a\r\n");
}

TEST_F(FileListWindow, AsksWithItsOwnCaptionAndHoldsTheInput)
{
    open({ L"a" });
    take_sent();
    std::wstring caption;
    std::vector<bool> has_button;
    HWND owner = nullptr;
    gui::DialogDriver user([&](HWND dialog) {
        caption = gui::text_of(dialog);
        for (const int id : { IDYES, IDNO, IDCANCEL })
            has_button.push_back(GetDlgItem(dialog, id) != nullptr);
        owner = GetWindow(dialog, GW_OWNER);
        PostMessageW(dialog, WM_COMMAND, IDNO, 0);
    });
    EXPECT_EQ(window_.ask(book::apply_file_list_question), IDNO);
    ASSERT_TRUE(user.finish());
    EXPECT_EQ(caption, L"Pagewick - リストの編集");
    EXPECT_EQ(has_button, (std::vector{ true, true, true }));
    EXPECT_EQ(owner, window_.hwnd());
    EXPECT_EQ(take_sent(),
        (Commands{ { command::set_accepting_input, 0, 0 }, { command::set_accepting_input, 0, 1 } }));
}

TEST_F(FileListWindow, ASecondWishToCloseDuringTheQuestionDoesNothing)
{
    open({ L"a" });
    type(L"x");
    gui::DialogDriver user([&](HWND dialog) {
        SendMessageW(window_.hwnd(), WM_SYSCOMMAND, SC_CLOSE, 0);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(window_.ask(book::apply_file_list_question), IDCANCEL);
    ASSERT_TRUE(user.finish());
    EXPECT_EQ(asked_, 0);
    EXPECT_TRUE(window_.is_open());
}

TEST_F(FileListWindow, AQuestionSurvivesTheEndOfItsWindow)
{
    open({ L"a" });
    top_.answer = [this](ovlib::WndMessage& message) {
        if (message.message == WM_APP)
            window_.destroy();
        return message.message == WM_COMMAND;
    };
    gui::DialogDriver user([&](HWND) { PostMessageW(top_.hwnd(), WM_APP, 0, 0); });
    window_.ask(book::apply_file_list_question);
    EXPECT_FALSE(window_.is_window());
    gui::take_quit();
    user.finish();
}

TEST_F(FileListWindow, BecomesReadOnlyWhileHiddenAndBeforeItsCreation)
{
    window_.set_read_only(true);
    open({ L"a" });
    const auto is_read_only = [&] { return (GetWindowLongW(box(), GWL_STYLE) & ES_READONLY) != 0; };
    EXPECT_TRUE(is_read_only());
    window_.show(false);
    window_.set_read_only(false);
    open({ L"a" });
    EXPECT_FALSE(is_read_only());
    window_.set_read_only(true);
    EXPECT_TRUE(is_read_only());
    type(L"x");
    EXPECT_EQ(text(), L"a\r\n");
}

TEST_F(FileListWindow, HoldsLongListsAndTakesFurtherTyping)
{
    open({ std::wstring(700'000, L'長') });
    EXPECT_EQ(text().size(), 700'002u);
    SendMessageW(box(), EM_SETSEL, 0, 0);
    type(L"xyz");
    EXPECT_EQ(text().size(), 700'005u);
    EXPECT_TRUE(window_.is_modified());
    EXPECT_EQ(window_.typed_text().substr(0, 4), L"xyz長");
    window_.clear_modified();
    page_->files = { L"a" };
    window_.load_page();
    EXPECT_EQ(SendMessageW(box(), EM_GETLIMITTEXT, 0, 0), 524'288);
}

TEST_F(FileListWindow, HoldsTenThousandEntries)
{
    std::vector<std::wstring> files;
    for (int i = 0; i < 10'000; ++i)
        files.push_back(L"C:\\資料\\" + std::to_wstring(i) + L".txt");
    open(files, 9'000);
    EXPECT_EQ(SendMessageW(box(), EM_GETLINECOUNT, 0, 0), 10'001);
    EXPECT_EQ(top_line(), 9'000);
    EXPECT_EQ(book::file_list_entries(window_.typed_text()), files);
}

TEST_F(FileListWindow, KeepsSingleControlCharactersOfItsEntries)
{
    const std::vector<std::wstring> files{ L"a\rb", L"c\nd", L"e" };
    open(files);
    EXPECT_EQ(text(), L"a\rb\r\nc\nd\r\ne\r\n");
}

TEST_F(FileListWindow, ItsBackgroundMovesItAsItsCaptionDoes)
{
    open({ L"a" });
    const auto hit = [&](POINT client) {
        const POINT at = gui::on_screen(window_, client);
        return window_.send(WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y));
    };
    EXPECT_EQ(hit({ 3, 3 }), HTCAPTION);
    EXPECT_EQ(hit({ 100, 380 }), HTCAPTION);
    EXPECT_EQ(hit({ 100, -10 }), HTCAPTION);
}

TEST_F(FileListWindow, ItsTextsFitTheirButtonsInEachTheme)
{
    open({ L"a" });
    EXPECT_EQ(gui::text_of(apply_button()), L"変更の適用");
    EXPECT_EQ(gui::text_of(control(command::close_window)), L"閉じる");
    for (const int id : { +command::apply_file_list, +command::close_window }) {
        const ovlib::Wnd& button = *ovlib::Wnd::from_handle(control(id));
        const ovlib::ClientDC dc(button);
        const ovlib::ObjectSelection font{ dc, button.font() };
        const std::wstring label = gui::text_of(button.hwnd());
        SIZE size{};
        GetTextExtentPoint32W(dc.handle(), label.c_str(), static_cast<int>(label.size()), &size);
        EXPECT_LE(size.cx + 8, button.client_size().cx);
        EXPECT_LE(size.cy, button.client_size().cy);
    }
}

TEST_F(FileListWindow, FollowsTheThemeWhileOpenWhileClosedAndReadOnly)
{
    open({});
    for (std::int32_t theme = look::theme_standard; theme <= look::theme_blue; ++theme) {
        window_.show(theme % 2 == 0);
        look::load_theme(theme);
        look::apply_theme_to_windows();
        window_.set_read_only(theme % 3 == 0);
        window_.show(true);
        RedrawWindow(
            window_.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        const ovlib::ClientDC dc(window_);
        EXPECT_EQ(GetPixel(dc.handle(), 3, 3), look::palette().panel_back.value) << theme;
        const ovlib::ClientDC field(*ovlib::Wnd::from_handle(box()));
        EXPECT_EQ(GetPixel(field.handle(), 300, 200), look::palette().box_back.value) << theme;
    }
}

TEST_F(FileListWindow, LosesNoHandlesOverManyOpenings)
{
    const auto open_and_close = [&] {
        page_.emplace();
        page_->files = { L"a" };
        window_.show(true);
        window_.show(false);
    };
    open_and_close(); // the system keeps what the first opening needs
    const gui::GdiCrowd crowd{ 120 };
    for (int i = 0; i < 250; ++i)
        open_and_close();
    gui::expect_handles_to_spare(20);
}

} // namespace
