// What one line tells of a file: its extension, and what the shell or a decoder knows of its contents.
#pragma once
#include "media/path_answers.hpp"
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace media {

enum class FileKind : std::uint32_t {
    video = 1,
    music = 2,
    image = 4,
    folder = 0x10,
    shortcut = 0x2000,
    unknown = 0x80000000
};

struct FileFacts {
    std::wstring text;
    std::wstring size_text; // empty for folders, addresses and what does not exist
    FileKind kind = FileKind::unknown;

    friend bool operator==(const FileFacts&, const FileFacts&) = default;
};

// The properties asked for, in the order of property_keys.
enum class FileProperty {
    kind,
    duration,
    audio_bitrate,
    audio_channels,
    frame_width,
    frame_height,
    frame_rate
};

// Of the shell's property system: a format identifier and a number.
struct PropertyKeyName {
    std::uint32_t data1;
    std::uint16_t data2;
    std::uint16_t data3;
    std::array<std::uint8_t, 8> data4;
    std::uint32_t number;
};

extern const std::array<PropertyKeyName, 7> property_keys;

// One value as it was stored; 0 and nothing where there is none. The types are numbered as the system's
// variants.
struct PropertyValue {
    static constexpr std::uint16_t empty = 0;
    static constexpr std::uint16_t real64 = 5; // `bits` are those of a double
    static constexpr std::uint16_t unsigned32 = 19;
    static constexpr std::uint16_t texts_vector = 0x101F;

    std::uint16_t type = empty;
    std::uint64_t bits = 0;
    std::vector<std::wstring> texts;
};

// Where the properties of one file come from.
class PropertySource {
public:
    virtual ~PropertySource() = default;
    // False when the file's properties cannot be had; the file is then asked for none.
    virtual bool open(const std::wstring& path) = 0;
    virtual void close() = 0;
    virtual PropertyValue read(FileProperty property) = 0;
    // Converted from whatever it was stored as; 0 when that fails.
    virtual std::uint64_t read_duration() = 0;
};

// A relative path counts from the current directory. The source is closed again.
FileFacts read_file_facts(const std::wstring& path, PropertySource& source, PathAnswers& paths);

// Of pictures that a decoder took; the shell is not asked.
FileFacts facts_for_animation(
    const std::wstring& path, std::uint32_t width, std::uint32_t height, std::uint32_t frame_count);
// `pixel_format` as GDI+ numbers it.
FileFacts facts_for_picture(
    const std::wstring& path, std::uint32_t width, std::uint32_t height, std::uint32_t pixel_format);

} // namespace media
