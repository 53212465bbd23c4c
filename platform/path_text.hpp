// Paths as text. Nothing here asks the file system.
#pragma once
#include <string>
#include <string_view>

namespace platform {

// Both separators count on every system.
constexpr bool is_separator(wchar_t unit)
{
    return unit == L'\\' || unit == L'/';
}

// The text before the last separator and the run of separators that ends there. A root is never cut into.
std::wstring parent_path(std::wstring_view path);
// The text behind the last separator.
std::wstring_view file_name(std::wstring_view path);
// The file name without its last extension. A leading point begins no extension.
std::wstring_view path_stem(std::wstring_view path);
// What the stem leaves of the file name, with its point.
std::wstring_view path_extension(std::wstring_view path);

// The drive or share that a path lies on, without what follows: "C:", "\\server\share". Empty for a relative
// path.
std::wstring_view volume_of(std::wstring_view path);

// `path` as it is meant: a relative one counts from `root`, whatever the current directory is. An empty one
// stays empty.
std::wstring resolve_path(std::wstring_view root, const std::wstring& path);

} // namespace platform
