// The system's message for an error code.
#pragma once
#include <cstdint>
#include <string>

namespace ovlib {

// In the user's language and with the system's line end; empty for an unknown code.
std::wstring system_error_text(std::uint32_t code);
// The same in the active code page.
std::string narrow_system_error_text(std::uint32_t code);

} // namespace ovlib
