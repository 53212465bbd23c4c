// Facts about the start of the process. Set once at the entry point, read everywhere.
#pragma once
#include <windows.h>
#include <string>
#include <string_view>
#include <vector>

namespace ovlib::WinApp {

inline HINSTANCE instance = nullptr;
// The argument of the first ShowWindow.
inline int show_command = SW_SHOWNORMAL;
inline std::vector<std::wstring> arguments;
inline std::wstring program_path;
// The folder of the program in the first argument; relative if that is relative.
inline std::wstring data_root;

// Called by the entry point. If the command line cannot be parsed, only the first two values are set.
void initialize(HINSTANCE module, int show);

// The path before its last separators. A root such as `C:\` is kept complete, and a bare name has no parent.
std::wstring parent_path(std::wstring_view path);

// Whether the system is Wine, which draws some things differently from Windows.
inline bool is_wine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace ovlib::WinApp
