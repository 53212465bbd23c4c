#include "platform/screen.hpp"
#include <cstdint>
#include <limits>

namespace platform {

namespace {

constexpr int failed = -1;

} // namespace

int mul_div(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return failed;
    std::int64_t product = std::int64_t{ number } * numerator;
    std::int64_t divisor = denominator;
    if (divisor < 0) {
        product = -product;
        divisor = -divisor;
    }
    const std::int64_t half = product < 0 ? -(divisor / 2) : divisor / 2;
    const std::int64_t result = (product + half) / divisor;
    const bool fits = result >= std::numeric_limits<int>::min() && result <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(result) : failed;
}

} // namespace platform
