#include "media/path_answers.hpp"
#include "platform/path_text.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <utility>

namespace media {

PathAnswers::PathAnswers(AskPath ask)
    : ask_(std::move(ask))
{
}

platform::PathKind PathAnswers::kind_of(const std::wstring& path)
{
    if (is_silent(path))
        return platform::PathKind::nothing;
    const platform::PathAnswer answer = ask_(path);
    const std::wstring_view volume = platform::volume_of(path);
    if (answer.is_unreachable && !volume.empty())
        silent_volumes_.emplace_back(volume);
    return answer.kind;
}

bool PathAnswers::is_silent(const std::wstring& path) const
{
    const std::wstring_view volume = platform::volume_of(path);
    return std::ranges::any_of(silent_volumes_,
        [volume](const std::wstring& silent) { return platform::same_text_ignoring_case(silent, volume); });
}

} // namespace media
