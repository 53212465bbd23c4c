#include "ovlib/gui/image_list.hpp"
#include "controls/alpha.hpp"
#include "ovlib/gui/gdi_object.hpp"
#include <algorithm>

namespace ovlib {

namespace {

// Copies the bitmap into a new one of 32 bits with accessible pixels; null if its pixels are not accessible.
HBITMAP copy_with_bits(HBITMAP bitmap, std::uint32_t** bits, std::size_t* count)
{
    DIBSECTION facts{};
    if (GetObjectW(bitmap, sizeof facts, &facts) != sizeof facts || facts.dsBm.bmBitsPixel != 32)
        return nullptr;
    BITMAPINFO info{};
    info.bmiHeader = facts.dsBmih;
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    void* pixels = nullptr;
    HBITMAP const copy = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (!copy)
        return nullptr;
    *bits = static_cast<std::uint32_t*>(pixels);
    *count = static_cast<std::size_t>(facts.dsBm.bmWidth) * static_cast<std::size_t>(facts.dsBm.bmHeight);
    GdiFlush();
    std::copy_n(static_cast<const std::uint32_t*>(facts.dsBm.bmBits), *count, *bits);
    return copy;
}

} // namespace

bool ImageList::create(int width, int height, int capacity)
{
    images_.reset(ImageList_Create(width, height, ILC_COLOR32, capacity, 0));
    return static_cast<bool>(images_);
}

int ImageList::add(HBITMAP premultiplied)
{
    std::uint32_t* bits = nullptr;
    std::size_t count = 0;
    const GDI::Bitmap plain{ copy_with_bits(premultiplied, &bits, &count) };
    if (!images_ || !plain)
        return -1;
    for (std::size_t i = 0; i < count; ++i)
        bits[i] = plain_pixel(bits[i]);
    return ImageList_Add(images_.get(), plain.handle(), nullptr);
}

} // namespace ovlib
