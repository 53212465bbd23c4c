// The shell's own picture of a file.
#pragma once
#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/gui/shicon.hpp"
#include "platform/color.hpp"
#include <memory>
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
    // In the place of a picture that the shell answered for but does not have: the largest icon of the file.
    // False when there is none and while something is held.
    bool take_icon(const std::wstring& path);
    void clear();

    // One of the two; the other is null.
    HBITMAP bitmap() const { return bitmap_.handle(); }
    const ovlib::SHIcon* icon() const { return icon_.get(); }
    int width() const { return width_; }
    int height() const { return height_; }
    explicit operator bool() const { return bitmap_ || icon_; }

private:
    ovlib::GDI::Bitmap bitmap_;
    std::unique_ptr<ovlib::SHIcon> icon_;
    int width_ = 0;
    int height_ = 0;
};

// An icon in its natural size on a ground. Empty when no bitmap can be had.
ovlib::GDI::Bitmap icon_picture(const ovlib::SHIcon& icon, ovlib::Color ground);

} // namespace media
