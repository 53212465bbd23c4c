// Entries of a file list as text: addresses, and what is handed to other programs.
#pragma once
#include <string>
#include <string_view>

namespace media {

// Begins with "https://" or "http://", in lower case.
bool is_url(std::wstring_view entry);

// The UTF-8 bytes; all but ASCII letters, digits, '-', '.', '_' and '~' as "%XX". Half a surrogate pair
// becomes U+FFFD.
std::string percent_encode(std::wstring_view text);

// What makes the system's file manager show the folder of `path` with the file selected.
std::wstring show_in_folder_parameters(const std::wstring& path);

} // namespace media
