// Keeps the data root as an absolute path, because file dialogs change the current directory.
#pragma once
#include <cstdint>
#include <string>

namespace core {

// Sets the data root. A relative path counts from the current directory, and an empty one means that
// directory. Must be called before anything changes the current directory that the program was started in.
void hold_data_root(const std::wstring& root);

// Returns 0 or the system's error code. An empty path means the data root.
std::uint32_t set_current_directory(const std::wstring& path);

// Resolves the path of a Book's file against the data root. Empty for an empty path.
std::wstring path_from_data_root(const std::wstring& path);

// `path` made absolute by the system; `path` itself if that fails.
std::wstring full_path(const std::wstring& path);

} // namespace core
