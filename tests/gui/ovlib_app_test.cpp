// The arguments of the process, and ini files.
#include "ovlib/ini_data.hpp"
#include "ovlib/win_app.hpp"
#include "platform/path_text.hpp"
#include "tests/support/gui_folder.hpp"
#include <gtest/gtest.h>

namespace {

using ovlib::IniData;

TEST(WinApp, IsInitializedFromTheEntryPointAndTheCommandLine)
{
    using namespace ovlib;
    const HINSTANCE module = GetModuleHandleW(nullptr);
    WinApp::initialize(module, SW_SHOWMINNOACTIVE);
    EXPECT_EQ(WinApp::instance, module);
    EXPECT_EQ(WinApp::show_command, SW_SHOWMINNOACTIVE);
    ASSERT_FALSE(WinApp::arguments.empty());
    EXPECT_EQ(WinApp::program_path, WinApp::arguments.front());
    EXPECT_EQ(WinApp::data_root, platform::parent_path(WinApp::program_path));
    EXPECT_EQ(WinApp::program_path.substr(WinApp::program_path.size() - 13), L"gui_tests.exe");
    WinApp::initialize(nullptr, SW_SHOWNORMAL);
}

class Ini : public testing::Test {
protected:
    gui::TempFolder folder;
};

TEST_F(Ini, AMissingFileGivesTheDefaults)
{
    const IniData ini(folder.file(L"none.ini"));
    EXPECT_EQ(ini.read_int(L"COMMON", L"INTERPOLATION", 5005), 5005);
    EXPECT_EQ(ini.read_string(L"COMMON", L"VIEWDATA"), L"");
}

TEST_F(Ini, WhatIsWrittenIsReadAgain)
{
    const IniData ini(folder.file(L"設定.ini"));
    EXPECT_TRUE(ini.write_string(L"COMMON", L"ICHAT", L"7"));
    EXPECT_TRUE(ini.write_string(L"COMMON", L"VIEWDATA", L"1 2 3 4 2100"));
    EXPECT_TRUE(ini.write_string(L"OTHER", L"ICHAT", L"8"));
    EXPECT_EQ(ini.read_int(L"COMMON", L"ICHAT", 0), 7);
    EXPECT_EQ(ini.read_int(L"OTHER", L"ICHAT", 0), 8);
    EXPECT_EQ(ini.read_string(L"COMMON", L"VIEWDATA"), L"1 2 3 4 2100");
    EXPECT_TRUE(ini.write_string(L"COMMON", L"ICHAT", L"-3"));
    EXPECT_EQ(IniData(folder.file(L"設定.ini")).read_int(L"COMMON", L"ICHAT", 0), -3);
}

TEST_F(Ini, ALongTextIsTruncatedAtTheBuffersEnd)
{
    const IniData ini(folder.file(L"long.ini"));
    ASSERT_TRUE(ini.write_string(L"COMMON", L"VIEWDATA", std::wstring(9'000, L'1')));
    EXPECT_EQ(ini.read_string(L"COMMON", L"VIEWDATA"), std::wstring(8'191, L'1'));
}

TEST_F(Ini, AFileThatCannotBeWrittenIsNoError)
{
    const IniData ini(folder.file(L"no such folder\\a.ini"));
    EXPECT_FALSE(ini.write_string(L"COMMON", L"ICHAT", L"7"));
    EXPECT_EQ(ini.read_int(L"COMMON", L"ICHAT", 4), 4);
}

} // namespace
