#include "app/wnd/data_root.hpp"
#include "ovlib/win_app.hpp"
#include "platform/path_text.hpp"

namespace app {

namespace {

std::wstring data_root_place;

std::wstring current_directory()
{
    std::wstring path(GetCurrentDirectoryW(0, nullptr), L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return path;
}

} // namespace

void hold_data_root()
{
    const std::wstring& root = ovlib::WinApp::data_root;
    data_root_place = root.empty() ? current_directory() : full_path(root);
}

DWORD set_current_directory(const std::wstring& path)
{
    const std::wstring& target = path.empty() ? data_root_place : path;
    return SetCurrentDirectoryW(target.c_str()) ? ERROR_SUCCESS : GetLastError();
}

std::wstring book_file(const std::wstring& path)
{
    return platform::resolve_path(data_root_place, path);
}

std::wstring full_path(const std::wstring& path)
{
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    const auto room = static_cast<DWORD>(full.size());
    const DWORD length = GetFullPathNameW(path.c_str(), room, full.data(), nullptr);
    if (length == 0 || length >= room)
        return path;
    full.resize(length);
    return full;
}

} // namespace app
