// The texts of the commands on files and folders.
#include "app/file_texts.hpp"
#include <gtest/gtest.h>

namespace {

TEST(FileTexts, NameBothFilesOfADuplicate)
{
    EXPECT_EQ(app::duplicated_text(L"C:\\一.png", L"D:\\二.png"),
        L"ファイルを複製しました．\r\n\r\nFrom:\r\nC:\\一.png\r\n\r\nTo:\r\nD:\\二.png");
}

TEST(FileTexts, NameWhatCouldNotBeOpened)
{
    EXPECT_EQ(app::open_file_failure(L"一.png"), L"Error: ファイルを開けませんでした.\r\n一.png");
    EXPECT_EQ(app::show_in_folder_failure(L"C:\\一.png"),
        L"Error: ファイルの場所を開けませんでした.\r\nC:\\一.png");
    EXPECT_EQ(app::open_folder_failure(L"C:\\資料"), L"ライブラリを開けませんでした．\r\nC:\\資料");
}

TEST(FileTexts, NameTheDialogs)
{
    EXPECT_STREQ(app::add_files_title, L"ファイルの選択");
    EXPECT_STREQ(app::duplicate_title, L"ファイルの保存先を指定してください");
    EXPECT_STREQ(app::choose_folder_title, L"ライブラリの選択");
}

} // namespace
