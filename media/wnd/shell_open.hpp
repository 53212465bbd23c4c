// What is handed over to the shell. Needs COM on the thread.
#pragma once
#include <string>
#include <windows.h>

namespace media {

// Has the user's program for it open a file, a folder or an address. A relative path counts from the current
// directory.
bool open_by_shell(HWND owner, const std::wstring& target);

// Has the system's file manager show a regular file in its folder; false for anything else. `path` is a full
// one.
bool show_in_folder(HWND owner, const std::wstring& path);

} // namespace media
