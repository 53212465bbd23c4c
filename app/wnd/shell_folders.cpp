#include "app/wnd/shell_folders.hpp"
#include "ovlib/handles.hpp"
#include <windows.h>
#include <array>
#include <shlobj.h>

namespace app {

std::wstring desktop_folder()
{
    ovlib::UniqueTaskMemory<PIDLIST_ABSOLUTE> list;
    if (FAILED(SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOPDIRECTORY, list.put())))
        return {};
    std::array<wchar_t, MAX_PATH> path{};
    return SHGetPathFromIDListW(list.get(), path.data()) ? std::wstring{ path.data() } : std::wstring{};
}

} // namespace app
