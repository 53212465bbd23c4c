// Files and folders as the logic sees them.
#include "platform/file.hpp"
#include "platform/path_answer.hpp"
#include "platform/path_attributes.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>

namespace {

using platform::File;
using test_support::Bytes;
using test_support::TempFolder;

Bytes bytes(std::string_view text)
{
    const auto raw = std::as_bytes(std::span(text));
    return { raw.begin(), raw.end() };
}

class Files : public testing::Test {
protected:
    TempFolder folder;
    std::wstring file = folder.file(L"ファイル.dat");
};

TEST_F(Files, AreWrittenAndReadBack)
{
    File out = File::create(file);
    ASSERT_TRUE(out.is_open());
    EXPECT_TRUE(out.write(bytes("one ")));
    EXPECT_TRUE(out.write({}));
    EXPECT_TRUE(out.write(bytes("two")));
    EXPECT_EQ(out.size(), 7u);
    out.close();
    EXPECT_FALSE(out.is_open());
    EXPECT_EQ(test_support::read_bytes(file), bytes("one two"));
}

TEST_F(Files, AreReadPieceByPieceUntilTheEnd)
{
    test_support::write_bytes(file, bytes("abcde"));
    File in = File::open_read(file);
    ASSERT_TRUE(in.is_open());
    EXPECT_EQ(in.size(), 5u);
    std::array<std::byte, 3> piece{};
    EXPECT_EQ(in.read(piece), 3u);
    EXPECT_EQ(in.read(piece), 2u);
    EXPECT_EQ(in.read(piece), 0u);
    EXPECT_TRUE(in.seek_to_start());
    EXPECT_EQ(in.read(piece), 3u);
    EXPECT_EQ(piece[0], std::byte{ 'a' });
}

TEST_F(Files, LoseTheirContentsWhenCreatedAgain)
{
    test_support::write_bytes(file, bytes("long contents"));
    File::create(file).close();
    EXPECT_EQ(test_support::read_bytes(file), Bytes{});
}

TEST_F(Files, KeepTheirTailWhenWrittenOver)
{
    test_support::write_bytes(file, bytes("abcdef"));
    EXPECT_TRUE(File::open_over(file).write(bytes("XY")));
    EXPECT_EQ(test_support::read_bytes(file), bytes("XYcdef"));
    const std::wstring fresh = folder.file(L"fresh");
    EXPECT_TRUE(File::open_over(fresh).write(bytes("XY")));
    EXPECT_EQ(test_support::read_bytes(fresh), bytes("XY"));
}

TEST_F(Files, CannotBeOpenedWhereNothingOrAFolderExists)
{
    EXPECT_FALSE(File::open_read(folder.file(L"missing")).is_open());
    EXPECT_FALSE(File::open_read(folder.path()).is_open());
    EXPECT_FALSE(File::open_read(L"").is_open());
    EXPECT_FALSE(File::create(folder.path()).is_open());
    EXPECT_FALSE(File::create(folder.file(L"missing") + L"/x").is_open());
    EXPECT_FALSE(File::open_over(folder.path()).is_open());
}

TEST_F(Files, ReadNothingWhenNotOpen)
{
    File none;
    std::array<std::byte, 4> piece{};
    EXPECT_FALSE(none.is_open());
    EXPECT_EQ(none.read(piece), 0u);
    EXPECT_FALSE(none.write(piece));
    EXPECT_FALSE(none.seek_to_start());
    EXPECT_EQ(none.size(), std::nullopt);
    none.close();
}

TEST_F(Files, TransferTheOpenFileWhenMoved)
{
    File first = File::create(file);
    File second(std::move(first));
    EXPECT_TRUE(second.is_open());
    EXPECT_FALSE(first.is_open()); // NOLINT(bugprone-use-after-move): the state is promised
    File third = File::create(folder.file(L"other"));
    third = std::move(second);
    EXPECT_TRUE(third.write(bytes("x")));
    third.close();
    EXPECT_EQ(test_support::read_bytes(file), bytes("x"));
    EXPECT_EQ(test_support::read_bytes(folder.file(L"other")), Bytes{});
}

// Files are opened with all share modes: a Book that is open elsewhere can be read, written and renamed.
TEST_F(Files, StayAccessibleToOthers)
{
    test_support::write_bytes(file, bytes("abc"));
    File reader = File::open_read(file);
    EXPECT_TRUE(File::open_read(file).is_open());
    EXPECT_TRUE(File::create(file).write(bytes("xyz")));
    std::array<std::byte, 3> piece{};
    EXPECT_EQ(reader.read(piece), 3u);
    EXPECT_EQ(piece[0], std::byte{ 'x' });
    EXPECT_TRUE(platform::remove_file(file));
}

TEST_F(Files, AreDistinguishedFromFolders)
{
    test_support::write_bytes(file, {});
    EXPECT_TRUE(platform::exists(file));
    EXPECT_TRUE(platform::is_regular_file(file));
    EXPECT_FALSE(platform::is_folder(file));
    EXPECT_TRUE(platform::exists(folder.path()));
    EXPECT_FALSE(platform::is_regular_file(folder.path()));
    EXPECT_TRUE(platform::is_folder(folder.path()));
    const std::wstring missing = folder.file(L"missing");
    EXPECT_FALSE(platform::exists(missing));
    EXPECT_FALSE(platform::is_regular_file(missing));
    EXPECT_FALSE(platform::is_folder(missing));
    EXPECT_FALSE(platform::exists(L""));
}

TEST_F(Files, AreRemovedAndReplaced)
{
    const std::wstring other = folder.file(L"other");
    test_support::write_bytes(file, bytes("new"));
    test_support::write_bytes(other, bytes("old"));
    EXPECT_TRUE(platform::replace_file(file, other));
    EXPECT_FALSE(platform::exists(file));
    EXPECT_EQ(test_support::read_bytes(other), bytes("new"));
    EXPECT_FALSE(platform::replace_file(file, other));
    EXPECT_TRUE(platform::remove_file(other));
    EXPECT_FALSE(platform::remove_file(other));
}

TEST_F(Files, LieInFoldersThatCanBeCreatedOnce)
{
    const std::wstring inner = folder.file(L"内");
    EXPECT_TRUE(platform::create_folder(inner));
    EXPECT_TRUE(platform::is_folder(inner));
    EXPECT_FALSE(platform::create_folder(inner));
    EXPECT_FALSE(platform::create_folder(folder.file(L"missing") + L"/inner"));
    EXPECT_TRUE(File::create(inner + L"/x").is_open());
}

TEST_F(Files, AreDistinguishedFromFoldersAndFromNothing)
{
    using platform::PathKind;
    test_support::write_bytes(file, bytes("x"));
    EXPECT_EQ(platform::path_kind(file), PathKind::regular_file);
    EXPECT_EQ(platform::path_kind(folder.path()), PathKind::folder);
    EXPECT_EQ(platform::path_kind(folder.path() + L"/"), PathKind::folder);
    EXPECT_EQ(platform::path_kind(folder.file(L"none")), PathKind::nothing);
    EXPECT_EQ(platform::path_kind(folder.file(L"none") + L"/none"), PathKind::nothing);
    EXPECT_EQ(platform::path_kind(L""), PathKind::nothing);
    EXPECT_EQ(platform::path_kind(L"http://x.invalid/a"), PathKind::nothing);
}

TEST_F(Files, HaveASizeWithoutBeingOpened)
{
    test_support::write_bytes(file, bytes("12345"));
    EXPECT_EQ(platform::file_size(file), 5u);
    EXPECT_EQ(platform::file_size(folder.path()), 0u);
    EXPECT_EQ(platform::file_size(folder.file(L"none")), 0u);
}

TEST(AbsolutePath, CountsFromTheCurrentDirectory)
{
    const std::wstring full = platform::absolute_path(L"日記.txt");
    EXPECT_GT(full.size(), std::wstring{ L"日記.txt" }.size());
    EXPECT_TRUE(full.ends_with(L"日記.txt"));
    EXPECT_EQ(platform::absolute_path(full), full);
    EXPECT_EQ(platform::absolute_path(L""), L"");
    const std::wstring deep = full + std::wstring(300, L'x');
    EXPECT_EQ(platform::absolute_path(deep), deep);
    EXPECT_EQ(platform::absolute_path(L"a/../日記.txt"), full);
}

TEST(PathAnswer, DistinguishesAnUnreachableShareFromAMissingPath)
{
    for (const std::uint32_t silent : { 21u, 51u, 53u, 55u, 59u, 64u, 67u, 121u, 1203u, 1222u, 1231u, 1232u })
        EXPECT_TRUE(platform::is_of_volume(silent)) << silent;
    for (const std::uint32_t missing : { 0u, 2u, 3u, 5u, 32u, 123u, 161u, 206u, 267u })
        EXPECT_FALSE(platform::is_of_volume(missing)) << missing;
}

TEST(PathAnswer, OfAFolderAndOfNothing)
{
    using platform::ask_path;
    using platform::PathKind;
    const test_support::TempFolder folder;
    EXPECT_EQ(ask_path(folder.path()).kind, PathKind::folder);
    EXPECT_EQ(ask_path(folder.file(L"none")).kind, PathKind::nothing);
    EXPECT_FALSE(ask_path(folder.file(L"none")).is_unreachable);
}

} // namespace
