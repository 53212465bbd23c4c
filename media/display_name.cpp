#include "media/display_name.hpp"

namespace media {

using platform::PathKind;

std::wstring display_name(const std::wstring& entry, PathAnswers& paths)
{
    const std::size_t separator = entry.find_last_of(L"\\/");
    if (separator == std::wstring::npos || separator + 1 == entry.size())
        return entry;
    const PathKind kind = paths.kind_of(entry);
    return kind == PathKind::regular_file || kind == PathKind::folder ? entry.substr(separator + 1) : entry;
}

std::wstring display_name(const std::wstring& entry)
{
    PathAnswers paths;
    return display_name(entry, paths);
}

} // namespace media
