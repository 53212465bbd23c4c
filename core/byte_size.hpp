// Byte counts as text for the user.
#pragma once
#include <cstdint>
#include <string>

namespace core {

// "0 Bytes", "1.5 KB": units of 1024 up to "EB", with one decimal from KB on. The unit is chosen before
// rounding: 1048575 gives "1024.0 KB".
std::wstring format_byte_size(std::uint64_t bytes);

} // namespace core
