// The search box and the one-line fields of secondary windows.
#include "core/command_ids.hpp"
#include "core/settings.hpp"
#include "look/wnd/input_form.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <imm.h>
#include <memory>

namespace {

namespace command = core::command;

struct Sent {
    int id = 0;
    int code = 0;
    HWND from = nullptr;

    friend bool operator==(const Sent&, const Sent&) = default;
};
using Sents = std::vector<Sent>;

template <class Field> class FieldTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top_.create(L"top"));
        ASSERT_TRUE(field_.create(L""));
        ASSERT_TRUE(other_.create(L""));
        field_.set_rect({ 10, 10, 300, 34 }, false);
        field_.show(true);
        top_.show(true);
        ASSERT_TRUE(gui::bring_to_front(top_));
        top_.answer = [this](ovlib::WndMessage& message) {
            const int code = HIWORD(message.wparam);
            if (message.message == WM_COMMAND && (code == 0 || code == 33000))
                sent_.push_back({ LOWORD(message.wparam), code, reinterpret_cast<HWND>(message.lparam) });
            return false;
        };
        field_.set_focus();
    }
    void TearDown() override
    {
        top_.destroy();
        core::settings() = {};
    }
    void set_text(const std::wstring& text)
    {
        field_.set_text(text);
        field_.set_caret(0);
    }
    // Presses Enter and dispatches everything that follows.
    void press_enter()
    {
        gui::press_key(VK_RETURN);
        serve_keys();
    }
    // Types into the other field, so that all earlier messages have been dispatched.
    void serve_keys()
    {
        HWND const focus = GetFocus();
        other_.set_text(L"");
        other_.set_focus();
        gui::type_text(L"。");
        ASSERT_TRUE(gui::pump_until([&] { return other_.text() == L"。"; }));
        SetFocus(focus);
    }

    // The notifications that the control itself sends about a gained and lost focus.
    std::vector<int> notices_of_focus()
    {
        std::vector<int> notices;
        other_.set_focus();
        top_.answer = [&](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND && reinterpret_cast<HWND>(message.lparam) == field_.hwnd())
                notices.push_back(HIWORD(message.wparam));
            return false;
        };
        field_.set_focus();
        other_.set_focus();
        top_.answer = nullptr;
        return notices;
    }

    gui::TopWnd top_;
    Field field_{ &top_, 1049 };
    gui::Edit other_{ &top_, 7 };
    Sents sent_;
};

class InputFormTest : public FieldTest<look::InputForm> { };
class SearchBoxTest : public FieldTest<look::BookSearchBox> { };

DWORD style(const ovlib::Wnd& wnd)
{
    return static_cast<DWORD>(GetWindowLongW(wnd.hwnd(), GWL_STYLE));
}

TEST_F(InputFormTest, HasTheStyleOfItsClass)
{
    CREATESTRUCTW params{};
    field_.create_params(params);
    EXPECT_EQ(static_cast<DWORD>(params.style), 0x56800080u);
    EXPECT_EQ(params.dwExStyle, 0u);
    EXPECT_EQ(style(field_) & ES_NOHIDESEL, 0u);
}

TEST_F(InputFormTest, PassesFocusMessagesToTheControl)
{
    EXPECT_EQ(notices_of_focus(), (std::vector<int>{ EN_SETFOCUS, EN_KILLFOCUS }));
}

TEST_F(InputFormTest, IsNotCreatedWithoutAParentWindow)
{
    gui::TopWnd uncreated;
    look::InputForm form{ &uncreated, 1049 };
    EXPECT_FALSE(form.create(L""));
    EXPECT_EQ(form.hwnd(), nullptr);
}

TEST_F(InputFormTest, PassesTheClickToTheControl)
{
    field_.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(GetCapture(), field_.hwnd());
    field_.send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(SearchBoxTest, PassesFocusMessagesToTheControl)
{
    EXPECT_EQ(notices_of_focus(), (std::vector<int>{ EN_SETFOCUS, EN_KILLFOCUS }));
}

TEST_F(InputFormTest, IsSubclassedWithoutATabOrder)
{
    EXPECT_TRUE(field_.is_subclassed());
    EXPECT_EQ(field_.tab_order(), 0u);
}

TEST_F(InputFormTest, SendsItsOwnNumberForEnter)
{
    gui::type_text(L"検索😀");
    ASSERT_TRUE(gui::pump_until([&] { return field_.text() == L"検索😀"; }));
    gui::press_key(VK_RETURN);
    EXPECT_TRUE(gui::pump_until([&] { return !sent_.empty(); }));
    EXPECT_EQ(sent_, (Sents{ { 1049, 33000, field_.hwnd() } }));
    EXPECT_EQ(GetFocus(), field_.hwnd());
    EXPECT_EQ(field_.text(), L"検索😀");
}

TEST_F(InputFormTest, GetsTheFocusBackAfterEnter)
{
    set_text(L"x");
    top_.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_COMMAND && HIWORD(message.wparam) == 33000)
            other_.set_focus();
        return false;
    };
    field_.send(WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(GetFocus(), field_.hwnd());
}

TEST_F(InputFormTest, SendsNothingForEnterWhileEmpty)
{
    gui::press_key(VK_RETURN);
    gui::type_text(L"a");
    ASSERT_TRUE(gui::pump_until([&] { return field_.text() == L"a"; }));
    EXPECT_EQ(sent_, Sents{});
}

TEST_F(InputFormTest, CanBeDeletedByItsParentOnEnter)
{
    auto brief = std::make_unique<look::InputForm>(&top_, 9);
    ASSERT_TRUE(brief->create(L"x"));
    top_.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_COMMAND && HIWORD(message.wparam) == 33000)
            brief.reset();
        return false;
    };
    SendMessageW(brief->hwnd(), WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(brief, nullptr);
    top_.answer = nullptr;
}

TEST_F(InputFormTest, TheFirstClickSelectsAllAndTheNextPlacesTheCaret)
{
    set_text(L"abcdefghij");
    other_.set_focus();
    gui::click_at(gui::on_screen(field_, { 30, 10 }));
    ASSERT_TRUE(gui::pump_until([&] { return field_.selected_text() == L"abcdefghij"; }));
    EXPECT_EQ(GetFocus(), field_.hwnd());
    // Far enough from the first click to be no double click.
    gui::click_at(gui::on_screen(field_, { 30 + 2 * GetSystemMetrics(SM_CXDOUBLECLK), 10 }));
    EXPECT_TRUE(gui::pump_until([&] { return !field_.has_selection(); }));
    EXPECT_GT(field_.caret(), 0);
}

TEST_F(InputFormTest, AClickAfterTheFocusWasLostSelectsAllAgain)
{
    set_text(L"abc");
    field_.send(WM_LBUTTONUP, 0, 0);
    EXPECT_EQ(field_.selected_text(), L"abc");
    field_.set_caret(1);
    field_.send(WM_LBUTTONUP, 0, 0);
    EXPECT_FALSE(field_.has_selection());
    other_.set_focus();
    field_.send(WM_LBUTTONUP, 0, 0);
    EXPECT_FALSE(field_.has_selection()) << "a field without the focus";
    field_.set_focus();
    field_.set_caret(1);
    field_.send(WM_LBUTTONUP, 0, 0);
    EXPECT_EQ(field_.selected_text(), L"abc");
}

TEST_F(SearchBoxTest, HasTheStyleOfAPlainEditControl)
{
    CREATESTRUCTW params{};
    field_.create_params(params);
    EXPECT_EQ(static_cast<DWORD>(params.style), 0x56800180u);
    EXPECT_EQ(params.dwExStyle, 0u);
}

TEST_F(SearchBoxTest, EnterGoesToTheNextPage)
{
    set_text(L"京都");
    gui::press_key(VK_RETURN);
    EXPECT_TRUE(gui::pump_until([&] { return !sent_.empty(); }));
    EXPECT_EQ(sent_, (Sents{ { command::next_page, 0, field_.hwnd() } }));
    EXPECT_EQ(GetFocus(), field_.hwnd());
    EXPECT_EQ(field_.text(), L"京都");
}

TEST_F(SearchBoxTest, ShiftEnterGoesToThePreviousPage)
{
    set_text(L"京都");
    {
        const gui::HeldKey shift(VK_SHIFT);
        gui::press_key(VK_RETURN);
        EXPECT_TRUE(gui::pump_until([&] { return !sent_.empty(); }));
    }
    EXPECT_EQ(sent_, (Sents{ { command::previous_page, 0, field_.hwnd() } }));
}

TEST_F(SearchBoxTest, LeavesEnterToTheControlWhileEmpty)
{
    ovlib::WndMessage enter{ field_.hwnd(), WM_CHAR, VK_RETURN, 1, 0 };
    EXPECT_FALSE(field_.on_message(enter));
    press_enter();
    EXPECT_EQ(sent_, Sents{});
}

TEST_F(SearchBoxTest, GetsTheFocusBackAfterEnter)
{
    set_text(L"x");
    top_.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_COMMAND && LOWORD(message.wparam) == command::next_page)
            other_.set_focus();
        return false;
    };
    field_.send(WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(GetFocus(), field_.hwnd());
}

TEST_F(SearchBoxTest, OpensTheInputMethodOnFocusIfTheSettingsDemandIt)
{
    HIMC const context = ImmGetContext(field_.hwnd());
    ASSERT_NE(context, nullptr);
    for (const bool wanted : { false, true }) {
        core::settings().auto_imm = wanted;
        other_.set_focus();
        ImmSetOpenStatus(context, FALSE);
        field_.set_focus();
        EXPECT_EQ(ImmGetOpenStatus(context) != FALSE, wanted);
    }
    ImmReleaseContext(field_.hwnd(), context);
}

} // namespace
