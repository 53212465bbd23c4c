// Queries to shares and drives that do not answer.
#include "media/path_answers.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>

namespace {

using platform::PathAnswer;
using platform::PathKind;

// Every path is a file, except on one share and one drive that do not answer.
class SilentShare : public testing::Test {
protected:
    PathAnswer ask(const std::wstring& path)
    {
        ++asked;
        if (path.starts_with(L"\\\\far\\dead\\") || path.starts_with(L"X:"))
            return { PathKind::nothing, true };
        return { path.starts_with(L"\\\\") ? PathKind::regular_file : PathKind::nothing };
    }

    int asked = 0;
    media::PathAnswers paths{ [this](const std::wstring& path) { return ask(path); } };
};

TEST_F(SilentShare, IsQueriedOnceForAllItsPaths)
{
    for (const wchar_t* path :
        { L"\\\\far\\dead\\a.png", L"\\\\far\\dead\\b.png", L"\\\\FAR\\Dead\\c\\d.png" })
        EXPECT_FALSE(paths.exists(path));
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(paths.exists(L"//far/dead/e.png"));
    EXPECT_EQ(asked, 2) << "a share spelt with other separators is queried separately";
}

TEST_F(SilentShare, MayBeANetworkDrive)
{
    EXPECT_FALSE(paths.exists(L"X:\\a"));
    EXPECT_FALSE(paths.exists(L"x:\\b"));
    EXPECT_EQ(asked, 1);
}

TEST_F(SilentShare, IsKnownOnlyAfterAQuery)
{
    EXPECT_FALSE(paths.is_silent(L"\\\\far\\dead\\a.png"));
    paths.exists(L"\\\\far\\dead\\a.png");
    EXPECT_TRUE(paths.is_silent(L"\\\\far\\dead\\b.png"));
    EXPECT_FALSE(paths.is_silent(L"\\\\far\\deader\\a.png"));
    EXPECT_FALSE(paths.is_silent(L"a.png"));
    EXPECT_FALSE(paths.is_silent(L""));
    EXPECT_EQ(asked, 1);
}

TEST_F(SilentShare, IsQueriedAgainWhenItIsForgotten)
{
    paths.exists(L"\\\\far\\dead\\a.png");
    paths.forget();
    EXPECT_FALSE(paths.is_silent(L"\\\\far\\dead\\a.png"));
    paths.exists(L"\\\\far\\dead\\a.png");
    EXPECT_EQ(asked, 2);
}

TEST_F(SilentShare, DoesNotStopQueriesElsewhere)
{
    paths.exists(L"\\\\far\\dead\\a.png");
    for (const wchar_t* path :
        { L"\\\\far\\alive\\a.png", L"\\\\far\\deader\\a.png", L"\\\\near\\dead\\a.png" })
        EXPECT_EQ(paths.kind_of(path), PathKind::regular_file);
    EXPECT_FALSE(paths.exists(L"C:\\a.png"));
    EXPECT_FALSE(paths.exists(L"C:\\b.png"));
    EXPECT_EQ(asked, 6) << "a missing file says nothing about its drive";
}

TEST(PathAnswers, OfALocalPathAreTheSystems)
{
    const test_support::TempFolder folder;
    media::PathAnswers paths;
    EXPECT_FALSE(paths.exists(folder.file(L"a.txt")));
    test_support::write_text(folder.file(L"a.txt"), L"x");
    EXPECT_EQ(paths.kind_of(folder.file(L"a.txt")), PathKind::regular_file);
    EXPECT_EQ(paths.kind_of(folder.path()), PathKind::folder);
}

} // namespace
