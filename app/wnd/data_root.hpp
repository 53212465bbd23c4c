// The data root as a place: the current directory may move, for file dialogs move it.
#pragma once
#include <string>
#include <windows.h>

namespace app {

// Notes where the data root lies, while the current directory is still the one the program was started in.
void hold_data_root();

// 0 or the system's error code. An empty path stands for the data root.
DWORD set_current_directory(const std::wstring& path);

// Where the file that a Book's path names lies, whatever the current directory is. Empty for an empty path.
std::wstring book_file(const std::wstring& path);

// `path` made absolute by the system; `path` itself when that fails.
std::wstring full_path(const std::wstring& path);

} // namespace app
