// The user's own colours and their file.
#include "look/custom_colors.hpp"
#include "tests/support/temp_folder.hpp"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using look::CustomColors;
using test_support::Bytes;

class CustomColorsFile : public testing::Test {
protected:
    static Bytes counting(std::size_t length)
    {
        Bytes bytes;
        for (std::size_t i = 1; i <= length; ++i)
            bytes.push_back(static_cast<std::byte>(i));
        return bytes;
    }
    CustomColors read_from(const Bytes& bytes) const
    {
        test_support::write_bytes(path, bytes);
        return look::read_custom_colors(path);
    }

    test_support::TempFolder folder;
    std::wstring path = folder.file(L"custom_colors.dat");
};

TEST_F(CustomColorsFile, IsSixtyFourBytesInLittleEndian)
{
    CustomColors colors{};
    colors[0] = 0x00C0FFEE;
    colors[15] = 0x00123456;
    EXPECT_TRUE(look::write_custom_colors(path, colors));
    const Bytes bytes = test_support::read_bytes(path);
    ASSERT_EQ(bytes.size(), 64u);
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 4),
        (Bytes{ std::byte{ 0xEE }, std::byte{ 0xFF }, std::byte{ 0xC0 }, std::byte{} }));
    EXPECT_EQ(Bytes(bytes.end() - 4, bytes.end()),
        (Bytes{ std::byte{ 0x56 }, std::byte{ 0x34 }, std::byte{ 0x12 }, std::byte{} }));
    EXPECT_EQ(std::count(bytes.begin() + 4, bytes.end() - 4, std::byte{}), 56);
}

TEST_F(CustomColorsFile, ReturnsWhatWasWritten)
{
    CustomColors colors{};
    for (std::uint32_t i = 0; i < colors.size(); ++i)
        colors[i] = 0x00F1E2D3u - i * 0x010203u;
    EXPECT_TRUE(look::write_custom_colors(path, colors));
    EXPECT_EQ(look::read_custom_colors(path), colors);
}

TEST_F(CustomColorsFile, ReplacesALongerFile)
{
    test_support::write_bytes(path, counting(200));
    EXPECT_TRUE(look::write_custom_colors(path, {}));
    EXPECT_EQ(test_support::read_bytes(path).size(), 64u);
}

TEST_F(CustomColorsFile, LeavesEveryColourBlackWhenItIsMissing)
{
    EXPECT_EQ(look::read_custom_colors(path), CustomColors{});
    EXPECT_EQ(look::read_custom_colors(folder.path()), CustomColors{}) << "a folder";
    EXPECT_FALSE(platform::exists(path));
}

TEST_F(CustomColorsFile, OfTenBytesFillsTwoColoursAndHalfOfTheThird)
{
    CustomColors expected{};
    expected[0] = 0x04030201;
    expected[1] = 0x08070605;
    expected[2] = 0x00000A09;
    EXPECT_EQ(read_from(counting(10)), expected);
}

TEST_F(CustomColorsFile, OfAnyOtherLengthFillsWhatItReaches)
{
    EXPECT_EQ(read_from({}), CustomColors{});
    EXPECT_EQ(read_from(counting(1))[0], 0x01u);
    EXPECT_EQ(read_from(counting(63))[15], 0x003F3E3Du);
    EXPECT_EQ(read_from(counting(64))[15], 0x403F3E3Du);
    EXPECT_EQ(read_from(counting(300)), read_from(counting(64)));
}

TEST_F(CustomColorsFile, ReportsAFailedWrite)
{
    EXPECT_FALSE(look::write_custom_colors(folder.file(L"missing") + L"/custom_colors.dat", {}));
}

} // namespace
