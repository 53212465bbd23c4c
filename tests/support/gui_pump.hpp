// Message pumping for tests that own their windows: poll for a state with a deadline, never sleep for luck.
#pragma once
#include <windows.h>
#include <chrono>

namespace gui {

inline constexpr std::chrono::seconds patience{ 15 };

// Serves all waiting messages. Drops WM_QUIT.
inline void pump()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// Serves messages until `state` holds; false if the deadline passes first.
template <class State> bool pump_until(State state)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    for (;;) {
        pump();
        if (state())
            return true;
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

// Polls without serving messages: for worker threads.
template <class State> bool poll_until(State state)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!state()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        Sleep(5);
    }
    return true;
}

// Removes a waiting WM_QUIT and stores its exit code; false if there is none.
inline bool take_quit(int* exit_code = nullptr)
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            if (exit_code != nullptr)
                *exit_code = static_cast<int>(message.wParam);
            return true;
        }
        DispatchMessageW(&message);
    }
    return false;
}

} // namespace gui
