// What the process was started with. Set once at the entry, read everywhere.
#pragma once
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

namespace ovlib::WinApp {

inline HINSTANCE instance = nullptr;
// For the first ShowWindow.
inline int show_command = SW_SHOWNORMAL;
inline std::vector<std::wstring> arguments;
inline std::wstring program_path;
// The program's folder as the first argument names it: relative when that is relative.
inline std::wstring data_root;

// The entry's initialisation. Without an argument vector everything but the first two stays as it was.
void initialize(HINSTANCE module, int show);

// The path before its last separators; a root such as `C:\` is never cut into, and a bare name has no parent.
std::wstring parent_path(std::wstring_view path);

// Whether the system is Wine, which draws some things otherwise than Windows.
inline bool is_wine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace ovlib::WinApp
