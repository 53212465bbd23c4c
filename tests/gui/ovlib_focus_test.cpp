// Tab movement and subclassing.
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>

namespace {

using gui::Edit;
using gui::PlainChild;
using gui::TopWnd;

class Focus : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(top.create(L"focus"));
        SetForegroundWindow(top.hwnd());
        for (Edit* edit : { &a, &b, &c })
            ASSERT_TRUE(edit->create(L""));
    }
    void TearDown() override { top.destroy(); }

    // Sends the message that a control gets for the Tab key.
    void press_tab(Edit& edit) { edit.send(WM_CHAR, VK_TAB, 0); }
    bool is_focused(const Edit& edit) { return GetFocus() == edit.hwnd(); }

    TopWnd top;
    Edit a{ &top, 1 };
    Edit b{ &top, 2 };
    Edit c{ &top, 3 };
};

TEST_F(Focus, AnOrderConsistsOfGroupAndIndex)
{
    a.set_tab_order(2, 3);
    EXPECT_EQ(a.tab_order(), 0x00020003u);
    a.set_tab_order(0xFFFF, 0xFFFF);
    EXPECT_EQ(a.tab_order(), 0xFFFFFFFFu);
}

TEST_F(Focus, AZeroInAnOrderClearsItAndTheTabGoesToTheControl)
{
    for (const auto& [group, index] : { std::pair<std::uint16_t, std::uint16_t>{ 0, 5 }, { 5, 0 } }) {
        a.set_tab_order(1, 1);
        b.set_tab_order(1, 2);
        a.set_focus();
        a.set_tab_order(group, index);
        EXPECT_EQ(a.tab_order(), 0u);
        EXPECT_FALSE(a.focus_next());
        a.set_text(L"");
        EXPECT_TRUE(a.is_subclassed()) << "clearing the order leaves the subclass";
        press_tab(a);
        EXPECT_TRUE(is_focused(a));
    }
    a.destroy();
    a.extra_style = ES_MULTILINE;
    ASSERT_TRUE(a.create(L""));
    press_tab(a);
    EXPECT_EQ(a.text(), L"\t");
}

TEST_F(Focus, TabGoesToTheNextLargerNumberAndWrapsToTheSmallest)
{
    a.set_tab_order(1, 30);
    b.set_tab_order(1, 10);
    c.set_tab_order(1, 20);
    b.set_focus();
    ASSERT_TRUE(is_focused(b));
    press_tab(b);
    EXPECT_TRUE(is_focused(c));
    press_tab(c);
    EXPECT_TRUE(is_focused(a));
    press_tab(a);
    EXPECT_TRUE(is_focused(b));
    EXPECT_EQ(b.text(), L"") << "the Tab was swallowed";
}

TEST_F(Focus, OnlyTheCharacterOfTabMovesIt)
{
    PlainChild plain{ &top, 9 };
    ASSERT_TRUE(plain.create(L""));
    plain.set_tab_order(1, 1);
    a.set_tab_order(1, 2);
    b.set_tab_order(1, 3);
    for (ovlib::Wnd* const from : { static_cast<ovlib::Wnd*>(&plain), static_cast<ovlib::Wnd*>(&a) }) {
        from->set_focus();
        from->send(WM_KEYDOWN, VK_TAB, 0);
        from->send(WM_APP, VK_TAB, 0);
        from->send(WM_CHAR, L'x', 0);
        EXPECT_EQ(GetFocus(), from->hwnd());
    }
}

TEST_F(Focus, AWindowWithoutSiblingsFocusesItself)
{
    a.set_tab_order(1, 1);
    b.set_focus();
    EXPECT_TRUE(a.focus_next());
    EXPECT_TRUE(is_focused(a));
}

TEST_F(Focus, SkipsOtherGroupsAndWindowsThatAreHiddenDisabledOrNotCreated)
{
    Edit uncreated(&top, 4);
    PlainChild other_parent(&top, 5);
    Edit nephew(&other_parent, 6);
    ASSERT_TRUE(other_parent.create(L""));
    ASSERT_TRUE(nephew.create(L""));
    a.set_tab_order(1, 1);
    uncreated.set_tab_order(1, 2);
    nephew.set_tab_order(1, 3);
    b.set_tab_order(2, 4);
    c.set_tab_order(1, 5);
    a.set_focus();
    EXPECT_TRUE(a.focus_next());
    EXPECT_TRUE(is_focused(c));
    a.set_focus();
    c.enable(false);
    EXPECT_TRUE(a.focus_next());
    EXPECT_TRUE(is_focused(a));
    c.enable(true);
    c.show(false);
    EXPECT_TRUE(a.focus_next());
    EXPECT_TRUE(is_focused(a));
}

TEST_F(Focus, APlainWindowOfTheLibraryMovesTheFocusOnTabToo)
{
    PlainChild first(&top, 10);
    PlainChild second(&top, 11);
    ASSERT_TRUE(first.create(L"") && second.create(L""));
    first.set_tab_order(3, 1);
    second.set_tab_order(3, 2);
    first.set_focus();
    EXPECT_EQ(first.send(WM_CHAR, VK_TAB, 0), 0);
    EXPECT_EQ(GetFocus(), second.hwnd());
    EXPECT_EQ(first.focus(), second.hwnd());
}

TEST_F(Focus, MessagesOfAControlArriveOnlyWhileItIsSubclassed)
{
    a.send(WM_APP, 0, 0);
    EXPECT_EQ(a.count(WM_APP), 0);
    a.set_subclassed(true);
    EXPECT_TRUE(a.is_subclassed());
    a.send(WM_APP, 0, 0);
    EXPECT_EQ(a.count(WM_APP), 1);
    a.set_subclassed(false);
    EXPECT_FALSE(a.is_subclassed());
    a.send(WM_APP, 0, 0);
    EXPECT_EQ(a.count(WM_APP), 1);
}

TEST_F(Focus, ASubclassedControlHandlesAMessageOrPassesItToTheSystem)
{
    a.set_subclassed(true);
    a.answer = [](ovlib::WndMessage& message) {
        message.result = 9;
        return message.message == WM_APP;
    };
    EXPECT_EQ(a.send(WM_APP, 0, 0), 9);
    a.set_text(L"abc");
    EXPECT_EQ(a.text_length(), 3);
}

TEST_F(Focus, ASubclassedControlLosesItsHandleWhoeverDestroysIt)
{
    a.set_subclassed(true);
    DestroyWindow(a.hwnd());
    EXPECT_EQ(a.hwnd(), nullptr);
    EXPECT_FALSE(a.is_subclassed());
    EXPECT_TRUE(a.create(L"again"));
}

TEST_F(Focus, SubclassedIsSetOnlyOnSuccess)
{
    Edit uncreated(&top, 4);
    uncreated.set_subclassed(true);
    EXPECT_FALSE(uncreated.is_subclassed());
    a.set_tab_order(1, 1);
    EXPECT_TRUE(a.is_subclassed());
    b.set_tab_order(1, 0);
    EXPECT_FALSE(b.is_subclassed());
    a.destroy();
    EXPECT_FALSE(a.is_subclassed());
    EXPECT_EQ(a.hwnd(), nullptr);
}

TEST_F(Focus, ASubclassedControlMayDeleteItself)
{
    auto* mortal = new Edit(&top, 9);
    ASSERT_TRUE(mortal->create(L""));
    mortal->set_subclassed(true);
    mortal->answer = [mortal](ovlib::WndMessage& message) {
        if (message.message == WM_APP)
            delete mortal;
        return false;
    };
    const HWND hwnd = mortal->hwnd();
    SendMessageW(hwnd, WM_APP, 0, 0);
    EXPECT_EQ(ovlib::Wnd::from_handle(hwnd), nullptr);
    EXPECT_EQ(SendMessageW(hwnd, WM_GETTEXTLENGTH, 0, 0), 0) << "without an object the answer is 0";
}

} // namespace
