// The shell's icon for a kind of file.
#pragma once
#include <string>
#include <windows.h>

struct IImageList;

namespace ovlib {

// Needs COM. Empty until loaded, and after a failure.
class SHIcon {
public:
    SHIcon() = default;
    SHIcon(const SHIcon&) = delete;
    SHIcon& operator=(const SHIcon&) = delete;
    virtual ~SHIcon();

    // `size` is one of the SHIL_ numbers. The name decides: a file need not exist, a folder must. Does
    // nothing when an icon is loaded already.
    void load(const std::wstring& path, int size);

    HICON icon() const { return icon_; }
    int width() const { return width_; }
    int height() const { return height_; }
    explicit operator bool() const { return icon_ != nullptr; }

private:
    bool take_icon(const std::wstring& path, int size);
    void clear();

    IImageList* list_ = nullptr;
    HICON icon_ = nullptr;
    int width_ = 0;
    int height_ = 0;
};

} // namespace ovlib
