// The text boxes of a page with real keys and the real mouse, and their context menu.
#include "core/command_ids.hpp"
#include "core/settings.hpp"
#include "look/wnd/mybox.hpp"
#include "ovlib/gui/subwnd.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <atomic>
#include <gtest/gtest.h>
#include <imm.h>

extern "C" void* __imp_ImmSetOpenStatus;

namespace {

namespace command = core::command;
using gui::MenuDriver;
using gui::ShownMenu;

// The index of each item in the menu.
enum : int {
    search,
    look_item,
    line_1,
    undo,
    line_2,
    cut,
    copy,
    paste,
    erase,
    line_3,
    select_all,
    item_count
};

class BoxInput : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top_.create(L"top"));
        top_.answer = [this](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND && HIWORD(message.wparam) == 0)
                commands_.push_back(LOWORD(message.wparam));
            return false;
        };
        ASSERT_TRUE(q_.create(L""));
        ASSERT_TRUE(a_.create(L""));
        q_.set_rect({ 10, 10, 400, 150 }, false);
        a_.set_rect({ 10, 160, 400, 190 }, false);
        q_.set_tab_order(1, 1);
        a_.set_tab_order(1, 2);
        q_.show(true);
        a_.show(true);
        top_.show(true);
        ASSERT_TRUE(gui::bring_to_front(top_));
        q_.set_focus();
    }
    void TearDown() override
    {
        top_.destroy();
        core::settings() = {};
    }

    // Opens the menu of the first box with the right button and calls `act` for it.
    void use_menu(const std::function<void(const ShownMenu&)>& act)
    {
        q_.set_focus();
        std::atomic<bool> used = false;
        MenuDriver driver([&](const ShownMenu& menu) {
            act(menu);
            used = true;
        });
        gui::right_click_at(gui::on_screen(q_, { 60, 40 }));
        ASSERT_TRUE(gui::pump_until([&] { return used.load(); }));
        EXPECT_TRUE(driver.finish());
        gui::pump();
    }
    std::vector<int> greyed()
    {
        std::vector<int> items;
        use_menu([&](const ShownMenu& menu) {
            for (int item = 0; item < item_count; ++item) {
                if ((menu.state(item) & MF_SEPARATOR) == 0 && menu.is_grey(item))
                    items.push_back(item);
            }
        });
        return items;
    }
    static void put_into_clipboard(const std::wstring& text)
    {
        ASSERT_TRUE(gui::pump_until([] { return OpenClipboard(nullptr) != FALSE; }));
        EmptyClipboard();
        if (!text.empty()) {
            const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
            HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
            memcpy(GlobalLock(memory), text.c_str(), bytes);
            GlobalUnlock(memory);
            SetClipboardData(CF_UNICODETEXT, memory);
        }
        CloseClipboard();
    }

    gui::TopWnd top_;
    look::QBox q_{ &top_, 1045 };
    look::ABox a_{ &top_, 1046 };
    std::vector<int> commands_;
};

TEST_F(BoxInput, AcceptsJapaneseTextAndSurrogatePairs)
{
    const std::wstring text = L"日本語ｶﾅ𠮷野家😀";
    gui::type_text(text);
    EXPECT_TRUE(gui::pump_until([&] { return q_.text() == text; })) << q_.text_length();
}

TEST_F(BoxInput, EnterStartsALineInAMultiLineBox)
{
    gui::type_text(L"一");
    gui::press_key(VK_RETURN);
    gui::type_text(L"二");
    EXPECT_TRUE(gui::pump_until([&] { return q_.text() == L"一\r\n二"; }));
}

TEST_F(BoxInput, TabMovesTheFocusAndShiftTabDoesNot)
{
    gui::press_key(VK_TAB);
    EXPECT_TRUE(gui::pump_until([&] { return GetFocus() == a_.hwnd(); }));
    gui::press_key(VK_TAB);
    EXPECT_TRUE(gui::pump_until([&] { return GetFocus() == q_.hwnd(); }));
    EXPECT_EQ(q_.text(), L"");
    {
        const gui::HeldKey shift(VK_SHIFT);
        gui::press_key(VK_TAB);
        EXPECT_TRUE(gui::pump_until([&] { return q_.text() == L"\t"; }));
    }
    EXPECT_EQ(GetFocus(), q_.hwnd());
}

TEST_F(BoxInput, WithoutATabOrderTypesTheTab)
{
    q_.set_tab_order(0, 0);
    gui::press_key(VK_TAB);
    EXPECT_TRUE(gui::pump_until([&] { return q_.text() == L"\t"; }));
    EXPECT_EQ(GetFocus(), q_.hwnd());
}

TEST_F(BoxInput, AcceptsKeysAfterItsWrappingChanged)
{
    gui::type_text(L"あ");
    ASSERT_TRUE(gui::pump_until([&] { return q_.text() == L"あ"; }));
    ASSERT_TRUE(q_.set_wrap(true));
    gui::type_text(L"𠮷");
    EXPECT_TRUE(gui::pump_until([&] { return q_.text() == L"𠮷あ"; })) << "the caret stands at the start";
    EXPECT_TRUE(q_.is_modified());
}

TEST_F(BoxInput, WrappingKeepsHalfAMillionCharacters)
{
    std::wstring text;
    while (text.size() < 500000)
        text += std::wstring(78, L'あ') + L"\r\n";
    q_.set_text(text);
    ASSERT_TRUE(q_.set_wrap(true));
    EXPECT_EQ(q_.text(), text);
    q_.set_caret(static_cast<int>(text.size()));
    gui::type_text(L"続き");
    EXPECT_TRUE(gui::pump_until([&] { return q_.text_length() == static_cast<int>(text.size()) + 2; }));
    ASSERT_TRUE(q_.set_wrap(false));
    EXPECT_EQ(q_.text(), text + L"続き");
}

TEST_F(BoxInput, WrappingDoesNotSubclassABoxThatWasNotSubclassed)
{
    q_.set_tab_order(0, 0);
    q_.set_subclassed(false);
    ASSERT_TRUE(q_.set_wrap(true));
    EXPECT_FALSE(q_.is_subclassed());
    q_.set_subclassed(true);
    ASSERT_TRUE(q_.set_wrap(false));
    EXPECT_TRUE(q_.is_subclassed()) << "also without a Tab order";
    EXPECT_EQ(q_.tab_order(), 0u);
}

TEST_F(BoxInput, WrappingReturnsFalseIfTheBoxIsLost)
{
    gui::TopWnd gone;
    ASSERT_TRUE(gone.create(L"gone"));
    look::QBox box{ &gone, 1045 };
    ASSERT_TRUE(box.create(L""));
    gone.destroy();
    EXPECT_FALSE(box.set_wrap(true));
    EXPECT_EQ(box.hwnd(), nullptr);
    EXPECT_TRUE(box.is_wrapped());
}

TEST_F(BoxInput, MenuHasItsItemsInOrder)
{
    const wchar_t* const texts[] = { L"検索", L"色/フォント", L"", L"元に戻す(U)", L"", L"切り取り(T)",
        L"コピー(C)", L"貼り付け(P)", L"削除(D)", L"", L"すべて選択(A) " };
    use_menu([&](const ShownMenu& menu) {
        EXPECT_EQ(GetMenuItemCount(menu.menu()), item_count);
        for (int item = 0; item < item_count; ++item)
            EXPECT_EQ(menu.text(item), texts[item]) << item;
    });
}

TEST_F(BoxInput, MenuOfAnEmptyBoxOffersOnlyColoursAndFont)
{
    put_into_clipboard(L"");
    EXPECT_EQ(greyed(), (std::vector<int>{ search, undo, cut, copy, paste, erase, select_all }));
}

TEST_F(BoxInput, MenuOffersEverythingThatIsPossible)
{
    put_into_clipboard(L"x");
    gui::type_text(L"あ");
    ASSERT_TRUE(gui::pump_until([&] { return q_.text() == L"あ"; }));
    q_.select_all();
    EXPECT_EQ(greyed(), std::vector<int>{});
}

TEST_F(BoxInput, MenuIsUpdatedEachTimeItIsShown)
{
    put_into_clipboard(L"x");
    q_.set_text(L"あ");
    EXPECT_EQ(greyed(), (std::vector<int>{ search, undo, cut, copy, erase }));
    q_.set_text(L"");
    EXPECT_EQ(greyed(), (std::vector<int>{ search, undo, cut, copy, erase, select_all }));
}

TEST_F(BoxInput, MenuGreysColoursAndFontWhileTheirWindowIsVisible)
{
    put_into_clipboard(L"x");
    q_.set_text(L"あ");
    q_.select_all();
    gui::PlainSub palette{ &top_, command::palette_window };
    ASSERT_TRUE(palette.create(L"palette"));
    EXPECT_EQ(greyed(), std::vector<int>{ undo }) << "a hidden one does not count";
    palette.show_cmd(SW_SHOWNA);
    EXPECT_EQ(greyed(), (std::vector<int>{ look_item, undo }));
    palette.destroy();
    EXPECT_EQ(greyed(), std::vector<int>{ undo });
}

TEST_F(BoxInput, MenuExecutesTheChosenCommand)
{
    put_into_clipboard(L"");
    q_.set_text(L"字");
    use_menu([](const ShownMenu& menu) { menu.choose(select_all); });
    EXPECT_TRUE(q_.has_selection());
    use_menu([](const ShownMenu& menu) { menu.choose(cut); });
    EXPECT_EQ(q_.text(), L"");
    use_menu([](const ShownMenu& menu) { menu.choose(undo); });
    EXPECT_EQ(q_.text(), L"字");
    q_.select_all();
    use_menu([](const ShownMenu& menu) { menu.choose(erase); });
    EXPECT_EQ(q_.text(), L"");
    use_menu([](const ShownMenu& menu) { menu.choose(paste); });
    EXPECT_EQ(q_.text(), L"字");
    q_.select_all();
    use_menu([](const ShownMenu& menu) { menu.choose(copy); });
    use_menu([](const ShownMenu& menu) { menu.choose(search); });
    EXPECT_EQ(q_.text(), L"字");
    use_menu([](const ShownMenu& menu) { menu.choose(look_item); });
    EXPECT_EQ(commands_, (std::vector<int>{ command::show_web_menu, command::show_palette }));
}

TEST_F(BoxInput, MenuOfABoxWithoutTheFocusTakesTheFocus)
{
    a_.set_focus();
    MenuDriver driver([](const ShownMenu&) {});
    q_.send(WM_CONTEXTMENU, 0, -1);
    EXPECT_TRUE(driver.finish());
    EXPECT_EQ(GetFocus(), q_.hwnd());
}

TEST_F(BoxInput, ARightClickShowsNothingWhileReadOnly)
{
    bool met_menu = false;
    top_.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_TIMER && !gui::popups_of(GetCurrentThreadId()).empty()) {
            met_menu = true;
            EndMenu();
        }
        return false;
    };
    SetTimer(top_.hwnd(), 1, 100, nullptr);
    q_.set_read_only(true);
    a_.set_focus();
    gui::right_click_at(gui::on_screen(q_, { 60, 40 }));
    gui::type_text(L"次"); // arrives after the click
    EXPECT_TRUE(gui::pump_until([&] { return a_.text() == L"次" || met_menu; }));
    EXPECT_FALSE(met_menu);
    EXPECT_FALSE(q_.menu().is_showing());
}

// Counts the calls that open or close the input method.
int open_calls = 0;
BOOL WINAPI note_open(HIMC, BOOL)
{
    ++open_calls;
    return TRUE;
}

TEST_F(BoxInput, DoesNotOpenAnInputMethodThatIsOpenAlready)
{
    HIMC const context = ImmGetContext(q_.hwnd());
    ASSERT_NE(context, nullptr);
    core::settings().auto_imm = true;
    a_.set_focus();
    ImmSetOpenStatus(context, TRUE);
    {
        const gui::ReplacedImport<BOOL WINAPI(HIMC, BOOL)> calls(&__imp_ImmSetOpenStatus, &note_open);
        open_calls = 0;
        q_.set_focus();
        EXPECT_EQ(open_calls, 0);
        a_.set_focus();
        calls.original()(context, FALSE);
        q_.set_focus();
        EXPECT_EQ(open_calls, 1);
        core::settings().auto_imm = false;
        a_.set_focus();
        q_.set_focus();
        EXPECT_EQ(open_calls, 1);
    }
    ImmReleaseContext(q_.hwnd(), context);
}

TEST_F(BoxInput, CanBeDestroyedWithItsWindowDuringASave)
{
    auto box = std::make_unique<look::QBox>(&top_, 1200);
    ASSERT_TRUE(box->create(L""));
    top_.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_COMMAND && LOWORD(message.wparam) == command::save_if_changed)
            box.reset();
        return false;
    };
    SendMessageW(box->hwnd(), WM_COMMAND, MAKEWPARAM(command::accelerator_save, 1), 0);
    EXPECT_EQ(box, nullptr);
    top_.answer = nullptr;
}

} // namespace
