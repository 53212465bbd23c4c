// The filters and results of file dialogs.
#include "controls/file_dialog_text.hpp"
#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;
using ovlib::chosen_paths;
using ovlib::filter_text;
using Paths = std::vector<std::wstring>;

TEST(FilterText, EndsEveryPartWithANull)
{
    EXPECT_EQ(filter_text({}), L"");
    EXPECT_EQ(filter_text({ { L"Book Files", L"*.bok" } }), L"Book Files\0*.bok\0"sv);
    EXPECT_EQ(filter_text({ { L"画像", L"*.png;*.jpg" }, { L"すべて", L"*.*" } }),
        L"画像\0*.png;*.jpg\0すべて\0*.*\0"sv);
}

TEST(ChosenPaths, OneFileIsTheBufferItself)
{
    EXPECT_EQ(chosen_paths(L"C:\\a\\b.bok\0\0"sv, false), Paths{ L"C:\\a\\b.bok" });
    EXPECT_EQ(chosen_paths(L"C:\\a\0ignored\0\0"sv, false), Paths{ L"C:\\a" });
}

TEST(ChosenPaths, OneOfSeveralIsOneFullPath)
{
    EXPECT_EQ(chosen_paths(L"C:\\a\\b.bok\0\0"sv, true), Paths{ L"C:\\a\\b.bok" });
}

TEST(ChosenPaths, SeveralAreJoinedToTheirFolder)
{
    EXPECT_EQ(chosen_paths(L"C:\\a\0one\0第 二\0\0"sv, true), (Paths{ L"C:\\a\\one", L"C:\\a\\第 二" }));
    EXPECT_EQ(chosen_paths(L"C:\\\0one\0two\0\0"sv, true), (Paths{ L"C:\\one", L"C:\\two" }));
    EXPECT_EQ(chosen_paths(L"\\\\server\\share\0one\0two\0\0"sv, true),
        (Paths{ L"\\\\server\\share\\one", L"\\\\server\\share\\two" }));
}

TEST(ChosenPaths, WhatFollowsTheEndIsNotRead)
{
    EXPECT_EQ(chosen_paths(L"C:\\a\0one\0\0old\0"sv, true), Paths{ L"C:\\a\\one" });
}

TEST(ChosenPaths, ABufferThatIsFullEndsTheList)
{
    EXPECT_EQ(chosen_paths(L"C:\\a\0one\0tw"sv, true), (Paths{ L"C:\\a\\one", L"C:\\a\\tw" }));
    EXPECT_EQ(chosen_paths(L"C:\\a"sv, true), Paths{ L"C:\\a" });
}

TEST(ChosenPaths, AreNoneWhenNothingWasChosen)
{
    EXPECT_EQ(chosen_paths(L""sv, true), Paths{});
    EXPECT_EQ(chosen_paths(L"\0\0"sv, true), Paths{});
    EXPECT_EQ(chosen_paths(L"\0a\0\0"sv, false), Paths{});
}

} // namespace
