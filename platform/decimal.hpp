// Numbers as text, the same in every locale.
#pragma once
#include <string>

namespace platform {

// In fixed notation with this many digits behind the point.
std::wstring fixed_text(double number, int decimals);

} // namespace platform
