#include "media/display_name.hpp"
#include "platform/path_text.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <utility>

namespace media {

using platform::PathKind;

DisplayNames::DisplayNames(AskPath ask)
    : ask_(std::move(ask))
{
}

std::wstring DisplayNames::of(const std::wstring& entry)
{
    const std::wstring name{ platform::file_name(entry) };
    if (name.empty() || name == entry)
        return entry;
    const PathKind kind = kind_of(entry);
    return kind == PathKind::regular_file || kind == PathKind::folder ? name : entry;
}

PathKind DisplayNames::kind_of(const std::wstring& entry)
{
    const std::wstring_view volume = platform::volume_of(entry);
    const auto is_this = [volume](const std::wstring& silent) {
        return platform::same_text_ignoring_case(silent, volume);
    };
    if (std::ranges::any_of(silent_volumes_, is_this))
        return PathKind::nothing;
    const platform::PathAnswer answer = ask_(entry);
    if (answer.is_unreachable && !volume.empty())
        silent_volumes_.emplace_back(volume);
    return answer.kind;
}

std::wstring display_name(const std::wstring& entry)
{
    return DisplayNames{}.of(entry);
}

} // namespace media
