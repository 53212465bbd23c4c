#include "controls/wheel_steps.hpp"
#include <cstdlib>

namespace ovlib {

namespace {

int sign_of(int value)
{
    return (value > 0) - (value < 0);
}

} // namespace

int WheelSteps::turn(int delta, std::uint32_t time)
{
    const int direction = sign_of(delta);
    if (direction == 0)
        return 0;
    // Unsigned subtraction stays right when the time wraps around.
    const bool goes_on = direction == sign_of(sum_) && time - last_ <= pause;
    last_ = time;
    if (std::abs(delta) >= notch) {
        sum_ = 0;
        return direction;
    }
    sum_ = (goes_on ? sum_ : 0) + delta;
    if (std::abs(sum_) < notch)
        return 0;
    sum_ -= direction * notch;
    return direction;
}

} // namespace ovlib
