#include "core/byte_size.hpp"
#include "platform/decimal.hpp"
#include <array>

namespace core {

namespace {

constexpr std::array<const wchar_t*, 7> units{ L"Bytes", L"KB", L"MB", L"GB", L"TB", L"PB", L"EB" };
constexpr int bits_per_unit = 10;

} // namespace

std::wstring format_byte_size(std::uint64_t bytes)
{
    std::size_t unit = 0;
    while (unit + 1 < units.size() && bytes >> (bits_per_unit * (unit + 1)) != 0)
        ++unit;
    const auto divisor = static_cast<double>(std::uint64_t{ 1 } << (bits_per_unit * unit));
    const std::wstring number = platform::fixed_text(static_cast<double>(bytes) / divisor, unit == 0 ? 0 : 1);
    return number + L" " + units[unit];
}

} // namespace core
