// Sizes as people read them.
#pragma once
#include <cstdint>
#include <string>

namespace core {

// "0 Bytes", "1.5 KB": steps of 1024 up to "EB", one decimal beyond bytes. Rounding does not promote: 1048575
// reads "1024.0 KB".
std::wstring format_byte_size(std::uint64_t bytes);

} // namespace core
