// Threads, events, timers, sleeping.
#include "ovlib/event.hpp"
#include "ovlib/sleep_for.hpp"
#include "ovlib/system_time.hpp"
#include "ovlib/thread.hpp"
#include "ovlib/timer.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <chrono>
#include <gtest/gtest.h>
#include <limits>
#include <system_error>

// The address of the import, which the linker names after the function.
extern "C" void* __imp_WaitForSingleObject; // NOLINT(bugprone-reserved-identifier)

namespace {

using ovlib::Event;

// Runs until it is stopped, and records how.
class Worker : public ovlib::Thread {
public:
    ~Worker() override { stop(); }
    void run() override
    {
        ++runs;
        flag_at_start = stop_flag();
        argument_at_start = argument();
        thread_id = GetCurrentThreadId();
        started.set();
        while (stop_flag() != 1)
            Sleep(1);
        ++ends;
    }

    Event started{ Event::Reset::manual };
    std::atomic<int> runs = 0;
    std::atomic<int> ends = 0;
    std::atomic<std::uint32_t> flag_at_start = 99;
    std::atomic<void*> argument_at_start = nullptr;
    std::atomic<DWORD> thread_id = 0;
};

TEST(Thread, StopDoesNothingWithoutAThread)
{
    Worker worker;
    worker.stop();
    EXPECT_FALSE(worker.is_held());
    EXPECT_EQ(worker.stop_flag(), 0u);
}

TEST(Thread, RunsOnItsOwnThreadWithItsArgumentAndFlag)
{
    Worker worker;
    int argument = 0;
    EXPECT_TRUE(worker.start(&argument, 2));
    ASSERT_TRUE(worker.started.wait(15'000));
    EXPECT_EQ(worker.argument_at_start, &argument);
    EXPECT_EQ(worker.flag_at_start, 2u);
    EXPECT_NE(worker.thread_id, GetCurrentThreadId());
    EXPECT_TRUE(worker.is_held());
    worker.stop();
    EXPECT_EQ(worker.ends, 1) << "stop returns after the end of run";
    EXPECT_EQ(worker.stop_flag(), 1u);
    EXPECT_FALSE(worker.is_held());
}

TEST(Thread, StartedTwiceRunsOnceAndKeepsItsFlag)
{
    Worker worker;
    EXPECT_TRUE(worker.start(nullptr, 0));
    ASSERT_TRUE(worker.started.wait(15'000));
    EXPECT_TRUE(worker.start(&worker, 7));
    EXPECT_EQ(worker.stop_flag(), 0u);
    EXPECT_EQ(worker.exchange_stop_flag(2), 0u);
    worker.stop();
    EXPECT_EQ(worker.runs, 1);
}

TEST(Thread, IsHeldUntilStoppedAlsoAfterItsEndAndCanStartAgain)
{
    Worker worker;
    for (int round = 1; round <= 3; ++round) {
        worker.started.reset();
        worker.start(nullptr, 1); // ends at its first check
        ASSERT_TRUE(worker.started.wait(15'000));
        ASSERT_TRUE(gui::poll_until([&] { return worker.ends == round; }));
        EXPECT_TRUE(worker.is_held());
        worker.stop();
        EXPECT_EQ(worker.runs, round);
    }
}

class SelfStopper : public ovlib::Thread {
public:
    ~SelfStopper() override { stop(); }
    void run() override
    {
        try {
            stop();
        } catch (const std::system_error& error) {
            is_deadlock = error.code() == std::errc::resource_deadlock_would_occur;
        }
        still_held = is_held();
        done.set();
    }

    Event done{ Event::Reset::manual };
    std::atomic<bool> is_deadlock = false;
    std::atomic<bool> still_held = false;
};

TEST(Thread, StoppingItselfIsADeadlockError)
{
    SelfStopper worker;
    worker.start(nullptr, 0);
    ASSERT_TRUE(worker.done.wait(15'000));
    EXPECT_TRUE(worker.is_deadlock);
    EXPECT_TRUE(worker.still_held);
    worker.stop();
    EXPECT_FALSE(worker.is_held());
}

// Waits in a call that CancelSynchronousIo does not reach.
class Stubborn : public ovlib::Thread {
public:
    ~Stubborn() override
    {
        release.set();
        stop();
    }
    void run() override { release.wait(INFINITE); }

    Event release{ Event::Reset::manual };
};

TEST(Thread, ThatCannotBeCancelledIsGivenUpAfterTheLimitAndStillHeld)
{
    Stubborn worker;
    worker.start(nullptr, 0);
    const ULONGLONG begin = GetTickCount64();
    EXPECT_FALSE(worker.stop_breaking_off_within(300));
    EXPECT_GE(GetTickCount64() - begin, 300u);
    EXPECT_TRUE(worker.is_held());
    EXPECT_EQ(worker.stop_flag(), 1u);
    worker.release.set();
    EXPECT_TRUE(worker.stop_breaking_off_within(15'000));
    EXPECT_FALSE(worker.is_held());
    EXPECT_TRUE(worker.stop_breaking_off_within(0)) << "nothing is left to be stopped";
}

TEST(Thread, AFailedJoinIsANoSuchProcessErrorAndKeepsTheThread)
{
    Worker worker;
    worker.start(nullptr, 0);
    ASSERT_TRUE(worker.started.wait(15'000));
    for (void (ovlib::Thread::*stop)() : { &ovlib::Thread::stop, &ovlib::Thread::stop_breaking_off }) {
        const gui::ReplacedImport<decltype(WaitForSingleObject)> failing{ &__imp_WaitForSingleObject,
            [](HANDLE, DWORD) -> DWORD { return WAIT_FAILED; } };
        try {
            (worker.*stop)();
            ADD_FAILURE() << "the join cannot have succeeded";
        } catch (const std::system_error& error) {
            EXPECT_EQ(error.code(), std::errc::no_such_process);
        }
        EXPECT_TRUE(worker.is_held());
    }
    worker.stop();
    EXPECT_FALSE(worker.is_held());
    EXPECT_EQ(worker.ends, 1);
}

class Careless : public ovlib::Thread {
public:
    void run() override
    {
        if (throws)
            throw std::runtime_error("thrown in run");
        has_run = true;
    }
    bool throws = false;
    std::atomic<bool> has_run = false;
};

TEST(ThreadDeathTest, DestroyingAnObjectBeforeItsThreadWasStoppedEndsTheProcess)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            Careless worker;
            worker.start(nullptr, 0);
            gui::poll_until([&] { return worker.has_run.load(); }); // ended, but still joinable
        },
        "terminate");
}

TEST(ThreadDeathTest, AnExceptionThatLeavesRunEndsTheProcess)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            Careless worker;
            worker.throws = true;
            worker.start(nullptr, 0);
            worker.stop();
        },
        "thrown in run");
}

TEST(Thread, ReleasesItsHandles)
{
    DWORD before = 0;
    GetProcessHandleCount(GetCurrentProcess(), &before);
    Worker worker;
    for (int round = 0; round < 300; ++round) {
        worker.start(nullptr, 1);
        worker.stop();
        Event event;
    }
    DWORD after = 0;
    GetProcessHandleCount(GetCurrentProcess(), &after);
    EXPECT_LT(after, before + 50);
}

TEST(Event, AutomaticIsResetByOneWaitAndManualStaysSet)
{
    Event automatic;
    EXPECT_NE(automatic.handle(), nullptr);
    EXPECT_FALSE(automatic.wait(0));
    automatic.set();
    EXPECT_TRUE(automatic.wait(0));
    EXPECT_FALSE(automatic.wait(0));
    Event manual(Event::Reset::manual, true);
    EXPECT_TRUE(manual.wait(0));
    EXPECT_TRUE(manual.wait(0));
    EXPECT_TRUE(manual.reset());
    EXPECT_FALSE(manual.wait(0));
    EXPECT_TRUE(manual.set());
}

TEST(Event, ReleasesItsHandle)
{
    HANDLE handle = nullptr;
    DWORD flags = 0;
    {
        const Event event;
        handle = event.handle();
        ASSERT_TRUE(GetHandleInformation(handle, &flags));
    }
    EXPECT_FALSE(GetHandleInformation(handle, &flags));
}

TEST(Timer, TicksUntilItIsStopped)
{
    gui::TopWnd wnd;
    ASSERT_TRUE(wnd.create(L""));
    ovlib::Timer timer;
    EXPECT_FALSE(timer.is_active());
    timer.stop();
    timer.start(wnd.hwnd(), 1, 10);
    EXPECT_TRUE(timer.is_active());
    EXPECT_TRUE(gui::pump_until([&] { return wnd.count(WM_TIMER) >= 2; }));
    timer.stop();
    EXPECT_FALSE(timer.is_active());
    EXPECT_FALSE(KillTimer(wnd.hwnd(), 1)) << "killed already";
    wnd.destroy();
}

TEST(Timer, IsKilledWithItsObjectAndReplacedByANewStart)
{
    gui::TopWnd wnd;
    ASSERT_TRUE(wnd.create(L""));
    {
        ovlib::Timer timer;
        timer.start(wnd.hwnd(), 1, 60'000);
        timer.start(wnd.hwnd(), 2, 60'000);
        EXPECT_FALSE(KillTimer(wnd.hwnd(), 1));
    }
    EXPECT_FALSE(KillTimer(wnd.hwnd(), 2));
    wnd.destroy();
}

TEST(Timer, IsNotActiveWithoutALivingWindow)
{
    ovlib::Timer timer;
    timer.start(reinterpret_cast<HWND>(std::uintptr_t{ 0x123456 }), 1, 10);
    EXPECT_FALSE(timer.is_active());
}

TEST(Timer, StaysActiveIfItCouldNotBeKilled)
{
    gui::TopWnd wnd;
    ASSERT_TRUE(wnd.create(L""));
    ovlib::Timer timer;
    timer.start(wnd.hwnd(), 1, 60'000);
    KillTimer(wnd.hwnd(), 1);
    timer.stop();
    EXPECT_TRUE(timer.is_active());
    wnd.destroy();
}

TEST(SystemTime, RecordsThePeriodThatTheSystemGranted)
{
    const ovlib::SystemTime fine(1);
    EXPECT_EQ(fine.period(), 1u);
    const ovlib::SystemTime refused(0);
    EXPECT_EQ(refused.period(), 0u);
}

TEST(SleepFor, ReturnsAtOnceForZeroAndLess)
{
    const auto before = std::chrono::steady_clock::now();
    for (int round = 0; round < 1000; ++round) {
        ovlib::sleep_for(0);
        ovlib::sleep_for(-5);
        ovlib::sleep_for(std::numeric_limits<std::int64_t>::min());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
}

TEST(SleepFor, NeverReturnsEarlyByTheSystemClock)
{
    for (const int milliseconds : { 1, 7, 30 }) {
        const auto before = std::chrono::system_clock::now();
        ovlib::sleep_for(milliseconds);
        EXPECT_GE(std::chrono::system_clock::now() - before, std::chrono::milliseconds(milliseconds));
    }
}

TEST(SleepFor, LeavesTheProcessorToOthers)
{
    const auto processor_time = [] {
        FILETIME created{};
        FILETIME ended{};
        FILETIME kernel{};
        FILETIME user{};
        EXPECT_TRUE(GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user));
        constexpr std::uint64_t units_per_millisecond = 10'000;
        return (kernel.dwLowDateTime + std::uint64_t{ user.dwLowDateTime }) / units_per_millisecond;
    };
    const std::uint64_t before = processor_time();
    ovlib::sleep_for(300);
    EXPECT_LT(processor_time() - before, 150u);
}

constexpr std::int64_t latest = std::numeric_limits<std::int64_t>::max();

TEST(SleepFor, LimitsItsEndToTheLargestNumber)
{
    EXPECT_EQ(ovlib::sleep_end(1'000, 3), 3'001'000);
    EXPECT_EQ(ovlib::sleep_end(1'000, -3), 1'000);
    EXPECT_EQ(ovlib::sleep_end(1'000, latest), latest);
    EXPECT_EQ(ovlib::sleep_end(1'000'000, latest / 1'000'000), latest);
    EXPECT_EQ(ovlib::sleep_end(latest, 1), latest);
    EXPECT_EQ(ovlib::sleep_end(latest, 0), latest);
    EXPECT_EQ(ovlib::sleep_end(0, latest / 1'000'000), latest / 1'000'000 * 1'000'000);
}

TEST(SleepFor, AStepIsRoundedUpAndAtMostADay)
{
    EXPECT_EQ(ovlib::sleep_step(5, 5), 0u);
    EXPECT_EQ(ovlib::sleep_step(6, 5), 0u);
    EXPECT_EQ(ovlib::sleep_step(5, 6), 1u);
    EXPECT_EQ(ovlib::sleep_step(0, 1'000'000), 1u);
    EXPECT_EQ(ovlib::sleep_step(0, 1'000'001), 2u);
    EXPECT_EQ(ovlib::sleep_step(0, latest), 86'400'000u);
    EXPECT_EQ(ovlib::sleep_step(0, 86'400'000'000'000), 86'400'000u);
    EXPECT_EQ(ovlib::sleep_step(0, 86'399'999'000'000), 86'399'999u);
}

} // namespace
