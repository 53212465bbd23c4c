// The shell's own picture of a file.
#pragma once
#include "ovlib/gui/gdi_object.hpp"
#include <string>
#include <windows.h>

namespace media {

// Needs COM. Empty until loaded, and after a failure.
class ShellThumbnail {
public:
    // At most `side` pixels wide and high. Does nothing when a picture is loaded already.
    void load(const std::wstring& path, int side);
    void clear();

    HBITMAP bitmap() const { return bitmap_.handle(); }
    int width() const { return width_; }
    int height() const { return height_; }
    explicit operator bool() const { return static_cast<bool>(bitmap_); }

private:
    ovlib::GDI::Bitmap bitmap_;
    int width_ = 0;
    int height_ = 0;
};

} // namespace media
