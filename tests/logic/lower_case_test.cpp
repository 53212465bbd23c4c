// Lower case of single code units.
#include "platform/text.hpp"
#include <gtest/gtest.h>

namespace {

TEST(LowerCase, MapsAsciiLettersAndNoOtherAscii)
{
    for (wchar_t unit = 0; unit < 0x80; ++unit) {
        const bool is_capital = unit >= L'A' && unit <= L'Z';
        EXPECT_EQ(platform::to_lower(unit), is_capital ? unit + 32 : unit) << static_cast<int>(unit);
    }
}

TEST(LowerCase, MapsLettersOfManyScripts)
{
    const std::pair<wchar_t, wchar_t> pairs[] = { { 0xC0, 0xE0 }, { 0xD7, 0xD7 }, { 0xDE, 0xFE },
        { 0xDF, 0xDF }, { 0x100, 0x101 }, { 0x101, 0x101 }, { 0x178, 0xFF }, { 0x391, 0x3B1 },
        { 0x3A3, 0x3C3 }, { 0x3C2, 0x3C2 }, { 0x410, 0x430 }, { 0x401, 0x451 }, { 0x531, 0x561 },
        { 0x1E00, 0x1E01 }, { 0x2160, 0x2170 }, { 0x24B6, 0x24D0 }, { 0xFF21, 0xFF41 }, { 0xFF3A, 0xFF5A },
        { 0x3042, 0x3042 }, { 0x30A2, 0x30A2 }, { 0x6F22, 0x6F22 } };
    for (const auto& [unit, lower] : pairs)
        EXPECT_EQ(platform::to_lower(unit), lower) << std::hex << static_cast<int>(unit);
}

TEST(LowerCase, LeavesSurrogates)
{
    for (int unit = 0xD800; unit < 0xE000; ++unit)
        EXPECT_EQ(platform::to_lower(static_cast<wchar_t>(unit)), static_cast<wchar_t>(unit));
}

TEST(LowerCase, IsTheSameInTableAndCall)
{
    const platform::UnitTable& table = platform::lower_case_table();
    for (std::size_t unit = 0; unit < platform::unit_count; ++unit)
        ASSERT_EQ(static_cast<wchar_t>(table[unit]), platform::to_lower(static_cast<wchar_t>(unit)));
    EXPECT_EQ(&table, &platform::lower_case_table());
}

// The two systems' tables differ a little in size, because they know different versions of Unicode.
TEST(LowerCase, MapsEveryCasedLetterOnce)
{
    int mapped = 0;
    for (std::size_t unit = 0; unit < platform::unit_count; ++unit)
        mapped += platform::lower_case_table()[unit] != unit;
    EXPECT_GT(mapped, 700);
    EXPECT_LT(mapped, 1500);
}

TEST(LowerCase, IsIdempotent)
{
    for (std::size_t unit = 0; unit < platform::unit_count; ++unit) {
        const wchar_t lower = platform::to_lower(static_cast<wchar_t>(unit));
        ASSERT_EQ(platform::to_lower(lower), lower) << std::hex << unit;
    }
}

} // namespace
