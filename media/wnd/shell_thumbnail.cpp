#include "media/wnd/shell_thumbnail.hpp"
#include "ovlib/gui/dc.hpp"
#include "ovlib/gui/shicon.hpp"
#include <shlobj.h>
#include <shobjidl.h>
#include <utility>
#include <wrl/client.h>

namespace media {

ovlib::GDI::Bitmap ShellThumbnails::picture_of(const std::wstring& path, int side)
{
    Microsoft::WRL::ComPtr<IShellItemImageFactory> factory;
    if (FAILED(SHCreateItemFromParsingName(path.c_str(), nullptr, IID_PPV_ARGS(&factory))))
        return {};
    HBITMAP picture = nullptr;
    const HRESULT told = factory->GetImage({ side, side }, SIIGBF_RESIZETOFIT, &picture);
    return SUCCEEDED(told) ? ovlib::GDI::Bitmap{ picture } : ovlib::GDI::Bitmap{};
}

void ShellThumbnail::load(const std::wstring& path, int side)
{
    if (!bitmap_)
        take(ShellThumbnails{}.picture_of(path, side));
}

bool ShellThumbnail::take(ovlib::GDI::Bitmap picture)
{
    BITMAP facts{};
    const bool is_picture = picture && GetObjectW(picture.handle(), sizeof facts, &facts) != 0
        && (facts.bmWidth > 1 || facts.bmHeight > 1);
    if (bitmap_ || !is_picture)
        return false;
    bitmap_ = std::move(picture);
    width_ = static_cast<int>(facts.bmWidth);
    height_ = static_cast<int>(facts.bmHeight);
    return true;
}

void ShellThumbnail::clear()
{
    bitmap_.reset();
    width_ = height_ = 0;
}

ovlib::GDI::Bitmap icon_picture(const std::wstring& path)
{
    ovlib::SHIcon icon;
    icon.load(path, SHIL_JUMBO);
    ovlib::GDI::Bitmap picture;
    const ovlib::MemDC dc;
    if (!icon || !dc)
        return picture;
    picture.create(icon.width(), icon.height());
    if (!picture)
        return picture;
    const ovlib::ObjectSelection selected{ dc, picture };
    DrawIconEx(dc.handle(), 0, 0, icon.icon(), icon.width(), icon.height(), 0, nullptr, DI_NORMAL);
    return picture;
}

} // namespace media
