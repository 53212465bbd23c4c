#include "ovlib/gui/back_buffer.hpp"
#include <algorithm>
#include <cstring>

namespace ovlib {

BITMAPINFO bitmap_info(int width, int height)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = std::max(width, 1);
    info.bmiHeader.biHeight = std::max(height, 1);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

void finish_drawing()
{
    GdiFlush();
}

// Sets the pixels of the first row and copies that row to the others. Rows are stored bottom-up, so row y of
// the image is stored as row height - 1 - y.
void fill_rect(BaseImage& image, Color color, const RECT& rect)
{
    const LONG left = std::max<LONG>(rect.left, 0);
    const LONG top = std::max<LONG>(rect.top, 0);
    const LONG right = std::min<LONG>(rect.right, image.width);
    const LONG bottom = std::min<LONG>(rect.bottom, image.height);
    if (image.bits == nullptr || left >= right || top >= bottom)
        return;
    finish_drawing();
    const auto row = [&](LONG y) {
        return image.bits + static_cast<std::ptrdiff_t>(image.height - 1 - y) * image.stride
            + static_cast<std::ptrdiff_t>(left) * 3;
    };
    const auto length = static_cast<std::size_t>(right - left) * 3;
    std::uint8_t* const first = row(top);
    for (std::size_t at = 0; at < length; at += 3) {
        first[at] = color.blue();
        first[at + 1] = color.green();
        first[at + 2] = color.red();
    }
    for (LONG y = top + 1; y < bottom; ++y)
        std::memcpy(row(y), first, length);
}

bool BackBuffer::create(int wanted_width, int wanted_height)
{
    if (bitmap_ || !dc_)
        return false;
    info_ = bitmap_info(wanted_width, wanted_height);
    void* memory = nullptr;
    bitmap_.renew(CreateDIBSection(dc_.handle(), &info_, DIB_RGB_COLORS, &memory, nullptr, 0));
    if (!bitmap_ || !selected_.emplace(dc_, bitmap_)) {
        release();
        return false;
    }
    bits = static_cast<std::uint8_t*>(memory);
    width = info_.bmiHeader.biWidth;
    height = info_.bmiHeader.biHeight;
    bits_per_pixel = info_.bmiHeader.biBitCount;
    // A row of a DIB is padded to a multiple of 4 bytes: 3 * width, rounded up.
    stride = (width + 1) * 3 / 4 * 4;
    return true;
}

bool BackBuffer::fit(int wanted_width, int wanted_height)
{
    if (is_created() && width == wanted_width && height == wanted_height)
        return true;
    release();
    return create(wanted_width, wanted_height);
}

void BackBuffer::release()
{
    selected_.reset();
    bitmap_.reset();
    info_ = {};
    bits = nullptr;
    bits_per_pixel = stride = width = height = 0;
}

void BackBuffer::copy_to(const DC& target, POINT at) const
{
    if (!bitmap_)
        return;
    finish_drawing();
    SetDIBitsToDevice(target.handle(), at.x, at.y, static_cast<DWORD>(width), static_cast<DWORD>(height), 0,
        0, 0, static_cast<UINT>(height), bits, &info_, DIB_RGB_COLORS);
}

} // namespace ovlib
