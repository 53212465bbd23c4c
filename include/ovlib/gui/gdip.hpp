// Drawing with GDI+. A failure is stored as the last status and otherwise ignored: nothing is drawn then.
#pragma once
#include "ovlib/gui/gdiplus.hpp"
#include "platform/color.hpp"
#include <string>
#include <vector>

namespace ovlib {

// GDI+ for the life of the object. Not ready if it could not be started.
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
// Queries GDI+ again. Without a running GDI+ the list does not change.
void fill_image_extensions();
// Splits a list such as "*.BMP;*.DIB" and appends the items without their asterisks.
void append_extensions(const std::wstring& patterns, std::vector<std::wstring>& extensions);

// Alpha is 255; red and blue are swapped.
Gdiplus::ARGB to_argb(Color color);

// Must be destroyed before GDI draws on the same device context again.
class GDIP {
public:
    explicit GDIP(HDC hdc);
    GDIP(const GDIP&) = delete;
    GDIP& operator=(const GDIP&) = delete;
    virtual ~GDIP();

    Gdiplus::GpGraphics* graphics() const { return graphics_.get(); }
    Gdiplus::GpStatus status() const { return status_; }
    void set_smoothing(Gdiplus::SmoothingMode mode);
    // Radii larger than half the rectangle draw nothing.
    void round_rect(
        const RECT& rect, float radius_x, float radius_y, Color border, float border_width, Color fill);
    // The border is one pixel wide. Its right and bottom lines are just outside `rect`.
    void rectangle(const RECT& rect, Color border, Color fill);
    void set_interpolation(Gdiplus::InterpolationMode mode);
    // Scales the image to `target`; draws nothing if that is empty.
    void draw_image(Gdiplus::GpImage* image, const RECT& target);
    // Scales the part `source` of an image. The rectangle on the target need not be on whole pixels.
    void draw_image(Gdiplus::GpImage* image, const RECT& source, const Gdiplus::RectF& target);
    // Draws the part `source` of an image in its natural size.
    void draw_image(Gdiplus::GpImage* image, POINT at, const RECT& source);

private:
    void fill_and_draw(Gdiplus::GpPath* path, Color border, float border_width, Color fill);

    UniqueGdipGraphics graphics_;
    Gdiplus::GpStatus status_;
};

} // namespace ovlib
