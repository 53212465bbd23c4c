// The loads of the pane: every kind of picture, damaged and hostile files.
#include "core/locks.hpp"
#include "tests/support/gui_calls.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_log.hpp"
#include "tests/support/gui_pane.hpp"
#include "tests/support/hostile_pictures.hpp"
#include <thread>

extern "C" void* __imp_GdipLoadImageFromStream;

namespace {

using media::Content;
using media::FileKind;
using media::LoaderState;
using ovlib::Color;
using ovlib::rgb;
using test_support::FileContents;
using test_support::MovingGif;
using test_support::plain;

constexpr Color red = rgb(255, 0, 0);
constexpr Color blue = rgb(0, 0, 255);

class Loading : public gui::Pane {
protected:
    void expect_failed(const std::wstring& path)
    {
        show({ path });
        EXPECT_EQ(loader().state(), LoaderState::nothing) << path.c_str();
        EXPECT_EQ(loader().path(), path);
        EXPECT_EQ(loader().facts(), media::FileFacts{});
        EXPECT_EQ(loader().content(), Content::nothing);
        EXPECT_EQ(loader().picture(), nullptr);
        EXPECT_GT(count(look::palette().viewer_error), 0) << "the pane says so";
    }
    static FileContents cut(FileContents bytes, std::size_t length)
    {
        bytes.resize(length);
        return bytes;
    }
};

TEST_F(Loading, EveryKindOfPictureIsDecoded)
{
    const struct {
        const wchar_t* name;
        FileContents bytes;
        std::wstring facts;
    } kinds[] = {
        { L"a.png", test_support::png_file(60, 40, plain(red)), L".png  60x40  " },
        { L"a.bmp", test_support::bmp_file(60, 40, plain(red)), L".bmp  60x40  24bpp" },
        { L"a.tif", test_support::tiff_file(60, 40, plain(red)), L".tif  60x40  " },
        { L"a.ico", test_support::ico_file(48, 48, plain(red)), L".ico  48x48  " },
        { L"大.JPG", test_support::jpeg_file(60, 40, 200), L".JPG  60x40  " },
    };
    for (const auto& kind : kinds) {
        show({ write(kind.name, kind.bytes) });
        EXPECT_EQ(loader().state(), LoaderState::picture) << kind.facts.c_str();
        EXPECT_EQ(loader().content(), Content::picture);
        EXPECT_EQ(loader().facts().text.substr(0, kind.facts.size()), kind.facts);
        EXPECT_EQ(loader().facts().kind, FileKind::image);
        EXPECT_NE(loader().facts().size_text, L"");
        const Color seen = middle();
        EXPECT_GT(seen.red(), 190) << kind.facts.c_str();
    }
}

TEST_F(Loading, AnAnimationHasItsFramesAndDelays)
{
    show_gif({ 5, 0, 65535, 1 });
    EXPECT_EQ(loader().state(), LoaderState::animation);
    EXPECT_EQ(loader().frame_count(), 4u);
    EXPECT_EQ(loader().delays(), (std::vector<std::uint32_t>{ 50, 100, 655350, 10 }));
    EXPECT_EQ(loader().facts().text, L".gif  8x8  4frm");
    EXPECT_EQ(loader().facts().kind, FileKind::image);
}

TEST_F(Loading, AStillGifIsAnAnimationOfOneFrame)
{
    show({ write(L"a.gif", MovingGif(8, 8).frame(MovingGif::red).bytes()) });
    EXPECT_EQ(loader().state(), LoaderState::animation);
    EXPECT_EQ(loader().delays(), std::vector<std::uint32_t>{ 100 });
    EXPECT_EQ(loader().facts().text, L".gif  8x8  1frm");
    EXPECT_EQ(middle(), red);
    show({ write(L"b.GIF", MovingGif(8, 8).frame(MovingGif::red, 0).bytes()) });
    EXPECT_EQ(loader().delays(), std::vector<std::uint32_t>{ 100 });
    show({ write(L"c.gif", MovingGif(8, 8).frame(MovingGif::red, 50).bytes()) });
    EXPECT_EQ(loader().delays(), std::vector<std::uint32_t>{ 500 });
}

TEST_F(Loading, TheExtensionDecidesBetweenPictureAndAnimation)
{
    const FileContents moving = MovingGif(8, 8).frames(3, 10).bytes();
    show({ write(L"a.png", moving) });
    EXPECT_EQ(loader().state(), LoaderState::picture) << "decoded by what it is, shown as a still picture";
    EXPECT_EQ(loader().frame_count(), 0u);
    expect_failed(write(L"b.gif", test_support::png_file(8, 8, plain(red))));
}

TEST_F(Loading, DamagedFilesAreReported)
{
    const FileContents png = test_support::png_file(8, 8, plain(red));
    const FileContents gif = MovingGif(8, 8).frames(2, 10).bytes();
    expect_failed(write(L"empty.png", {}));
    expect_failed(write(L"empty.gif", {}));
    expect_failed(write(L"one.png", cut(png, 1)));
    expect_failed(write(L"header.png", cut(png, 20)));
    expect_failed(write(L"text.jpg", FileContents(300, std::byte{ 'x' })));
    expect_failed(write(L"header.gif", cut(gif, 9)));
    expect_failed(write(L"frameless.gif", cut(gif, 13 + 384)));
    expect_failed(write(L"text.gif", FileContents(300, std::byte{ 'x' })));
    EXPECT_TRUE(thumbnails.asked.empty()) << "the shell is not asked for a picture that does not decode";
}

// Whatever a decoder makes of them, nothing may leak and the next file must show.
TEST_F(Loading, PicturesTruncatedAnywhereDoNoHarm)
{
    const FileContents files[] = { test_support::png_file(8, 8, plain(red)),
        test_support::jpeg_file(16, 16, 200), test_support::bmp_file(8, 8, plain(red)),
        test_support::tiff_file(8, 8, plain(red)), test_support::ico_file(8, 8, plain(red)),
        MovingGif(8, 8).frames(3, 10).bytes() };
    const wchar_t* const names[] = { L"a.png", L"a.jpg", L"a.bmp", L"a.tif", L"a.ico", L"a.gif" };
    for (std::size_t i = 0; i < std::size(files); ++i) {
        for (std::size_t length = 0; length < files[i].size(); length += 7) {
            const std::wstring path = write(names[i], cut(files[i], length));
            show({ path });
            EXPECT_EQ(loader().path(), path);
        }
    }
    show({ write(L"last.png", files[0]) });
    EXPECT_EQ(middle(), red);
}

TEST_F(Loading, APictureThatClaimsTooLargeASizeDoesNotReachTheDecoder)
{
    static int decoded;
    decoded = 0;
    using Decode = Gdiplus::GpStatus WINAPI(IStream*, Gdiplus::GpImage**);
    const gui::ReplacedImport<Decode> decoder{ &__imp_GdipLoadImageFromStream,
        [](IStream*, Gdiplus::GpImage**) {
            ++decoded;
            return Gdiplus::GenericError;
        } };
    for (const std::uint32_t side : { 30'000u, 23'171u, 1'000'000u }) {
        // Complete except for its size, which the decoder would accept.
        FileContents png = test_support::png_file(8, 8, plain(red));
        const auto header = test_support::PictureBytes{}.big32(side).big32(side).bytes();
        std::copy(header.begin(), header.end(), png.begin() + 16);
        expect_failed(write(L"big.png", png));
        FileContents bmp = test_support::bmp_file(8, 8, plain(red));
        const auto sides = test_support::PictureBytes{}.little32(side).little32(side).bytes();
        std::copy(sides.begin(), sides.end(), bmp.begin() + 18);
        expect_failed(write(L"big.bmp", bmp));
    }
    FileContents gif = MovingGif(8, 8).frames(2, 10).bytes();
    const auto screen = test_support::PictureBytes{}.little16(30'000).little16(30'000).bytes();
    std::copy(screen.begin(), screen.end(), gif.begin() + 6);
    expect_failed(write(L"big.gif", gif));
    EXPECT_EQ(decoded, 0);
    expect_failed(write(L"small.png", test_support::png_file(8, 8, plain(red))));
    EXPECT_EQ(decoded, 1) << "the decoder was watched";
}

// At this size the decoder computes a byte count of 0 and writes the pixels anyway.
TEST_F(Loading, PicturesWithAHiddenSizeDoNotEndTheProgram)
{
    for (const auto& [name, bytes] : test_support::pictures_hiding_their_side(64)) {
        show({ write(name, bytes) });
        EXPECT_EQ(loader().state(), LoaderState::picture) << name << " decodes while it is small";
        EXPECT_EQ(loader().size(), (platform::Size{ 64, 64 })) << name;
    }
    for (const auto& [name, bytes] : test_support::pictures_hiding_their_side(32'768))
        expect_failed(write(name, bytes));
    show({ write(L"small.png", test_support::png_file(8, 8, plain(red))) });
    EXPECT_EQ(middle(), red);
}

// The picture inside is decoded only when it is drawn.
TEST_F(Loading, AMetafileShowsUnlessAPictureInItClaimsTooLargeASize)
{
    show({ write(L"small.emf", test_support::metafile_with(test_support::png_file(64, 64, plain(red)))) });
    EXPECT_EQ(loader().state(), LoaderState::picture);
    constexpr std::uint32_t side = 32'768;
    expect_failed(write(L"big.emf", test_support::metafile_with(test_support::square_tiff(side, {}))));
}

TEST_F(Loading, AnAnimationWhoseFramesAreTooLargeTogetherDoesNotReachTheDecoder)
{
    const auto gif_of = [](int frames) {
        test_support::GifBytes gif{ 4'000, 4'000 };
        for (int i = 0; i < frames; ++i)
            gif.frame(0, 0, 4'000, 4'000);
        return gif.bytes();
    };
    static int decoded;
    decoded = 0;
    using Decode = Gdiplus::GpStatus WINAPI(IStream*, Gdiplus::GpImage**);
    const gui::ReplacedImport<Decode> decoder{ &__imp_GdipLoadImageFromStream,
        [](IStream*, Gdiplus::GpImage**) {
            ++decoded;
            return Gdiplus::GenericError;
        } };
    expect_failed(write(L"forty.gif", gif_of(40)));
    expect_failed(write(L"as_picture.png", gif_of(40)));
    EXPECT_EQ(decoded, 0);
    expect_failed(write(L"eight.gif", gif_of(8)));
    EXPECT_EQ(decoded, 1) << "the decoder was watched";
}

TEST_F(Loading, AMissingFileKeepsItsEntryAsWritten)
{
    expect_failed(L"無い\\a.png");
    expect_failed(L"\\\\no-such-server\\share\\a.png");
    const wchar_t half_pair[] = { L'C', L':', L'\\', wchar_t{ 0xD842 }, L'.', L'p', L'n', L'g', 0 };
    expect_failed(half_pair);
    expect_failed(L"C:\\" + std::wstring(400, L'長') + L".png");
    expect_failed(L"C:\\a\tb*?.png");
}

TEST_F(Loading, ARelativeEntryIsResolvedAgainstTheDataRoot)
{
    write(L"a.png", test_support::png_file(8, 8, plain(red)));
    SetCurrentDirectoryW(L"C:\\");
    show({ L"a.png" });
    EXPECT_EQ(loader().state(), LoaderState::picture);
    EXPECT_EQ(loader().path(), file(L"a.png"));
}

TEST_F(Loading, ANameOutsideTheBasicPlaneAndALongPathAreShown)
{
    const std::wstring pair{ wchar_t{ 0xD842 }, wchar_t{ 0xDFB7 } };
    show({ write(pair + L"野家.png", test_support::png_file(8, 8, plain(red))) });
    EXPECT_EQ(middle(), red);
    // The system decides whether a path of this length can be opened. If not, that is reported.
    const std::wstring folder = file(std::wstring(100, L'a'));
    const std::wstring deep = folder + L"\\" + std::wstring(100, L'b');
    ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr) && CreateDirectoryW(deep.c_str(), nullptr));
    const std::wstring path = deep + L"\\" + std::wstring(100, L'c') + L".png";
    const FileContents bytes = test_support::png_file(8, 8, plain(blue));
    test_support::write_bytes(L"\\\\?\\" + path, bytes);
    show({ path });
    EXPECT_EQ(loader().path(), path);
    EXPECT_EQ(loader().state() == LoaderState::picture, middle() == blue);
    DeleteFileW((L"\\\\?\\" + path).c_str());
}

TEST_F(Loading, AnEmptyListIsNoFailure)
{
    const gui::LogEar ear;
    show({});
    EXPECT_EQ(loader().state(), LoaderState::nothing);
    EXPECT_EQ(loader().path(), L"");
    EXPECT_EQ(ear.heard(), L"");
    EXPECT_GT(count(look::palette().viewer_text), 0);
    EXPECT_EQ(count(look::palette().viewer_error), 0);
}

TEST_F(Loading, AFailureIsLogged)
{
    const gui::LogEar ear;
    show({ write(L"a.png", {}) });
    EXPECT_EQ(ear.heard(), L"ImageLoader::load: failed loading\r\n");
}

TEST_F(Loading, ASelectionBeyondTheListLoadsNothing)
{
    show({ write(L"a.png", test_support::png_file(8, 8, plain(red))) }, 7);
    EXPECT_EQ(loader().path(), L"");
    EXPECT_GT(count(look::palette().viewer_text), 0);
}

TEST_F(Loading, AFileIsReadOnceAndCanBeDeletedWhileItIsShown)
{
    const std::wstring path = write(L"a.png", test_support::png_file(8, 8, plain(red)));
    show({ path });
    write(L"a.png", test_support::png_file(8, 8, plain(blue)));
    pane().scale_anew();
    EXPECT_EQ(middle(), red) << "what was replaced is not read again";
    ASSERT_TRUE(DeleteFileW(path.c_str()));
    pane().scale_anew();
    EXPECT_EQ(middle(), red);
}

TEST_F(Loading, OtherFilesAreQueriedFromTheShell)
{
    thumbnails.answer = [] { return gui::plain_bitmap(80, 40, blue); };
    const std::wstring path = write(L"覚書.txt", FileContents(1500, std::byte{ 'a' }));
    show({ path });
    EXPECT_EQ(loader().state(), LoaderState::thumbnail);
    EXPECT_EQ(loader().size(), (platform::Size{ 80, 40 }));
    EXPECT_EQ(thumbnails.asked, std::vector<std::wstring>{ path });
    EXPECT_EQ(thumbnails.sides, std::vector<int>{ 800 });
    EXPECT_EQ(loader().facts().text, L".txt");
    EXPECT_EQ(loader().facts().size_text, L"1.5 KB");
    show({ file(L"") });
    EXPECT_EQ(loader().state(), LoaderState::thumbnail);
    EXPECT_EQ(loader().facts().text, L"folder");
}

TEST_F(Loading, AFileGetsItsIconIfTheShellHasNoPicture)
{
    thumbnails.answer = [] { return gui::plain_bitmap(1, 1, blue); };
    show({ write(L"a.txt", FileContents(3, std::byte{ 'a' })) });
    EXPECT_EQ(loader().state(), LoaderState::thumbnail);
    EXPECT_GT(loader().size().width, 1);
    EXPECT_EQ(loader().size().width, loader().size().height);
}

TEST_F(Loading, AnIconInPlaceOfAPictureHasTheBackgroundOfThePane)
{
    thumbnails.answer = [] { return gui::plain_bitmap(1, 1, blue); };
    show({ write(L"a.txt", FileContents(3, std::byte{ 'a' })) });
    ASSERT_EQ(loader().state(), LoaderState::thumbnail);
    // It is a square of 240 pixels inside its frame.
    const auto corner = [&] { return at(width / 2 - 112, height / 2 - 112); };
    const Color first = ground();
    EXPECT_EQ(corner(), first);
    look::load_theme(look::theme_blue);
    pane().apply_theme();
    ASSERT_NE(ground(), first);
    EXPECT_EQ(corner(), ground());
    look::load_theme(look::theme_standard);
}

TEST_F(Loading, FilesUnknownToTheShellAreReported)
{
    expect_failed(L"無い.txt");
    expect_failed(L"http://x.invalid/a");
    EXPECT_EQ(thumbnails.asked.size(), 2u);
}

TEST_F(Loading, TheFactsOfAMissingFileAreQueriedForItsEntry)
{
    show({ L"http://x.invalid/a.png" });
    EXPECT_EQ(loader().facts_to_show().text, L"URL");
    show({ L"無い.txt" });
    EXPECT_EQ(loader().facts_to_show().text, L"unknown");
    show({ write(L"a.png", {}) });
    EXPECT_EQ(loader().facts_to_show().text, L".png");
    EXPECT_EQ(loader().facts_to_show().size_text, L"0 Bytes");
    show({});
    EXPECT_EQ(loader().facts_to_show(), media::FileFacts{});
}

TEST_F(Loading, TheShellsPropertiesAreInTheFacts)
{
    class Known : public media::PropertySource {
    public:
        bool open(const std::wstring&) override { return true; }
        void close() override { ++closed; }
        media::PropertyValue read(media::FileProperty property) override
        {
            using media::FileProperty;
            if (property == FileProperty::kind)
                return { media::PropertyValue::texts_vector, 0, { L"video" } };
            return { media::PropertyValue::unsigned32, property == FileProperty::frame_rate ? 29970u : 640u,
                {} };
        }
        std::uint64_t read_duration() override { return 10'000'000; }
        int closed = 0;
    } known;
    media::ImageLoader loader{ thumbnails, known, paths };
    thumbnails.answer = [] { return gui::plain_bitmap(4, 4, blue); };
    EXPECT_TRUE(loader.load(write(L"a.mp4", FileContents(1, std::byte{}))));
    EXPECT_EQ(loader.facts().text, L".mp4  640x640  29fps  [00:01]");
    EXPECT_EQ(loader.facts().kind, FileKind::video);
    EXPECT_EQ(known.closed, 1);
}

TEST_F(Loading, ClearForgetsEverythingButThePath)
{
    const std::wstring path = write(L"a.png", test_support::png_file(8, 8, plain(red)));
    media::ImageLoader loader{ thumbnails, properties, paths };
    ASSERT_TRUE(loader.load(path));
    loader.clear();
    EXPECT_EQ(loader.state(), LoaderState::nothing);
    EXPECT_EQ(loader.path(), path);
    EXPECT_EQ(loader.size(), platform::Size{});
    EXPECT_EQ(loader.facts(), media::FileFacts{});
}

TEST_F(Loading, HoldsTheLoaderLock)
{
    bool was_free = true;
    thumbnails.meanwhile = [&] {
        std::thread other{ [&] {
            was_free = core::loader_lock().try_lock();
            if (was_free)
                core::loader_lock().unlock();
        } };
        other.join();
    };
    show({ write(L"a.txt", {}) });
    EXPECT_FALSE(was_free);
}

class LoadingOften : public Loading {
protected:
    void rounds(int count)
    {
        thumbnails.answer = [] { return gui::plain_bitmap(300, 300, blue); };
        const std::wstring files[] = { write(L"a.png", test_support::png_file(300, 300, plain(red))),
            write(L"a.txt", {}), write(L"b.png", {}), write_gif(L"a.gif", { 10, 10 }, 100), L"無い.png" };
        for (int i = 0; i < count; ++i) {
            for (const std::wstring& path : files)
                show({ path });
        }
    }
};

TEST_F(LoadingOften, KeepsNoMemory)
{
    rounds(20);
    const std::size_t before = gui::memory_in_use();
    rounds(150);
    constexpr std::size_t one_picture = 300 * 300 * 4;
    EXPECT_LT(gui::memory_in_use(), before + 10 * one_picture);
}

TEST_F(LoadingOften, KeepsNoHandles)
{
    rounds(2);
    const gui::GdiCrowd crowd{ 300 };
    rounds(150);
    gui::expect_handles_to_spare(30);
}

} // namespace
