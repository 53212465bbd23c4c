// Parents, names, stems and the meaning of relative paths.
#include "platform/path_text.hpp"
#include <gtest/gtest.h>

namespace {

using platform::file_name;
using platform::parent_path;
using platform::path_extension;
using platform::path_stem;
using platform::resolve_path;

TEST(ParentPath, IsTheTextBeforeTheLastSeparator)
{
    EXPECT_EQ(parent_path(L"C:\\apps\\pagewick\\pagewick.exe"), L"C:\\apps\\pagewick");
    EXPECT_EQ(parent_path(L"C:/apps/pagewick.exe"), L"C:/apps");
    EXPECT_EQ(parent_path(L"C:\\本\\ページ.exe"), L"C:\\本");
}

TEST(ParentPath, LosesAWholeRunOfSeparators)
{
    EXPECT_EQ(parent_path(L"C:\\apps\\\\/pagewick.exe"), L"C:\\apps");
    EXPECT_EQ(parent_path(L"C:\\apps\\"), L"C:\\apps");
}

TEST(ParentPath, NeverCutsIntoARoot)
{
    EXPECT_EQ(parent_path(L"C:\\pagewick.exe"), L"C:\\");
    EXPECT_EQ(parent_path(L"C:\\"), L"C:\\");
    EXPECT_EQ(parent_path(L"C:pagewick.exe"), L"C:");
    EXPECT_EQ(parent_path(L"\\pagewick.exe"), L"\\");
    EXPECT_EQ(parent_path(L"/pagewick.exe"), L"/");
    EXPECT_EQ(parent_path(L"\\\\server\\share\\pagewick.exe"), L"\\\\server\\share");
    EXPECT_EQ(parent_path(L"\\\\server\\pagewick.exe"), L"\\\\server\\");
    EXPECT_EQ(parent_path(L"\\\\?\\C:\\pagewick.exe"), L"\\\\?\\C:\\");
}

TEST(ParentPath, OfARelativePathIsRelative)
{
    EXPECT_EQ(parent_path(L"bin\\pagewick.exe"), L"bin");
    EXPECT_EQ(parent_path(L".\\pagewick.exe"), L".");
    EXPECT_EQ(parent_path(L"pagewick.exe"), L"");
    EXPECT_EQ(parent_path(L""), L"");
}

TEST(FileName, IsTheTextBehindTheLastSeparator)
{
    EXPECT_EQ(file_name(L"C:\\books\\日記.bok"), L"日記.bok");
    EXPECT_EQ(file_name(L"C:/books\\a/b.bok"), L"b.bok");
    EXPECT_EQ(file_name(L"C:note.bok"), L"note.bok");
    EXPECT_EQ(file_name(L"note.bok"), L"note.bok");
    EXPECT_EQ(file_name(L"C:\\"), L"");
}

TEST(PathStem, LosesTheLastExtensionOnly)
{
    EXPECT_EQ(path_stem(L"C:\\books\\日記.bok"), L"日記");
    EXPECT_EQ(path_stem(L"a.b.bok"), L"a.b");
    EXPECT_EQ(path_stem(L"C:\\v1.2\\note"), L"note");
    EXPECT_EQ(path_stem(L"note."), L"note");
}

TEST(PathStem, KeepsANameThatBeginsWithItsOnlyPoint)
{
    EXPECT_EQ(path_stem(L"C:\\.bok"), L".bok");
    EXPECT_EQ(path_stem(L".."), L"..");
}

TEST(PathExtension, IsWhatTheStemLeaves)
{
    EXPECT_EQ(path_extension(L"C:\\v1.2\\a.b.PNG"), L".PNG");
    EXPECT_EQ(path_extension(L"C:\\v1.2\\note"), L"");
    EXPECT_EQ(path_extension(L"note."), L".");
    EXPECT_EQ(path_extension(L"a/.profile"), L"");
    EXPECT_EQ(path_extension(L".."), L"");
    EXPECT_EQ(path_extension(L""), L"");
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

TEST(VolumeOf, IsNothingForWhatCountsFromAnotherPlace)
{
    using platform::volume_of;
    for (const wchar_t* path : { L"", L"a\\b", L"\\a", L"http://server/share", L"絵:\\a" })
        EXPECT_EQ(volume_of(path), L"") << path;
}

} // namespace
