// The shell's own picture of a file.
#pragma once
#include "ovlib/gui/gdi_object.hpp"
#include <string>
#include <windows.h>

namespace media {

// Where such pictures come from.
class ThumbnailSource {
public:
    virtual ~ThumbnailSource() = default;
    // At most `side` pixels wide and high; empty when there is none.
    virtual ovlib::GDI::Bitmap picture_of(const std::wstring& path, int side) = 0;
};

// Needs COM.
class ShellThumbnails : public ThumbnailSource {
public:
    ovlib::GDI::Bitmap picture_of(const std::wstring& path, int side) override;
};

// Empty until a picture is taken, and after a failure.
class ShellThumbnail {
public:
    // Of the shell, which needs COM. Does nothing when a picture is held already.
    void load(const std::wstring& path, int side);
    // Refused, with false, for what is no bitmap and while a picture is held. A shell that has no picture may
    // answer with a single pixel: that is refused too.
    bool take(ovlib::GDI::Bitmap picture);
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

// In the place of a picture that the shell answered for but does not have: the largest icon of the file, on
// black as the shell itself leaves it. Empty when there is none.
ovlib::GDI::Bitmap icon_picture(const std::wstring& path);

} // namespace media
