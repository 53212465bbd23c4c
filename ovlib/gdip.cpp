#include "ovlib/gui/gdip.hpp"
#include <cstddef>

namespace ovlib {

using namespace Gdiplus::DllExports;

std::vector<std::wstring> image_extensions;

namespace {

constexpr float quarter = 90.0f;

// A closed figure of four arcs. Its right and bottom edges are one pixel inside the rectangle.
Gdiplus::GpStatus add_corners(Gdiplus::GpPath* path, const RECT& rect, float dx, float dy)
{
    const auto left = static_cast<float>(rect.left);
    const auto top = static_cast<float>(rect.top);
    const float right = static_cast<float>(rect.right) - 1.0f - dx;
    const float bottom = static_cast<float>(rect.bottom) - 1.0f - dy;
    const struct {
        float x, y, start;
    } arcs[] = { { left, top, 180.0f }, { right, top, 270.0f }, { right, bottom, 0.0f },
        { left, bottom, 90.0f } };
    for (const auto& arc : arcs) {
        const Gdiplus::GpStatus status = GdipAddPathArc(path, arc.x, arc.y, dx, dy, arc.start, quarter);
        if (status != Gdiplus::Ok)
            return status;
    }
    return GdipClosePathFigure(path);
}

} // namespace

int GDIPSession::running_ = 0;

GDIPSession::GDIPSession()
{
    Gdiplus::GdiplusStartupInput input;
    status_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr);
    running_ += is_ready() ? 1 : 0;
}

GDIPSession::~GDIPSession()
{
    running_ -= is_ready() ? 1 : 0;
    Gdiplus::GdiplusShutdown(token_);
}

void append_extensions(const std::wstring& patterns, std::vector<std::wstring>& extensions)
{
    for (std::size_t start = 0; start < patterns.size();) {
        const std::size_t end = std::min(patterns.find(L';', start), patterns.size());
        if (end > start)
            extensions.push_back(patterns.substr(start + 1, end - start - 1));
        start = end + 1;
    }
}

void fill_image_extensions()
{
    UINT count = 0;
    UINT size = 0;
    if (!GDIPSession::is_running() || GdipGetImageDecodersSize(&count, &size) != Gdiplus::Ok || size == 0)
        return;
    // One block for the records and the strings to which they point, aligned for any type.
    std::vector<std::max_align_t> memory(size / sizeof(std::max_align_t) + 1);
    auto* const decoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(memory.data());
    if (GdipGetImageDecoders(count, size, decoders) != Gdiplus::Ok)
        return;
    image_extensions.clear();
    for (UINT i = 0; i < count; ++i) {
        if (decoders[i].FilenameExtension != nullptr)
            append_extensions(decoders[i].FilenameExtension, image_extensions);
    }
}

Gdiplus::ARGB to_argb(Color color)
{
    return 0xFF000000u | static_cast<Gdiplus::ARGB>(color.red()) << 16
        | static_cast<Gdiplus::ARGB>(color.green()) << 8 | color.blue();
}

GDIP::GDIP(HDC hdc)
    : status_(GdipCreateFromHDC(hdc, graphics_.put()))
{
}

GDIP::~GDIP() = default;

void GDIP::set_smoothing(Gdiplus::SmoothingMode mode)
{
    status_ = GdipSetSmoothingMode(graphics_.get(), mode);
}

void GDIP::round_rect(
    const RECT& rect, float radius_x, float radius_y, Color border, float border_width, Color fill)
{
    const float dx = 2 * radius_x;
    const float dy = 2 * radius_y;
    if (dx > static_cast<float>(rect.right - rect.left) || dy > static_cast<float>(rect.bottom - rect.top))
        return;
    UniqueGdipPath path;
    status_ = GdipCreatePath(Gdiplus::FillModeAlternate, path.put());
    if (status_ != Gdiplus::Ok)
        return;
    status_ = add_corners(path.get(), rect, dx, dy);
    if (status_ == Gdiplus::Ok)
        fill_and_draw(path.get(), border, border_width, fill);
}

void GDIP::rectangle(const RECT& rect, Color border, Color fill)
{
    const INT width = rect.right - rect.left;
    const INT height = rect.bottom - rect.top;
    UniqueGdipSolidFill brush;
    status_ = GdipCreateSolidFill(to_argb(fill), brush.put());
    if (status_ == Gdiplus::Ok)
        status_ = GdipFillRectangleI(graphics_.get(), brush.get(), rect.left, rect.top, width, height);
    UniqueGdipPen pen;
    if (status_ == Gdiplus::Ok)
        status_ = GdipCreatePen1(to_argb(border), 1.0f, Gdiplus::UnitWorld, pen.put());
    if (status_ == Gdiplus::Ok)
        status_ = GdipDrawRectangleI(graphics_.get(), pen.get(), rect.left, rect.top, width, height);
}

void GDIP::set_interpolation(Gdiplus::InterpolationMode mode)
{
    status_ = GdipSetInterpolationMode(graphics_.get(), mode);
}

void GDIP::draw_image(Gdiplus::GpImage* image, const RECT& target)
{
    const INT width = target.right - target.left;
    const INT height = target.bottom - target.top;
    if (width > 0 && height > 0)
        status_ = GdipDrawImageRectI(graphics_.get(), image, target.left, target.top, width, height);
}

void GDIP::draw_image(Gdiplus::GpImage* image, const RECT& source, const Gdiplus::RectF& target)
{
    status_ = GdipDrawImageRectRect(graphics_.get(), image, target.X, target.Y, target.Width, target.Height,
        static_cast<float>(source.left), static_cast<float>(source.top),
        static_cast<float>(source.right - source.left), static_cast<float>(source.bottom - source.top),
        Gdiplus::UnitPixel, nullptr, nullptr, nullptr);
}

void GDIP::draw_image(Gdiplus::GpImage* image, POINT at, const RECT& source)
{
    const INT width = source.right - source.left;
    const INT height = source.bottom - source.top;
    status_ = GdipDrawImageRectRectI(graphics_.get(), image, at.x, at.y, width, height, source.left,
        source.top, width, height, Gdiplus::UnitPixel, nullptr, nullptr, nullptr);
}

void GDIP::fill_and_draw(Gdiplus::GpPath* path, Color border, float border_width, Color fill)
{
    UniqueGdipSolidFill brush;
    status_ = GdipCreateSolidFill(to_argb(fill), brush.put());
    if (status_ == Gdiplus::Ok)
        status_ = GdipFillPath(graphics_.get(), brush.get(), path);
    UniqueGdipPen pen;
    if (status_ == Gdiplus::Ok)
        status_ = GdipCreatePen1(to_argb(border), border_width, Gdiplus::UnitWorld, pen.put());
    if (status_ == Gdiplus::Ok)
        status_ = GdipDrawPath(graphics_.get(), pen.get(), path);
}

} // namespace ovlib
