#include "app/wnd/shell_folders.hpp"
#include <array>
#include <memory>
#include <objbase.h>
#include <shlobj.h>
#include <windows.h>

namespace app {

std::wstring desktop_folder()
{
    PIDLIST_ABSOLUTE list = nullptr;
    if (FAILED(SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOPDIRECTORY, &list)))
        return {};
    const std::unique_ptr<ITEMIDLIST, decltype(&CoTaskMemFree)> owner{ list, &CoTaskMemFree };
    std::array<wchar_t, MAX_PATH> path{};
    return SHGetPathFromIDListW(list, path.data()) ? std::wstring{ path.data() } : std::wstring{};
}

} // namespace app
