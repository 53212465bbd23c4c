#include "media/display_name.hpp"
#include "platform/file.hpp"
#include "platform/path_text.hpp"

namespace media {

std::wstring display_name(const std::wstring& entry)
{
    const std::wstring name{ platform::file_name(entry) };
    if (name.empty() || name == entry)
        return entry;
    const platform::PathKind kind = platform::path_kind(entry);
    const bool has_name = kind == platform::PathKind::regular_file || kind == platform::PathKind::folder;
    return has_name ? name : entry;
}

} // namespace media
