#include "ovlib/gui/shicon.hpp"

#include <commctrl.h>
#include <commoncontrols.h>
#include <shellapi.h>
#include <utility>

namespace ovlib {

namespace {

DWORD kind_of(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool is_folder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return is_folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
}

} // namespace

SHIcon::~SHIcon()
{
    clear();
}

void SHIcon::load(const std::wstring& path, int size)
{
    if (icon_ == nullptr && !take_icon(path, size))
        clear();
}

bool SHIcon::take_icon(const std::wstring& path, int size)
{
    SHFILEINFOW info{};
    constexpr UINT what = SHGFI_SYSICONINDEX | SHGFI_USEFILEATTRIBUTES | SHGFI_SHELLICONSIZE;
    if (SHGetFileInfoW(path.c_str(), kind_of(path), &info, sizeof info, what) == 0)
        return false;
    if (FAILED(SHGetImageList(size, IID_PPV_ARGS(&list_))) || list_ == nullptr)
        return false;
    return SUCCEEDED(list_->GetIcon(info.iIcon, ILD_TRANSPARENT, &icon_)) && icon_ != nullptr
        && SUCCEEDED(list_->GetIconSize(&width_, &height_));
}

void SHIcon::clear()
{
    if (icon_ != nullptr)
        DestroyIcon(std::exchange(icon_, nullptr));
    if (list_ != nullptr)
        std::exchange(list_, nullptr)->Release();
    width_ = height_ = 0;
}

} // namespace ovlib
