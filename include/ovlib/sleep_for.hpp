// A sleep that does not end early.
#pragma once
#include <cstdint>

namespace ovlib {

// Sleeps until the system clock has advanced by this time. Returns at once for 0 and less.
void sleep_for(std::int64_t milliseconds);

// The end of such a sleep in nanoseconds, limited to the largest number.
std::int64_t sleep_end(std::int64_t now_nanoseconds, std::int64_t milliseconds);
// The next step of the sleep in milliseconds: the remaining time, rounded up, at most one day.
std::uint32_t sleep_step(std::int64_t now_nanoseconds, std::int64_t end_nanoseconds);

} // namespace ovlib
