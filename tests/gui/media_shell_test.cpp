// The shell's facts about files: stored properties, and the small picture beside the facts.
#include "look/theme.hpp"
#include "media/wnd/shell_property_reader.hpp"
#include "media/wnd/small_picture.hpp"
#include "tests/support/gui_crowd.hpp"
#include "tests/support/gui_pane.hpp"
#include <bit>
#include <propsys.h>
#include <shlwapi.h>

namespace {

using media::FileKind;
using media::FileProperty;
using media::PropertyValue;
using ovlib::Color;
using ovlib::rgb;

class StoredProperties : public gui::Pane {
protected:
    StoredProperties() { EXPECT_TRUE(SUCCEEDED(PSCreateMemoryPropertyStore(IID_PPV_ARGS(&store)))); }
    ~StoredProperties() override { store.Reset(); }

    static PROPERTYKEY key(FileProperty property)
    {
        const auto& name = media::property_keys[static_cast<std::size_t>(property)];
        PROPERTYKEY made{ { name.data1, name.data2, name.data3, {} }, name.number };
        std::copy(name.data4.begin(), name.data4.end(), made.fmtid.Data4);
        return made;
    }
    void put(FileProperty property, PROPVARIANT value)
    {
        EXPECT_TRUE(SUCCEEDED(store->SetValue(key(property), value)));
        PropVariantClear(&value);
    }
    void put_number(FileProperty property, ULONG number)
    {
        PROPVARIANT value{};
        value.vt = VT_UI4;
        value.ulVal = number;
        put(property, value);
    }

    Microsoft::WRL::ComPtr<IPropertyStore> store;
};

TEST_F(StoredProperties, AreReturnedAsStored)
{
    put_number(FileProperty::frame_width, 1920);
    EXPECT_EQ(
        media::stored_property(*store.Get(), FileProperty::frame_width).type, PropertyValue::unsigned32);
    EXPECT_EQ(
        static_cast<std::uint32_t>(media::stored_property(*store.Get(), FileProperty::frame_width).bits),
        1920u);
    PROPVARIANT rate{};
    rate.vt = VT_R8;
    rate.dblVal = 29970.0;
    put(FileProperty::frame_rate, rate);
    const PropertyValue stored = media::stored_property(*store.Get(), FileProperty::frame_rate);
    EXPECT_EQ(stored.type, PropertyValue::real64);
    EXPECT_EQ(std::bit_cast<double>(stored.bits), 29970.0);
    EXPECT_EQ(media::stored_property(*store.Get(), FileProperty::audio_bitrate).type, PropertyValue::empty);
}

TEST_F(StoredProperties, KindsAreAListOfTexts)
{
    PROPVARIANT kinds{};
    kinds.vt = VT_VECTOR | VT_LPWSTR;
    kinds.calpwstr.cElems = 2;
    kinds.calpwstr.pElems = static_cast<LPWSTR*>(CoTaskMemAlloc(2 * sizeof(LPWSTR)));
    ASSERT_TRUE(SUCCEEDED(SHStrDupW(L"video", &kinds.calpwstr.pElems[0])));
    ASSERT_TRUE(SUCCEEDED(SHStrDupW(L"music", &kinds.calpwstr.pElems[1])));
    put(FileProperty::kind, kinds);
    const PropertyValue stored = media::stored_property(*store.Get(), FileProperty::kind);
    EXPECT_EQ(stored.type, PropertyValue::texts_vector);
    EXPECT_EQ(stored.texts, (std::vector<std::wstring>{ L"video", L"music" }));
}

TEST_F(StoredProperties, ADurationIsConverted)
{
    EXPECT_EQ(media::stored_duration(*store.Get()), 0u);
    PROPVARIANT ticks{};
    ticks.vt = VT_UI8;
    ticks.uhVal.QuadPart = 36'000'000'000;
    put(FileProperty::duration, ticks);
    EXPECT_EQ(media::stored_duration(*store.Get()), 36'000'000'000u);
    put_number(FileProperty::duration, 7);
    EXPECT_EQ(media::stored_duration(*store.Get()), 7u);
}

TEST_F(StoredProperties, AClosedReaderReadsNothing)
{
    media::ShellPropertyReader reader;
    EXPECT_EQ(reader.read(FileProperty::kind).type, PropertyValue::empty);
    EXPECT_EQ(reader.read_duration(), 0u);
    EXPECT_FALSE(reader.open(L"C:\\無い\\a.mp4"));
    EXPECT_FALSE(reader.is_opened());
    EXPECT_EQ(reader.path(), L"");
    EXPECT_EQ(reader.read_duration(), 0u);
}

// Even if the shell has no properties, the extension is known.
TEST_F(StoredProperties, ShowARealFile)
{
    const std::wstring path = write(L"a.Mp3", test_support::FileContents(2048));
    const media::FileFacts facts = media::read_file_facts(path, properties, paths);
    EXPECT_TRUE(facts.text.starts_with(L".Mp3"));
    EXPECT_EQ(facts.size_text, L"2.0 KB");
    EXPECT_FALSE(properties.is_opened());
}

constexpr Color blue = rgb(0, 0, 255);
constexpr Color back = rgb(1, 2, 3);

class SmallPicture : public gui::Pane {
protected:
    SmallPicture()
    {
        canvas.create(60, 60);
        picture.set_film(ovlib::GDI::Bitmap{ ovlib::GDI::load_bitmap(core::folders().res + L"\\perfo.bmp") });
    }
    void fetch(const std::wstring& path, FileKind kind = FileKind::unknown)
    {
        picture.fetch(path, kind, thumbnails, paths);
        draw();
    }
    void draw()
    {
        gui::clear(canvas, back);
        picture.draw(canvas.dc(), { 10, 10 });
    }
    Color drawn(int x, int y) { return gui::pixel(canvas, x, y); }
    int ink() { return 60 * 60 - gui::count_pixels(canvas, back); }

    ovlib::BackBuffer canvas;
    media::SmallPicture picture;
};

TEST_F(SmallPicture, IsTheShellsPictureInTheMiddleOfItsSquare)
{
    thumbnails.answer = [] { return gui::plain_bitmap(32, 16, blue); };
    fetch(file(L"a.txt"));
    EXPECT_EQ(thumbnails.sides, std::vector<int>{ 32 });
    EXPECT_EQ(gui::count_pixels(canvas, blue), 32 * 16);
    EXPECT_EQ(drawn(10, 18), blue);
    EXPECT_EQ(drawn(41, 33), blue);
    EXPECT_EQ(drawn(10, 17), back);
    EXPECT_EQ(ink(), 32 * 16);
}

TEST_F(SmallPicture, WithAnyAlphaShowsTheBackgroundBehindIt)
{
    static constexpr std::uint32_t clear = 0;
    static constexpr std::uint32_t half_blue = 0x80000080; // premultiplied
    static constexpr std::uint32_t full_blue = 0xFF0000FF;
    thumbnails.answer = [] { return gui::premultiplied_bitmap(32, 32, { clear, half_blue, full_blue }); };
    fetch(file(L"a.txt"));
    EXPECT_EQ(drawn(10, 10), back);
    EXPECT_NEAR(drawn(11, 10).blue(), 0x80 + back.blue() / 2, 2);
    EXPECT_NEAR(drawn(11, 10).red(), back.red() / 2, 2);
    EXPECT_EQ(drawn(12, 10), blue);
    fetch(file(L"a.mp4"), FileKind::video);
    EXPECT_EQ(drawn(19, 26), look::palette().viewer_back) << "the ground of a video";
}

TEST_F(SmallPicture, WithoutAnyAlphaIsCopied)
{
    static constexpr std::uint32_t plain_blue = 0x000000FF;
    thumbnails.answer = [] { return gui::premultiplied_bitmap(32, 32, { 0, plain_blue }); };
    fetch(file(L"a.txt"));
    EXPECT_EQ(drawn(10, 10), rgb(0, 0, 0));
    EXPECT_EQ(drawn(11, 10), blue);
}

TEST_F(SmallPicture, OfAVideoHasAStripOfFilm)
{
    thumbnails.answer = [] { return gui::plain_bitmap(16, 16, blue); };
    fetch(file(L"a.mp4"), FileKind::video);
    EXPECT_EQ(drawn(26, 26), blue);
    EXPECT_EQ(drawn(17, 12), look::palette().viewer_back) << "around it";
    EXPECT_EQ(drawn(10, 10), rgb(0, 0, 0)) << "the strip's edge";
    EXPECT_EQ(ink(), 32 * 32);
    picture.set_film({});
    draw();
    EXPECT_EQ(drawn(10, 10), look::palette().viewer_back) << "plain without a strip";
}

TEST_F(SmallPicture, IsTheIconIfThereIsNoPicture)
{
    fetch(file(L"a.txt"));
    EXPECT_GT(ink(), 50);
    thumbnails.answer = [] { return gui::plain_bitmap(1, 1, blue); };
    fetch(file(L"b.txt"));
    EXPECT_GT(ink(), 50);
    EXPECT_EQ(gui::count_pixels(canvas, blue), 0);
    thumbnails.asked.clear();
    fetch(L"http://x.invalid/");
    EXPECT_GT(ink(), 50);
    EXPECT_TRUE(thumbnails.asked.empty()) << "an address has an icon of its own";
}

TEST_F(SmallPicture, OfAnEmptyPathIsEmpty)
{
    thumbnails.answer = [] { return gui::plain_bitmap(32, 32, blue); };
    fetch(file(L"a.txt"));
    fetch(L"");
    EXPECT_EQ(ink(), 0);
    EXPECT_EQ(thumbnails.asked.size(), 1u);
}

TEST_F(SmallPicture, OfALaterFileIsKept)
{
    thumbnails.answer = [] { return gui::plain_bitmap(32, 32, blue); };
    thumbnails.meanwhile = [&] { picture.fetch(L"", FileKind::unknown, thumbnails, paths); };
    fetch(file(L"a.txt"));
    EXPECT_EQ(ink(), 0) << "no file is the later choice";
}

TEST_F(SmallPicture, PaintsWithoutTheShellAndWithoutHandles)
{
    thumbnails.answer = [] { return gui::plain_bitmap(16, 16, blue); };
    const gui::GdiCrowd crowd{ 200 };
    for (int i = 0; i < 300; ++i) {
        fetch(file(L"a.mp4"), FileKind::video);
        draw();
    }
    EXPECT_EQ(thumbnails.asked.size(), 300u);
    gui::expect_handles_to_spare(20);
}

} // namespace
