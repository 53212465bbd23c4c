#include "ovlib/gui/shicon.hpp"
#include <commctrl.h>
#include <commoncontrols.h>
#include <shellapi.h>
#include <wrl/client.h>

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

SHIcon::~SHIcon() = default;

void SHIcon::load(const std::wstring& path, int size)
{
    if (!icon_ && !take_icon(path, size))
        clear();
}

bool SHIcon::take_icon(const std::wstring& path, int size)
{
    SHFILEINFOW info{};
    constexpr UINT what = SHGFI_SYSICONINDEX | SHGFI_USEFILEATTRIBUTES | SHGFI_SHELLICONSIZE;
    if (SHGetFileInfoW(path.c_str(), kind_of(path), &info, sizeof info, what) == 0)
        return false;
    Microsoft::WRL::ComPtr<IImageList> list;
    if (FAILED(SHGetImageList(size, IID_PPV_ARGS(&list))) || !list)
        return false;
    return SUCCEEDED(list->GetIcon(info.iIcon, ILD_TRANSPARENT, icon_.put())) && icon_
        && SUCCEEDED(list->GetIconSize(&width_, &height_));
}

void SHIcon::clear()
{
    icon_.reset();
    width_ = height_ = 0;
}

} // namespace ovlib
