#include "ovlib/timer.hpp"
#include "ovlib/system_time.hpp"
#include <mmsystem.h>

namespace ovlib {

Timer::~Timer()
{
    stop();
}

void Timer::start(HWND hwnd, std::uintptr_t id, std::uint32_t milliseconds)
{
    stop();
    hwnd_ = hwnd;
    id_ = id;
    active_ = SetTimer(hwnd, id, milliseconds, nullptr) != 0 ? 1 : 0;
}

void Timer::stop()
{
    if (active_ != 0 && KillTimer(hwnd_, id_))
        active_ = 0;
}

SystemTime::SystemTime(std::uint32_t milliseconds)
    : period_(timeBeginPeriod(milliseconds) == TIMERR_NOERROR ? milliseconds : 0)
{
}

SystemTime::~SystemTime()
{
    if (period_ != 0)
        timeEndPeriod(period_);
}

} // namespace ovlib
