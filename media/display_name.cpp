#include "media/display_name.hpp"
#include "platform/path_text.hpp"

namespace media {

using platform::PathKind;

std::wstring display_name(const std::wstring& entry, PathAnswers& paths)
{
    const std::wstring name{ platform::file_name(entry) };
    if (name.empty() || name == entry)
        return entry;
    const PathKind kind = paths.kind_of(entry);
    return kind == PathKind::regular_file || kind == PathKind::folder ? name : entry;
}

std::wstring display_name(const std::wstring& entry)
{
    PathAnswers paths;
    return display_name(entry, paths);
}

} // namespace media
