// The keyboard in the windows other than the main one: the focus, Tab, Esc and Enter.
#include "tests/support/gui_tool_window.hpp"

namespace {

namespace command = core::command;
using gui::button_id;
using gui::client;
using gui::Desk;
using gui::row_count;
using gui::ToolWindows;
using look::ToolWindow;

TEST_F(ToolWindows, HidingReturnsTheFocusToTheParent)
{
    gui::TopWnd other;
    ASSERT_TRUE(other.create(L"other")); // the window that a system may activate instead
    other.show(true);
    open();
    focus(desk->lines);
    desk->show(false);
    EXPECT_EQ(GetActiveWindow(), top.hwnd());
    EXPECT_EQ(GetFocus(), top.hwnd());
    other.destroy();
}

TEST_F(ToolWindows, HidingAWindowThatIsNotActiveLeavesTheFocusAlone)
{
    gui::TopWnd other;
    ASSERT_TRUE(other.create(L"other"));
    other.show(true);
    open();
    ASSERT_TRUE(gui::bring_to_front(other));
    desk->show(false);
    gui::pump();
    EXPECT_EQ(GetActiveWindow(), other.hwnd());
    other.destroy();
}

TEST_F(ToolWindows, EscClosesItFromEveryControl)
{
    open();
    for (ovlib::Wnd* control : std::initializer_list<ovlib::Wnd*>{ &desk->line, &desk->lines, &desk->form,
             &desk->combo, &desk->button, &desk->plain, &desk->list }) {
        open();
        focus(*control);
        press(VK_ESCAPE);
        EXPECT_FALSE(desk->is_visible()) << control->control_id();
        EXPECT_FALSE(desk->is_open());
    }
    EXPECT_EQ(GetFocus(), top.hwnd());
}

TEST_F(ToolWindows, EscClosesAWindowWithoutControls)
{
    desk->has_controls = false;
    open();
    ASSERT_EQ(GetFocus(), desk->hwnd());
    press(VK_ESCAPE);
    EXPECT_FALSE(desk->is_open());
}

TEST_F(ToolWindows, CanRefuseEscAsItRefusesItsCloseButton)
{
    open();
    desk->refuses_close = true;
    press(VK_ESCAPE);
    EXPECT_TRUE(desk->is_open());
    EXPECT_TRUE(desk->is_visible());
}

TEST_F(ToolWindows, EscInADroppedListClosesOnlyTheList)
{
    open();
    focus(desk->combo);
    desk->combo.show_list(true);
    ASSERT_TRUE(desk->combo.send(CB_GETDROPPEDSTATE, 0, 0));
    press(VK_ESCAPE);
    EXPECT_FALSE(desk->combo.send(CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(desk->is_open());
    press(VK_ESCAPE);
    EXPECT_FALSE(desk->is_open());
}

TEST_F(ToolWindows, EnterInADroppedListChooses)
{
    open();
    desk->enter = true;
    focus(desk->combo);
    desk->combo.show_list(true);
    press(VK_DOWN);
    press(VK_RETURN);
    EXPECT_FALSE(desk->combo.send(CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(desk->combo.selected(), 0);
    EXPECT_EQ(desk->entered, 0);
    press(VK_RETURN);
    EXPECT_EQ(desk->entered, 1);
}

TEST_F(ToolWindows, EnterRunsTheDefaultAction)
{
    open();
    desk->enter = true;
    int count = 0;
    for (ovlib::Wnd* control :
        std::initializer_list<ovlib::Wnd*>{ &desk->line, &desk->combo, &desk->plain, &desk->list }) {
        focus(*control);
        press(VK_RETURN);
        EXPECT_EQ(desk->entered, ++count) << control->control_id();
    }
    EXPECT_TRUE(desk->is_open());
}

TEST_F(ToolWindows, AHeldKeyActsOnce)
{
    open();
    desk->enter = true;
    constexpr std::int64_t repeated = 1 << 30;
    desk->line.send(WM_KEYDOWN, VK_RETURN, 1);
    for (int i = 0; i < 3; ++i)
        desk->line.send(WM_KEYDOWN, VK_RETURN, repeated | 1);
    EXPECT_EQ(desk->entered, 1);
    desk->line.send(WM_KEYDOWN, VK_ESCAPE, repeated | 1);
    EXPECT_TRUE(desk->is_open()) << "the key that closed a menu is still down";
}

TEST_F(ToolWindows, EnterStartsALineInAMultiLineBox)
{
    open();
    desk->enter = true;
    focus(desk->lines);
    press(VK_RETURN);
    EXPECT_EQ(desk->lines.text(), L"\r\n");
    EXPECT_EQ(desk->entered, 0);
}

TEST_F(ToolWindows, EnterInAnInputFormBelongsToTheForm)
{
    open();
    desk->enter = true;
    desk->form.set_text(L"語");
    focus(desk->form);
    desk->commands.clear();
    press(VK_RETURN);
    EXPECT_EQ(desk->commands, (std::vector{ 12 }));
    EXPECT_EQ(desk->entered, 0);
}

TEST_F(ToolWindows, EnterPressesTheFocusedButton)
{
    open();
    desk->enter = true;
    focus(desk->button);
    desk->commands.clear();
    press(VK_RETURN);
    EXPECT_EQ(desk->commands, (std::vector{ button_id }));
    EXPECT_EQ(desk->entered, 0);
}

TEST_F(ToolWindows, WithoutADefaultActionTheControlGetsTheKey)
{
    open();
    focus(desk->plain);
    desk->plain.seen.clear();
    press(VK_RETURN);
    EXPECT_EQ(desk->entered, 1) << "asked";
    EXPECT_EQ(desk->plain.count(WM_KEYDOWN), 1);
    desk->enter = true;
    press(VK_RETURN);
    EXPECT_EQ(desk->plain.count(WM_KEYDOWN), 1);
}

// A one-line edit control would beep for them.
TEST_F(ToolWindows, TheCharactersOfEscAndEnterReachNoControl)
{
    open();
    desk->plain.seen.clear();
    desk->plain.send(WM_CHAR, VK_ESCAPE, 1);
    desk->plain.send(WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(desk->plain.count(WM_CHAR), 0);
    desk->plain.send(WM_CHAR, L'x', 1);
    EXPECT_EQ(desk->plain.count(WM_CHAR), 1);
}

TEST_F(ToolWindows, TabGoesThroughItsControls)
{
    open();
    EXPECT_EQ(GetFocus(), desk->line.hwnd());
    for (ovlib::Wnd* control : std::initializer_list<ovlib::Wnd*>{
             &desk->lines, &desk->form, &desk->combo, &desk->button, &desk->plain }) {
        press(VK_TAB);
        EXPECT_EQ(GetFocus(), control->hwnd()) << control->control_id();
    }
    focus(desk->list);
    press(VK_TAB);
    EXPECT_EQ(GetFocus(), desk->line.hwnd());
    EXPECT_EQ(desk->lines.text(), L"");
}

TEST_F(ToolWindows, TheFocusReturnsToWhereItWas)
{
    open();
    focus(desk->lines);
    ASSERT_TRUE(gui::bring_to_front(top));
    ASSERT_TRUE(gui::bring_to_front(*desk));
    EXPECT_EQ(GetFocus(), desk->lines.hwnd());
    desk->show(false);
    open();
    EXPECT_EQ(GetFocus(), desk->line.hwnd()) << "anew at each opening";
    desk->line.enable(false);
    focus(desk->lines);
    desk->lines.show(false);
    ASSERT_TRUE(gui::bring_to_front(top));
    ASSERT_TRUE(gui::bring_to_front(*desk));
    EXPECT_EQ(GetFocus(), desk->form.hwnd()) << "the first that can have it";
}

TEST_F(ToolWindows, ADisabledControlPassesTheFocusOn)
{
    open();
    focus(desk->button);
    desk->button.enable(false);
    EXPECT_EQ(GetFocus(), desk->line.hwnd());
    focus(desk->lines);
    desk->list.enable(false);
    EXPECT_EQ(GetFocus(), desk->lines.hwnd()) << "the focus does not leave it when another control ends";
}

TEST_F(ToolWindows, AKeyAfterTheObjectWasDeletedDoesNoHarm)
{
    open();
    HWND const hwnd = desk->hwnd();
    HWND const control = desk->line.hwnd();
    desk.reset();
    SendMessageW(control, WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_TRUE(IsWindow(hwnd));
    DestroyWindow(hwnd);
}

TEST_F(ToolWindows, AKeyHandlerMayDestroyTheWindow)
{
    open();
    focus(desk->line);
    desk->opening = [] {};
    desk->enter = true;
    desk->show(false);
    open();
    desk->line.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_KEYDOWN && message.wparam == VK_RETURN)
            desk->destroy();
        return false;
    };
    desk->line.send(WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_EQ(desk->hwnd(), nullptr);
}

} // namespace
