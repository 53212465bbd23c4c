#include "media/wnd/shell_link.hpp"
#include <shlobj.h>

namespace media {

ShellLink::ShellLink(HWND owner)
    : owner_(owner)
{
    if (SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&link_))))
        link_.As(&file_);
}

std::wstring ShellLink::resolve(const std::wstring& link)
{
    // SLR_NO_UI is missing on purpose: the shell may ask the user. With SLR_NOUPDATE the link file is not
    // changed.
    const bool resolved = is_ready() && SUCCEEDED(file_->Load(link.c_str(), STGM_READ))
        && SUCCEEDED(link_->Resolve(owner_, SLR_NOUPDATE))
        && SUCCEEDED(link_->GetPath(path_.data(), static_cast<int>(path_.size()), nullptr, SLGP_RAWPATH));
    return resolved ? std::wstring{ path_.data() } : std::wstring{};
}

bool ShellLink::save(const std::wstring& target, const std::wstring& link)
{
    return is_ready() && SUCCEEDED(link_->SetPath(target.c_str()))
        && save_whole(
            link, [this](const std::wstring& file) { return SUCCEEDED(file_->Save(file.c_str(), FALSE)); });
}

} // namespace media
