#include "media/image_load.hpp"
#include "platform/path_text.hpp"
#include "platform/text.hpp"
#include <algorithm>

namespace media {

namespace {

LoaderState load_from(const std::wstring& path, std::span<const std::wstring> extensions, ImageSource& source)
{
    if (!is_picture_file(path, extensions))
        return source.fetch_thumbnail(path) ? LoaderState::thumbnail : LoaderState::nothing;
    if (is_animation_file(path))
        return source.decode_animation(path) ? LoaderState::animation : LoaderState::nothing;
    return source.decode_picture(path) ? LoaderState::picture : LoaderState::nothing;
}

} // namespace

bool is_picture_file(const std::wstring& path, std::span<const std::wstring> extensions)
{
    const std::wstring_view extension = platform::path_extension(path);
    return std::ranges::any_of(extensions,
        [&](const std::wstring& known) { return platform::same_text_ignoring_case(known, extension); });
}

bool is_animation_file(const std::wstring& path)
{
    return platform::same_text_ignoring_case(platform::path_extension(path), L".gif");
}

LoadedEntry load_entry(const std::wstring& entry, std::span<const std::wstring> extensions,
    ImageSource& source, PathAnswers& paths)
{
    LoadedEntry loaded{ LoaderState::nothing, paths.exists(entry) ? source.absolute(entry) : entry };
    // Checked after exists(), which may have just found that the share does not answer.
    if (!loaded.path.empty() && !paths.is_silent(loaded.path))
        loaded.state = load_from(loaded.path, extensions, source);
    return loaded;
}

FileFacts facts_to_show(
    const LoadedEntry& loaded, const FileFacts& of_loader, PropertySource& source, PathAnswers& paths)
{
    if (loaded.state != LoaderState::nothing)
        return of_loader;
    return loaded.path.empty() ? FileFacts{} : read_file_facts(loaded.path, source, paths);
}

} // namespace media
