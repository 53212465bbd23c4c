// Loading an entry, with fakes for the decoders and the shell.
#include "media/image_load.hpp"
#include <array>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace {

using media::FileFacts;
using media::FileKind;
using media::LoadedEntry;
using media::LoaderState;

const std::vector<std::wstring> decoders{ L".BMP", L".JPG", L".JPEG", L".GIF", L".PNG" };

class FakeImages : public media::ImageSource {
public:
    std::wstring absolute(const std::wstring& path) override { return L"C:\\data\\" + path; }
    bool decode_animation(const std::wstring& path) override { return ask(L"animation " + path); }
    bool decode_picture(const std::wstring& path) override { return ask(L"picture " + path); }
    bool fetch_thumbnail(const std::wstring& path) override { return ask(L"thumbnail " + path); }

    bool ask(const std::wstring& what)
    {
        asked.push_back(what);
        return answer;
    }

    std::vector<std::wstring> asked;
    bool answer = true;
};

class NoProperties : public media::PropertySource {
public:
    bool open(const std::wstring&) override { return false; }
    void close() override { }
    media::PropertyValue read(media::FileProperty) override { return {}; }
    std::uint64_t read_duration() override { return 0; }
};

class LoadEntry : public testing::Test {
protected:
    LoadedEntry load(const std::wstring& entry) { return media::load_entry(entry, decoders, images, paths); }
    FileFacts shown(const LoadedEntry& loaded)
    {
        return media::facts_to_show(loaded, own, properties, paths);
    }
    platform::PathAnswer ask(const std::wstring& path)
    {
        asked_paths.push_back(path);
        if (path.starts_with(L"\\\\far\\dead\\"))
            return { platform::PathKind::nothing, true };
        return { present.contains(path) ? platform::PathKind::regular_file : platform::PathKind::nothing };
    }

    std::set<std::wstring> present;
    std::vector<std::wstring> asked_paths;
    media::PathAnswers paths{ [this](const std::wstring& path) { return ask(path); } };
    FakeImages images;
    NoProperties properties;
    FileFacts own{ L".png  1x1  32bpp", L"1 Bytes", FileKind::image };
};

TEST_F(LoadEntry, DecodesByTheExtension)
{
    present = { L"a.png", L"b.Gif", L"c.jpeg" };
    EXPECT_EQ(load(L"a.png"), (LoadedEntry{ LoaderState::picture, L"C:\\data\\a.png" }));
    EXPECT_EQ(load(L"b.Gif"), (LoadedEntry{ LoaderState::animation, L"C:\\data\\b.Gif" }));
    EXPECT_EQ(load(L"c.jpeg").state, LoaderState::picture);
    EXPECT_EQ(images.asked,
        (std::vector<std::wstring>{
            L"picture C:\\data\\a.png", L"animation C:\\data\\b.Gif", L"picture C:\\data\\c.jpeg" }));
}

TEST_F(LoadEntry, AsksTheShellForAnythingElse)
{
    present = { L"a.txt", L"png" };
    EXPECT_EQ(load(L"a.txt"), (LoadedEntry{ LoaderState::thumbnail, L"C:\\data\\a.txt" }));
    EXPECT_EQ(load(L"png").state, LoaderState::thumbnail);
}

TEST_F(LoadEntry, DoesNotAskTheShellForAPictureThatDoesNotDecode)
{
    present = { L"a.png" };
    images.answer = false;
    EXPECT_EQ(load(L"a.png"), (LoadedEntry{ LoaderState::nothing, L"C:\\data\\a.png" }));
    EXPECT_EQ(images.asked, (std::vector<std::wstring>{ L"picture C:\\data\\a.png" }));
}

TEST_F(LoadEntry, QueriesNothingForAnEmptyList)
{
    EXPECT_EQ(load(L""), (LoadedEntry{ LoaderState::nothing, L"" }));
    EXPECT_TRUE(images.asked.empty());
}

TEST_F(LoadEntry, KeepsTheTextOfAMissingFile)
{
    images.answer = false;
    EXPECT_EQ(load(L"gone.txt"), (LoadedEntry{ LoaderState::nothing, L"gone.txt" }));
    EXPECT_EQ(images.asked, (std::vector<std::wstring>{ L"thumbnail gone.txt" }));
}

TEST_F(LoadEntry, ShowsAnAddressWhenTheShellHasAPictureOfIt)
{
    EXPECT_EQ(load(L"http://x.invalid/a"), (LoadedEntry{ LoaderState::thumbnail, L"http://x.invalid/a" }));
    images.answer = false;
    EXPECT_EQ(load(L"http://x.invalid/a.png").state, LoaderState::nothing);
    EXPECT_EQ(images.asked.back(), L"picture http://x.invalid/a.png");
}

TEST_F(LoadEntry, QueriesAnUnreachableShareOnceForTheFileAndItsFacts)
{
    for (const wchar_t* entry :
        { L"\\\\far\\dead\\a.png", L"\\\\far\\dead\\b.gif", L"\\\\far\\dead\\c.txt" }) {
        const LoadedEntry loaded = load(entry);
        EXPECT_EQ(loaded, (LoadedEntry{ LoaderState::nothing, entry }));
        EXPECT_EQ(shown(loaded).text, L"unknown");
    }
    EXPECT_TRUE(images.asked.empty()) << "neither decoder nor shell is queried for them";
    EXPECT_EQ(asked_paths.size(), 1u);
    paths.forget();
    load(L"\\\\far\\dead\\a.png");
    EXPECT_EQ(asked_paths.size(), 2u);
}

TEST_F(LoadEntry, ShowsTheLoadersFactsAfterALoad)
{
    for (const LoaderState state : { LoaderState::animation, LoaderState::picture, LoaderState::thumbnail })
        EXPECT_EQ(shown({ state, L"C:\\gone.png" }), own);
}

TEST_F(LoadEntry, QueriesTheFactsAfterAFailedLoad)
{
    EXPECT_EQ(shown({ LoaderState::nothing, L"gone.png" }).text, L"unknown");
    EXPECT_EQ(shown({ LoaderState::nothing, L"http://x.invalid/a" }).text, L"URL");
    EXPECT_EQ(shown({ LoaderState::nothing, L"" }), FileFacts{});
}

TEST(LoaderState, HasItsNumbers)
{
    EXPECT_EQ(static_cast<int>(LoaderState::nothing), 0);
    EXPECT_EQ(static_cast<int>(LoaderState::animation), 1);
    EXPECT_EQ(static_cast<int>(LoaderState::picture), 2);
    EXPECT_EQ(static_cast<int>(LoaderState::thumbnail), 3);
    EXPECT_STREQ(media::failed_load_line, L"ImageLoader::load: failed loading\r\n");
}

} // namespace
