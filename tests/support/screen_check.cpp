#include "tests/support/screen_check.hpp"
#include <windows.h>
#include <chrono>
#include <cstdio>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace test_support {

namespace {

constexpr UINT unfit_exit_code = 77;
constexpr std::chrono::seconds patience{ 20 };
constexpr std::chrono::milliseconds between_clicks{ 500 };
constexpr std::chrono::milliseconds calm{ 30 };
constexpr int side = 24;

// A small window in the corner of the screen, away from where programs open their windows.
class Probe {
public:
    Probe()
        : place_{ GetSystemMetrics(SM_CXSCREEN) - side, GetSystemMetrics(SM_CYSCREEN) - side }
    {
        WNDCLASSW info{};
        info.lpfnWndProc = serve;
        info.hInstance = GetModuleHandleW(nullptr);
        info.lpszClassName = L"pagewick_screen_probe";
        RegisterClassW(&info); // fails from the second time on
        is_clicked_ = false;
        GetCursorPos(&pointer_);
        window_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, info.lpszClassName, L"",
            WS_POPUP | WS_VISIBLE, place_.x, place_.y, side, side, nullptr, nullptr, info.hInstance, nullptr);
    }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;
    ~Probe()
    {
        DestroyWindow(window_);
        SetCursorPos(pointer_.x, pointer_.y);
        pump();
    }

    // Clicks the window repeatedly, because the first click may come too early. It must also keep the focus
    // for a moment: a program that takes the focus again and again would take it from the tests too.
    bool becomes_usable()
    {
        using clock = std::chrono::steady_clock;
        const auto deadline = clock::now() + patience;
        auto next_click = clock::now();
        auto usable_since = clock::time_point::max();
        do {
            if (GetForegroundWindow() != window_)
                SetForegroundWindow(window_);
            if (has_focus() && is_in_place() && !is_clicked_ && clock::now() >= next_click) {
                click();
                next_click = clock::now() + between_clicks;
            }
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 4, QS_ALLINPUT);
            pump();
            if (!has_focus() || !is_in_place() || !is_clicked_)
                usable_since = clock::time_point::max();
            else if (usable_since == clock::time_point::max())
                usable_since = clock::now();
            else if (clock::now() - usable_since >= calm)
                return true;
        } while (clock::now() < deadline);
        return false;
    }

    std::string describe() const
    {
        wchar_t name[80] = L"nobody";
        GetClassNameW(GetForegroundWindow(), name, 80);
        RECT at{};
        GetWindowRect(window_, &at);
        std::ostringstream text;
        text << "a window at " << place_.x << ',' << place_.y << " is at " << at.left << ',' << at.top << ", "
             << (has_focus() ? "has" : "does not get") << " the focus and "
             << (is_clicked_ ? "was" : "was not") << " met by a click; in front is ";
        for (const wchar_t* unit = name; *unit; ++unit)
            text << static_cast<char>(*unit < 0x7F ? *unit : L'?');
        return text.str();
    }

private:
    static LRESULT CALLBACK serve(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
    {
        if (message == WM_LBUTTONDOWN)
            is_clicked_ = true;
        return DefWindowProcW(window, message, wparam, lparam);
    }
    static void pump()
    {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    bool has_focus() const { return GetForegroundWindow() == window_ && GetFocus() == window_; }
    bool is_in_place() const
    {
        RECT at{};
        return GetWindowRect(window_, &at) && at.left == place_.x && at.top == place_.y;
    }
    void click() const
    {
        const auto scaled = [](LONG at, int extent) { return (at * 65536 + 32768) / extent; };
        INPUT inputs[3]{};
        for (INPUT& input : inputs) {
            input.type = INPUT_MOUSE;
            input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
            input.mi.dx = scaled(place_.x + side / 2, GetSystemMetrics(SM_CXSCREEN));
            input.mi.dy = scaled(place_.y + side / 2, GetSystemMetrics(SM_CYSCREEN));
        }
        inputs[1].mi.dwFlags |= MOUSEEVENTF_LEFTDOWN;
        inputs[2].mi.dwFlags |= MOUSEEVENTF_LEFTUP;
        SendInput(3, inputs, sizeof(INPUT));
    }

    static inline bool is_clicked_ = false;
    POINT place_;
    POINT pointer_{}; // old position, to restore: on a smaller screen the pointer could not leave this corner
    HWND window_ = nullptr;
};

void end_unless_fit()
{
    Probe probe;
    if (probe.becomes_usable())
        return;
    std::printf("The screen is unfit: %s\n", probe.describe().c_str());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), unfit_exit_code);
}

// Appended after the printer, so that the runner can read which test was about to start.
class Listener : public testing::EmptyTestEventListener {
public:
    explicit Listener(ScreenCheck when)
        : when_(when)
    {
    }

private:
    void OnTestStart(const testing::TestInfo& /*test*/) override
    {
        if (when_ == ScreenCheck::before_each_test || !has_begun_)
            end_unless_fit();
        has_begun_ = true;
    }

    ScreenCheck when_;
    bool has_begun_ = false;
};

} // namespace

void check_screen(ScreenCheck when)
{
    testing::UnitTest::GetInstance()->listeners().Append(new Listener(when)); // owned there
}

} // namespace test_support
