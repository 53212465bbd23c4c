#include "screen_picture.hpp"
#include "ovlib/gui/gdiplus.hpp"
#include <cstring>
#include <vector>

namespace gallery {

namespace {

constexpr CLSID png_encoder{ 0x557CF406, 0x1A04, 0x11D3, { 0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E } };
constexpr DWORD pause = 150; // milliseconds between two looks
constexpr int most_looks = 40;

std::vector<std::uint8_t> look_at(const RECT& area, ovlib::BackBuffer& picture)
{
    HDC const screen = GetDC(nullptr);
    BitBlt(picture.dc().handle(), 0, 0, picture.width, picture.height, screen, area.left, area.top, SRCCOPY);
    ReleaseDC(nullptr, screen);
    ovlib::finish_drawing();
    return { picture.bits, picture.bits + static_cast<std::ptrdiff_t>(picture.stride) * picture.height };
}

} // namespace

bool save_screen(const RECT& area, const std::wstring& path)
{
    ovlib::BackBuffer picture;
    if (!picture.create(area.right - area.left, area.bottom - area.top))
        return false;
    auto before = look_at(area, picture);
    for (int looks = 1; looks < most_looks; ++looks) {
        Sleep(pause);
        const auto now = look_at(area, picture);
        if (now == before)
            break;
        before = now;
    }
    return save_picture(picture, path);
}

bool save_picture(const ovlib::BackBuffer& picture, const std::wstring& path)
{
    Gdiplus::GpBitmap* bitmap = nullptr;
    if (Gdiplus::DllExports::GdipCreateBitmapFromHBITMAP(picture.bitmap(), nullptr, &bitmap) != Gdiplus::Ok)
        return false;
    const auto status = Gdiplus::DllExports::GdipSaveImageToFile(bitmap, path.c_str(), &png_encoder, nullptr);
    Gdiplus::DllExports::GdipDisposeImage(bitmap);
    return status == Gdiplus::Ok;
}

} // namespace gallery
