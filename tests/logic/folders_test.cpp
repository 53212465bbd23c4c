// The folders and files of the data root.
#include "core/folders.hpp"
#include <gtest/gtest.h>

namespace {

TEST(Folders, LieBelowTheDataRoot)
{
    const auto folders = core::folders_below(L"C:\\pw");
    EXPECT_EQ(folders.data_root, L"C:\\pw");
    EXPECT_EQ(folders.dat, L"C:\\pw\\dat");
    EXPECT_EQ(folders.res, L"C:\\pw\\res");
    EXPECT_EQ(folders.book_backup, L"C:\\pw\\book_backup");
    EXPECT_EQ(folders.download, L"C:\\pw\\dat\\download");
    EXPECT_EQ(folders.shortcut, L"C:\\pw\\dat\\shortcut");
    EXPECT_EQ(folders.webview2_profiles, L"C:\\pw\\dat\\webview2_profiles");
}

TEST(Folders, OfAnEmptyRootLieAtTheTopOfTheDrive)
{
    EXPECT_EQ(core::folders_below(L"").dat, L"\\dat");
}

TEST(Folders, HoldTheFilesByTheirFixedNames)
{
    const auto folders = core::folders_below(L"C:\\pw");
    EXPECT_EQ(core::settings_file(folders), L"C:\\pw\\dat\\pagewick.ini");
    EXPECT_EQ(core::history_file(folders), L"C:\\pw\\dat\\history.txt");
    EXPECT_EQ(core::custom_colors_file(folders), L"C:\\pw\\dat\\custom_colors.dat");
    EXPECT_EQ(core::end_of_logon_file(folders), L"C:\\pw\\pagewick_log.txt");
}

} // namespace
