#include "ovlib/sleep_for.hpp"
#include <windows.h>
#include <algorithm>
#include <chrono>
#include <limits>

namespace ovlib {

namespace {

constexpr std::int64_t nanoseconds_a_millisecond = 1'000'000;
constexpr std::int64_t longest_step = 86'400'000;
constexpr std::int64_t latest = std::numeric_limits<std::int64_t>::max();

std::int64_t system_clock_now()
{
    const auto since = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(since).count();
}

} // namespace

std::int64_t sleep_end(std::int64_t now_nanoseconds, std::int64_t milliseconds)
{
    const std::int64_t room = now_nanoseconds > 0 ? latest - now_nanoseconds : latest;
    if (milliseconds > room / nanoseconds_a_millisecond)
        return latest;
    return now_nanoseconds + std::max<std::int64_t>(milliseconds, 0) * nanoseconds_a_millisecond;
}

std::uint32_t sleep_step(std::int64_t now_nanoseconds, std::int64_t end_nanoseconds)
{
    if (end_nanoseconds <= now_nanoseconds)
        return 0;
    const std::int64_t rest = end_nanoseconds - now_nanoseconds;
    const std::int64_t rounded_up =
        rest / nanoseconds_a_millisecond + (rest % nanoseconds_a_millisecond != 0 ? 1 : 0);
    return static_cast<std::uint32_t>(std::min(rounded_up, longest_step));
}

void sleep_for(std::int64_t milliseconds)
{
    const std::int64_t end = sleep_end(system_clock_now(), milliseconds);
    while (const std::uint32_t step = sleep_step(system_clock_now(), end))
        Sleep(step);
}

} // namespace ovlib
