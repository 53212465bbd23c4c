// Parents, names and stems of paths, and relative paths.
#include "platform/path_text.hpp"
#include "tests/support/text_cases.hpp"
#include <gtest/gtest.h>

namespace {

using platform::file_name;
using platform::parent_path;
using platform::path_extension;
using platform::path_stem;
using platform::resolve_path;
using test_support::expect_texts;

TEST(ParentPath, IsTheTextBeforeTheLastSeparator)
{
    expect_texts(parent_path,
        {
            { L"C:\\apps\\pagewick\\pagewick.exe", L"C:\\apps\\pagewick" },
            { L"C:/apps/pagewick.exe", L"C:/apps" },
            { L"C:\\本\\ページ.exe", L"C:\\本" },
        });
}

TEST(ParentPath, DropsAWholeRunOfSeparators)
{
    expect_texts(parent_path,
        {
            { L"C:\\apps\\\\/pagewick.exe", L"C:\\apps" },
            { L"C:\\apps\\", L"C:\\apps" },
        });
}

TEST(ParentPath, NeverCutsIntoARoot)
{
    expect_texts(parent_path,
        {
            { L"C:\\pagewick.exe", L"C:\\" },
            { L"C:\\\\pagewick.exe", L"C:\\\\" },
            { L"C:\\", L"C:\\" },
            { L"C:pagewick.exe", L"C:" },
            { L"\\pagewick.exe", L"\\" },
            { L"/pagewick.exe", L"/" },
            { L"\\\\server\\share\\pagewick.exe", L"\\\\server\\share" },
            { L"\\\\server\\pagewick.exe", L"\\\\server\\" },
            { L"\\\\?\\C:\\pagewick.exe", L"\\\\?\\C:\\" },
        });
}

TEST(ParentPath, OfARelativePathIsRelative)
{
    expect_texts(parent_path,
        {
            { L"bin\\pagewick.exe", L"bin" },
            { L".\\pagewick.exe", L"." },
            { L"pagewick.exe", L"" },
            { L"", L"" },
        });
}

TEST(FileName, IsTheTextAfterTheLastSeparator)
{
    expect_texts(file_name,
        {
            { L"C:\\books\\日記.bok", L"日記.bok" },
            { L"C:/books\\a/b.bok", L"b.bok" },
            { L"C:note.bok", L"note.bok" },
            { L"note.bok", L"note.bok" },
            { L"C:\\", L"" },
        });
}

TEST(PathStem, DropsTheLastExtensionOnly)
{
    expect_texts(path_stem,
        {
            { L"C:\\books\\日記.bok", L"日記" },
            { L"a.b.bok", L"a.b" },
            { L"C:\\v1.2\\note", L"note" },
            { L"note.", L"note" },
        });
}

TEST(PathStem, KeepsANameThatBeginsWithItsOnlyPoint)
{
    expect_texts(path_stem,
        {
            { L"C:\\.bok", L".bok" },
            { L"..", L".." },
        });
}

TEST(PathExtension, IsWhatTheStemLeaves)
{
    expect_texts(path_extension,
        {
            { L"C:\\v1.2\\a.b.PNG", L".PNG" },
            { L"C:\\v1.2\\note", L"" },
            { L"note.", L"." },
            { L"a/.profile", L"" },
            { L"..", L"" },
            { L"", L"" },
        });
}

TEST(ResolvePath, CountsARelativePathFromTheRoot)
{
    EXPECT_EQ(resolve_path(L"C:\\pw", L"日記.bok"), L"C:\\pw\\日記.bok");
    EXPECT_EQ(resolve_path(L"C:\\pw", L"..\\a.bok"), L"C:\\pw\\..\\a.bok");
    EXPECT_EQ(resolve_path(L"C:\\", L"a.bok"), L"C:\\a.bok");
    EXPECT_EQ(resolve_path(L"C:\\pw", L"\\books\\a.bok"), L"C:\\books\\a.bok");
    EXPECT_EQ(resolve_path(L"C:\\pw", L"c:a.bok"), L"C:\\pw\\a.bok");
}

TEST(ResolvePath, LeavesWhatIsNotRelativeToTheRoot)
{
    EXPECT_EQ(resolve_path(L"C:\\pw", L"D:\\a.bok"), L"D:\\a.bok");
    EXPECT_EQ(resolve_path(L"C:\\pw", L"D:a.bok"), L"D:a.bok");
    EXPECT_EQ(resolve_path(L"C:\\pw", L"\\\\server\\share\\a.bok"), L"\\\\server\\share\\a.bok");
    EXPECT_EQ(resolve_path(L"C:\\pw", L""), L"");
    EXPECT_EQ(resolve_path(L"", L"a.bok"), L"a.bok");
}

TEST(VolumeOf, IsTheDriveOrTheShare)
{
    using platform::volume_of;
    EXPECT_EQ(volume_of(L"C:\\a\\b"), L"C:");
    EXPECT_EQ(volume_of(L"c:a"), L"c:");
    EXPECT_EQ(volume_of(L"\\\\server\\share\\a\\b"), L"\\\\server\\share");
    EXPECT_EQ(volume_of(L"//server/share/a"), L"//server/share");
    EXPECT_EQ(volume_of(L"\\\\server\\share"), L"\\\\server\\share");
    EXPECT_EQ(volume_of(L"\\\\server"), L"\\\\server");
    EXPECT_EQ(volume_of(L"\\\\?\\C:\\a"), L"\\\\?\\C:");
    EXPECT_EQ(volume_of(L"\\\\?\\UNC\\server\\share\\a"), L"\\\\?\\UNC\\server\\share");
}

TEST(VolumeOf, IsEmptyForARelativePath)
{
    using platform::volume_of;
    for (const wchar_t* path : { L"", L"a\\b", L"\\a", L"http://server/share", L"絵:\\a" })
        EXPECT_EQ(volume_of(path), L"") << path;
}

} // namespace
