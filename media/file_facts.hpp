// The facts line of a file: its extension, and what the shell or a decoder knows about its contents.
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
    std::wstring size_text; // empty for folders, addresses and missing files
    FileKind kind = FileKind::unknown;

    friend bool operator==(const FileFacts&, const FileFacts&) = default;
};

// The shell properties that are read, in the order of property_keys.
enum class FileProperty {
    kind,
    duration,
    audio_bitrate,
    audio_channels,
    frame_width,
    frame_height,
    frame_rate
};

// A PROPERTYKEY of the shell: a format identifier (GUID) and a number.
struct PropertyKeyName {
    std::uint32_t data1;
    std::uint16_t data2;
    std::uint16_t data3;
    std::array<std::uint8_t, 8> data4;
    std::uint32_t number;
};

extern const std::array<PropertyKeyName, 7> property_keys;

// One property value as the file stores it; `empty`, 0 and no texts if there is none. Types have the numbers
// of VARTYPE.
struct PropertyValue {
    static constexpr std::uint16_t empty = 0;
    static constexpr std::uint16_t real64 = 5; // `bits` are those of a double
    static constexpr std::uint16_t unsigned32 = 19;
    static constexpr std::uint16_t texts_vector = 0x101F;

    std::uint16_t type = empty;
    std::uint64_t bits = 0;
    std::vector<std::wstring> texts;
};

// Reads the properties of one file at a time.
class PropertySource {
public:
    virtual ~PropertySource() = default;
    // False if the file's properties cannot be read; then no other function may be called but close().
    virtual bool open(const std::wstring& path) = 0;
    virtual void close() = 0;
    virtual PropertyValue read(FileProperty property) = 0;
    // The duration in units of 100 ns, converted from the stored type; 0 if that fails.
    virtual std::uint64_t read_duration() = 0;
};

// The facts of a file, folder or address. A relative path counts from the current directory. Closes the
// source again.
FileFacts read_file_facts(const std::wstring& path, PropertySource& source, PathAnswers& paths);

// The facts of a picture that a decoder has opened; the shell is not queried.
FileFacts facts_for_animation(
    const std::wstring& path, std::uint32_t width, std::uint32_t height, std::uint32_t frame_count);
// `pixel_format` is a GDI+ PixelFormat, which holds the bits per pixel in its second byte.
FileFacts facts_for_picture(
    const std::wstring& path, std::uint32_t width, std::uint32_t height, std::uint32_t pixel_format);

} // namespace media
