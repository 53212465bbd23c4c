// The wall clock, as local time.
#pragma once

namespace platform {

struct LocalTime {
    int year = 0;
    int month = 0; // 1 to 12
    int day = 0; // 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// All fields are 0 if the clock cannot be read.
LocalTime local_time();

} // namespace platform
