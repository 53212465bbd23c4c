// Drawing with GDI+. Failures are kept as the last status and otherwise ignored: drawing simply does not
// happen.
#pragma once
#include <string>
#include <vector>

#include "ovlib/gui/gdiplus.hpp"
#include "platform/color.hpp"

namespace ovlib {

// GDI+ for the life of the object. Not ready when it could not be started.
class GDIPSession {
public:
    GDIPSession();
    GDIPSession(const GDIPSession&) = delete;
    GDIPSession& operator=(const GDIPSession&) = delete;
    ~GDIPSession();
    bool is_ready() const { return status_ == Gdiplus::Ok; }
    // True while some session is ready.
    static bool is_running() { return running_ != 0; }

private:
    ULONG_PTR token_ = 0;
    Gdiplus::GpStatus status_;
    static int running_;
};

// Extensions of the pictures that GDI+ can read, such as ".BMP". Empty until filled.
extern std::vector<std::wstring> image_extensions;
// Asks GDI+ anew; without a running GDI+ the list stays as it is.
void fill_image_extensions();
// "*.BMP;*.DIB" without the asterisks, appended item by item.
void append_extensions(const std::wstring& patterns, std::vector<std::wstring>& extensions);

// Alpha 255, red and blue exchanged.
Gdiplus::ARGB to_argb(Color color);

// Let it end before GDI goes on drawing on the same device context.
class GDIP {
public:
    explicit GDIP(HDC hdc);
    GDIP(const GDIP&) = delete;
    GDIP& operator=(const GDIP&) = delete;
    virtual ~GDIP();

    Gdiplus::GpGraphics* graphics() const { return graphics_.get(); }
    Gdiplus::GpStatus status() const { return status_; }
    void set_smoothing(Gdiplus::SmoothingMode mode);
    // Radii wider than half the rectangle draw nothing.
    void round_rect(
        const RECT& rect, float radius_x, float radius_y, Color border, float border_width, Color fill);
    // The border is one pixel wide and lies on the right and bottom edges too: outside `rect`.
    void rectangle(const RECT& rect, Color border, Color fill);
    void set_interpolation(Gdiplus::InterpolationMode mode);
    // Scaled to `target`; where that is empty nothing is drawn.
    void draw_image(Gdiplus::GpImage* image, const RECT& target);
    // The part `source` of a picture in its natural size.
    void draw_image(Gdiplus::GpImage* image, POINT at, const RECT& source);

private:
    void fill_and_draw(Gdiplus::GpPath* path, Color border, float border_width, Color fill);

    UniqueGdipGraphics graphics_;
    Gdiplus::GpStatus status_;
};

} // namespace ovlib
