// Entries of a file list as text: addresses, and parameters for other programs.
#pragma once
#include <string>
#include <string_view>

namespace media {

// Whether the entry begins with "https://" or "http://", in lower case.
bool is_url(std::wstring_view entry);

// The text in UTF-8 with every byte but ASCII letters, digits, '-', '.', '_' and '~' as "%XX". A lone
// surrogate becomes U+FFFD.
std::string percent_encode(std::wstring_view text);

// Command line parameters for Explorer to show the folder of `path` with the file selected.
std::wstring show_in_folder_parameters(const std::wstring& path);

} // namespace media
