// Numbers as text, independent of the locale.
#pragma once
#include <string>

namespace platform {

// In fixed notation with this many digits after the decimal point.
std::wstring fixed_text(double number, int decimals);

} // namespace platform
