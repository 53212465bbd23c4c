// The system's own words for an error code.
#pragma once
#include <cstdint>
#include <string>

namespace ovlib {

// In the user's language, as the system gives it, its line end included; empty for a code it does not know.
std::wstring system_error_text(std::uint32_t code);
// The same in the active code page.
std::string narrow_system_error_text(std::uint32_t code);

} // namespace ovlib
