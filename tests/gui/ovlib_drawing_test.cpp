// Handles, device contexts, back buffers and text.
#include "ovlib/gui/text_stream.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/gui_pump.hpp"
#include "tests/support/gui_window.hpp"
#include <climits>
#include <gtest/gtest.h>

namespace {

using gui::clear;
using gui::count_pixels;
using gui::pixel;
using gui::TopWnd;
using ovlib::BackBuffer;
using ovlib::Color;
using ovlib::ObjectSelection;
using ovlib::rgb;
using ovlib::GDI::Ownership;

constexpr Color black = rgb(0, 0, 0);
constexpr Color white = rgb(255, 255, 255);
constexpr Color red = rgb(255, 0, 0);

bool is_object(HGDIOBJ handle)
{
    return GetObjectType(handle) != 0;
}

TEST(GdiObject, IsEmptyAtFirstExceptForTheFont)
{
    EXPECT_EQ(ovlib::GDI::Pen().handle(), nullptr);
    EXPECT_EQ(ovlib::GDI::Brush().ownership(), Ownership::none);
    EXPECT_FALSE(ovlib::GDI::Bitmap());
    const ovlib::GDI::Font font;
    EXPECT_EQ(font.handle(), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(font.ownership(), Ownership::borrowed);
}

TEST(GdiObject, DeletesWhatItOwns)
{
    const HPEN handle = ovlib::GDI::solid_pen(1, red);
    {
        const ovlib::GDI::Pen pen(handle);
        EXPECT_EQ(pen.ownership(), Ownership::owned);
        EXPECT_TRUE(is_object(handle));
    }
    EXPECT_FALSE(is_object(handle));
}

TEST(GdiObject, KeepsWhatItBorrowed)
{
    const HBRUSH handle = ovlib::GDI::solid_brush(red);
    {
        ovlib::GDI::Brush brush;
        EXPECT_TRUE(brush.attach(handle, Ownership::borrowed));
        EXPECT_EQ(brush.ownership(), Ownership::borrowed);
        brush.reset();
        EXPECT_EQ(brush.handle(), nullptr);
        EXPECT_TRUE(brush.attach(handle, Ownership::borrowed));
    }
    EXPECT_TRUE(is_object(handle));
    DeleteObject(handle);
}

TEST(GdiObject, RefusesAnotherWhileItOwnsOneAndLeaksNeither)
{
    const HBRUSH first = ovlib::GDI::solid_brush(red);
    const HBRUSH second = ovlib::GDI::solid_brush(white);
    const HBRUSH borrowed = ovlib::GDI::solid_brush(black);
    ovlib::GDI::Brush brush(first);
    EXPECT_FALSE(brush.attach(second, Ownership::owned));
    EXPECT_EQ(brush.handle(), first);
    EXPECT_FALSE(is_object(second)) << "a refused brush would leak";
    EXPECT_FALSE(brush.attach(borrowed, Ownership::borrowed));
    EXPECT_TRUE(is_object(borrowed));
    EXPECT_FALSE(brush.attach(first, Ownership::owned));
    EXPECT_TRUE(is_object(first)) << "what is held is not what is refused";
    brush.reset();
    EXPECT_FALSE(is_object(first));
    EXPECT_TRUE(brush.attach(borrowed, Ownership::owned));
}

TEST(GdiObject, ReplacesABorrowedOne)
{
    ovlib::GDI::Font font;
    const HFONT made = CreateFontW(-16, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, L"Arial");
    EXPECT_TRUE(font.attach(made, Ownership::owned));
    EXPECT_EQ(font.handle(), made);
}

TEST(GdiObject, RenewsWhatItOwns)
{
    const HBRUSH first = ovlib::GDI::solid_brush(red);
    const HBRUSH second = ovlib::GDI::solid_brush(white);
    ovlib::GDI::Brush brush(first);
    brush.renew(second);
    EXPECT_FALSE(is_object(first));
    EXPECT_EQ(brush.handle(), second);
    brush.renew(second);
    EXPECT_TRUE(is_object(second)) << "renewed by itself";
    brush.renew(GetStockObject(NULL_BRUSH), Ownership::borrowed);
    EXPECT_FALSE(is_object(second));
    EXPECT_EQ(brush.ownership(), Ownership::borrowed);
    brush.renew(nullptr);
    EXPECT_EQ(brush.ownership(), Ownership::none);
}

TEST(GdiObject, MovesItsHandle)
{
    const HPEN handle = ovlib::GDI::solid_pen(2, red);
    ovlib::GDI::Pen first(handle);
    ovlib::GDI::Pen second(std::move(first));
    EXPECT_EQ(second.handle(), handle);
    EXPECT_EQ(first.handle(), nullptr);
    const HPEN old = ovlib::GDI::solid_pen(2, white);
    first = ovlib::GDI::Pen(old);
    first = std::move(second);
    EXPECT_EQ(first.handle(), handle);
    EXPECT_FALSE(is_object(old));
    EXPECT_TRUE(is_object(handle));
}

TEST(GdiBitmap, IsCreatedOnceWith24Bits)
{
    ovlib::GDI::Bitmap bitmap;
    bitmap.create(5, 3);
    const HBITMAP made = bitmap.handle();
    BITMAP facts{};
    ASSERT_NE(GetObjectW(made, sizeof facts, &facts), 0);
    EXPECT_EQ(facts.bmWidth, 5);
    EXPECT_EQ(facts.bmHeight, 3);
    EXPECT_EQ(facts.bmBitsPixel, 24);
    bitmap.create(7, 7);
    EXPECT_EQ(bitmap.handle(), made);
}

TEST(Dc, OfTheScreenHasItsSize)
{
    TopWnd wnd;
    ASSERT_TRUE(wnd.create(L""));
    {
        const ovlib::ClientDC dc(wnd);
        EXPECT_EQ(dc.size().cx, GetSystemMetrics(SM_CXSCREEN));
        EXPECT_EQ(dc.size().cy, GetSystemMetrics(SM_CYSCREEN));
    }
    wnd.destroy();
}

TEST(Dc, OfMemoryHasTheSizeOfItsBitmap)
{
    const ovlib::MemDC dc;
    EXPECT_TRUE(dc);
    ovlib::GDI::Bitmap bitmap;
    bitmap.create(31, 17);
    const ObjectSelection selection(dc, bitmap);
    EXPECT_EQ(dc.size().cx, 31);
    EXPECT_EQ(dc.size().cy, 17);
    const ovlib::DC& as_base = dc;
    EXPECT_EQ(as_base.size().cx, 31);
}

TEST(Dc, ForPaintingValidatesItsWindow)
{
    TopWnd wnd;
    int painted = 0;
    wnd.answer = [&](ovlib::WndMessage& message) {
        if (message.message != WM_PAINT)
            return false;
        const ovlib::PaintDC dc(wnd);
        painted += dc && dc.update_rect().right > 0 ? 1 : 0;
        return true;
    };
    ASSERT_TRUE(wnd.create(L""));
    wnd.show(true);
    EXPECT_GE(painted, 1);
    EXPECT_FALSE(GetUpdateRect(wnd.hwnd(), nullptr, FALSE));
    wnd.destroy();
}

TEST(Selection, EndsWithItsScopeAlsoAfterAnException)
{
    const ovlib::MemDC dc;
    const HGDIOBJ before = GetCurrentObject(dc.handle(), OBJ_PEN);
    const ovlib::GDI::Pen pen(ovlib::GDI::solid_pen(3, red));
    try {
        const ObjectSelection selection(dc, pen);
        EXPECT_EQ(GetCurrentObject(dc.handle(), OBJ_PEN), pen.handle());
        throw 1;
    } catch (int) {
    }
    EXPECT_EQ(GetCurrentObject(dc.handle(), OBJ_PEN), before);
}

TEST(Selection, IsReleasedOnce)
{
    const ovlib::MemDC dc;
    const HGDIOBJ before = GetCurrentObject(dc.handle(), OBJ_BRUSH);
    const ovlib::GDI::Brush first(ovlib::GDI::solid_brush(red));
    const ovlib::GDI::Brush second(ovlib::GDI::solid_brush(white));
    ObjectSelection selection(dc, first);
    selection.release();
    EXPECT_EQ(GetCurrentObject(dc.handle(), OBJ_BRUSH), before);
    SelectObject(dc.handle(), second.handle());
    selection.release();
    EXPECT_EQ(GetCurrentObject(dc.handle(), OBJ_BRUSH), second.handle());
    SelectObject(dc.handle(), before);
}

TEST(BackBufferTest, SidesBelowOneBecomeOne)
{
    for (const auto& [width, height] : { std::pair{ 0, 0 }, { -5, -5 }, { 1, 1 } }) {
        BackBuffer buffer;
        ASSERT_TRUE(buffer.create(width, height));
        EXPECT_EQ(buffer.width, 1);
        EXPECT_EQ(buffer.height, 1);
        EXPECT_EQ(buffer.stride, 4);
        EXPECT_EQ(buffer.dc().size().cx, 1);
    }
}

TEST(BackBufferTest, HasBottomUpRowsPaddedToFourBytes)
{
    for (int width = 1; width <= 40; ++width) {
        BackBuffer buffer;
        ASSERT_TRUE(buffer.create(width, 2));
        BITMAP facts{};
        GetObjectW(buffer.bitmap(), sizeof facts, &facts);
        EXPECT_EQ(buffer.stride, facts.bmWidthBytes);
        EXPECT_EQ(buffer.bits_per_pixel, 24);
        EXPECT_EQ(buffer.bits, facts.bmBits);
    }
    BackBuffer buffer;
    ASSERT_TRUE(buffer.create(4, 3));
    clear(buffer, black);
    SetPixelV(buffer.dc().handle(), 1, 0, rgb(10, 20, 30).value);
    ovlib::finish_drawing();
    const std::uint8_t* top_row = buffer.bits + 2 * buffer.stride;
    EXPECT_EQ(top_row[3], 30);
    EXPECT_EQ(top_row[4], 20);
    EXPECT_EQ(top_row[5], 10);
    EXPECT_EQ(buffer.info().bmiHeader.biHeight, 3);
}

TEST(BackBufferTest, IsCreatedOnceAndAgainAfterItsRelease)
{
    BackBuffer buffer;
    ASSERT_TRUE(buffer.create(10, 10));
    const HBITMAP bitmap = buffer.bitmap();
    EXPECT_FALSE(buffer.create(20, 20));
    EXPECT_EQ(buffer.width, 10);
    buffer.release();
    EXPECT_FALSE(is_object(bitmap)) << "selected out before its deletion";
    EXPECT_EQ(buffer.bits, nullptr);
    EXPECT_EQ(buffer.width, 0);
    EXPECT_EQ(buffer.stride, 0);
    EXPECT_EQ(buffer.info().bmiHeader.biSize, 0u);
    EXPECT_FALSE(buffer.is_created());
    buffer.release();
    EXPECT_TRUE(buffer.create(20, 20));
    EXPECT_EQ(buffer.width, 20);
}

TEST(BackBufferTest, LeavesNothingIfItIsTooLarge)
{
    BackBuffer buffer;
    EXPECT_FALSE(buffer.create(INT_MAX, INT_MAX));
    EXPECT_FALSE(buffer.is_created());
    EXPECT_EQ(buffer.width, 0);
    EXPECT_EQ(buffer.bits, nullptr);
    EXPECT_TRUE(buffer.create(2, 2));
}

TEST(BackBufferTest, IsCopiedWhole)
{
    BackBuffer source;
    BackBuffer target;
    ASSERT_TRUE(source.create(7, 5) && target.create(9, 9));
    clear(target, white);
    clear(source, red);
    ovlib::fill_rect(source, black, { 0, 0, 1, 1 });
    source.copy_to(target.dc());
    EXPECT_EQ(pixel(target, 0, 0), black);
    EXPECT_EQ(pixel(target, 6, 4), red);
    EXPECT_EQ(count_pixels(target, red), 34);
    EXPECT_EQ(count_pixels(target, white), 81 - 35);
    const BackBuffer empty;
    empty.copy_to(target.dc());
    EXPECT_EQ(count_pixels(target, red), 34);
}

TEST(FillRect, WritesBlueGreenRed)
{
    BackBuffer buffer;
    ASSERT_TRUE(buffer.create(3, 3));
    clear(buffer, black);
    ovlib::fill_rect(buffer, rgb(1, 2, 3), { 1, 0, 2, 1 });
    const std::uint8_t* at = buffer.bits + 2 * buffer.stride + 3;
    EXPECT_EQ(at[0], 3);
    EXPECT_EQ(at[1], 2);
    EXPECT_EQ(at[2], 1);
    EXPECT_EQ(count_pixels(buffer, black), 8);
}

TEST(FillRect, FillsOnlyTheInside)
{
    BackBuffer buffer;
    ASSERT_TRUE(buffer.create(10, 8));
    const auto filled = [&](const RECT& rect) {
        clear(buffer, black);
        ovlib::fill_rect(buffer, red, rect);
        return count_pixels(buffer, red);
    };
    EXPECT_EQ(filled({ 7, 6, 100, 100 }), 3 * 2) << "over the right and bottom edges";
    EXPECT_EQ(pixel(buffer, 9, 7), red);
    EXPECT_EQ(filled({ -100, -100, 2, 3 }), 2 * 3) << "over the left and top edges";
    EXPECT_EQ(filled({ LONG_MIN, LONG_MIN, LONG_MAX, LONG_MAX }), 80);
    EXPECT_EQ(filled({ 3, 3, 4, 4 }), 1);
}

TEST(FillRect, DoesNothingForAnEmptyRectangleOrOneOutside)
{
    BackBuffer buffer;
    ASSERT_TRUE(buffer.create(10, 8));
    clear(buffer, black);
    for (const RECT& rect : { RECT{ 5, 5, 5, 7 }, RECT{ 5, 5, 7, 5 }, RECT{ 7, 7, 3, 3 },
             RECT{ 10, 0, 12, 8 }, RECT{ 0, 8, 10, 12 }, RECT{ -5, -5, 0, 8 }, RECT{ 0, -5, 10, 0 } })
        ovlib::fill_rect(buffer, red, rect);
    EXPECT_EQ(count_pixels(buffer, black), 80);
    BackBuffer none;
    ovlib::fill_rect(none, red, { 0, 0, 5, 5 });
    EXPECT_EQ(none.bits, nullptr);
}

class Text : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(buffer.create(300, 100));
        clear(buffer, white);
    }
    SIZE extent(const std::wstring& text)
    {
        SIZE size{};
        GetTextExtentPoint32W(buffer.dc().handle(), text.c_str(), static_cast<int>(text.size()), &size);
        return size;
    }

    // With smoothing, no pixel may have the exact text colour.
    bool has_ink() { return count_pixels(buffer, white) < buffer.width * buffer.height; }

    BackBuffer buffer;
};

TEST_F(Text, StartsWithTheStyleOfItsDeviceContext)
{
    SetTextColor(buffer.dc().handle(), red.value);
    SetBkColor(buffer.dc().handle(), black.value);
    SetBkMode(buffer.dc().handle(), TRANSPARENT);
    std::vector<ovlib::GDI::TextRegion> regions(3);
    const ovlib::GDI::TextStream stream(buffer.dc(), &regions);
    EXPECT_TRUE(regions.empty());
    EXPECT_EQ(stream.color, red);
    EXPECT_EQ(stream.back_color, black);
    EXPECT_EQ(stream.back_mode, TRANSPARENT);
    EXPECT_EQ(stream.font, GetCurrentObject(buffer.dc().handle(), OBJ_FONT));
    EXPECT_EQ(stream.flags, 2080u);
    EXPECT_FALSE(stream.underline_next);
    TEXTMETRICW metrics{};
    GetTextMetricsW(buffer.dc().handle(), &metrics);
    EXPECT_EQ(stream.line_height, metrics.tmHeight);
}

TEST_F(Text, RunsFollowOneAnother)
{
    ovlib::GDI::TextStream stream(buffer.dc());
    stream.x = stream.origin_x = 10;
    stream.y = 5;
    stream << L"ab" << L"cde";
    EXPECT_EQ(stream.x, 10 + extent(L"ab").cx + extent(L"cde").cx);
    EXPECT_EQ(stream.origin_x, 10);
    EXPECT_EQ(stream.y, 5);
    EXPECT_EQ(stream.line_height, extent(L"ab").cy);
    EXPECT_TRUE(has_ink());
}

TEST_F(Text, RestoresTheStyleOfTheDeviceContextAfterARun)
{
    const HDC hdc = buffer.dc().handle();
    const HGDIOBJ font_before = GetCurrentObject(hdc, OBJ_FONT);
    const ovlib::GDI::Font font(CreateFontW(-24, 0, 0, 0, 700, 0, 0, 0, 1, 0, 0, 0, 0, L"Arial"));
    ovlib::GDI::TextStream stream(buffer.dc());
    stream.font = font.handle();
    stream.color = red;
    stream.back_color = rgb(1, 2, 3);
    stream.back_mode = TRANSPARENT;
    stream << L"M";
    EXPECT_GT(count_pixels(buffer, red), 0);
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_FONT), font_before);
    EXPECT_EQ(GetTextColor(hdc), black.value);
    EXPECT_EQ(GetBkColor(hdc), white.value);
    EXPECT_EQ(GetBkMode(hdc), OPAQUE);
    EXPECT_EQ(stream.font, font.handle());
    EXPECT_EQ(stream.color, red);
    EXPECT_EQ(stream.back_mode, TRANSPARENT);
    EXPECT_GT(stream.line_height, extent(L"M").cy) << "the height of the run, not of the context's font";
}

TEST_F(Text, UnderlinesOneRun)
{
    ovlib::GDI::TextStream stream(buffer.dc());
    stream.back_mode = TRANSPARENT;
    stream.color = red;
    stream.x = 20;
    stream.y = 10;
    stream.underline_next = true;
    stream << L"ab";
    EXPECT_FALSE(stream.underline_next);
    const int line = 10 + stream.line_height;
    for (int x = 20; x < stream.x; ++x)
        EXPECT_EQ(pixel(buffer, x, line), red);
    EXPECT_EQ(pixel(buffer, 19, line), white);
    EXPECT_EQ(pixel(buffer, stream.x, line), white);
    const int end = stream.x;
    stream << L"cd";
    EXPECT_EQ(pixel(buffer, end + 2, line), white);
}

TEST_F(Text, RegionsRememberWhereTheyWereDrawn)
{
    std::vector<ovlib::GDI::TextRegion> regions;
    ovlib::GDI::TextStream stream(buffer.dc(), &regions);
    stream.x = 30;
    stream.y = 40;
    stream << ovlib::GDI::TextRegion{ L"one", L"first target", {}, false } << L" "
           << ovlib::GDI::TextRegion{ L"two", L"second", {}, true };
    ASSERT_EQ(regions.size(), 2u);
    EXPECT_EQ(regions[0].target, L"first target");
    EXPECT_EQ(regions[0].rect.left, 30);
    EXPECT_EQ(regions[0].rect.top, 40);
    EXPECT_EQ(regions[0].rect.right, 30 + extent(L"one").cx);
    EXPECT_EQ(regions[0].rect.bottom, 40 + extent(L"one").cy);
    EXPECT_EQ(regions[1].rect.left, regions[0].rect.right + extent(L" ").cx);
    EXPECT_TRUE(regions[1].flag);
}

TEST_F(Text, ARegionWithoutAListIsOnlyDrawn)
{
    ovlib::GDI::TextStream stream(buffer.dc());
    stream << ovlib::GDI::TextRegion{ L"one", L"", {}, false };
    EXPECT_EQ(stream.x, extent(L"one").cx);
}

TEST_F(Text, ARunIsWrappedAtTheWidthGivenForMeasuring)
{
    const SIZE two = extent(L"MM MM");
    ovlib::GDI::TextStream stream(buffer.dc());
    stream.flags = DT_NOPREFIX | DT_WORDBREAK;
    stream.width = static_cast<int>(two.cx);
    stream << L"MM MM MM";
    EXPECT_EQ(stream.x, two.cx);
    EXPECT_EQ(stream.line_height, 2 * two.cy);
    stream.x = 0;
    stream.width = static_cast<int>(two.cx) - 1;
    stream << L"MM MM MM";
    EXPECT_LT(stream.x, two.cx);
    EXPECT_EQ(stream.line_height, 3 * two.cy) << "one word a line";
}

TEST_F(Text, IsDrawnIntoAGivenRectangleWithoutMeasuring)
{
    ovlib::GDI::TextStream stream(buffer.dc());
    stream.x = 200;
    stream.back_mode = TRANSPARENT;
    stream.draw(L"MMMMMMMMMMMMMMMMMMMM", { 50, 20, 90, 60 });
    EXPECT_EQ(stream.origin_x, 50);
    EXPECT_EQ(stream.x, 90);
    EXPECT_EQ(stream.y, 20);
    EXPECT_EQ(stream.line_height, 40);
    int outside = 0;
    for (int y = 0; y < buffer.height; ++y) {
        for (int x = 0; x < buffer.width; ++x)
            outside += (x < 50 || x >= 90 || y < 20 || y >= 60) && pixel(buffer, x, y) != white ? 1 : 0;
    }
    EXPECT_EQ(outside, 0) << "clipped to the rectangle";
    EXPECT_TRUE(has_ink());
}

} // namespace
