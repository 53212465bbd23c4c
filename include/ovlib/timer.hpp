// A timer of a window, killed with the object. A timer that cannot start is not active; nothing is reported.
#pragma once
#include <windows.h>
#include <cstdint>

namespace ovlib {

class Timer {
public:
    Timer() = default;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer();

    // The window gets WM_TIMER with `id`. An active timer is stopped first.
    void start(HWND hwnd, std::uintptr_t id, std::uint32_t milliseconds);
    void stop();
    bool is_active() const { return active_ != 0; }

private:
    HWND hwnd_ = nullptr;
    std::uintptr_t id_ = 0;
    std::uint8_t active_ = 0;
};

} // namespace ovlib
