// The shell's thumbnail of a file.
#pragma once
#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/gui/shicon.hpp"
#include "platform/color.hpp"
#include <windows.h>
#include <memory>
#include <string>

namespace media {

// A source of such thumbnails.
class ThumbnailSource {
public:
    virtual ~ThumbnailSource() = default;
    // At most `side` pixels wide and high; empty if there is none.
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
    // Takes the shell's picture, which needs COM. Does nothing if a picture is held already.
    void load(const std::wstring& path, int side);
    // False if `picture` is not a bitmap or a picture is held already. A shell without a picture may return a
    // single pixel, which is refused too.
    bool take(ovlib::GDI::Bitmap picture);
    // For a file whose picture the shell could not provide: takes the file's largest icon. False if there is
    // none or a picture is held already.
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

// An icon in its natural size on a background colour. Empty if no bitmap can be created.
ovlib::GDI::Bitmap icon_picture(const ovlib::SHIcon& icon, ovlib::Color ground);

} // namespace media
