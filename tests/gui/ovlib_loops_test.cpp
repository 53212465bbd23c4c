// The three message loops.
#include "ovlib/event.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_typing.hpp"
#include "tests/support/gui_window.hpp"
#include <gtest/gtest.h>
#include <thread>

// The address of the import, which the linker names after the function.
extern "C" void* __imp_MsgWaitForMultipleObjects; // NOLINT(bugprone-reserved-identifier)

namespace {

using gui::PlainSub;
using gui::TopWnd;
using ovlib::WndMessage;

class LoopWnd : public TopWnd {
public:
    void dispatch(MSG& message) override
    {
        dispatched.push_back(message.message);
        TopWnd::dispatch(message);
    }
    void on_wait_signalled(HANDLE handle) override
    {
        signalled = handle;
        quit_waits_in_handler = PeekMessageW(&peeked, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
    }
    void on_wait_failed(HANDLE handle, std::uint32_t code) override
    {
        failed = handle;
        failure = code;
    }
    std::ptrdiff_t passed(std::uint32_t message) const
    {
        return std::count(dispatched.begin(), dispatched.end(), message);
    }

    std::vector<std::uint32_t> dispatched;
    HANDLE signalled = nullptr;
    HANDLE failed = nullptr;
    std::uint32_t failure = 0;
    bool quit_waits_in_handler = false;
    MSG peeked{};
};

class Loops : public testing::Test {
protected:
    void SetUp() override
    {
        gui::take_quit();
        ASSERT_TRUE(top.create(L"loops"));
        gui::pump();
        top.dispatched.clear();
    }
    void TearDown() override
    {
        top.destroy();
        gui::take_quit();
    }

    LoopWnd top;
};

TEST_F(Loops, TheMessageLoopDispatchesUntilQuitAndReturnsItsCode)
{
    top.post(WM_APP, 0, 0);
    top.post(WM_APP, 0, 0);
    PostQuitMessage(17);
    EXPECT_EQ(top.message_loop(), 17);
    EXPECT_EQ(top.passed(WM_APP), 2);
}

// A timer message is created only if the queue is empty, without even a quit.
TEST_F(Loops, TheMessageLoopOfALivingWindowContinues)
{
    top.answer = [&](WndMessage& message) {
        if (message.message == WM_APP)
            SetTimer(top.hwnd(), 1, 10, nullptr);
        if (message.message != WM_TIMER)
            return false;
        KillTimer(top.hwnd(), 1);
        PostQuitMessage(17);
        return true;
    };
    top.post(WM_APP, 0, 0);
    EXPECT_EQ(top.message_loop(), 17);
    EXPECT_EQ(top.passed(WM_TIMER), 1);
}

TEST_F(Loops, ClosingAPlainBaseWindowEndsTheMessageLoop)
{
    gui::Watched<ovlib::BaseWnd> wnd;
    ASSERT_TRUE(wnd.create(L""));
    wnd.post(WM_CLOSE, 0, 0);
    EXPECT_EQ(wnd.message_loop(), 0);
    EXPECT_EQ(wnd.hwnd(), nullptr);
}

// The loop that moves a window may do that if the close arrives while the button is down.
TEST_F(Loops, TheMessageLoopEndsWithItsWindowIfANestedLoopConsumedTheQuit)
{
    gui::Watched<ovlib::BaseWnd> wnd;
    wnd.answer = [](WndMessage& message) {
        if (message.message != WM_APP)
            return false;
        PostMessageW(message.hwnd, WM_CLOSE, 0, 0);
        MSG inner{};
        while (GetMessageW(&inner, nullptr, 0, 0) > 0)
            DispatchMessageW(&inner);
        return true;
    };
    ASSERT_TRUE(wnd.create(L""));
    wnd.post(WM_APP, 0, 0);
    EXPECT_EQ(wnd.message_loop(), 0);
    EXPECT_EQ(wnd.hwnd(), nullptr);
    EXPECT_FALSE(gui::take_quit());
}

TEST_F(Loops, WaitRefusesANullHandle)
{
    EXPECT_FALSE(top.wait(nullptr));
    EXPECT_EQ(top.signalled, nullptr);
    EXPECT_EQ(top.failed, nullptr);
}

TEST_F(Loops, WaitReportsAHandleThatIsSignalledAlready)
{
    ovlib::Event event(ovlib::Event::Reset::manual, true);
    EXPECT_TRUE(top.wait(event.handle()));
    EXPECT_EQ(top.signalled, event.handle());
}

// All kinds of input, including touch and pointer: input that does not wake the wait would be dispatched only
// after other input.
TEST_F(Loops, WaitIsWokenByAnyKindOfInput)
{
    static DWORD count, time, mask;
    static HANDLE awaited;
    static BOOL waits_for_all;
    const gui::ReplacedImport<decltype(MsgWaitForMultipleObjects)> noting{ &__imp_MsgWaitForMultipleObjects,
        [](DWORD given, const HANDLE* handles, BOOL all, DWORD limit, DWORD wake) -> DWORD {
            count = given;
            awaited = handles[0];
            waits_for_all = all;
            time = limit;
            mask = wake;
            return WAIT_OBJECT_0;
        } };
    const ovlib::Event event;
    EXPECT_TRUE(top.wait(event.handle()));
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(awaited, event.handle());
    EXPECT_FALSE(waits_for_all);
    EXPECT_EQ(time, INFINITE);
    EXPECT_EQ(mask, 0x1CFFu);
}

TEST_F(Loops, WaitDispatchesMessagesUntilTheHandleIsSignalled)
{
    ovlib::Event event(ovlib::Event::Reset::manual);
    int served = 0;
    top.answer = [&](WndMessage& message) {
        if (message.message == WM_APP && ++served == 3)
            event.set();
        return message.message == WM_APP;
    };
    std::thread worker([&, hwnd = top.hwnd()] {
        for (int i = 0; i < 3; ++i) {
            PostMessageW(hwnd, WM_APP, 0, 0);
            Sleep(1);
        }
    });
    EXPECT_TRUE(top.wait(event.handle()));
    worker.join();
    EXPECT_EQ(served, 3);
    EXPECT_EQ(top.passed(WM_APP), 3) << "through the window's own dispatch";
    EXPECT_EQ(top.failed, nullptr);
}

TEST_F(Loops, WaitReportsAFailureAndItsValue)
{
    ovlib::Event event;
    HANDLE copy = nullptr;
    DuplicateHandle(
        GetCurrentProcess(), event.handle(), GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
    CloseHandle(copy);
    EXPECT_FALSE(top.wait(copy));
    EXPECT_EQ(top.failed, copy);
    EXPECT_EQ(top.failure, static_cast<std::uint32_t>(WAIT_FAILED));
}

TEST_F(Loops, WaitRestoresAQuitThatItRetrieved)
{
    ovlib::Event event(ovlib::Event::Reset::manual);
    top.answer = [&](WndMessage& message) {
        if (message.message == WM_TIMER)
            event.set();
        return false;
    };
    PostQuitMessage(23);
    SetTimer(top.hwnd(), 1, 10, nullptr); // a timer message is created after a quit
    EXPECT_TRUE(top.wait(event.handle())) << "the wait goes on after the quit";
    KillTimer(top.hwnd(), 1);
    EXPECT_FALSE(top.quit_waits_in_handler) << "a box of the handler would not show over a waiting quit";
    EXPECT_EQ(top.passed(WM_QUIT), 0);
    EXPECT_EQ(top.message_loop(), 23);
}

class ModalRun : public Loops {
protected:
    void SetUp() override
    {
        Loops::SetUp();
        ASSERT_TRUE(sub.create(L"modal"));
        sub.show_cmd(SW_SHOW);
        gui::pump();
        top.dispatched.clear();
    }

    PlainSub sub{ &top, 5 };
};

TEST_F(ModalRun, DisablesItsParentUntilItsWindowIsDestroyed)
{
    bool enabled_inside = true;
    bool running_inside = false;
    sub.answer = [&](WndMessage& message) {
        if (message.message == WM_APP) {
            enabled_inside = top.is_enabled();
            running_inside = sub.is_running();
            sub.run(); // refused: it is running already
            sub.post(WM_CLOSE, 0, 0);
        }
        return false;
    };
    sub.post(WM_APP, 0, 0);
    sub.run();
    EXPECT_FALSE(enabled_inside);
    EXPECT_TRUE(running_inside);
    EXPECT_FALSE(sub.is_running());
    EXPECT_EQ(sub.hwnd(), nullptr);
    EXPECT_TRUE(top.is_enabled());
    EXPECT_TRUE(gui::pump_until([&] { return GetForegroundWindow() == top.hwnd(); }));
}

// The other window here has the same role as a window of another program.
TEST_F(ModalRun, ActivatesOnlyItsParentWhenItEnds)
{
    TopWnd other;
    ASSERT_TRUE(other.create(L"other"));
    ASSERT_TRUE(gui::bring_to_front(other));
    int activations = 0;
    int ticks = 0;
    other.answer = [&](WndMessage& message) {
        activations += message.message == WM_ACTIVATE && LOWORD(message.wparam) != WA_INACTIVE ? 1 : 0;
        return false;
    };
    // It ends when it is in front: a window manager's messages about the other window arrive late.
    sub.answer = [&](WndMessage& message) {
        if (message.message != WM_TIMER)
            return false;
        const bool is_in_front = GetForegroundWindow() == sub.hwnd() && GetActiveWindow() == sub.hwnd();
        EXPECT_LT(++ticks, 200) << "the window of the run comes to the front";
        if (is_in_front || ticks >= 200) {
            activations = 0;
            sub.destroy();
        } else {
            SetForegroundWindow(sub.hwnd());
        }
        return true;
    };
    SetTimer(sub.hwnd(), 1, 50, nullptr);
    sub.run();
    EXPECT_EQ(sub.hwnd(), nullptr);
    EXPECT_TRUE(gui::pump_until([&] { return GetForegroundWindow() == top.hwnd(); }));
    EXPECT_EQ(GetActiveWindow(), top.hwnd());
    EXPECT_EQ(activations, 0);
    other.destroy();
}

TEST_F(ModalRun, CanRunAgain)
{
    for (int round = 0; round < 3; ++round) {
        if (sub.hwnd() == nullptr) {
            ASSERT_TRUE(sub.create(L"again"));
        }
        sub.post(WM_CLOSE, 0, 0);
        sub.run();
        EXPECT_EQ(sub.hwnd(), nullptr);
        EXPECT_TRUE(top.is_enabled());
    }
}

TEST_F(ModalRun, DispatchesThroughItsParent)
{
    sub.post(WM_APP, 0, 0);
    sub.post(WM_CLOSE, 0, 0);
    sub.run();
    EXPECT_EQ(top.passed(WM_APP), 1) << "the parent's accelerators see the message";
}

TEST_F(ModalRun, DropsMessagesWithoutAWindow)
{
    PostThreadMessageW(GetCurrentThreadId(), WM_APP + 1, 0, 0);
    sub.post(WM_CLOSE, 0, 0);
    sub.run();
    EXPECT_EQ(top.passed(WM_APP + 1), 0);
}

TEST_F(ModalRun, EndsOnQuitWithoutPostingItAgain)
{
    PostQuitMessage(3);
    sub.run();
    EXPECT_TRUE(top.is_enabled());
    EXPECT_NE(sub.hwnd(), nullptr);
    EXPECT_FALSE(gui::take_quit());
    sub.post(WM_CLOSE, 0, 0);
    sub.run();
    EXPECT_EQ(sub.hwnd(), nullptr) << "a run that was left may be taken up again";
}

TEST_F(ModalRun, DoesNotRunWithoutAParentOrAWindow)
{
    PlainSub orphan(nullptr, 1);
    ASSERT_TRUE(orphan.create(L""));
    orphan.run();
    EXPECT_FALSE(orphan.is_running());
    orphan.destroy();
    PlainSub uncreated(&top, 2);
    uncreated.run();
    EXPECT_TRUE(top.is_enabled());
}

TEST_F(ModalRun, SurvivesTheDeletionOfItsObject)
{
    auto* mortal = new PlainSub(&top, 6);
    ASSERT_TRUE(mortal->create(L""));
    mortal->answer = [mortal](WndMessage& message) {
        if (message.message == WM_APP) {
            mortal->destroy();
            delete mortal;
        }
        return false;
    };
    mortal->post(WM_APP, 0, 0);
    mortal->run();
    EXPECT_TRUE(top.is_enabled());
}

TEST_F(ModalRun, SurvivesTheDestructionOfItsParent)
{
    LoopWnd parent;
    ASSERT_TRUE(parent.create(L""));
    PlainSub child(&parent, 7);
    ASSERT_TRUE(child.create(L""));
    parent.answer = [&](WndMessage& message) {
        if (message.message == WM_APP)
            parent.destroy();
        return false;
    };
    parent.post(WM_APP, 0, 0);
    child.run();
    EXPECT_FALSE(child.is_running());
    EXPECT_EQ(child.hwnd(), nullptr);
    EXPECT_EQ(parent.hwnd(), nullptr);
}

} // namespace
