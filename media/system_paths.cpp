#include "media/system_paths.hpp"
#include "media/entry_text.hpp"
#include "platform/file.hpp"

namespace media {

bool SystemPaths::exists(const std::wstring& path)
{
    return platform::exists(path);
}

std::wstring SystemPaths::absolute(const std::wstring& path)
{
    return platform::absolute_path(path);
}

std::wstring full_entry(const std::wstring& entry)
{
    return is_url(entry) ? entry : platform::absolute_path(entry);
}

} // namespace media
