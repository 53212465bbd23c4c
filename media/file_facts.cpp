#include "media/file_facts.hpp"
#include "core/byte_size.hpp"
#include "media/entry_text.hpp"
#include "media/media_text.hpp"
#include "platform/file.hpp"
#include "platform/path_text.hpp"
#include "platform/text.hpp"
#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace media {

namespace {

using Group = std::array<std::uint8_t, 8>;
constexpr Group kind_group{ 0x82, 0x37, 0x2A, 0xCD, 0x1A, 0x83, 0x9B, 0x22 };
constexpr Group media_group{ 0x8B, 0x70, 0x08, 0x00, 0x36, 0xB1, 0x1A, 0x03 };

constexpr PropertyKeyName audio_key(std::uint32_t number)
{
    return { 0x64440490, 0x4C8B, 0x11D1, media_group, number };
}

constexpr PropertyKeyName video_key(std::uint32_t number)
{
    return { 0x64440491, 0x4C8B, 0x11D1, media_group, number };
}

struct ShellKinds {
    bool video = false;
    bool music = false;
};

// A file may have several kinds. The others, such as pictures and folders, are recognised without the shell.
ShellKinds read_kinds(PropertySource& source)
{
    const PropertyValue value = source.read(FileProperty::kind);
    if (value.type != PropertyValue::texts_vector)
        return {};
    const auto has = [&](const wchar_t* name) {
        return std::ranges::find(value.texts, name) != value.texts.end();
    };
    return { has(L"video"), has(L"music") };
}

// The low 32 bits, whatever the type.
std::uint32_t read_low_half(PropertySource& source, FileProperty property)
{
    return static_cast<std::uint32_t>(source.read(property).bits);
}

std::uint32_t read_unsigned(PropertySource& source, FileProperty property)
{
    const PropertyValue value = source.read(property);
    return value.type == PropertyValue::unsigned32 ? static_cast<std::uint32_t>(value.bits) : 0;
}

// Whole frames per second. The property counts in thousandths and is not trusted: a file may claim any rate.
std::uint32_t read_frame_rate(PropertySource& source)
{
    constexpr auto most = std::numeric_limits<std::uint32_t>::max();
    const PropertyValue value = source.read(FileProperty::frame_rate);
    double rate = 0;
    if (value.type == PropertyValue::unsigned32)
        rate = static_cast<double>(static_cast<std::uint32_t>(value.bits));
    else if (value.type == PropertyValue::real64)
        rate = std::bit_cast<double>(value.bits);
    rate /= 1000.0;
    if (!std::isfinite(rate) || rate < 0)
        return 0;
    return rate < most ? static_cast<std::uint32_t>(rate) : most;
}

std::wstring size_of_picture(std::uint32_t width, std::uint32_t height)
{
    return L"  " + std::to_wstring(width) + L"x" + std::to_wstring(height) + L"  ";
}

std::wstring bit_rate_text(std::uint32_t rate)
{
    return rate < 1000 ? std::to_wstring(rate) + L"bps" : std::to_wstring(rate / 1000) + L"kbps";
}

std::wstring video_text(PropertySource& source)
{
    const std::uint32_t width = read_low_half(source, FileProperty::frame_width);
    const std::uint32_t height = read_low_half(source, FileProperty::frame_height);
    return size_of_picture(width, height) + std::to_wstring(read_frame_rate(source)) + L"fps";
}

std::wstring music_text(PropertySource& source)
{
    const std::uint32_t rate = read_unsigned(source, FileProperty::audio_bitrate);
    return L"  " + bit_rate_text(rate) + L"  "
        + channel_text(read_unsigned(source, FileProperty::audio_channels));
}

// Sets text and kind of a regular file, without the duration.
void fill_line(FileFacts& facts, PropertySource* source)
{
    if (facts.text.empty()) {
        facts.text = L"unknown file type";
        return;
    }
    // Checked before the shell's kinds: the shell reports the kind of a shortcut's target.
    if (platform::same_text_ignoring_case(facts.text, L".lnk")) {
        facts.text += L" (shortcut)";
        facts.kind = FileKind::shortcut;
        return;
    }
    const ShellKinds kinds = source ? read_kinds(*source) : ShellKinds{};
    if (kinds.video) {
        facts.text += video_text(*source);
        facts.kind = FileKind::video;
    } else if (kinds.music) {
        facts.text += music_text(*source);
        facts.kind = FileKind::music;
    }
}

FileFacts facts_of_decoded(const std::wstring& path, const std::wstring& rest)
{
    return { std::wstring{ platform::path_extension(path) } + rest,
        core::format_byte_size(platform::file_size(path)), FileKind::image };
}

} // namespace

const std::array<PropertyKeyName, 7> property_keys{ PropertyKeyName{
                                                        0x1E3EE840, 0xBC2B, 0x476C, kind_group, 3 },
    audio_key(3), audio_key(4), audio_key(7), video_key(3), video_key(4), video_key(6) };

FileFacts read_file_facts(const std::wstring& path, PropertySource& source, PathAnswers& paths)
{
    const platform::PathKind kind = paths.kind_of(path);
    if (kind == platform::PathKind::folder)
        return { L"folder", {}, FileKind::folder };
    if (kind != platform::PathKind::regular_file)
        return { is_url(path) ? L"URL" : L"unknown", {}, FileKind::unknown };

    PropertySource* const open = source.open(path) ? &source : nullptr;
    FileFacts facts{ std::wstring{ platform::path_extension(path) },
        core::format_byte_size(platform::file_size(path)), FileKind::unknown };
    fill_line(facts, open);
    if (const std::uint64_t duration = open ? open->read_duration() : 0; duration != 0)
        facts.text += L"  [" + format_duration(duration) + L"]";
    source.close();
    return facts;
}

FileFacts facts_for_animation(
    const std::wstring& path, std::uint32_t width, std::uint32_t height, std::uint32_t frame_count)
{
    return facts_of_decoded(path, size_of_picture(width, height) + std::to_wstring(frame_count) + L"frm");
}

FileFacts facts_for_picture(
    const std::wstring& path, std::uint32_t width, std::uint32_t height, std::uint32_t pixel_format)
{
    const std::uint32_t bits = pixel_format >> 8 & 0xFF;
    return facts_of_decoded(path, size_of_picture(width, height) + std::to_wstring(bits) + L"bpp");
}

} // namespace media
