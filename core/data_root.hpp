// The data root as a place: the current directory may move, because file dialogs move it.
#pragma once
#include <cstdint>
#include <string>

namespace core {

// Sets where the data root lies; a relative path counts from the current directory, which is what an empty
// one stands for. To be called while the current directory is still the one the program was started in.
void hold_data_root(const std::wstring& root);

// 0 or the system's error code. An empty path stands for the data root.
std::uint32_t set_current_directory(const std::wstring& path);

// Where the file that a Book's path names lies, whatever the current directory is. Empty for an empty path.
std::wstring path_from_data_root(const std::wstring& path);

// `path` made absolute by the system; `path` itself when that fails.
std::wstring full_path(const std::wstring& path);

} // namespace core
