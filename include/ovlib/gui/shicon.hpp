// The shell's icon for a type of file.
#pragma once
#include "ovlib/handles.hpp"
#include <windows.h>
#include <string>

namespace ovlib {

// Needs COM. Empty until loaded, and after a failure.
class SHIcon {
public:
    SHIcon() = default;
    virtual ~SHIcon();

    // `size` is one of the SHIL_ numbers. The name decides: a file need not exist, a folder must. Does
    // nothing if an icon is loaded already.
    void load(const std::wstring& path, int size);

    HICON icon() const { return icon_.get(); }
    int width() const { return width_; }
    int height() const { return height_; }
    explicit operator bool() const { return static_cast<bool>(icon_); }

private:
    bool take_icon(const std::wstring& path, int size);
    void clear();

    UniqueIcon icon_;
    int width_ = 0;
    int height_ = 0;
};

} // namespace ovlib
