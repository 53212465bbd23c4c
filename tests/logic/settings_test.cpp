// The settings file: reading every state of it, and writing.
#include "core/settings.hpp"
#include <gtest/gtest.h>
#include <map>
#include <vector>

namespace {

using core::Settings;

// A section of an ini file in memory.
class Section : public core::SettingsStore {
public:
    std::int32_t read_number(const wchar_t* key, std::int32_t absent) override
    {
        const auto found = values.find(key);
        return found == values.end() ? absent : static_cast<std::int32_t>(std::stol(found->second));
    }
    std::wstring read_text(const wchar_t* key) override
    {
        const auto found = values.find(key);
        return found == values.end() ? std::wstring{} : found->second;
    }
    void write_text(const wchar_t* key, const std::wstring& text) override
    {
        written.emplace_back(key);
        if (!is_read_only)
            values[key] = text;
    }

    std::map<std::wstring, std::wstring> values;
    std::vector<std::wstring> written;
    bool is_read_only = false;
};

Settings with_view_data(const std::wstring& text)
{
    Section section;
    section.values[L"VIEWDATA"] = text;
    return core::read_settings(section);
}

TEST(Settings, OfNoFileAreTheDefaults)
{
    Section empty;
    const Settings settings = core::read_settings(empty);
    EXPECT_EQ(settings.interpolation_command, 5005);
    EXPECT_EQ(settings.browser_zoom_percent, 100);
    EXPECT_EQ(settings.chat_index, 0);
    EXPECT_FALSE(settings.clear_cache_at_exit);
    EXPECT_FALSE(settings.auto_backup);
    EXPECT_FALSE(settings.auto_imm);
    EXPECT_EQ(settings.view_rect, platform::Rect{});
    EXPECT_EQ(settings.view_mode, 2101);
}

TEST(Settings, AreReadFromTheirKeys)
{
    Section section;
    section.values = { { L"INTERPOLATION", L"5002" }, { L"BROWSERZOOMFAC", L"150" }, { L"ICHAT", L"3" },
        { L"CLEARCACHE", L"1" }, { L"AUTOBACKUP", L"-1" }, { L"AUTOIMM", L"0" },
        { L"VIEWDATA", L"-10 20 300 400 2100" } };
    const Settings settings = core::read_settings(section);
    EXPECT_EQ(settings.interpolation_command, 5002);
    EXPECT_EQ(settings.browser_zoom_percent, 150);
    EXPECT_EQ(settings.chat_index, 3);
    EXPECT_TRUE(settings.clear_cache_at_exit);
    EXPECT_TRUE(settings.auto_backup);
    EXPECT_FALSE(settings.auto_imm);
    EXPECT_EQ(settings.view_rect, (platform::Rect{ -10, 20, 300, 400 }));
    EXPECT_EQ(settings.view_mode, 2100);
}

TEST(Settings, AreWrittenInOrderWithTheViewerFirst)
{
    Section section;
    core::write_settings(Settings{}, section);
    EXPECT_EQ(section.written,
        (std::vector<std::wstring>{ L"VIEWDATA", L"INTERPOLATION", L"BROWSERZOOMFAC", L"ICHAT", L"CLEARCACHE",
            L"AUTOBACKUP", L"AUTOIMM" }));
    EXPECT_EQ(section.values[L"VIEWDATA"], L"0 0 0 0 2101");
    EXPECT_EQ(section.values[L"INTERPOLATION"], L"5005");
    EXPECT_EQ(section.values[L"AUTOIMM"], L"0");
}

TEST(Settings, AreReadAsTheyWereWritten)
{
    Settings settings;
    settings.interpolation_command = 5001;
    settings.browser_zoom_percent = -5;
    settings.chat_index = 2147483647;
    settings.clear_cache_at_exit = settings.auto_imm = true;
    settings.view_rect = { -2147483647 - 1, 0, 2147483647, 7 };
    settings.view_mode = -3;
    Section section;
    core::write_settings(settings, section);
    EXPECT_EQ(core::read_settings(section), settings);
}

TEST(Settings, ThatCannotBeWrittenLeaveTheOldFile)
{
    Section section;
    section.values[L"ICHAT"] = L"4";
    section.is_read_only = true;
    core::write_settings(Settings{}, section);
    EXPECT_EQ(core::read_settings(section).chat_index, 4);
}

TEST(Settings, TreatAnyNumberButZeroAsTrueAndWriteOne)
{
    Section section;
    section.values[L"CLEARCACHE"] = L"7";
    const Settings settings = core::read_settings(section);
    EXPECT_TRUE(settings.clear_cache_at_exit);
    core::write_settings(settings, section);
    EXPECT_EQ(section.values[L"CLEARCACHE"], L"1");
}

TEST(Settings, KeepAnUnknownInterpolation)
{
    Section section;
    section.values[L"INTERPOLATION"] = L"123";
    const Settings settings = core::read_settings(section);
    core::write_settings(settings, section);
    EXPECT_EQ(section.values[L"INTERPOLATION"], L"123");
    EXPECT_EQ(core::interpolation_mode(settings.interpolation_command), 0);
}

TEST(ViewData, OfThreeNumbersGivesNoRectangleAndTheDefaultMode)
{
    const Settings settings = with_view_data(L"1 2 3");
    EXPECT_EQ(settings.view_rect, platform::Rect{});
    EXPECT_EQ(settings.view_mode, 2101);
}

TEST(ViewData, OfFourNumbersKeepsTheRectangle)
{
    const Settings settings = with_view_data(L"1 2 3 4");
    EXPECT_EQ(settings.view_rect, (platform::Rect{ 1, 2, 3, 4 }));
    EXPECT_EQ(settings.view_mode, 2101);
}

TEST(ViewData, WithAModeOfZeroTakesTheDefaultMode)
{
    EXPECT_EQ(with_view_data(L"1 2 3 4 0").view_mode, 2101);
}

TEST(ViewData, KeepsAnyOtherMode)
{
    EXPECT_EQ(with_view_data(L"1 2 3 4 2100").view_mode, 2100);
    EXPECT_EQ(with_view_data(L"1 2 3 4 -7").view_mode, -7);
}

TEST(ViewData, ThatIsNotNumbersGivesTheDefaults)
{
    for (const wchar_t* text : { L"", L" ", L"abc", L"1,2,3,4,5", L"1 2 x 4 5", L"1 2 3 4294967296 5" }) {
        EXPECT_EQ(with_view_data(text).view_rect, platform::Rect{}) << text;
        EXPECT_EQ(with_view_data(text).view_mode, 2101) << text;
    }
}

TEST(ViewData, WithAnUnreadableModeKeepsTheRectangle)
{
    EXPECT_EQ(with_view_data(L"1 2 3 4 99999999999").view_mode, 2101);
    EXPECT_EQ(with_view_data(L"1 2 3 4 99999999999").view_rect, (platform::Rect{ 1, 2, 3, 4 }));
    EXPECT_EQ(with_view_data(L"1 2 3 4x 9").view_rect, (platform::Rect{ 1, 2, 3, 4 }));
}

TEST(ViewData, EndsAtItsFirstNull)
{
    EXPECT_EQ(with_view_data(std::wstring(L"1 2 3 4\0 2100", 13)).view_mode, 2101);
}

TEST(InterpolationMode, IsTheNumberOfTheDrawingLibrary)
{
    EXPECT_EQ(core::interpolation_mode(5000), 0);
    EXPECT_EQ(core::interpolation_mode(5001), 5);
    EXPECT_EQ(core::interpolation_mode(5002), 3);
    EXPECT_EQ(core::interpolation_mode(5003), 6);
    EXPECT_EQ(core::interpolation_mode(5004), 4);
    EXPECT_EQ(core::interpolation_mode(5005), 7);
}

TEST(InterpolationMode, OfAnyOtherNumberIsTheDefault)
{
    for (const std::int32_t command : { 4999, 5006, 0, -1, 2147483647, -2147483647 - 1 })
        EXPECT_EQ(core::interpolation_mode(command), 0) << command;
}

} // namespace
