#include "core/byte_size.hpp"
#include "platform/decimal.hpp"
#include <gtest/gtest.h>
#include <limits>

namespace {

using core::format_byte_size;
using platform::fixed_text;

TEST(ByteSize, BytesHaveNoDecimals)
{
    EXPECT_EQ(format_byte_size(0), L"0 Bytes");
    EXPECT_EQ(format_byte_size(1), L"1 Bytes");
    EXPECT_EQ(format_byte_size(1023), L"1023 Bytes");
}

TEST(ByteSize, LargerUnitsBeginAtTheirStepWithOneDecimal)
{
    EXPECT_EQ(format_byte_size(1024), L"1.0 KB");
    EXPECT_EQ(format_byte_size(1536), L"1.5 KB");
    EXPECT_EQ(format_byte_size(1048576), L"1.0 MB");
    EXPECT_EQ(format_byte_size(std::uint64_t{ 1 } << 30), L"1.0 GB");
    EXPECT_EQ(format_byte_size(std::uint64_t{ 1 } << 40), L"1.0 TB");
    EXPECT_EQ(format_byte_size(std::uint64_t{ 1 } << 50), L"1.0 PB");
    EXPECT_EQ(format_byte_size(std::uint64_t{ 1 } << 60), L"1.0 EB");
    EXPECT_EQ(format_byte_size(std::numeric_limits<std::uint64_t>::max()), L"16.0 EB");
}

TEST(ByteSize, RoundingDoesNotPromote)
{
    EXPECT_EQ(format_byte_size(1048575), L"1024.0 KB");
}

TEST(FixedText, RoundsToItsDecimals)
{
    EXPECT_EQ(fixed_text(37.5, 1), L"37.5");
    EXPECT_EQ(fixed_text(0, 1), L"0.0");
    EXPECT_EQ(fixed_text(99.96, 1), L"100.0");
    EXPECT_EQ(fixed_text(2.5, 0), L"2");
    EXPECT_EQ(fixed_text(std::numeric_limits<double>::max(), 1).size(), 311u);
}

} // namespace
