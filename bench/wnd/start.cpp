// The time from starting a process until its window is visible and answers messages.
#include "bench/harness.hpp"
#include "bench/wnd/app_host.hpp"
#include "look/theme.hpp"
#include "platform/text.hpp"
#include <chrono>
#include <memory>
#include <stdexcept>

namespace bench {

namespace {

constexpr std::chrono::seconds patience{ 30 };

class Process {
public:
    Process(std::wstring command, const wchar_t* window_class)
        : window_class_(window_class)
    {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        if (!CreateProcessW(
                nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process_))
            throw std::runtime_error("cannot start " + platform::to_utf8(command));
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    // Terminated, because closing the window would save the Book.
    ~Process()
    {
        TerminateProcess(process_.hProcess, 0);
        WaitForSingleObject(process_.hProcess, INFINITE);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }

    void wait_until_usable() const
    {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (!is_usable()) {
            if (std::chrono::steady_clock::now() > deadline)
                throw std::runtime_error("no usable window");
            Sleep(1);
        }
    }

private:
    bool is_usable() const
    {
        HWND const window = FindWindowW(window_class_, nullptr);
        constexpr UINT most_ms = 10000;
        return window && IsWindowVisible(window)
            && SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, most_ms, nullptr);
    }

    const wchar_t* window_class_;
    PROCESS_INFORMATION process_{};
};

void run_start_with(Bench& bench, const std::string& name, book::Book& book)
{
    const DataRoot root{ book };
    std::unique_ptr<Process> ours;
    std::unique_ptr<Process> notepad;
    Case start{ name, nullptr, "Wine's notepad to its window", nullptr, 1.0 };
    start.prepare = [&] {
        ours.reset();
        notepad.reset();
    };
    start.subject = [&] {
        ours = std::make_unique<Process>(L"\"" + root.program() + L"\"", L"ovlib_appwnd[310]");
        ours->wait_until_usable();
    };
    start.yardstick = [&] {
        notepad = std::make_unique<Process>(L"notepad.exe", L"Notepad");
        notepad->wait_until_usable();
    };
    bench.run(start);
    start.prepare();
}

} // namespace

void run_start(Bench& bench)
{
    book::Book small;
    small.new_page(0, look::page_colors(look::palette()));
    run_start_with(bench, "start with a Book of one page", small);
    run_start_with(bench, "start with the big Book", bench.big_book());
}

} // namespace bench
