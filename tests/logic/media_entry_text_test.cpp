// Entries as text, and the texts of durations and channels.
#include "media/entry_text.hpp"
#include "media/media_text.hpp"
#include <gtest/gtest.h>
#include <limits>

namespace {

using media::channel_text;
using media::format_duration;
using media::is_url;
using media::percent_encode;

constexpr std::uint64_t second = 10'000'000;

TEST(IsUrl, IsTrueForTheTwoSchemesInLowerCase)
{
    EXPECT_TRUE(is_url(L"https://example.com/"));
    EXPECT_TRUE(is_url(L"http://x"));
    EXPECT_TRUE(is_url(L"http://"));
    EXPECT_FALSE(is_url(L"HTTP://example.com"));
    EXPECT_FALSE(is_url(L"Https://example.com"));
    EXPECT_FALSE(is_url(L" http://x"));
    EXPECT_FALSE(is_url(L"http:/x"));
    EXPECT_FALSE(is_url(L"ftp://x"));
    EXPECT_FALSE(is_url(L""));
}

TEST(PercentEncode, KeepsOnlyUnreservedCharacters)
{
    EXPECT_EQ(percent_encode(L""), "");
    EXPECT_EQ(percent_encode(L"azAZ09-._~"), "azAZ09-._~");
    EXPECT_EQ(percent_encode(L" !/?&=+%\r\n"), "%20%21%2F%3F%26%3D%2B%25%0D%0A");
    EXPECT_EQ(percent_encode(L"@[`{"), "%40%5B%60%7B");
    EXPECT_EQ(percent_encode(std::wstring(1, L'\0')), "%00");
}

TEST(PercentEncode, WritesTheBytesOfUtf8InUpperCase)
{
    EXPECT_EQ(percent_encode(L"日記"), "%E6%97%A5%E8%A8%98");
    EXPECT_EQ(percent_encode(std::wstring{ wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } }), "%F0%A0%AE%B7");
}

TEST(PercentEncode, ReplacesALoneSurrogate)
{
    EXPECT_EQ(percent_encode(std::wstring{ L'a', wchar_t{ 0xD842 } }), "a%EF%BF%BD");
    EXPECT_EQ(percent_encode(std::wstring{ wchar_t{ 0xDFB7 }, L'a' }), "%EF%BF%BDa");
}

TEST(ShowInFolder, SelectsTheFileInQuotes)
{
    EXPECT_EQ(media::show_in_folder_parameters(L"C:\\a b\\c.txt"), L" /select, \"C:\\a b\\c.txt\"");
}

TEST(FormatDuration, WritesMinutesAndSecondsInTwoDigits)
{
    EXPECT_EQ(format_duration(0), L"00:00");
    EXPECT_EQ(format_duration(second - 1), L"00:00");
    EXPECT_EQ(format_duration(307 * second), L"05:07");
    EXPECT_EQ(format_duration(3599 * second), L"59:59");
}

TEST(FormatDuration, WritesHoursUnpadded)
{
    EXPECT_EQ(format_duration(3600 * second), L"1:00:00");
    EXPECT_EQ(format_duration(3723 * second), L"1:02:03");
    EXPECT_EQ(format_duration(100 * 3600 * second), L"100:00:00");
    EXPECT_EQ(format_duration(std::numeric_limits<std::uint64_t>::max()), L"512409557:36:10");
}

TEST(ChannelText, NamesTheUsualCounts)
{
    EXPECT_EQ(channel_text(0), L"");
    EXPECT_EQ(channel_text(1), L"mono");
    EXPECT_EQ(channel_text(2), L"stereo");
    EXPECT_EQ(channel_text(3), L"3ch");
    EXPECT_EQ(channel_text(4), L"quad");
    EXPECT_EQ(channel_text(5), L"5.0ch");
    EXPECT_EQ(channel_text(6), L"5.1ch");
    EXPECT_EQ(channel_text(7), L"7ch");
    EXPECT_EQ(channel_text(8), L"7.1ch");
    EXPECT_EQ(channel_text(9), L"9ch");
    EXPECT_EQ(channel_text(0xFFFFFFFF), L"4294967295ch");
}

} // namespace
