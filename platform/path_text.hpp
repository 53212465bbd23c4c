// Operations on paths as text. None of them queries the file system.
#pragma once
#include <string>
#include <string_view>

namespace platform {

// Both separators are recognised on every system.
constexpr bool is_separator(wchar_t unit)
{
    return unit == L'\\' || unit == L'/';
}

// The text before the last separators. A root is kept complete.
std::wstring parent_path(std::wstring_view path);
// The text after the last separator.
std::wstring_view file_name(std::wstring_view path);
// The file name without its last extension. A leading dot does not start an extension.
std::wstring_view path_stem(std::wstring_view path);
// The rest of the file name after the stem, including the dot.
std::wstring_view path_extension(std::wstring_view path);

// The drive or share at the beginning of a path: "C:", "\\server\share". Empty for a relative path.
std::wstring_view volume_of(std::wstring_view path);

// A relative path is resolved against `root`, independently of the current directory. An empty path stays
// empty.
std::wstring resolve_path(std::wstring_view root, const std::wstring& path);

} // namespace platform
