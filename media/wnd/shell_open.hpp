// Opens files and folders through the shell. Needs COM on the thread.
#pragma once
#include <windows.h>
#include <string>

namespace media {

// Opens a file, a folder or an address with the user's program for it. A relative path is resolved against
// the current directory.
bool open_by_shell(HWND owner, const std::wstring& target);

// Shows a regular file in its folder with the system's file manager; false for anything else. `path` must be
// a full path.
bool show_in_folder(HWND owner, const std::wstring& path);

} // namespace media
