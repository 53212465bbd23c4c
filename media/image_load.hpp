// How an entry of a file list becomes something to show.
#pragma once
#include "media/file_facts.hpp"
#include <cstdint>
#include <span>
#include <string>

namespace media {

enum class LoaderState : std::int32_t { nothing = 0, animation = 1, picture = 2, thumbnail = 3 };

// `extensions` are those of the decoders, such as ".JPG".
bool is_picture_file(const std::wstring& path, std::span<const std::wstring> extensions);
bool is_animation_file(const std::wstring& path);

// Does what a load needs done. Each fills its part of the loader and answers whether it could.
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
    std::wstring path; // absolute for what exists, otherwise the entry as written

    friend bool operator==(const LoadedEntry&, const LoadedEntry&) = default;
};

inline constexpr wchar_t failed_load_line[] = L"ImageLoader::load: failed loading\r\n";

// A file with a decoder's extension that does not decode is not asked of the shell. Nothing more is asked of
// a file whose share does not answer.
LoadedEntry load_entry(const std::wstring& entry, std::span<const std::wstring> extensions,
    ImageSource& source, PathAnswers& paths);

// The facts to show beside the pane. What failed to load has none of its own: its entry is asked then, which
// tells "unknown" or "URL".
FileFacts facts_to_show(
    const LoadedEntry& loaded, const FileFacts& of_loader, PropertySource& source, PathAnswers& paths);

} // namespace media
