#include "driver_small_screen.hpp"
#include "driver_wait.hpp"
#include <gtest/gtest.h>
#include <string>

namespace e2e {

namespace {

constexpr auto small_desktop = L"pagewick_small_screen";
constexpr auto full_desktop = L"pagewick_full_screen";
// Of the process on the small desktop. It is set when the test has passed: a process that crashes under Wine
// may end with the code of a good end.
constexpr auto passed_event = L"pagewick_small_screen_passed";

SIZE screen_size()
{
    return { GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN) };
}

bool screen_gets(SIZE size)
{
    return wait_until([size] {
        const SIZE now = screen_size();
        return now.cx == size.cx && now.cy == size.cy;
    });
}

bool change_mode(SIZE size)
{
    DEVMODEW mode{};
    mode.dmSize = sizeof(mode);
    mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
    mode.dmPelsWidth = static_cast<DWORD>(size.cx);
    mode.dmPelsHeight = static_cast<DWORD>(size.cy);
    return ChangeDisplaySettingsExW(nullptr, &mode, nullptr, CDS_FULLSCREEN, nullptr)
        == DISP_CHANGE_SUCCESSFUL
        && screen_gets(size);
}

class ModeKeeper {
public:
    ModeKeeper() = default;
    ModeKeeper(const ModeKeeper&) = delete;
    ModeKeeper& operator=(const ModeKeeper&) = delete;
    ~ModeKeeper() { change_mode(size_); }

private:
    SIZE size_ = screen_size();
};

// A process that is ended with this object.
class Process {
public:
    Process(std::wstring command, const wchar_t* desktop)
    {
        std::wstring desktop_name = desktop ? desktop : L"";
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        startup.lpDesktop = desktop ? desktop_name.data() : nullptr;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
        startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
        startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
        if (!CreateProcessW(
                nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process_))
            throw DriverError("a process for a small screen does not start");
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process()
    {
        TerminateProcess(process_.hProcess, 1);
        ends_within(patience);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    bool ends_within(milliseconds limit) const
    {
        return WaitForSingleObject(process_.hProcess, static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
    }

private:
    PROCESS_INFORMATION process_{};
};

std::wstring desktop_command(const std::wstring& name, SIZE size)
{
    return L"explorer.exe /desktop=" + name + L"," + std::to_wstring(size.cx) + L"x"
        + std::to_wstring(size.cy);
}

// Wine keeps one size for all desktops, that of the last one shown: the old size comes back with another one.
class SmallDesktop {
public:
    explicit SmallDesktop(SIZE size)
        : explorer_(desktop_command(small_desktop, size), nullptr)
    {
        require("a desktop for a small screen shows", [this] {
            desktop_ = OpenDesktopW(small_desktop, 0, FALSE, GENERIC_ALL);
            return desktop_ != nullptr;
        });
    }
    SmallDesktop(const SmallDesktop&) = delete;
    SmallDesktop& operator=(const SmallDesktop&) = delete;
    ~SmallDesktop()
    {
        CloseDesktop(desktop_);
        const Process full(desktop_command(full_desktop, old_size_), nullptr);
        screen_gets(old_size_);
    }

private:
    SIZE old_size_ = screen_size();
    Process explorer_;
    HDESK desktop_ = nullptr;
};

std::wstring this_test_alone()
{
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    const std::string filter = std::string(" --gtest_filter=") + info->test_suite_name() + "." + info->name();
    std::wstring program(MAX_PATH, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
    return L"\"" + program + L"\"" + std::wstring(filter.begin(), filter.end());
}

void run_in_another_process(SIZE size)
{
    const HANDLE passed = CreateEventW(nullptr, TRUE, FALSE, passed_event);
    constexpr milliseconds whole_test{ 5 * patience };
    {
        const SmallDesktop desktop(size);
        const Process test(this_test_alone(), small_desktop);
        EXPECT_TRUE(test.ends_within(whole_test)) << "the test on the small desktop does not end";
    }
    EXPECT_EQ(WaitForSingleObject(passed, 0), WAIT_OBJECT_0) << "the test on the small desktop failed";
    CloseHandle(passed);
}

} // namespace

void on_small_screen(SIZE size, const std::function<void()>& body)
{
    if (const HANDLE passed = OpenEventW(EVENT_MODIFY_STATE, FALSE, passed_event)) {
        require("the desktop has the size of the small screen", [size] { return screen_gets(size); });
        body();
        if (!testing::Test::HasFailure())
            SetEvent(passed);
        CloseHandle(passed);
        return;
    }
    const ModeKeeper mode;
    if (change_mode(size))
        body();
    else
        run_in_another_process(size);
}

} // namespace e2e
