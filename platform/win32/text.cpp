#include "platform/text.hpp"
#include <windows.h>
#include <array>
#include <vector>

namespace platform {

namespace {

constexpr std::size_t first_surrogate = 0xD800;
constexpr std::size_t past_surrogates = 0xE000;

// Maps units first to last - 1. The range contains no surrogates, which could be read as half of a pair.
void map_units(UnitTable& table, std::size_t first, std::size_t last)
{
    const auto count = static_cast<int>(last - first);
    std::wstring units(last - first, L'\0');
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] = static_cast<wchar_t>(first + i);
    std::wstring lower(units.size(), L'\0');
    if (LCMapStringW(LOCALE_INVARIANT, LCMAP_LOWERCASE, units.data(), count, lower.data(), count) != count)
        return;
    for (std::size_t i = 0; i < lower.size(); ++i)
        table[first + i] = static_cast<std::uint16_t>(lower[i]);
}

UnitTable make_lower_case_table()
{
    UnitTable table{};
    for (std::size_t unit = 0; unit < unit_count; ++unit)
        table[unit] = static_cast<std::uint16_t>(unit);
    map_units(table, 0, first_surrogate);
    map_units(table, past_surrogates, unit_count);
    return table;
}

std::wstring locale_text(LCTYPE type)
{
    std::array<wchar_t, 80> buffer{};
    const int length =
        GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, type, buffer.data(), static_cast<int>(buffer.size()));
    return length > 0 ? std::wstring(buffer.data()) : std::wstring();
}

// LOCALE_SGROUPING and NUMBERFMT write groupings differently. "3;0" repeats groups of three and becomes 3;
// "3;2;0" repeats groups of two after one of three and becomes 32. A pattern without ";0" groups only once,
// which NUMBERFMT expresses by a final zero: "3" becomes 30.
UINT grouping_of(const std::wstring& pattern)
{
    UINT grouping = 0;
    bool repeats = false;
    for (const wchar_t unit : pattern) {
        if (unit == L'0')
            repeats = true;
        else if (unit >= L'1' && unit <= L'9')
            grouping = grouping * 10 + static_cast<UINT>(unit - L'0');
    }
    return repeats ? grouping : grouping * 10;
}

} // namespace

const UnitTable& lower_case_table()
{
    static const UnitTable table = make_lower_case_table();
    return table;
}

std::wstring grouped_number(std::uint64_t number)
{
    const std::wstring plain = std::to_wstring(number);
    std::wstring thousands = locale_text(LOCALE_STHOUSAND);
    std::wstring decimal = locale_text(LOCALE_SDECIMAL);
    NUMBERFMTW format{};
    format.LeadingZero = 1;
    format.Grouping = grouping_of(locale_text(LOCALE_SGROUPING));
    format.lpDecimalSep = decimal.data();
    format.lpThousandSep = thousands.data();
    format.NegativeOrder = 1;
    std::array<wchar_t, 128> buffer{};
    const int length = GetNumberFormatEx(
        LOCALE_NAME_USER_DEFAULT, 0, plain.c_str(), &format, buffer.data(), static_cast<int>(buffer.size()));
    return length > 0 ? std::wstring(buffer.data()) : plain;
}

} // namespace platform
