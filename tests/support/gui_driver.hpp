// Answers a modal box or dialog of this process from a second thread, as a user would.
#pragma once
#include "tests/support/gui_pump.hpp"
#include <windows.h>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace gui {

inline std::wstring text_of(HWND hwnd)
{
    std::wstring text(static_cast<std::size_t>(SendMessageW(hwnd, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(hwnd, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

// The visible top-level windows of a thread with this class, topmost first.
inline std::vector<HWND> visible_windows_of(DWORD thread, const wchar_t* class_name)
{
    struct Search {
        const wchar_t* class_name;
        std::vector<HWND> found;
    } search{ class_name, {} };
    EnumThreadWindows(
        thread,
        [](HWND hwnd, LPARAM lparam) -> BOOL {
            auto& asked = *reinterpret_cast<Search*>(lparam);
            wchar_t name[64] = {};
            GetClassNameW(hwnd, name, 64);
            if (std::wstring_view(name) == asked.class_name && IsWindowVisible(hwnd))
                asked.found.push_back(hwnd);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// The topmost of them, or null.
inline HWND visible_window_of(DWORD thread, const wchar_t* class_name)
{
    const std::vector<HWND> found = visible_windows_of(thread, class_name);
    return found.empty() ? nullptr : found.front();
}

inline std::vector<HWND> dialogs_of(DWORD thread)
{
    return visible_windows_of(thread, L"#32770");
}

// The visible dialog of a thread, or null.
inline HWND dialog_of(DWORD thread)
{
    return visible_window_of(thread, L"#32770");
}

// A second thread that waits for a window shown by this one and then acts on it. Its destructor joins the
// thread, so it must end after the call that shows the window.
class ShownDriver {
public:
    ShownDriver(const ShownDriver&) = delete;
    ShownDriver& operator=(const ShownDriver&) = delete;
    ~ShownDriver() { finish(); }

    // Waits for the thread; true if the window was shown.
    bool finish()
    {
        if (worker_.joinable())
            worker_.join();
        return met_;
    }

protected:
    // `meet` is called with the id of the constructing thread and returns whether it found the window.
    explicit ShownDriver(std::function<bool(DWORD)> meet)
        : worker_([this, meet = std::move(meet), thread = GetCurrentThreadId()] { met_ = meet(thread); })
    {
    }

private:
    bool met_ = false;
    std::thread worker_;
};

// Waits for the next dialog of the constructing thread and passes it to `act`, which must close it.
class DialogDriver : public ShownDriver {
public:
    explicit DialogDriver(std::function<void(HWND)> act)
        : ShownDriver([act = std::move(act)](DWORD thread) {
            if (!poll_until([&] { return dialog_of(thread) != nullptr; }))
                return false;
            act(dialog_of(thread));
            return true;
        })
    {
    }
};

} // namespace gui
