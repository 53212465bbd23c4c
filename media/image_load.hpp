// Loads an entry of a file list: decides which decoder or shell query shows it.
#pragma once
#include "media/file_facts.hpp"
#include <cstdint>
#include <span>
#include <string>

namespace media {

enum class LoaderState : std::int32_t { nothing = 0, animation = 1, picture = 2, thumbnail = 3 };

// Whether the path has one of `extensions`, those that the decoders name, such as ".JPG".
bool is_picture_file(const std::wstring& path, std::span<const std::wstring> extensions);
bool is_animation_file(const std::wstring& path);

// The operations of a load. Each stores its result in the loader and returns whether it succeeded.
class ImageSource {
public:
    virtual ~ImageSource() = default;
    virtual std::wstring absolute(const std::wstring& path) = 0;
    virtual bool decode_animation(const std::wstring& path) = 0;
    virtual bool decode_picture(const std::wstring& path) = 0;
    virtual bool fetch_thumbnail(const std::wstring& path) = 0;
};

struct LoadedEntry {
    LoaderState state = LoaderState::nothing;
    std::wstring path; // absolute if it exists, otherwise the entry as written

    friend bool operator==(const LoadedEntry&, const LoadedEntry&) = default;
};

inline constexpr wchar_t failed_load_line[] = L"ImageLoader::load: failed loading\r\n";

// Loads an entry. The shell's thumbnail is not tried for a file that has a decoder's extension but does not
// decode, and nothing is tried for a file on a share that does not answer.
LoadedEntry load_entry(const std::wstring& entry, std::span<const std::wstring> extensions,
    ImageSource& source, PathAnswers& paths);

// The facts to show beside the pane: those of the loader, or after a failed load those of the entry itself,
// which are mostly "unknown" or "URL".
FileFacts facts_to_show(
    const LoadedEntry& loaded, const FileFacts& of_loader, PropertySource& source, PathAnswers& paths);

} // namespace media
