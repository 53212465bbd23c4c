// The shipped pictures in the program: which ones load, for which command, and how they are drawn.
#include "app/bitmap_files.hpp"
#include "app/wnd/app_bitmaps.hpp"
#include "core/folders.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/gui/gdip.hpp"
#include "ovlib/gui/gdip_image.hpp"
#include "tests/support/built_files.hpp"
#include "tests/support/gui_app.hpp"
#include "tests/support/gui_picture.hpp"
#include "tests/support/picture_file.hpp"
#include <algorithm>
#include <array>

namespace {

namespace command = core::command;
using gui::AppWindow;
using test_support::BmpFile;
using test_support::PicturePixel;

constexpr WORD icon_resource = 1000;

std::wstring shipped(const std::wstring& file)
{
    return test_support::dist_path(L"/res/" + file);
}

class AppBitmaps : public testing::Test {
protected:
    AppBitmaps() { core::init_folders(test_support::dist_path()); }
    ~AppBitmaps() override { app::free_app_bitmaps(); }
};

DIBSECTION section_of(HBITMAP bitmap)
{
    DIBSECTION section{};
    EXPECT_EQ(GetObjectW(bitmap, sizeof section, &section), static_cast<int>(sizeof section));
    return section;
}

// A bitmap section loaded from a file has its rows bottom-up, as in the file.
PicturePixel pixel_of(const BITMAP& bitmap, int x, int y)
{
    const auto* at = static_cast<const std::uint8_t*>(bitmap.bmBits)
        + static_cast<std::ptrdiff_t>(bitmap.bmHeight - 1 - y) * bitmap.bmWidthBytes
        + std::ptrdiff_t{ x } * 4;
    return { at[2], at[1], at[0], at[3] };
}

int count_differences(const BITMAP& bitmap, const BmpFile& file)
{
    int count = 0;
    for (int y = 0; y < file.height(); ++y) {
        for (int x = 0; x < file.width(); ++x)
            count += pixel_of(bitmap, x, y) == file.at(x, y) ? 0 : 1;
    }
    return count;
}

TEST_F(AppBitmaps, EachCommandHasItsFileWithTheAlphaOfEveryPixel)
{
    app::load_app_bitmaps();
    for (const app::BitmapFile& row : app::bitmap_files) {
        SCOPED_TRACE(row.command);
        const HBITMAP bitmap = app::app_bitmap(row.command);
        ASSERT_NE(bitmap, nullptr);
        const BITMAP shape = section_of(bitmap).dsBm;
        ASSERT_EQ(shape.bmWidth, 16);
        ASSERT_EQ(shape.bmHeight, 16);
        ASSERT_EQ(shape.bmBitsPixel, 32);
        ASSERT_NE(shape.bmBits, nullptr);
        EXPECT_EQ(count_differences(shape, BmpFile{ shipped(std::wstring(row.file) + L".bmp") }), 0);
    }
}

TEST_F(AppBitmaps, ACommandOutsideTheTableHasNone)
{
    app::load_app_bitmaps();
    EXPECT_EQ(app::app_bitmap(command::new_book), nullptr);
    EXPECT_EQ(app::app_bitmap(-1), nullptr);
}

TEST_F(AppBitmaps, DoNotExistAfterTheyWereFreed)
{
    app::load_app_bitmaps();
    const HBITMAP bitmap = app::app_bitmap(command::backup_book);
    app::free_app_bitmaps();
    EXPECT_EQ(app::app_bitmap(command::backup_book), nullptr);
    EXPECT_EQ(GetObjectType(bitmap), 0u);
}

TEST_F(AppBitmaps, AMissingFileLeavesItsCommandWithoutAPicture)
{
    const test_support::TempFolder empty;
    core::init_folders(empty.path());
    app::load_app_bitmaps();
    for (const app::BitmapFile& row : app::bitmap_files)
        EXPECT_EQ(app::app_bitmap(row.command), nullptr) << row.command;
}

TEST_F(AppBitmaps, ABlendedPictureShowsTheMenuBehindIt)
{
    app::load_app_bitmaps();
    constexpr ovlib::Color menu{ 0x2B2B2B };
    ovlib::BackBuffer buffer;
    ASSERT_TRUE(buffer.create(16, 16));
    gui::clear(buffer, menu);
    const ovlib::MemDC source;
    const ovlib::ObjectSelection selected{ source, app::app_bitmap(command::duplicate_file) };
    const BLENDFUNCTION blend{ AC_SRC_OVER, 0, 255, AC_SRC_ALPHA };
    EXPECT_TRUE(AlphaBlend(buffer.dc().handle(), 0, 0, 16, 16, source.handle(), 0, 0, 16, 16, blend));
    EXPECT_EQ(gui::pixel(buffer, 0, 0), menu);
    EXPECT_EQ(gui::pixel(buffer, 12, 6), ovlib::rgb(0xFC, 0xFD, 0xFF));
}

TEST_F(AppBitmaps, PicturesWithAKeyColorLoadFromTheirFiles)
{
    for (const wchar_t* name : { L"perfo", L"files", L"indicator" }) {
        SCOPED_TRACE(platform::to_utf8(name));
        const std::wstring path = shipped(std::wstring(name) + L".bmp");
        const ovlib::GDI::Bitmap bitmap{ static_cast<HBITMAP>(
            LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)) };
        ASSERT_NE(bitmap.handle(), nullptr);
        const BmpFile file{ path };
        const BITMAP shape = section_of(bitmap.handle()).dsBm;
        EXPECT_EQ(shape.bmWidth, file.width());
        EXPECT_EQ(shape.bmHeight, file.height());
        EXPECT_EQ(shape.bmBitsPixel, 24);
    }
}

constexpr std::array sheet_names{ L"front", L"prev", L"next", L"back", L"loupe", L"clear", L"topfile",
    L"btmfile", L"reload", L"web_zoomin", L"web_zoomout", L"add_files", L"add_pages" };

int alpha_at(Gdiplus::GpBitmap* bitmap, UINT x, UINT y)
{
    Gdiplus::ARGB color = 0;
    EXPECT_EQ(
        Gdiplus::DllExports::GdipBitmapGetPixel(bitmap, static_cast<INT>(x), static_cast<INT>(y), &color),
        Gdiplus::Ok);
    return static_cast<int>(color >> 24);
}

// When a button is disabled, its picture must only become fainter and must not move.
TEST_F(AppBitmaps, TheDisabledHalfOfASheetIsTheSamePictureFainter)
{
    const ovlib::GDIPSession session;
    ASSERT_TRUE(session.is_ready());
    for (const wchar_t* name : sheet_names) {
        SCOPED_TRACE(platform::to_utf8(name));
        ovlib::GDIPImage sheet;
        ASSERT_TRUE(sheet.load(shipped(std::wstring(name) + L".png")));
        auto* const bitmap = static_cast<Gdiplus::GpBitmap*>(sheet.image());
        const UINT half = sheet.width() / 2;
        int strongest = 0;
        int strongest_disabled = 0;
        for (UINT y = 0; y < sheet.height(); ++y) {
            for (UINT x = 0; x < half; ++x) {
                const int normal = alpha_at(bitmap, x, y);
                const int disabled = alpha_at(bitmap, half + x, y);
                strongest = std::max(strongest, normal);
                strongest_disabled = std::max(strongest_disabled, disabled);
                EXPECT_NEAR(disabled, normal * 0.4, 1.0) << x << ", " << y;
            }
        }
        EXPECT_EQ(strongest, 255);
        EXPECT_EQ(strongest_disabled, 102);
    }
}

// The colours of an icon's pixels, and its size, from its colour bitmap.
struct IconLook {
    SIZE size{};
    COLORREF band = 0;
};

IconLook look_of(HICON icon, POINT place)
{
    ICONINFO info{};
    EXPECT_TRUE(GetIconInfo(icon, &info));
    const ovlib::GDI::Bitmap color{ info.hbmColor };
    const ovlib::GDI::Bitmap mask{ info.hbmMask };
    BITMAP shape{};
    GetObjectW(color.handle(), sizeof shape, &shape);
    const ovlib::MemDC dc;
    const ovlib::ObjectSelection selected{ dc, color };
    return { { shape.bmWidth, shape.bmHeight }, GetPixel(dc.handle(), place.x, place.y) };
}

constexpr COLORREF band_color = RGB(0x4F, 0x93, 0xEA);

TEST(ProgramIcon, IsInTheProgramInEverySize)
{
    struct Size {
        int side;
        POINT band;
    };
    for (const auto& [side, band] : { Size{ 16, { 3, 12 } }, Size{ 24, { 6, 18 } }, Size{ 32, { 9, 24 } },
             Size{ 48, { 13, 36 } }, Size{ 256, { 70, 200 } } }) {
        SCOPED_TRACE(side);
        const auto icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr),
            MAKEINTRESOURCEW(icon_resource), IMAGE_ICON, side, side, LR_DEFAULTCOLOR));
        ASSERT_NE(icon, nullptr);
        const IconLook look = look_of(icon, band);
        EXPECT_EQ(look.size.cx, side);
        EXPECT_EQ(look.size.cy, side);
        EXPECT_EQ(look.band, band_color);
        DestroyIcon(icon);
    }
}

TEST_F(AppWindow, HasTheProgramsIconInBothSizes)
{
    open({ page(L"a") });
    const auto class_icon = [&](int which) {
        return reinterpret_cast<HICON>(GetClassLongPtrW(window().hwnd(), which));
    };
    const int side = GetSystemMetrics(SM_CXICON);
    const IconLook large = look_of(class_icon(GCLP_HICON), { side * 9 / 32, side * 24 / 32 });
    EXPECT_EQ(large.size.cx, side);
    EXPECT_EQ(large.band, band_color);
    const int small_side = GetSystemMetrics(SM_CXSMICON);
    const IconLook small_look =
        look_of(class_icon(GCLP_HICONSM), { small_side * 3 / 16, small_side * 12 / 16 });
    EXPECT_EQ(small_look.size.cx, small_side);
    EXPECT_EQ(small_look.band, band_color);
}

} // namespace
