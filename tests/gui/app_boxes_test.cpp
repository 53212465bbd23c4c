// The three text boxes of a page.
#include "core/command_ids.hpp"
#include "core/settings.hpp"
#include "look/wnd/mybox.hpp"
#include "tests/support/gui_driver.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <imm.h>

namespace {

namespace command = core::command;

class MyBox : public testing::Test {
protected:
    MyBox()
    {
        top_.create(L"top");
        q_.create(L"");
        a_.create(L"");
        d_.create(L"");
        for (look::MyBox* box : { static_cast<look::MyBox*>(&q_), static_cast<look::MyBox*>(&a_),
                 static_cast<look::MyBox*>(&d_) }) {
            box->set_rect(
                { 10, 10 + 60 * (box->control_id() - 1045), 310, 60 + 60 * (box->control_id() - 1045) },
                false);
            box->set_tab_order(1, static_cast<std::uint16_t>(box->control_id() - 1044));
            box->show(true);
        }
        top_.seen.clear();
    }
    ~MyBox() override
    {
        top_.destroy();
        core::settings() = {};
    }

    static DWORD style(const look::MyBox& box)
    {
        return static_cast<DWORD>(GetWindowLongW(box.hwnd(), GWL_STYLE));
    }
    // The position of a character in the client area.
    static int x_of(look::MyBox& box, int index)
    {
        return static_cast<std::int16_t>(
            LOWORD(box.send(EM_POSFROMCHAR, static_cast<std::uint64_t>(index), 0)));
    }
    // The commands that the parent got, without notifications about the text.
    std::vector<int> commands_during(const std::function<void()>& action)
    {
        std::vector<int> commands;
        top_.answer = [&](ovlib::WndMessage& message) {
            if (message.message == WM_COMMAND && HIWORD(message.wparam) == 0)
                commands.push_back(LOWORD(message.wparam));
            return false;
        };
        action();
        top_.answer = nullptr;
        return commands;
    }

    gui::TopWnd top_;
    look::QBox q_{ &top_, 1045 };
    look::ABox a_{ &top_, 1046 };
    look::DBox d_{ &top_, 1047 };
};

TEST_F(MyBox, HasTheStylesOfItsClass)
{
    const auto expect_style = [](look::MyBox& box, DWORD style) {
        SCOPED_TRACE(box.control_id());
        CREATESTRUCTW params{};
        box.create_params(params);
        EXPECT_EQ(static_cast<DWORD>(params.style), style);
        EXPECT_EQ(params.dwExStyle, static_cast<DWORD>(WS_EX_CLIENTEDGE));
        EXPECT_EQ(params.lpCreateParams, static_cast<ovlib::Wnd*>(&box));
    };
    expect_style(q_, 0x56B011C4);
    expect_style(a_, 0x56800180);
    expect_style(d_, 0x56B011C4);
}

TEST_F(MyBox, GetsItsFrameFromTheExtendedStyleOnly)
{
    EXPECT_EQ(style(q_) & WS_BORDER, 0u);
    EXPECT_NE(GetWindowLongW(q_.hwnd(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
}

TEST_F(MyBox, IsCreatedHidden)
{
    look::QBox other{ &top_, 1200 };
    ASSERT_TRUE(other.create(L""));
    EXPECT_FALSE(other.is_visible());
    other.destroy();
}

TEST_F(MyBox, IsSubclassedWhenCreated)
{
    look::ABox other{ &top_, 1200 };
    ASSERT_TRUE(other.create(L""));
    EXPECT_TRUE(other.is_subclassed());
    other.destroy();
}

TEST_F(MyBox, AcceptsTypingAtTheEndOfHalfAMillionCharacters)
{
    const std::wstring line = std::wstring(78, L'あ') + L"\r\n";
    std::wstring text;
    while (text.size() < 500000)
        text += line;
    q_.set_text(text);
    q_.set_caret(static_cast<int>(text.size()));
    for (const wchar_t unit : std::wstring(L"続き"))
        q_.send(WM_CHAR, unit, 1);
    EXPECT_EQ(q_.text(), text + L"続き");
}

TEST_F(MyBox, OfOneLineAcceptsLongTextsToo)
{
    const std::wstring text(40000, L'x');
    a_.set_text(text);
    a_.set_caret(40000);
    a_.send(WM_CHAR, L'y', 1);
    EXPECT_EQ(a_.text(), text + L'y');
}

TEST_F(MyBox, LosesTheHorizontalScrollBarWhenWrapped)
{
    EXPECT_TRUE(q_.set_wrap(true));
    EXPECT_TRUE(q_.is_wrapped());
    EXPECT_EQ(style(q_) & (WS_HSCROLL | ES_AUTOHSCROLL), 0u);
    EXPECT_TRUE(q_.set_wrap(false));
    EXPECT_EQ(style(q_) & (WS_HSCROLL | ES_AUTOHSCROLL), static_cast<DWORD>(WS_HSCROLL | ES_AUTOHSCROLL));
}

TEST_F(MyBox, DoesNotChangeForTheCurrentWrapping)
{
    HWND const before = q_.hwnd();
    EXPECT_FALSE(q_.set_wrap(false));
    EXPECT_EQ(q_.hwnd(), before);
}

TEST_F(MyBox, KeepsEverythingButUndoAndSelectionWhenItsWrappingChanges)
{
    HFONT const font = CreateFontW(-20, 0, 0, 0, 700, 0, 0, 0, 1, 0, 0, 0, 0, L"メイリオ");
    q_.take_font(font);
    q_.set_text(L"一行目\r\n\t二行目");
    q_.set_modified(true);
    q_.set_read_only(true);
    q_.set_focus();
    q_.set_selection(2, 3);
    q_.set_limit(1234);
    q_.set_tab_stops(4);
    const int after_tab = x_of(q_, 6);
    const RECT place = q_.rect();
    HWND const before = q_.hwnd();

    ASSERT_TRUE(q_.set_wrap(true));

    EXPECT_NE(q_.hwnd(), before);
    EXPECT_EQ(q_.text(), L"一行目\r\n\t二行目");
    EXPECT_TRUE(q_.is_modified());
    EXPECT_TRUE(q_.is_read_only());
    EXPECT_EQ(q_.limit(), 1234);
    EXPECT_EQ(x_of(q_, 6), after_tab);
    EXPECT_EQ(q_.font(), font);
    const RECT new_place = q_.rect();
    EXPECT_TRUE(EqualRect(&place, &new_place));
    EXPECT_EQ(q_.tab_order(), 1u << 16 | 1u);
    EXPECT_TRUE(q_.is_subclassed());
    EXPECT_TRUE(q_.is_visible());
    EXPECT_EQ(GetFocus(), q_.hwnd());
    EXPECT_EQ(q_.caret(), 0);
    EXPECT_FALSE(q_.can_undo());
}

TEST_F(MyBox, DoesNotTakeTheFocusWhenItsWrappingChanges)
{
    a_.set_focus();
    ASSERT_TRUE(q_.set_wrap(true));
    EXPECT_EQ(GetFocus(), a_.hwnd());
}

class LostBox : public MyBox, public testing::WithParamInterface<bool> {
protected:
    void lose()
    {
        place_ = q_.rect();
        limit_ = q_.limit();
        q_.set_text(L"一行目");
        q_.set_modified(true);
        const gui::RefusedWindows refused{ L"Edit" };
        EXPECT_FALSE(q_.set_wrap(true));
        EXPECT_EQ(q_.hwnd(), nullptr);
        EXPECT_TRUE(q_.is_lost());
        EXPECT_FALSE(q_.set_wrap(true)) << "it fails again";
        EXPECT_TRUE(q_.is_lost());
    }

    RECT place_{};
    int limit_ = 0;
};

TEST_P(LostBox, IsCreatedAgainByTheNextWrapWhateverItsValue)
{
    lose();
    ASSERT_TRUE(q_.set_wrap(GetParam()));
    EXPECT_FALSE(q_.is_lost());
    EXPECT_EQ((style(q_) & WS_HSCROLL) == 0, GetParam());
    const RECT place = q_.rect();
    EXPECT_TRUE(EqualRect(&place, &place_));
    EXPECT_TRUE(q_.is_visible());
    EXPECT_TRUE(q_.is_subclassed());
    EXPECT_EQ(q_.text(), L"") << "it may be another page's by now";
    EXPECT_FALSE(q_.is_modified());
    EXPECT_FALSE(q_.is_read_only());
    EXPECT_EQ(q_.limit(), limit_);
}

TEST_P(LostBox, WorksAsBefore)
{
    lose();
    ASSERT_TRUE(q_.set_wrap(GetParam()));
    d_.set_focus();
    SendMessageW(GetFocus(), WM_CHAR, VK_TAB, 1);
    EXPECT_EQ(GetFocus(), q_.hwnd());
    SendMessageW(GetFocus(), WM_CHAR, L'字', 1);
    EXPECT_EQ(q_.text(), L"字");
    SendMessageW(GetFocus(), WM_CHAR, VK_TAB, 1);
    EXPECT_EQ(GetFocus(), a_.hwnd());
    EXPECT_EQ(commands_during([&] { q_.send(WM_COMMAND, command::accelerator_save, 0); }),
        std::vector<int>{ command::save_if_changed });
    q_.set_read_only(true);
    ovlib::WndMessage menu{ q_.hwnd(), WM_CONTEXTMENU, 0, -1, 0 };
    EXPECT_TRUE(q_.on_message(menu));
    q_.send(WM_COMMAND, command::box_select_all, 0);
    EXPECT_EQ(q_.selected_text(), L"字");
}

TEST_P(LostBox, LeavesTheFocusWhereItIsNow)
{
    q_.set_focus();
    lose();
    d_.set_focus();
    ASSERT_TRUE(q_.set_wrap(GetParam()));
    EXPECT_EQ(GetFocus(), d_.hwnd());
}

INSTANTIATE_TEST_SUITE_P(Wrap, LostBox, testing::Bool());

TEST_F(MyBox, LetsTabGoThroughTheThreeBoxesAlsoAfterWrapping)
{
    q_.set_wrap(true);
    d_.set_wrap(true);
    q_.set_focus();
    for (look::MyBox* next :
        { static_cast<look::MyBox*>(&a_), static_cast<look::MyBox*>(&d_), static_cast<look::MyBox*>(&q_) }) {
        SendMessageW(GetFocus(), WM_CHAR, VK_TAB, 1);
        EXPECT_EQ(GetFocus(), next->hwnd());
    }
    EXPECT_EQ(q_.text(), L"");
}

TEST_F(MyBox, SendsTheSaveCommandForTheAcceleratorWhateverItsNotificationCode)
{
    for (const WORD code : std::initializer_list<WORD>{ 0, 1 }) {
        a_.set_focus();
        const auto sent =
            commands_during([&] { q_.send(WM_COMMAND, MAKEWPARAM(command::accelerator_save, code), 0); });
        EXPECT_EQ(sent, std::vector<int>{ command::save_if_changed }) << code;
        EXPECT_EQ(GetFocus(), q_.hwnd());
    }
}

TEST_F(MyBox, PassesItsOwnHandleWithTheCommandsToItsParent)
{
    std::int64_t lparam = 0;
    top_.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_COMMAND && LOWORD(message.wparam) == command::show_palette)
            lparam = message.lparam;
        return false;
    };
    q_.send(WM_COMMAND, command::box_look, 0);
    top_.answer = nullptr;
    EXPECT_EQ(reinterpret_cast<HWND>(lparam), q_.hwnd());
    EXPECT_EQ(commands_during([&] { q_.send(WM_COMMAND, command::box_search, 0); }),
        std::vector<int>{ command::show_web_menu });
}

TEST_F(MyBox, ExecutesTheCommandsOfItsMenu)
{
    q_.set_text(L"abc");
    q_.send(WM_COMMAND, command::box_select_all, 0);
    EXPECT_EQ(q_.selected_text(), L"abc");
    q_.send(WM_COMMAND, command::box_copy, 0);
    q_.send(WM_COMMAND, command::box_delete, 0);
    EXPECT_EQ(q_.text(), L"");
    q_.send(WM_COMMAND, command::box_undo, 0);
    EXPECT_EQ(q_.text(), L"abc");
    q_.send(WM_COMMAND, command::box_select_all, 0);
    q_.send(WM_COMMAND, command::box_cut, 0);
    EXPECT_EQ(q_.text(), L"");
    q_.send(WM_COMMAND, command::box_paste, 0);
    q_.send(WM_COMMAND, command::box_paste, 0);
    EXPECT_EQ(q_.text(), L"abcabc");
}

TEST_F(MyBox, HandlesTheCommandsOfItsMenuAndOfTheAcceleratorAndNoOthers)
{
    const auto takes = [&](int id) {
        ovlib::WndMessage message{ q_.hwnd(), WM_COMMAND, static_cast<std::uint64_t>(id), 0, 0 };
        return q_.on_message(message);
    };
    for (int id = command::box_undo; id <= command::box_look; ++id)
        EXPECT_TRUE(takes(id)) << id;
    EXPECT_TRUE(takes(command::accelerator_save));
    for (const int id :
        std::initializer_list<int>{ command::box_undo - 1, command::box_look + 1, command::save_if_changed })
        EXPECT_FALSE(takes(id)) << id;
}

// The control itself reports the focus if it gets the message.
TEST_F(MyBox, PassesFocusMessagesToTheControl)
{
    a_.set_focus();
    std::vector<int> notices;
    top_.answer = [&](ovlib::WndMessage& message) {
        if (message.message == WM_COMMAND && reinterpret_cast<HWND>(message.lparam) == q_.hwnd())
            notices.push_back(HIWORD(message.wparam));
        return false;
    };
    q_.set_focus();
    top_.answer = nullptr;
    EXPECT_EQ(notices, std::vector<int>{ EN_SETFOCUS });
}

TEST_F(MyBox, ShowsNoMenuWhileReadOnly)
{
    q_.set_read_only(true);
    ovlib::WndMessage message{ q_.hwnd(), WM_CONTEXTMENU, 0, -1, 0 };
    EXPECT_TRUE(q_.on_message(message));
}

TEST_F(MyBox, OpensTheInputMethodOnFocusOnlyIfTheSettingsDemandIt)
{
    HIMC const context = ImmGetContext(q_.hwnd());
    ASSERT_NE(context, nullptr);
    ImmSetOpenStatus(context, FALSE);
    a_.set_focus();
    q_.set_focus();
    EXPECT_FALSE(ImmGetOpenStatus(context));
    core::settings().auto_imm = true;
    a_.set_focus();
    ImmSetOpenStatus(context, FALSE);
    q_.set_focus();
    EXPECT_TRUE(ImmGetOpenStatus(context));
    core::settings().auto_imm = false;
    a_.set_focus();
    q_.set_focus();
    EXPECT_TRUE(ImmGetOpenStatus(context)); // it is never closed
    ImmReleaseContext(q_.hwnd(), context);
}

} // namespace
