#include "platform/path_text.hpp"
#include "platform/text.hpp"

namespace platform {

namespace {

std::size_t skip_separators(std::wstring_view path, std::size_t from)
{
    while (from < path.size() && is_separator(path[from]))
        ++from;
    return from;
}

bool starts_with_drive(std::wstring_view path)
{
    if (path.size() < 2 || path[1] != L':')
        return false;
    const wchar_t letter = path[0];
    return (letter >= L'A' && letter <= L'Z') || (letter >= L'a' && letter <= L'z');
}

bool starts_with_server(std::wstring_view path)
{
    return path.size() > 2 && is_separator(path[0]) && is_separator(path[1]) && !is_separator(path[2]);
}

// The end of the name that begins at `from`.
std::size_t name_end(std::wstring_view path, std::size_t from)
{
    while (from < path.size() && !is_separator(path[from]))
        ++from;
    return from;
}

bool is_device_name(std::wstring_view server)
{
    return server == L"?" || server == L".";
}

// Length of "C:\", "C:", "\", "\\server\", "\\?\C:\" or nothing, with its whole run of separators.
std::size_t root_length(std::wstring_view path)
{
    if (starts_with_drive(path))
        return skip_separators(path, 2);
    if (!starts_with_server(path))
        return skip_separators(path, 0);
    std::size_t end = name_end(path, 2);
    const bool is_device = is_device_name(path.substr(2, end - 2));
    end = skip_separators(path, end);
    return is_device && starts_with_drive(path.substr(end)) ? end + root_length(path.substr(end)) : end;
}

std::wstring joined(std::wstring_view folder, std::wstring_view name)
{
    std::wstring path{ folder };
    if (!path.empty() && !is_separator(path.back()))
        path += L'\\';
    return path.append(name);
}

bool same_drive(std::wstring_view left, std::wstring_view right)
{
    return starts_with_drive(left) && starts_with_drive(right) && to_lower(left[0]) == to_lower(right[0]);
}

} // namespace

std::wstring parent_path(std::wstring_view path)
{
    const std::size_t root = root_length(path);
    std::size_t end = path.size();
    while (end > root && !is_separator(path[end - 1]))
        --end;
    while (end > root && is_separator(path[end - 1]))
        --end;
    return std::wstring{ path.substr(0, end) };
}

std::wstring_view file_name(std::wstring_view path)
{
    const std::size_t root = root_length(path);
    std::size_t start = path.size();
    while (start > root && !is_separator(path[start - 1]))
        --start;
    return path.substr(start);
}

std::wstring_view path_stem(std::wstring_view path)
{
    const std::wstring_view name = file_name(path);
    const std::size_t point = name.rfind(L'.');
    if (point == std::wstring_view::npos || point == 0 || name == L"..")
        return name;
    return name.substr(0, point);
}

std::wstring_view path_extension(std::wstring_view path)
{
    return file_name(path).substr(path_stem(path).size());
}

std::wstring_view volume_of(std::wstring_view path)
{
    if (starts_with_drive(path))
        return path.substr(0, 2);
    if (!starts_with_server(path))
        return {};
    std::size_t start = 2;
    std::size_t end = name_end(path, start);
    if (is_device_name(path.substr(start, end - start))) {
        start = skip_separators(path, end);
        end = name_end(path, start);
        if (!same_text_ignoring_case(path.substr(start, end - start), L"UNC"))
            return path.substr(0, end);
        end = name_end(path, skip_separators(path, end)); // the server
    }
    return path.substr(0, name_end(path, skip_separators(path, end)));
}

std::wstring resolve_path(std::wstring_view root, const std::wstring& path)
{
    if (path.empty() || root.empty() || starts_with_server(path))
        return path;
    if (starts_with_drive(path)) {
        const bool full = path.size() > 2 && is_separator(path[2]);
        return full || !same_drive(path, root) ? path : joined(root, std::wstring_view{ path }.substr(2));
    }
    if (is_separator(path[0]))
        return starts_with_drive(root) ? std::wstring{ root.substr(0, 2) } + path : path;
    return joined(root, path);
}

} // namespace platform
