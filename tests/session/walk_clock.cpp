// Because this file defines local_time, the library's clock is not linked.
#include "walk_clock.hpp"
#include "platform/clock.hpp"

namespace {

long seconds = 0;

std::wstring two(long number)
{
    return { static_cast<wchar_t>(L'0' + number / 10 % 10), static_cast<wchar_t>(L'0' + number % 10) };
}

} // namespace

namespace platform {

LocalTime local_time()
{
    const long minutes = seconds / 60;
    const long hours = minutes / 60;
    const long days = hours / 24;
    return { 2024, static_cast<int>(days / 28 % 12) + 1, static_cast<int>(days % 28) + 1,
        static_cast<int>(hours % 24), static_cast<int>(minutes % 60), static_cast<int>(seconds % 60) };
}

} // namespace platform

namespace session_walk {

void advance_clock()
{
    ++seconds;
}

void reset_clock()
{
    seconds = 0;
}

std::wstring clock_text()
{
    const long days = seconds / 86400;
    return L"2024" + two(days / 28 % 12 + 1) + two(days % 28 + 1) + two(seconds / 3600 % 24)
        + two(seconds / 60 % 60) + two(seconds % 60);
}

} // namespace session_walk
