#include "platform/clock.hpp"
#include <ctime>

namespace platform {

LocalTime local_time()
{
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    if (now == static_cast<std::time_t>(-1) || localtime_r(&now, &fields) == nullptr)
        return {};
    return { fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
        fields.tm_sec };
}

} // namespace platform
