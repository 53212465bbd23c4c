// Text functions that depend on the system. All text is UTF-16: one code unit per element of std::wstring,
// even if wchar_t has 32 bits.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

inline constexpr std::size_t unit_count = 0x10000;
using UnitTable = std::array<std::uint16_t, unit_count>;

constexpr bool is_high_surrogate(wchar_t unit)
{
    return (static_cast<std::uint32_t>(unit) & 0xFFFFFC00u) == 0xD800u;
}
constexpr bool is_low_surrogate(wchar_t unit)
{
    return (static_cast<std::uint32_t>(unit) & 0xFFFFFC00u) == 0xDC00u;
}
constexpr bool is_surrogate(wchar_t unit)
{
    return (static_cast<std::uint32_t>(unit) & 0xFFFFF800u) == 0xD800u;
}

// The program's own table of white space, independent of the system.
bool is_white_space(wchar_t unit);

// The lower case of each single code unit; surrogates map to themselves. Filled once: by the invariant locale
// on Windows, by Unicode's simple lower-case mapping elsewhere.
const UnitTable& lower_case_table();
wchar_t to_lower(wchar_t unit);
// False at once for different lengths; otherwise compares the lower case of each code unit.
bool same_text_ignoring_case(std::wstring_view left, std::wstring_view right);

// UTF-8 conversions. A lone surrogate is encoded in its three-byte form, so that no text is lost. Other
// malformed bytes become U+FFFD.
std::string to_utf8(std::wstring_view text);
std::wstring from_utf8(std::string_view bytes);

// In decimal, with the digit grouping of the user's locale; ungrouped if that is unknown.
std::wstring grouped_number(std::uint64_t number);

// "07" for 7; longer numbers keep all digits.
std::wstring two_digits(std::uint64_t number);

} // namespace platform
