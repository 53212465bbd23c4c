// Durations and audio channels as text.
#pragma once
#include <cstdint>
#include <string>

namespace media {

// A duration in ticks of 100 ns as "05:07", from one hour on as "1:02:03".
std::wstring format_duration(std::uint64_t ticks);

// "mono", "5.1ch"; empty for 0.
std::wstring channel_text(std::uint32_t count);

} // namespace media
