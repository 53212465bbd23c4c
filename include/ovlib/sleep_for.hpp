// A sleep that survives early wake-ups.
#pragma once
#include <cstdint>

namespace ovlib {

// Until the system clock has gone on by this much; 0 and less return at once.
void sleep_for(std::int64_t milliseconds);

// The end of such a sleep in nanoseconds, at most the largest number there is.
std::int64_t sleep_end(std::int64_t now_nanoseconds, std::int64_t milliseconds);
// What to hand to the system for the rest of it: rounded up to whole milliseconds, at most a day.
std::uint32_t sleep_step(std::int64_t now_nanoseconds, std::int64_t end_nanoseconds);

} // namespace ovlib
