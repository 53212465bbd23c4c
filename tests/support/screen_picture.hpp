// Screenshots.
#pragma once
#include "ovlib/gui/back_buffer.hpp"
#include "ovlib/gui/gdiplus.hpp"
#include <windows.h>
#include <cstdint>
#include <string>
#include <vector>

namespace test_support {

// The pixels of that part of the screen, read by BitBlt.
inline std::vector<std::uint8_t> look_at_screen(const RECT& area, ovlib::BackBuffer& picture)
{
    HDC const screen = GetDC(nullptr);
    BitBlt(picture.dc().handle(), 0, 0, picture.width, picture.height, screen, area.left, area.top, SRCCOPY);
    ReleaseDC(nullptr, screen);
    ovlib::finish_drawing();
    return { picture.bits, picture.bits + static_cast<std::ptrdiff_t>(picture.stride) * picture.height };
}

inline bool save_png(const ovlib::BackBuffer& picture, const std::wstring& path)
{
    constexpr CLSID encoder{ 0x557CF406, 0x1A04, 0x11D3, { 0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E } };
    using namespace Gdiplus::DllExports;
    Gdiplus::GpBitmap* bitmap = nullptr;
    if (GdipCreateBitmapFromHBITMAP(picture.bitmap(), nullptr, &bitmap) != Gdiplus::Ok)
        return false;
    const auto status = GdipSaveImageToFile(bitmap, path.c_str(), &encoder, nullptr);
    GdipDisposeImage(bitmap);
    return status == Gdiplus::Ok;
}

// Waits until `area` of the screen no longer changes, then writes it as a PNG file. Needs GDI+ to be running.
inline bool save_screen(const RECT& area, const std::wstring& path)
{
    constexpr DWORD pause = 150; // milliseconds between two screenshots
    constexpr int most_looks = 40;
    ovlib::BackBuffer picture;
    if (!picture.create(area.right - area.left, area.bottom - area.top))
        return false;
    auto before = look_at_screen(area, picture);
    for (int looks = 1; looks < most_looks; ++looks) {
        Sleep(pause);
        const auto now = look_at_screen(area, picture);
        if (now == before)
            break;
        before = now;
    }
    return save_png(picture, path);
}

} // namespace test_support
