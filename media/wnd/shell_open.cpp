#include "media/wnd/shell_open.hpp"
#include "media/entry_text.hpp"
#include "platform/file.hpp"
#include <shellapi.h>

namespace media {

namespace {

bool execute(HWND owner, const wchar_t* what, const wchar_t* parameters)
{
    // Documented: results above 32 mean success.
    constexpr INT_PTR last_failure = 32;
    const HINSTANCE told = ShellExecuteW(owner, L"open", what, parameters, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(told) > last_failure;
}

} // namespace

bool open_by_shell(HWND owner, const std::wstring& target)
{
    return execute(owner, target.c_str(), nullptr);
}

bool show_in_folder(HWND owner, const std::wstring& path)
{
    return platform::path_kind(path) == platform::PathKind::regular_file
        && execute(owner, L"explorer.exe", show_in_folder_parameters(path).c_str());
}

} // namespace media
