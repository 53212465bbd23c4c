// Memory images, and the one that every custom-drawn window paints from.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <windows.h>

#include "ovlib/gui/dc.hpp"
#include "platform/color.hpp"

namespace ovlib {

// Rows stand bottom-up; a pixel of 24 bits is blue, green, red.
class BaseImage {
public:
    virtual ~BaseImage() = default;

    std::uint8_t* bits = nullptr;
    int bits_per_pixel = 0;
    int stride = 0; // bytes of a row
    int width = 0;
    int height = 0;
};

// 24 bits, bottom-up, uncompressed; sides below 1 become 1.
BITMAPINFO bitmap_info(int width, int height);

// GDI may hold drawing back in a batch of the thread: to be called before the bits of an image are touched
// directly, and before another thread may draw on it.
void finish_drawing();

// Fills the part of `rect` that lies inside the image, without GDI.
void fill_rect(BaseImage& image, Color color, const RECT& rect);

// Create it for the client size; draw with dc(), or directly into the bits after finish_drawing(); copy it at
// WM_PAINT.
class BackBuffer : public BaseImage {
public:
    // Sides below 1 become 1. False when a bitmap exists already, and on failure, which leaves nothing
    // behind.
    bool create(int wanted_width, int wanted_height);
    // Created anew unless it is of that size already; false when it cannot be had.
    bool fit(int wanted_width, int wanted_height);
    void release();
    // The whole buffer, with its left upper corner there.
    void copy_to(const DC& target, POINT at = {}) const;

    bool is_created() const { return static_cast<bool>(bitmap_); }
    const MemDC& dc() const { return dc_; }
    HBITMAP bitmap() const { return bitmap_.handle(); }
    const BITMAPINFO& info() const { return info_; }

private:
    BITMAPINFO info_{};
    MemDC dc_;
    GDI::Bitmap bitmap_;
    std::optional<ObjectSelection> selected_;
};

} // namespace ovlib
