#include "platform/decimal.hpp"
#include <charconv>
#include <limits>

namespace platform {

std::wstring fixed_text(double number, int decimals)
{
    std::string digits(
        static_cast<std::size_t>(std::numeric_limits<double>::max_exponent10 + 3 + decimals), '\0');
    const auto end = std::to_chars(
        digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed, decimals);
    return { digits.data(), end.ptr };
}

} // namespace platform
