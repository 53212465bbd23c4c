#include "media/wnd/shell_thumbnail.hpp"
#include "ovlib/gui/dc.hpp"
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
    if (*this || !is_picture)
        return false;
    bitmap_ = std::move(picture);
    width_ = static_cast<int>(facts.bmWidth);
    height_ = static_cast<int>(facts.bmHeight);
    return true;
}

bool ShellThumbnail::take_icon(const std::wstring& path)
{
    auto icon = std::make_unique<ovlib::SHIcon>();
    icon->load(path, SHIL_JUMBO);
    if (*this || !*icon)
        return false;
    width_ = icon->width();
    height_ = icon->height();
    icon_ = std::move(icon);
    return true;
}

void ShellThumbnail::clear()
{
    bitmap_.reset();
    icon_.reset();
    width_ = height_ = 0;
}

ovlib::GDI::Bitmap icon_picture(const ovlib::SHIcon& icon, ovlib::Color ground)
{
    ovlib::GDI::Bitmap picture;
    const ovlib::MemDC dc;
    if (!dc)
        return picture;
    picture.create(icon.width(), icon.height());
    if (!picture)
        return picture;
    const ovlib::ObjectSelection selected{ dc, picture };
    const ovlib::GDI::Brush brush{ ovlib::GDI::solid_brush(ground) };
    const RECT all{ 0, 0, icon.width(), icon.height() };
    FillRect(dc.handle(), &all, brush.handle());
    DrawIconEx(dc.handle(), 0, 0, icon.icon(), icon.width(), icon.height(), 0, nullptr, DI_NORMAL);
    return picture;
}

} // namespace media
