#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/gui/back_buffer.hpp"

namespace ovlib::GDI {

void Object::OwnedOrBorrowed::close(Handle held) noexcept
{
    if (held.ownership == Ownership::owned)
        DeleteObject(held.object);
}

Object::~Object() = default;

bool Object::attach(HGDIOBJ object, Ownership ownership)
{
    if (held_.get().ownership == Ownership::owned) {
        if (object != handle())
            OwnedOrBorrowed::close({ object, ownership });
        return false;
    }
    held_.reset({ object, object != nullptr ? ownership : Ownership::none });
    return true;
}

// If the handle is the same, only its ownership changes: it must not be deleted.
void Object::renew(HGDIOBJ object, Ownership ownership)
{
    if (object == handle())
        held_.release();
    reset();
    attach(object, ownership);
}

void Object::reset()
{
    held_.reset();
}

Font::Font()
{
    attach(GetStockObject(SYSTEM_FONT), Ownership::borrowed);
}

void Bitmap::create(int width, int height)
{
    if (ownership() == Ownership::owned)
        return;
    void* bits = nullptr;
    const BITMAPINFO info = bitmap_info(width, height);
    attach(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0), Ownership::owned);
}

HPEN solid_pen(int width, Color color)
{
    return CreatePen(PS_SOLID, width, color.value);
}

HBRUSH solid_brush(Color color)
{
    return CreateSolidBrush(color.value);
}

HBITMAP load_bitmap(const std::wstring& path)
{
    return static_cast<HBITMAP>(
        LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
}

} // namespace ovlib::GDI
