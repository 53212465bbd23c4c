#include "ovlib/gui/gdi_object.hpp"

#include "ovlib/gui/back_buffer.hpp"

namespace ovlib::GDI {

Object::Object(Object&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr))
    , ownership_(std::exchange(other.ownership_, Ownership::none))
{
}

Object& Object::operator=(Object&& other) noexcept
{
    if (this != &other) {
        reset();
        handle_ = std::exchange(other.handle_, nullptr);
        ownership_ = std::exchange(other.ownership_, Ownership::none);
    }
    return *this;
}

Object::~Object()
{
    reset();
}

bool Object::attach(HGDIOBJ handle, Ownership ownership)
{
    if (ownership_ == Ownership::owned) {
        if (ownership == Ownership::owned && handle != nullptr && handle != handle_)
            DeleteObject(handle);
        return false;
    }
    handle_ = handle;
    ownership_ = handle != nullptr ? ownership : Ownership::none;
    return true;
}

void Object::renew(HGDIOBJ handle, Ownership ownership)
{
    if (handle != handle_)
        reset();
    ownership_ = Ownership::none;
    attach(handle, ownership);
}

void Object::reset()
{
    if (ownership_ == Ownership::owned)
        DeleteObject(handle_);
    handle_ = nullptr;
    ownership_ = Ownership::none;
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
