// Blocks of data from other programs: damaged and hostile ones too.
#include "controls/drop_data.hpp"
#include <gtest/gtest.h>

namespace {

using ovlib::DropSource;
using ovlib::VirtualFile;
using Paths = std::vector<std::wstring>;
using Block = std::vector<std::byte>;

void put32(Block& block, std::size_t at, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        block[at + i] = static_cast<std::byte>(value >> (8 * i) & 0xFF);
}

void append_units(Block& block, std::wstring_view text)
{
    for (const wchar_t unit : text) {
        block.push_back(static_cast<std::byte>(unit & 0xFF));
        block.push_back(static_cast<std::byte>(unit >> 8 & 0xFF));
    }
}

Block narrow_block(std::string_view list)
{
    Block block(20);
    put32(block, 0, 20);
    for (const char unit : list)
        block.push_back(static_cast<std::byte>(unit));
    return block;
}

std::wstring widened(std::string_view text)
{
    return { text.begin(), text.end() };
}

Paths paths_of(const Block& block)
{
    // An exact allocation, so that the sanitizer sees every read past the end.
    const std::vector<std::byte> exact(block.begin(), block.end());
    return ovlib::dropped_paths(exact, &widened);
}

Block units(std::wstring_view text)
{
    Block block;
    append_units(block, text);
    return block;
}

TEST(DroppedPaths, ComeBackFromTheBlockThatADragDelivers)
{
    const Paths paths{ L"C:\\a.txt", L"C:\\資料\\図 1.png", L"\\\\server\\share\\b" };
    EXPECT_EQ(paths_of(ovlib::drop_block(paths)), paths);
    EXPECT_EQ(paths_of(ovlib::drop_block({})), Paths{});
}

TEST(DroppedPaths, AreDeliveredAsTheSystemDefinesIt)
{
    const Block block = ovlib::drop_block({ L"ab", L"あ" });
    Block expected(20);
    put32(expected, 0, 20);
    put32(expected, 16, 1);
    append_units(expected, std::wstring_view{ L"ab\0あ\0\0", 6 });
    EXPECT_EQ(block, expected);
}

TEST(DroppedPaths, AreConvertedFromTheCodePage)
{
    EXPECT_EQ(paths_of(narrow_block({ "C:\\a\0D:\\b\0\0rest", 15 })), (Paths{ L"C:\\a", L"D:\\b" }));
}

TEST(DroppedPaths, EndWithABlockThatIsCutAnywhere)
{
    const Paths paths{ L"C:\\a.txt", L"C:\\b.txt" };
    const Block block = ovlib::drop_block(paths);
    for (std::size_t size = 0; size <= block.size(); ++size) {
        const Paths cut = paths_of({ block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size) });
        ASSERT_LE(cut.size(), 2u);
        if (!cut.empty()) {
            EXPECT_TRUE(paths[0].starts_with(cut[0])) << size;
        }
        if (cut.size() == 2) {
            EXPECT_EQ(cut[0], paths[0]) << size;
            EXPECT_TRUE(paths[1].starts_with(cut[1])) << size;
        }
    }
    EXPECT_EQ(paths_of({ block.begin(), block.end() - 4 }), paths) << "without both terminators";
}

TEST(DroppedPaths, EndWithANarrowBlockWithoutTerminators)
{
    EXPECT_EQ(paths_of(narrow_block("C:\\a")), (Paths{ L"C:\\a" }));
    EXPECT_EQ(paths_of(narrow_block({ "C:\\a\0b", 6 })), (Paths{ L"C:\\a", L"b" }));
}

TEST(DroppedPaths, AreNoneIfTheListIsNotInTheBlock)
{
    for (const std::uint32_t offset : { 0u, 19u, 4096u, 0x7FFFFFFFu, 0xFFFFFFFFu }) {
        Block block = ovlib::drop_block({ L"C:\\a.txt" });
        put32(block, 0, offset);
        EXPECT_EQ(paths_of(block), Paths{}) << offset;
    }
    Block later = ovlib::drop_block({ L"xC:\\a.txt" });
    put32(later, 0, 22);
    EXPECT_EQ(paths_of(later), (Paths{ L"C:\\a.txt" })) << "a list further behind is read";
}

TEST(DroppedPaths, LeaveOutThoseThatAreTooLong)
{
    const std::wstring longest(2079, L'a');
    const std::wstring too_long(2080, L'b');
    const std::wstring far_too_long(70'000, L'c');
    const Paths paths{ too_long, longest, far_too_long, L"d" };
    EXPECT_EQ(paths_of(ovlib::drop_block(paths)), (Paths{ longest, L"d" }));
    std::string list = std::string(2080, 'b') + '\0' + std::string(2079, 'a') + '\0' + '\0';
    EXPECT_EQ(paths_of(narrow_block(list)), (Paths{ longest }));
}

TEST(DroppedText, EndsAtTheFirstZeroOrWithTheBlock)
{
    EXPECT_EQ(ovlib::dropped_text(units({ L"ab\0cd", 5 })), L"ab");
    EXPECT_EQ(ovlib::dropped_text(units(L"ab\r\ncd")), L"ab\r\ncd");
    Block odd = units(L"ab");
    odd.push_back(std::byte{ 'c' });
    EXPECT_EQ(ovlib::dropped_text(odd), L"ab");
    EXPECT_EQ(ovlib::dropped_text({}), L"");
    EXPECT_EQ(ovlib::dropped_text(units(std::wstring_view{ L"\0", 1 })), L"");
}

Block descriptor_of(const std::vector<std::wstring>& names)
{
    Block block(4 + names.size() * 592);
    put32(block, 0, static_cast<std::uint32_t>(names.size()));
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Block text = units(names[i]);
        std::copy(text.begin(), text.end(), block.begin() + static_cast<std::ptrdiff_t>(4 + i * 592 + 72));
    }
    return block;
}

std::vector<std::wstring> names_of(const Block& block)
{
    std::vector<std::wstring> names;
    const std::vector<std::byte> exact(block.begin(), block.end());
    for (const VirtualFile& file : ovlib::virtual_files(exact))
        names.push_back(file.name);
    return names;
}

TEST(VirtualFiles, AreReadInTheirOrder)
{
    EXPECT_EQ(names_of(descriptor_of({ L"a.txt", L"添付.zip" })), (Paths{ L"a.txt", L"添付.zip" }));
    EXPECT_EQ(names_of(descriptor_of({ std::wstring(260, L'n') })), (Paths{ std::wstring(260, L'n') }))
        << "a name without terminator ends with its field";
}

TEST(VirtualFiles, AreNoMoreThanTheBlockHolds)
{
    Block block = descriptor_of({ L"a", L"b" });
    for (const auto& [count, expected] : { std::pair{ 0u, 0u }, { 1u, 1u }, { 2u, 2u }, { 3u, 2u },
             { 0x80000000u, 2u }, { 0xFFFFFFFFu, 2u } }) {
        put32(block, 0, count);
        EXPECT_EQ(names_of(block).size(), expected) << count;
    }
}

TEST(VirtualFiles, AreOnlyThoseThatAreComplete)
{
    const Block block = descriptor_of({ L"a", L"b" });
    for (std::size_t size = 0; size <= block.size(); ++size) {
        const Block cut(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size));
        ASSERT_EQ(names_of(cut).size(), size < 4 ? 0 : (size - 4) / 592) << size;
    }
}

TEST(VirtualFiles, HaveASizeIfTheSourceStatesIt)
{
    Block block = descriptor_of({ L"a" });
    put32(block, 4 + 64, 1);
    put32(block, 4 + 68, 7);
    EXPECT_EQ(ovlib::virtual_files(block)[0].size, std::nullopt);
    put32(block, 4, 0x40);
    EXPECT_EQ(ovlib::virtual_files(block)[0].size, (1ull << 32) + 7);
}

TEST(VirtualFiles, EndAtTheStatedSizeIfItIsInsideTheBlock)
{
    const auto size_with = [](std::optional<std::uint64_t> stated) {
        return ovlib::content_size({ L"a", stated }, 100);
    };
    EXPECT_EQ(size_with(std::nullopt), 100u);
    EXPECT_EQ(size_with(0), 100u);
    EXPECT_EQ(size_with(1), 1u);
    EXPECT_EQ(size_with(99), 99u);
    EXPECT_EQ(size_with(100), 100u);
    EXPECT_EQ(size_with(101), 100u);
    EXPECT_EQ(size_with(1ull << 40), 100u);
    EXPECT_EQ(ovlib::content_size({ L"a", std::nullopt }, 1ull << 33), 1ull << 33) << "not cut to 32 bits";
}

TEST(DropKinds, AreAllowedByTheirBit)
{
    for (const DropSource kind : { DropSource::files, DropSource::virtual_files, DropSource::text }) {
        EXPECT_TRUE(ovlib::is_allowed(kind, 7));
        EXPECT_TRUE(ovlib::is_allowed(kind, static_cast<std::uint32_t>(kind)));
        EXPECT_FALSE(ovlib::is_allowed(kind, 7 & ~static_cast<std::uint32_t>(kind)));
    }
    EXPECT_FALSE(ovlib::is_allowed(DropSource::nothing, 0xFFFFFFFF));
}

TEST(DropEffect, IsCopyingIfTheSourceAllowsIt)
{
    EXPECT_EQ(ovlib::drop_effect(true, 1), 1u);
    EXPECT_EQ(ovlib::drop_effect(true, 7), 1u);
    EXPECT_EQ(ovlib::drop_effect(true, 2 | 4), 0u);
    EXPECT_EQ(ovlib::drop_effect(false, 7), 0u);
}

// Such a path would end a field of a Book's file.
TEST(DroppedPaths, LeaveOutPathsWithControlCharacters)
{
    for (const wchar_t unit : std::wstring{ L"\x1\x3\t\r\n\x1F" }) {
        const std::wstring hostile = L"C:\\a" + std::wstring(1, unit) + L"b";
        EXPECT_EQ(paths_of(ovlib::drop_block({ L"C:\\1", hostile, L"C:\\2" })), (Paths{ L"C:\\1", L"C:\\2" }))
            << static_cast<int>(unit);
    }
    EXPECT_EQ(paths_of(narrow_block(std::string("a\x03\0b\0\0", 6))), Paths{ L"b" });
}

} // namespace
