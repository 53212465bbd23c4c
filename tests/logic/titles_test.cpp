// Version, captions and the main window's title.
#include "core/titles.hpp"
#include <gtest/gtest.h>

namespace {

using core::message_caption;
using core::title_text;

TEST(VersionText, PutsAPointTwoDigitsFromTheEnd)
{
    EXPECT_EQ(core::version_text(106), L"1.06");
    EXPECT_EQ(core::version_text(1234), L"12.34");
    EXPECT_EQ(core::version_text(core::program_version), L"1.06");
}

TEST(MessageCaption, NamesTheProgramAndItsVersion)
{
    EXPECT_EQ(message_caption(L""), L"Pagewick v1.06");
}

TEST(MessageCaption, AddsTheStemOfTheBooksPath)
{
    EXPECT_EQ(message_caption(L"C:\\本\\日記.2024.bok"), L"Pagewick v1.06 - 日記.2024");
}

TEST(AboutText, NamesTheProgramItsVersionAndItsAuthors)
{
    EXPECT_EQ(core::about_text(), L"Pagewick v1.06\r\nby the Pagewick developers");
}

TEST(Title, IsTheStemOfThePath)
{
    EXPECT_EQ(title_text(L"C:\\本\\日記.bok", {}), L"日記");
}

TEST(Title, HasAStarWhileABoxIsEdited)
{
    EXPECT_EQ(title_text(L"C:\\本\\日記.bok", { .changed = true }), L"日記 *");
}

TEST(Title, OfABookWithoutAPathHasNoStar)
{
    EXPECT_EQ(title_text(L"", { .changed = true }), L"No Title");
}

TEST(Title, OfAStaleBookSaysSoWithoutAStar)
{
    EXPECT_EQ(title_text(L"C:\\日記.bok", { .changed = true, .needs_update = true }), L"Book needs update");
    EXPECT_EQ(title_text(L"", { .needs_update = true }), L"Book needs update");
}

TEST(Title, EndsWithTheExtraText)
{
    EXPECT_EQ(title_text(L"日記.bok", { .changed = true }, L" [検索中]"), L"日記 * [検索中]");
    EXPECT_EQ(title_text(L"", {}, L"!"), L"No Title!");
}

} // namespace
