#include "platform/clock.hpp"
#include <windows.h>

namespace platform {

LocalTime local_time()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return { now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond };
}

} // namespace platform
