// Drawing and decoding with GDI+.
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/gdip_image.hpp"
#include "tests/support/gui_folder.hpp"
#include "tests/support/gui_picture.hpp"
#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace {

using gui::clear;
using gui::count_pixels;
using gui::pixel;
using ovlib::Color;
using ovlib::GDIPGif;
using ovlib::GDIPImage;
using ovlib::GDIPMemory;
using ovlib::rgb;

constexpr Color black = rgb(0, 0, 0);
constexpr Color white = rgb(255, 255, 255);
constexpr Color border = rgb(255, 0, 0);
constexpr Color fill = rgb(0, 0, 255);

std::span<const std::byte> bytes_of(const std::vector<unsigned char>& bytes)
{
    return std::as_bytes(std::span(bytes));
}

TEST(GdipWithoutSession, DoesNotChangeTheListOfExtensions)
{
    ovlib::image_extensions = { L".KEPT" };
    ovlib::fill_image_extensions();
    EXPECT_EQ(ovlib::image_extensions, (std::vector<std::wstring>{ L".KEPT" }));
    ovlib::image_extensions.clear();
}

TEST(ImageExtensions, ArePatternsWithoutTheirAsterisk)
{
    std::vector<std::wstring> extensions{ L".A" };
    ovlib::append_extensions(L"*.BMP;*.DIB;*.RLE", extensions);
    EXPECT_EQ(extensions, (std::vector<std::wstring>{ L".A", L".BMP", L".DIB", L".RLE" }));
    extensions.clear();
    ovlib::append_extensions(L"*.PNG", extensions);
    ovlib::append_extensions(L"", extensions);
    ovlib::append_extensions(L";;*.X;", extensions);
    EXPECT_EQ(extensions, (std::vector<std::wstring>{ L".PNG", L".X" }));
}

class Gdip : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(session.is_ready()); }
    void TearDown() override { ovlib::image_extensions.clear(); }

    ovlib::GDIPSession session;
};

TEST_F(Gdip, ListsTheFormatsItCanRead)
{
    ovlib::fill_image_extensions();
    const auto once = ovlib::image_extensions;
    for (const wchar_t* wanted : { L".BMP", L".JPG", L".GIF", L".PNG" })
        EXPECT_NE(std::find(once.begin(), once.end(), wanted), once.end());
    for (const std::wstring& extension : once)
        EXPECT_EQ(extension.front(), L'.');
    ovlib::fill_image_extensions();
    EXPECT_EQ(ovlib::image_extensions, once) << "a second time adds nothing";
}

TEST_F(Gdip, ColoursAreOpaqueWithRedAndBlueSwapped)
{
    EXPECT_EQ(ovlib::to_argb(rgb(0x11, 0x22, 0x33)), 0xFF112233u);
    EXPECT_EQ(ovlib::to_argb(Color{ 0x99000000 }), 0xFF000000u) << "the high byte of a colour is no alpha";
}

class RoundRect : public Gdip {
protected:
    void SetUp() override
    {
        Gdip::SetUp();
        ASSERT_TRUE(buffer.create(60, 40));
        clear(buffer, white);
    }
    void draw(const RECT& rect, float radius_x, float radius_y)
    {
        ovlib::GDIP gdip(buffer.dc().handle());
        ASSERT_EQ(gdip.status(), Gdiplus::Ok);
        gdip.set_smoothing(Gdiplus::SmoothingModeAntiAlias);
        gdip.round_rect(rect, radius_x, radius_y, border, 1.0f, fill);
        EXPECT_EQ(gdip.status(), Gdiplus::Ok);
    }

    ovlib::BackBuffer buffer;
};

TEST_F(RoundRect, HasABorderAFillAndRoundCorners)
{
    draw({ 5, 5, 45, 35 }, 6.0f, 6.0f);
    EXPECT_EQ(pixel(buffer, 25, 20), fill);
    EXPECT_EQ(pixel(buffer, 25, 5), border);
    EXPECT_EQ(pixel(buffer, 5, 20), border);
    EXPECT_EQ(pixel(buffer, 44, 20), border) << "one pixel inside the right edge";
    EXPECT_EQ(pixel(buffer, 25, 34), border);
    EXPECT_EQ(pixel(buffer, 45, 20), white);
    EXPECT_EQ(pixel(buffer, 5, 5), white);
    EXPECT_EQ(pixel(buffer, 44, 34), white);
}

TEST_F(RoundRect, WithARadiusWiderThanHalfDrawsNothing)
{
    draw({ 5, 5, 25, 35 }, 10.5f, 3.0f);
    draw({ 5, 5, 45, 15 }, 3.0f, 5.5f);
    EXPECT_EQ(count_pixels(buffer, white), 60 * 40);
    draw({ 5, 5, 25, 35 }, 10.0f, 3.0f);
    EXPECT_LT(count_pixels(buffer, white), 60 * 40) << "half exactly is not wider";
}

TEST_F(RoundRect, WithoutADeviceContextKeepsItsStatus)
{
    ovlib::GDIP gdip(nullptr);
    EXPECT_NE(gdip.status(), Gdiplus::Ok);
    gdip.round_rect({ 0, 0, 20, 20 }, 3.0f, 3.0f, border, 1.0f, fill);
    EXPECT_NE(gdip.status(), Gdiplus::Ok);
}

TEST_F(Gdip, MemoryHoldsOneBlock)
{
    GDIPMemory memory;
    EXPECT_FALSE(memory.assign({}));
    const std::vector<unsigned char> bytes{ 1, 2, 3 };
    ASSERT_TRUE(memory.assign(bytes_of(bytes)));
    EXPECT_FALSE(memory.assign(bytes_of(bytes)));
    {
        ovlib::GlobalMemoryLock lock(memory.handle());
        ASSERT_NE(lock.data(), nullptr);
        EXPECT_EQ(lock.data()[2], std::byte{ 3 });
        lock.release();
        EXPECT_EQ(lock.data(), nullptr);
    }
    EXPECT_EQ(GlobalFlags(memory.handle()) & GMEM_LOCKCOUNT, 0u);
    memory.free();
    EXPECT_FALSE(memory);
    EXPECT_TRUE(memory.assign(bytes_of(bytes)));
}

TEST_F(Gdip, MemoryReadsAWholeFile)
{
    const gui::TempFolder folder;
    GDIPMemory memory;
    EXPECT_FALSE(memory.read_file(folder.file(L"missing")));
    EXPECT_FALSE(memory.read_file(folder.write(L"empty", {})));
    ASSERT_TRUE(memory.read_file(folder.write(L"図.bin", { 7, 8, 9 })));
    EXPECT_GE(GlobalSize(memory.handle()), 3u);
    const ovlib::GlobalMemoryLock lock(memory.handle());
    EXPECT_EQ(lock.data()[0], std::byte{ 7 });
    EXPECT_FALSE(memory.read_file(folder.file(L"図.bin"))) << "a block is held";
}

TEST_F(Gdip, AnImageIsLoadedOnceFromMemory)
{
    GDIPMemory memory;
    ASSERT_TRUE(memory.assign(bytes_of(gui::bmp_file(5, 3, fill))));
    GDIPImage image;
    EXPECT_EQ(image.width(), 0u);
    ASSERT_TRUE(image.load(memory));
    EXPECT_TRUE(image.is_loaded());
    EXPECT_EQ(image.width(), 5u);
    EXPECT_EQ(image.height(), 3u);
    EXPECT_FALSE(image.load(memory));
    EXPECT_TRUE(image.is_loaded()) << "a refusal changes nothing";
    EXPECT_EQ(image.width(), 5u);
    image.clear();
    EXPECT_FALSE(image.is_loaded());
    EXPECT_TRUE(image.load(memory)) << "the block outlives the picture";
}

TEST_F(Gdip, AnImageIsLoadedFromAFileAndDrawn)
{
    const gui::TempFolder folder;
    const std::wstring path = folder.write(L"絵.bmp", gui::bmp_file(4, 4, fill));
    GDIPImage image;
    ASSERT_TRUE(image.load(path));
    EXPECT_FALSE(image.load(path));
    ovlib::BackBuffer buffer;
    ASSERT_TRUE(buffer.create(8, 8));
    clear(buffer, white);
    {
        const ovlib::GDIP gdip(buffer.dc().handle());
        Gdiplus::DllExports::GdipDrawImageRectI(gdip.graphics(), image.image(), 2, 2, 4, 4);
    }
    EXPECT_EQ(pixel(buffer, 3, 3), fill);
    EXPECT_EQ(pixel(buffer, 0, 0), white);
}

TEST_F(Gdip, AFailedLoadLeavesAnImageEmptyAndReady)
{
    const gui::TempFolder folder;
    GDIPMemory garbage;
    ASSERT_TRUE(garbage.assign(bytes_of({ 'n', 'o', ' ', 'p', 'i', 'c' })));
    GDIPImage image;
    EXPECT_FALSE(image.load(garbage));
    EXPECT_FALSE(image.is_loaded());
    EXPECT_EQ(image.image(), nullptr);
    EXPECT_NE(image.status(), Gdiplus::Ok);
    EXPECT_FALSE(image.load(GDIPMemory()));
    EXPECT_FALSE(image.load(folder.file(L"missing.png")));
    EXPECT_TRUE(image.load(folder.write(L"a.bmp", gui::bmp_file(1, 1, fill))));
}

TEST_F(Gdip, AnImageIsCopiedIntoAnEmptyOne)
{
    GDIPMemory memory;
    ASSERT_TRUE(memory.assign(bytes_of(gui::bmp_file(6, 2, fill))));
    GDIPImage image;
    GDIPImage copy;
    EXPECT_FALSE(copy.copy_from(image)) << "of nothing";
    ASSERT_TRUE(image.load(memory));
    ASSERT_TRUE(copy.copy_from(image));
    EXPECT_FALSE(copy.copy_from(image));
    image.clear();
    EXPECT_EQ(copy.width(), 6u);
}

TEST_F(Gdip, AGifHasFramesWithDelaysInMilliseconds)
{
    GDIPMemory memory;
    const std::array delays{ 5, 0, 300, 65535 };
    ASSERT_TRUE(memory.assign(bytes_of(gui::gif_file(delays))));
    GDIPGif gif;
    ASSERT_TRUE(gif.load(memory));
    EXPECT_EQ(gif.frame_count(), 4u);
    EXPECT_EQ(gif.delays(), (std::vector<UINT>{ 50, 100, 3000, 655'350 }));
    EXPECT_FALSE(gif.load(memory));
    EXPECT_EQ(gif.frame_count(), 4u);
    gif.clear();
    EXPECT_EQ(gif.frame_count(), 0u);
    EXPECT_TRUE(gif.delays().empty());
    EXPECT_FALSE(gif.select_frame(0));
}

TEST_F(Gdip, AGifShowsTheSelectedFrame)
{
    GDIPMemory memory;
    const std::array delays{ 5, 5, 5 };
    ASSERT_TRUE(memory.assign(bytes_of(gui::gif_file(delays))));
    GDIPGif gif;
    ASSERT_TRUE(gif.load(memory));
    ovlib::BackBuffer buffer;
    ASSERT_TRUE(buffer.create(1, 1));
    for (UINT frame = 0; frame < 3; ++frame) {
        clear(buffer, rgb(9, 9, 9));
        ASSERT_TRUE(gif.select_frame(frame));
        const ovlib::GDIP gdip(buffer.dc().handle());
        Gdiplus::DllExports::GdipDrawImageRectI(gdip.graphics(), gif.image(), 0, 0, 1, 1);
        EXPECT_EQ(pixel(buffer, 0, 0), frame % 2 == 0 ? black : white);
    }
    EXPECT_FALSE(gif.select_frame(3));
}

TEST_F(Gdip, APictureWithoutDelaysIsNoGif)
{
    const gui::TempFolder folder;
    GDIPGif gif;
    EXPECT_FALSE(gif.load(folder.write(L"still.bmp", gui::bmp_file(2, 2, fill))));
    EXPECT_FALSE(gif.is_loaded());
    EXPECT_EQ(gif.frame_count(), 0u);
    const std::array delays{ 20, 30 };
    EXPECT_TRUE(gif.load(folder.write(L"moving.gif", gui::gif_file(delays))));
    EXPECT_EQ(gif.delays(), (std::vector<UINT>{ 200, 300 }));
}

} // namespace
