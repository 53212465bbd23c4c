#include "media/wnd/shell_thumbnail.hpp"
#include <shlobj.h>
#include <shobjidl.h>

namespace media {

namespace {

HBITMAP shell_picture(const std::wstring& path, int side)
{
    IShellItemImageFactory* factory = nullptr;
    if (FAILED(SHCreateItemFromParsingName(path.c_str(), nullptr, IID_PPV_ARGS(&factory))))
        return nullptr;
    HBITMAP picture = nullptr;
    const HRESULT told = factory->GetImage({ side, side }, SIIGBF_RESIZETOFIT, &picture);
    factory->Release();
    return SUCCEEDED(told) ? picture : nullptr;
}

} // namespace

void ShellThumbnail::load(const std::wstring& path, int side)
{
    if (bitmap_)
        return;
    bitmap_.attach(shell_picture(path, side), ovlib::GDI::Ownership::owned);
    BITMAP facts{};
    // A shell that has no picture may answer with a single pixel.
    const bool is_picture = bitmap_ && GetObjectW(bitmap_.handle(), sizeof facts, &facts) != 0
        && (facts.bmWidth > 1 || facts.bmHeight > 1);
    if (!is_picture) {
        clear();
        return;
    }
    width_ = static_cast<int>(facts.bmWidth);
    height_ = static_cast<int>(facts.bmHeight);
}

void ShellThumbnail::clear()
{
    bitmap_.reset();
    width_ = height_ = 0;
}

} // namespace media
