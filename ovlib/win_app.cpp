#include "ovlib/win_app.hpp"

#include <shellapi.h>

namespace ovlib::WinApp {

namespace {

bool is_separator(wchar_t unit)
{
    return unit == L'\\' || unit == L'/';
}

// The length of `C:` or `\\server`, without the separators that follow.
std::size_t root_name_length(std::wstring_view path)
{
    if (path.size() >= 2 && path[1] == L':')
        return 2;
    if (path.size() < 3 || !is_separator(path[0]) || !is_separator(path[1]) || is_separator(path[2]))
        return 0;
    std::size_t end = 2;
    while (end < path.size() && !is_separator(path[end]))
        ++end;
    return end;
}

} // namespace

std::wstring parent_path(std::wstring_view path)
{
    std::size_t root = root_name_length(path);
    while (root < path.size() && is_separator(path[root]))
        ++root;
    std::size_t end = path.size();
    while (end > root && !is_separator(path[end - 1]))
        --end;
    while (end > root && is_separator(path[end - 1]))
        --end;
    return std::wstring(path.substr(0, end));
}

void initialize(HINSTANCE module, int show)
{
    instance = module;
    show_command = show;
    int count = 0;
    wchar_t** const vector = CommandLineToArgvW(GetCommandLineW(), &count);
    if (vector == nullptr)
        return;
    arguments.assign(vector, vector + count);
    LocalFree(vector);
    if (arguments.empty())
        return;
    program_path = arguments.front();
    data_root = parent_path(program_path);
}

} // namespace ovlib::WinApp
