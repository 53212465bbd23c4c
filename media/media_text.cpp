#include "media/media_text.hpp"
#include "platform/text.hpp"

namespace media {

using platform::two_digits;

namespace {

constexpr std::uint64_t ticks_per_second = 10'000'000;
constexpr std::uint64_t ticks_per_hour = 3600 * ticks_per_second;

} // namespace

std::wstring format_duration(std::uint64_t ticks)
{
    std::wstring text;
    if (const std::uint64_t hours = ticks / ticks_per_hour; hours != 0)
        text = std::to_wstring(hours) + L":";
    const std::uint64_t seconds = ticks / ticks_per_second;
    return text + two_digits(seconds % 3600 / 60) + L":" + two_digits(seconds % 60);
}

std::wstring channel_text(std::uint32_t count)
{
    switch (count) {
    case 0:
        return {};
    case 1:
        return L"mono";
    case 2:
        return L"stereo";
    case 4:
        return L"quad";
    case 5:
        return L"5.0ch";
    case 6:
        return L"5.1ch";
    case 8:
        return L"7.1ch";
    default:
        return std::to_wstring(count) + L"ch";
    }
}

} // namespace media
