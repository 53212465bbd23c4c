// Turns mouse wheel messages into whole steps.
#pragma once
#include <cstdint>

namespace ovlib {

// A wheel with notches reports 120 per notch, a touchpad many turns of 1 to 119. Small turns are summed up
// until they reach a notch, which is a step; the remainder counts towards the next one. A turn of one notch
// or more is one step, however large it is, and discards the sum.
class WheelSteps {
public:
    static constexpr int notch = 120;
    // After a longer pause a turn is a new movement, and the sum is discarded.
    static constexpr std::uint32_t pause = 1000; // milliseconds

    // 1 for a step up (away from the user), -1 for a step down, 0 for no step yet. `delta` and `time` are
    // those of the message; the time is in milliseconds and wraps around after 49 days.
    int turn(int delta, std::uint32_t time);

private:
    int sum_ = 0;
    std::uint32_t last_ = 0; // the time of the last turn
};

} // namespace ovlib
