// Images in memory, and the buffer from which every custom-drawn window paints.
#pragma once
#include "ovlib/gui/dc.hpp"
#include "platform/color.hpp"
#include <windows.h>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace ovlib {

// Rows are stored bottom-up; a pixel has 24 bits: blue, green, red.
class BaseImage {
public:
    virtual ~BaseImage() = default;

    std::uint8_t* bits = nullptr;
    int bits_per_pixel = 0;
    int stride = 0; // bytes per row
    int width = 0;
    int height = 0;
};

// 24 bits, bottom-up, uncompressed. Sides below 1 become 1.
BITMAPINFO bitmap_info(int width, int height);

// GDI may keep drawing calls in a batch of the thread. To be called before the bits of an image are accessed
// directly, and before another thread may draw on it.
void finish_drawing();

// Fills the part of `rect` inside the image, without GDI.
void fill_rect(BaseImage& image, Color color, const RECT& rect);

// Create it with the client size; draw with dc(), or directly into the bits after finish_drawing(); copy it
// at WM_PAINT.
class BackBuffer : public BaseImage {
public:
    // Sides below 1 become 1. False if a bitmap exists already, and on failure, which leaves no bitmap.
    bool create(int wanted_width, int wanted_height);
    // Creates the bitmap again unless it has that size already; false on failure.
    bool fit(int wanted_width, int wanted_height);
    void release();
    // Copies the whole buffer, with its upper left corner to `at`.
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
