// Turns of a mouse wheel as whole steps.
#pragma once
#include <cstdint>

namespace ovlib {

// A wheel with notches reports 120 a notch, a touchpad many turns of 1 to 119. Small turns are added up and
// make a step when they reach a notch; what is over counts for the next one. A turn of a notch or more is one
// step, however large it is, and ends a sum.
class WheelSteps {
public:
    static constexpr int notch = 120;
    // Without a turn for longer than this, the hand has left the wheel.
    static constexpr std::uint32_t pause = 1000; // milliseconds

    // 1 for a step up, away from the user, -1 for one down, 0 for none yet. `delta` and `time` as the message
    // reports them: the time is in milliseconds and starts again at 0 after 49 days.
    int turn(int delta, std::uint32_t time);

private:
    int sum_ = 0;
    std::uint32_t last_ = 0; // the time of the last turn
};

} // namespace ovlib
