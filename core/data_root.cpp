#include "core/data_root.hpp"
#include "platform/file.hpp"
#include "platform/path_text.hpp"

namespace core {

namespace {

std::wstring data_root_place;

} // namespace

void hold_data_root(const std::wstring& root)
{
    data_root_place = root.empty() ? platform::current_directory() : full_path(root);
}

std::uint32_t set_current_directory(const std::wstring& path)
{
    return platform::set_current_directory(path.empty() ? data_root_place : path);
}

std::wstring path_from_data_root(const std::wstring& path)
{
    return platform::resolve_path(data_root_place, path);
}

std::wstring full_path(const std::wstring& path)
{
    const std::wstring full = platform::absolute_path(path);
    return full.empty() ? path : full;
}

} // namespace core
