#include "tools/bok/utf8.hpp"

namespace bok {

namespace {

// The length that a lead byte promises, with the least code point that needs it; 0 for no lead byte.
struct Lead {
    std::size_t length;
    std::uint32_t least;
    std::uint32_t bits;
};

Lead lead_of(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return { 2, 0x80, byte & 0x1Fu };
    if (byte >= 0xE0 && byte <= 0xEF)
        return { 3, 0x800, byte & 0x0Fu };
    if (byte >= 0xF0 && byte <= 0xF4)
        return { 4, 0x10000, byte & 0x07u };
    return { 0, 0, 0 };
}

// The code point at `at`, with its length; a length of 0 says that there is none.
std::pair<std::uint32_t, std::size_t> decode(std::string_view bytes, std::size_t at)
{
    const Lead lead = lead_of(static_cast<unsigned char>(bytes[at]));
    if (lead.length == 0 || bytes.size() - at < lead.length)
        return { 0, 0 };
    std::uint32_t point = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[at + i]);
        if ((byte & 0xC0u) != 0x80u)
            return { 0, 0 };
        point = point << 6 | (byte & 0x3Fu);
    }
    if (point < lead.least || point > 0x10FFFF || is_surrogate_point(point))
        return { 0, 0 };
    return { point, lead.length };
}

bool is_control(std::uint32_t point)
{
    return point < 0x20 || (point >= 0x7F && point < 0xA0) || point == 0x2028 || point == 0x2029
        || (point >= 0x202A && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069);
}

} // namespace

void append_utf16(std::uint32_t point, std::wstring& text)
{
    if (point >= 0x10000) {
        text.push_back(static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10)));
        text.push_back(static_cast<wchar_t>(0xDC00 + (point & 0x3FF)));
    } else {
        text.push_back(static_cast<wchar_t>(point));
    }
}

std::optional<std::size_t> append_utf16(std::string_view bytes, std::wstring& text)
{
    text.reserve(text.size() + bytes.size() / 2);
    for (std::size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte < 0x80) {
            text.push_back(static_cast<wchar_t>(byte));
            ++at;
            continue;
        }
        const auto [point, length] = decode(bytes, at);
        if (length == 0)
            return at;
        append_utf16(point, text);
        at += length;
    }
    return std::nullopt;
}

void append_utf8(std::uint32_t point, std::string& bytes)
{
    const auto put = [&](std::uint32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (is_surrogate_point(point))
        point = replacement_character;
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | point >> 6);
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | point >> 12);
        put(0x80 | (point >> 6 & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | point >> 18);
        put(0x80 | (point >> 12 & 0x3F));
        put(0x80 | (point >> 6 & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

void append_utf8(std::wstring_view text, std::string& bytes)
{
    for_each_code_point(text, [&](std::uint32_t point) { append_utf8(point, bytes); });
}

std::string printable(std::wstring_view text, std::size_t length)
{
    std::string bytes;
    std::size_t count = 0;
    for_each_code_point(text, [&](std::uint32_t point) {
        if (count++ < length)
            append_utf8(is_control(point) ? replacement_character : point, bytes);
    });
    if (count > length)
        bytes += "...";
    return bytes;
}

std::string printable(std::string_view utf8)
{
    return printable(platform::from_utf8(utf8));
}

} // namespace bok
