// The names of links, and writing them.
#include "media/file_links.hpp"
#include "tests/support/temp_folder.hpp"
#include <gtest/gtest.h>
#include <string_view>

namespace {

using media::HashedLinkNames;

std::string hex_digest(std::string_view bytes)
{
    platform::HashProvider hash;
    const auto digest = hash.digest(std::as_bytes(std::span{ bytes }));
    if (!digest)
        return "none";
    const std::wstring name = media::link_name(*digest);
    return { name.begin(), name.end() - 4 };
}

TEST(HashProvider, IsSha256)
{
    EXPECT_TRUE(platform::HashProvider{}.is_ready());
    EXPECT_EQ(hex_digest(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(hex_digest("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

// Lengths at which the padding and the length fit into the last block, and at which they do not.
TEST(HashProvider, IsRightForEveryLengthOfTheLastBlock)
{
    const auto of = [](std::size_t length) { return hex_digest(std::string(length, 'a')); };
    EXPECT_EQ(of(55), "9f4390f8d30c2dd92ec9f095b65e2b9ae9b0a925a5258e241c9f1e910f734318");
    EXPECT_EQ(of(56), "b35439a4ac6f0948b6d6f9e3c6af0f5f590ce20f1bde7090ef7970686ec6738a");
    EXPECT_EQ(of(63), "7d3e74a05d7db15bce4ad9ec0658ea98e3f06eeecf16b4c6fff2da457ddc2f34");
    EXPECT_EQ(of(64), "ffe054fe7ae0cb6dc65c3af9b61d5209f439851db43d0ba5997337df154668eb");
    EXPECT_EQ(of(65), "635361c48bb9eab14198e76ea8ab7f1a41685d6ad62aa9146d301d4f17eb0ae0");
    EXPECT_EQ(of(119), "31eba51c313a5c08226adf18d4a359cfdfd8d2e816b13f4af952f7ea6584dcfb");
    EXPECT_EQ(of(120), "2f3d335432c70b580af0e8e1b3674a7c020d683aa5f73aaaedfdc55af904c21c");
    EXPECT_EQ(of(1000), "41edece42d63e8d9bf515a9ba6932e1c20cbc9f5a5d134645adb5db1b9737ea3");
}

TEST(LinkNames, AreTheDigestsOfThePathsUnits)
{
    HashedLinkNames names{ L"C:\\data\\shortcut\\" };
    ASSERT_TRUE(names.is_ready());
    EXPECT_EQ(names.link_of(L"C:\\a.txt"),
        L"C:\\data\\shortcut\\50ee5bd855130a8075439fd8f105aae148d256cadad194163117732d9ed319a3.lnk");
    EXPECT_EQ(names.link_of(L"C:\\日記\\写真.png"),
        L"C:\\data\\shortcut\\262e6e249bf320facc0db6c1e2bf95941f2501744eb42a68a01bb887d54179c0.lnk");
    EXPECT_EQ(names.link_of(L""),
        L"C:\\data\\shortcut\\e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855.lnk");
}

TEST(LinkNames, DifferByCaseAlone)
{
    HashedLinkNames names{ L"" };
    EXPECT_EQ(
        names.link_of(L"c:\\a.txt"), L"4863c09b7f899c601ca866e8e1abafc99ac47cd3baee4da7736028d9305dbf54.lnk");
    EXPECT_NE(names.link_of(L"c:\\a.txt"), names.link_of(L"C:\\a.txt"));
}

TEST(LinkNames, KeepSurrogatesUnchanged)
{
    HashedLinkNames names{ L"" };
    const std::wstring pair{ wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } };
    EXPECT_EQ(names.link_of(pair + L"野家.txt"),
        L"0df2aa632228e26affea4e0291a512191194f714187e1e2df98fb784b2d540c9.lnk");
    EXPECT_EQ(names.link_of(std::wstring{ wchar_t{ 0xD842 } }),
        L"7e13dfbaebf532dc1d0f1216e5f6a3e7eec79525fa1b53921a358192e2b3547b.lnk");
}

TEST(LinkNames, HashUnitsInLittleEndian)
{
    EXPECT_EQ(media::hashed_bytes(L"a\u65E5"),
        (std::vector{ std::byte{ 0x61 }, std::byte{ 0 }, std::byte{ 0xE5 }, std::byte{ 0x65 } }));
}

class SaveWhole : public testing::Test {
protected:
    // Writes `text` and reports whether the file is complete.
    bool save(const std::wstring& text, bool is_whole)
    {
        return media::save_whole(link(), [&](const std::wstring& file) {
            existed_while_written = platform::exists(link());
            test_support::write_text(file, text);
            return is_whole;
        });
    }
    std::wstring link() const { return folder.file(L"a.lnk"); }
    std::size_t files_in_folder() const
    {
        const std::filesystem::path path{ link_path().parent_path() };
        return static_cast<std::size_t>(std::distance(
            std::filesystem::directory_iterator{ path }, std::filesystem::directory_iterator{}));
    }

    test_support::TempFolder folder;
    bool existed_while_written = false;

private:
    std::filesystem::path link_path() const
    {
#if defined(_WIN32)
        return link();
#else
        return platform::to_utf8(link());
#endif
    }
};

TEST_F(SaveWhole, RenamesACompleteFile)
{
    EXPECT_TRUE(save(L"whole", true));
    EXPECT_FALSE(existed_while_written);
    EXPECT_EQ(test_support::read_text(link()), L"whole");
    EXPECT_EQ(files_in_folder(), 1u);
}

TEST_F(SaveWhole, RemovesAnIncompleteFile)
{
    EXPECT_FALSE(save(L"ha", false));
    EXPECT_FALSE(platform::exists(link()));
    EXPECT_EQ(files_in_folder(), 0u);
}

TEST_F(SaveWhole, KeepsTheOldLinkWhenANewOneIsIncomplete)
{
    ASSERT_TRUE(save(L"old", true));
    EXPECT_FALSE(save(L"ne", false));
    EXPECT_EQ(test_support::read_text(link()), L"old");
    EXPECT_TRUE(save(L"new", true));
    EXPECT_EQ(test_support::read_text(link()), L"new");
    EXPECT_EQ(files_in_folder(), 1u);
}

// As left by a process that was terminated while writing.
TEST_F(SaveWhole, ReplacesTheTemporaryFileOfAnEarlierWrite)
{
    std::wstring beside;
    media::save_whole(link(), [&](const std::wstring& file) {
        beside = file;
        return false;
    });
    test_support::write_text(beside, L"left by another process");
    EXPECT_TRUE(save(L"whole", true));
    EXPECT_EQ(test_support::read_text(link()), L"whole");
    EXPECT_EQ(files_in_folder(), 1u);
}

TEST_F(SaveWhole, FailsWhereTheNameIsTaken)
{
    ASSERT_TRUE(platform::create_folder(link()));
    EXPECT_FALSE(save(L"whole", true));
    EXPECT_EQ(files_in_folder(), 1u) << "only the folder";
}

} // namespace
