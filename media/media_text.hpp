// What a file plays, as people read it.
#pragma once
#include <cstdint>
#include <string>

namespace media {

// Of ticks of 100 ns: "05:07", and "1:02:03" from an hour on.
std::wstring format_duration(std::uint64_t ticks);

// "mono", "5.1ch"; empty for 0.
std::wstring channel_text(std::uint32_t count);

} // namespace media
