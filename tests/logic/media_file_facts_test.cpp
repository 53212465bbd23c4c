// The facts line of a file, with a fake for the shell's properties.
#include "media/display_name.hpp"
#include "media/file_facts.hpp"
#include "platform/path_attributes.hpp"
#include "tests/support/temp_folder.hpp"
#include <bit>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <system_error>

namespace {

using media::FileFacts;
using media::FileKind;
using media::FileProperty;
using media::PropertyValue;
using test_support::TempFolder;

constexpr std::uint64_t second = 10'000'000;
constexpr std::uint16_t signed64 = 20;

class FakeProperties : public media::PropertySource {
public:
    bool open(const std::wstring& path) override
    {
        opened = path;
        is_open = can_open;
        return can_open;
    }
    void close() override { is_open = false; }
    PropertyValue read(FileProperty property) override
    {
        EXPECT_TRUE(is_open);
        return values[property];
    }
    std::uint64_t read_duration() override
    {
        EXPECT_TRUE(is_open);
        return duration;
    }

    void set_kinds(std::vector<std::wstring> kinds)
    {
        values[FileProperty::kind] = { PropertyValue::texts_vector, 0, std::move(kinds) };
    }
    void set(FileProperty property, std::uint64_t bits, std::uint16_t type = PropertyValue::unsigned32)
    {
        values[property] = { type, bits, {} };
    }

    bool can_open = true;
    std::uint64_t duration = 0;
    std::map<FileProperty, PropertyValue> values;
    std::wstring opened;
    bool is_open = false;
};

class ReadFileFacts : public testing::Test {
protected:
    std::wstring make(const std::wstring& name, std::size_t bytes = 1536)
    {
        const std::wstring path = folder.file(name);
        test_support::write_bytes(path, std::vector<std::byte>(bytes));
        return path;
    }
    FileFacts facts(const std::wstring& path)
    {
        FileFacts read = media::read_file_facts(path, source, paths);
        EXPECT_FALSE(source.is_open);
        return read;
    }
    std::wstring line(const std::wstring& name) { return facts(make(name)).text; }
    std::wstring frame_rate_line(std::uint64_t bits, std::uint16_t type)
    {
        source.set_kinds({ L"video" });
        source.set(FileProperty::frame_rate, bits, type);
        return line(L"a.mp4");
    }

    TempFolder folder;
    FakeProperties source;
    media::PathAnswers paths;
};

TEST_F(ReadFileFacts, NamesAFolder)
{
    source.duration = second;
    EXPECT_EQ(facts(folder.path()), (FileFacts{ L"folder", L"", FileKind::folder }));
    ASSERT_TRUE(platform::create_folder(folder.file(L"dir.lnk")));
    EXPECT_EQ(facts(folder.file(L"dir.lnk")), (FileFacts{ L"folder", L"", FileKind::folder }));
    EXPECT_EQ(source.opened, L"");
}

TEST_F(ReadFileFacts, NamesAddressesAndMissingFiles)
{
    EXPECT_EQ(facts(L"https://example.com/a.mp4"), (FileFacts{ L"URL", L"", FileKind::unknown }));
    EXPECT_EQ(facts(L"http://x.invalid/a"), (FileFacts{ L"URL", L"", FileKind::unknown }));
    EXPECT_EQ(facts(L"HTTP://x.invalid/a"), (FileFacts{ L"unknown", L"", FileKind::unknown }));
    EXPECT_EQ(facts(folder.file(L"gone.mp4")), (FileFacts{ L"unknown", L"", FileKind::unknown }));
    EXPECT_EQ(facts(L""), (FileFacts{ L"unknown", L"", FileKind::unknown }));
    EXPECT_EQ(source.opened, L"");
}

TEST_F(ReadFileFacts, ShowsNothingForASymbolicLink)
{
    const std::wstring target = make(L"a.txt");
    std::error_code failed;
#if defined(_WIN32)
    std::filesystem::create_symlink(target, folder.file(L"b.txt"), failed);
#else
    std::filesystem::create_symlink(
        platform::to_utf8(target), platform::to_utf8(folder.file(L"b.txt")), failed);
#endif
    if (failed)
        GTEST_SKIP() << "no links here";
    EXPECT_TRUE(platform::exists(folder.file(L"b.txt")));
    EXPECT_EQ(platform::path_kind(folder.file(L"b.txt")), platform::PathKind::other);
    EXPECT_EQ(facts(folder.file(L"b.txt")).text, L"unknown");
    EXPECT_EQ(media::display_name(folder.file(L"b.txt")), folder.file(L"b.txt"));
}

TEST(PathAttributes, MakeALinkNeitherFileNorFolder)
{
    using platform::kind_of_attributes;
    using platform::PathKind;
    EXPECT_EQ(kind_of_attributes(0x20, 0), PathKind::regular_file);
    EXPECT_EQ(kind_of_attributes(0x10, 0), PathKind::folder);
    EXPECT_EQ(kind_of_attributes(0xFFFFFFFF, 0), PathKind::nothing);
    EXPECT_EQ(kind_of_attributes(0x420, 0xA000000C), PathKind::other);
    EXPECT_EQ(kind_of_attributes(0x410, 0xA000000C), PathKind::other);
    EXPECT_EQ(kind_of_attributes(0x410, 0xA0000003), PathKind::other);
    EXPECT_EQ(kind_of_attributes(0x420, 0x9000001A), PathKind::regular_file);
    EXPECT_EQ(kind_of_attributes(0x410, 0x9000001A), PathKind::folder);
    EXPECT_EQ(kind_of_attributes(0x20, 0xA000000C), PathKind::regular_file);
}

TEST_F(ReadFileFacts, ShowsTheExtensionAsWrittenAndTheSize)
{
    EXPECT_EQ(facts(make(L"日記.Txt")), (FileFacts{ L".Txt", L"1.5 KB", FileKind::unknown }));
    EXPECT_EQ(facts(make(L"a.tar.gz", 0)), (FileFacts{ L".gz", L"0 Bytes", FileKind::unknown }));
    EXPECT_EQ(source.opened, folder.file(L"a.tar.gz"));
}

TEST_F(ReadFileFacts, ShowsOnlyTheExtensionWithoutShellProperties)
{
    source.can_open = false;
    source.duration = second;
    source.set_kinds({ L"video" });
    EXPECT_EQ(facts(make(L"a.mp4")), (FileFacts{ L".mp4", L"1.5 KB", FileKind::unknown }));
}

TEST_F(ReadFileFacts, KnowsNoTypeWithoutAnExtension)
{
    source.set_kinds({ L"video" });
    EXPECT_EQ(facts(make(L"README")), (FileFacts{ L"unknown file type", L"1.5 KB", FileKind::unknown }));
    EXPECT_EQ(line(L".profile"), L"unknown file type");
    source.duration = 61 * second;
    EXPECT_EQ(line(L"Makefile"), L"unknown file type  [01:01]");
}

TEST_F(ReadFileFacts, RecognisesAShortcutBeforeTheShellsKind)
{
    source.set_kinds({ L"video", L"music" });
    EXPECT_EQ(facts(make(L"ABC.LNK")), (FileFacts{ L".LNK (shortcut)", L"1.5 KB", FileKind::shortcut }));
    source.duration = 60 * second;
    EXPECT_EQ(line(L"a.lnk"), L".lnk (shortcut)  [01:00]");
}

TEST_F(ReadFileFacts, DescribesAVideo)
{
    source.set_kinds({ L"video" });
    source.set(FileProperty::frame_width, 1920);
    source.set(FileProperty::frame_height, 1080);
    source.set(FileProperty::frame_rate, 29970);
    source.duration = 3723 * second;
    const FileFacts read = facts(make(L"a.mp4"));
    EXPECT_EQ(read.text, L".mp4  1920x1080  29fps  [1:02:03]");
    EXPECT_EQ(read.kind, FileKind::video);
    EXPECT_EQ(read.size_text, L"1.5 KB");
}

TEST_F(ReadFileFacts, ShowsZerosForAVideoWithoutProperties)
{
    source.set_kinds({ L"video" });
    EXPECT_EQ(line(L"a.mp4"), L".mp4  0x0  0fps");
}

TEST_F(ReadFileFacts, UsesTheLowHalfOfWidthAndHeightWhateverTheirType)
{
    source.set_kinds({ L"video" });
    source.set(FileProperty::frame_width, 0x1'0000'0280, signed64);
    source.set(FileProperty::frame_height, 480, PropertyValue::real64);
    EXPECT_EQ(line(L"a.mp4"), L".mp4  640x480  0fps");
}

TEST_F(ReadFileFacts, TruncatesTheFrameRateToWholeFrames)
{
    const auto of_double = [&](double rate) {
        return frame_rate_line(std::bit_cast<std::uint64_t>(rate), PropertyValue::real64);
    };
    EXPECT_EQ(of_double(59940.0), L".mp4  0x0  59fps");
    EXPECT_EQ(of_double(999.9), L".mp4  0x0  0fps");
    EXPECT_EQ(of_double(-29970.0), L".mp4  0x0  0fps");
    EXPECT_EQ(of_double(-std::numeric_limits<double>::infinity()), L".mp4  0x0  0fps");
    EXPECT_EQ(of_double(4294967294999.0), L".mp4  0x0  4294967294fps");
    EXPECT_EQ(of_double(4294967295000.0), L".mp4  0x0  4294967295fps");
    EXPECT_EQ(of_double(4294967296000.0), L".mp4  0x0  4294967295fps");
    EXPECT_EQ(of_double(std::numeric_limits<double>::quiet_NaN()), L".mp4  0x0  0fps");
    EXPECT_EQ(of_double(std::numeric_limits<double>::infinity()), L".mp4  0x0  0fps");
    EXPECT_EQ(of_double(1e300), L".mp4  0x0  4294967295fps");
    EXPECT_EQ(frame_rate_line(0xFFFF'FFFF'0000'7530, PropertyValue::unsigned32), L".mp4  0x0  30fps");
    EXPECT_EQ(frame_rate_line(30000, signed64), L".mp4  0x0  0fps");
}

TEST_F(ReadFileFacts, UsesTheVideoLineForVideoAndMusic)
{
    source.set_kinds({ L"document", L"music", L"video" });
    source.set(FileProperty::audio_bitrate, 320000);
    EXPECT_EQ(facts(make(L"a.mp4")).kind, FileKind::video);
    EXPECT_EQ(line(L"a.mp4"), L".mp4  0x0  0fps");
}

TEST_F(ReadFileFacts, DescribesMusic)
{
    source.set_kinds({ L"music" });
    source.set(FileProperty::audio_bitrate, 320000);
    source.set(FileProperty::audio_channels, 2);
    source.duration = 205 * second;
    const FileFacts read = facts(make(L"a.mp3"));
    EXPECT_EQ(read.text, L".mp3  320kbps  stereo  [03:25]");
    EXPECT_EQ(read.kind, FileKind::music);
}

TEST_F(ReadFileFacts, ShowsBitRatesInThousandsFromOneThousandOn)
{
    source.set_kinds({ L"music" });
    source.set(FileProperty::audio_bitrate, 999);
    source.set(FileProperty::audio_channels, 3);
    EXPECT_EQ(line(L"a.wav"), L".wav  999bps  3ch");
    source.set(FileProperty::audio_bitrate, 1000);
    EXPECT_EQ(line(L"a.wav"), L".wav  1kbps  3ch");
    source.set(FileProperty::audio_bitrate, 1999);
    EXPECT_EQ(line(L"a.wav"), L".wav  1kbps  3ch");
}

TEST_F(ReadFileFacts, KeepsTheSpacesWhereNoChannelIsNamed)
{
    source.set_kinds({ L"music" });
    EXPECT_EQ(line(L"a.mp3"), L".mp3  0bps  ");
    source.duration = second;
    EXPECT_EQ(line(L"a.mp3"), L".mp3  0bps    [00:01]");
}

TEST_F(ReadFileFacts, AcceptsMusicPropertiesOfTheRightTypeOnly)
{
    source.set_kinds({ L"music" });
    source.set(FileProperty::audio_bitrate, 320000, signed64);
    source.set(FileProperty::audio_channels, 2, signed64);
    EXPECT_EQ(line(L"a.mp3"), L".mp3  0bps  ");
}

TEST_F(ReadFileFacts, AcceptsOnlyExactKindsInAVectorOfTexts)
{
    source.set_kinds({ L"Video", L"picture", L"document", L"folder" });
    EXPECT_EQ(facts(make(L"a.bin")), (FileFacts{ L".bin", L"1.5 KB", FileKind::unknown }));
    source.set_kinds({});
    EXPECT_EQ(line(L"a.bin"), L".bin");
    source.values[FileProperty::kind] = { 31, 0, { L"video" } };
    EXPECT_EQ(line(L"a.bin"), L".bin");
}

TEST_F(ReadFileFacts, LeavesTheDurationOutWhenItIsZero)
{
    EXPECT_EQ(line(L"a.txt"), L".txt");
    source.duration = 1;
    EXPECT_EQ(line(L"a.txt"), L".txt  [00:00]");
}

TEST_F(ReadFileFacts, ShowsSizeAndDepthOfDecodedPictures)
{
    const std::wstring path = make(L"a.PNG");
    EXPECT_EQ(media::facts_for_picture(path, 640, 480, 0x0026200A),
        (FileFacts{ L".PNG  640x480  32bpp", L"1.5 KB", FileKind::image }));
    EXPECT_EQ(media::facts_for_picture(path, 1, 30000, 0x00030101).text, L".PNG  1x30000  1bpp");
    EXPECT_EQ(media::facts_for_animation(path, 320, 200, 12),
        (FileFacts{ L".PNG  320x200  12frm", L"1.5 KB", FileKind::image }));
}

TEST(FileKind, HasItsCodes)
{
    EXPECT_EQ(static_cast<std::uint32_t>(FileKind::video), 1u);
    EXPECT_EQ(static_cast<std::uint32_t>(FileKind::music), 2u);
    EXPECT_EQ(static_cast<std::uint32_t>(FileKind::image), 4u);
    EXPECT_EQ(static_cast<std::uint32_t>(FileKind::folder), 16u);
    EXPECT_EQ(static_cast<std::uint32_t>(FileKind::shortcut), 8192u);
    EXPECT_EQ(static_cast<std::uint32_t>(FileKind::unknown), 0x80000000u);
    EXPECT_EQ(FileFacts{}.kind, FileKind::unknown);
}

std::string name_of(FileProperty property)
{
    const media::PropertyKeyName& key = media::property_keys.at(static_cast<std::size_t>(property));
    std::array<char, 64> text{};
    const auto& d = key.data4;
    std::snprintf(text.data(), text.size(), "%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X %u", key.data1,
        unsigned{ key.data2 }, unsigned{ key.data3 }, unsigned{ d[0] }, unsigned{ d[1] }, unsigned{ d[2] },
        unsigned{ d[3] }, unsigned{ d[4] }, unsigned{ d[5] }, unsigned{ d[6] }, unsigned{ d[7] }, key.number);
    return text.data();
}

TEST(PropertyKeys, AreThoseOfTheShell)
{
    EXPECT_EQ(name_of(FileProperty::kind), "1E3EE840-BC2B-476C-8237-2ACD1A839B22 3");
    EXPECT_EQ(name_of(FileProperty::duration), "64440490-4C8B-11D1-8B70-080036B11A03 3");
    EXPECT_EQ(name_of(FileProperty::audio_bitrate), "64440490-4C8B-11D1-8B70-080036B11A03 4");
    EXPECT_EQ(name_of(FileProperty::audio_channels), "64440490-4C8B-11D1-8B70-080036B11A03 7");
    EXPECT_EQ(name_of(FileProperty::frame_width), "64440491-4C8B-11D1-8B70-080036B11A03 3");
    EXPECT_EQ(name_of(FileProperty::frame_height), "64440491-4C8B-11D1-8B70-080036B11A03 4");
    EXPECT_EQ(name_of(FileProperty::frame_rate), "64440491-4C8B-11D1-8B70-080036B11A03 6");
}

} // namespace
