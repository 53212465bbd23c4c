// The real file system behind links and the search for moved files.
#include "media/system_paths.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>

namespace {

using media::full_entry;

TEST(SystemPaths, KnowFilesAndFolders)
{
    const test_support::TempFolder folder;
    test_support::write_text(folder.file(L"絵.png"), L"x");
    media::SystemPaths paths;
    EXPECT_TRUE(paths.exists(folder.file(L"絵.png")));
    EXPECT_TRUE(paths.exists(folder.path()));
    EXPECT_FALSE(paths.exists(folder.file(L"無い.png")));
    EXPECT_FALSE(paths.exists(L""));
    EXPECT_FALSE(paths.exists(L"http://x.invalid/a"));
}

TEST(SystemPaths, CountRelativePathsFromTheCurrentDirectory)
{
    media::SystemPaths paths;
    EXPECT_EQ(paths.absolute(L"絵.png"), platform::absolute_path(L"絵.png"));
    EXPECT_NE(paths.absolute(L"絵.png"), L"絵.png");
    EXPECT_EQ(paths.absolute(L""), L"");
}

TEST(FullEntry, IsAFullPathExceptForAddresses)
{
    EXPECT_EQ(full_entry(L"絵.png"), platform::absolute_path(L"絵.png"));
    EXPECT_EQ(full_entry(L"http://x.invalid/a"), L"http://x.invalid/a");
    EXPECT_EQ(full_entry(L"https://x.invalid/a"), L"https://x.invalid/a");
}

} // namespace
