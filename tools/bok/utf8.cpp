#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <array>
#include <utility>

namespace bok {

namespace {

// What a lead byte announces: the sequence's length (0 if it is no lead byte), the least code point that
// needs that length, which rules out overlong forms, and the byte's own bits.
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

// The code point at `at` and its length in bytes; length 0 if the bytes are malformed.
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

bool begins_unit(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u;
}

bool begins_pair(char byte)
{
    return static_cast<unsigned char>(byte) >= 0xF0u;
}

// Writes one or two units and returns the position after them.
wchar_t* put_utf16(std::uint32_t point, wchar_t* unit)
{
    if (point >= 0x10000) {
        *unit++ = static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10));
        point = 0xDC00 + (point & 0x3FF);
    }
    *unit++ = static_cast<wchar_t>(point);
    return unit;
}

bool is_control(std::uint32_t point)
{
    return point < 0x20 || (point >= 0x7F && point < 0xA0) || point == 0x2028 || point == 0x2029
        || (point >= 0x202A && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069);
}

} // namespace

void append_utf16(std::uint32_t point, std::wstring& text)
{
    std::array<wchar_t, 2> units{};
    text.append(units.data(), put_utf16(point, units.data()));
}

std::optional<std::size_t> append_utf16(std::string_view bytes, std::wstring& text)
{
    // Exactly the size that well-formed UTF-8 needs: a Book keeps these strings, and growing would waste
    // memory.
    const std::size_t start = text.size();
    text.resize(start + static_cast<std::size_t>(std::ranges::count_if(bytes, begins_unit))
        + static_cast<std::size_t>(std::ranges::count_if(bytes, begins_pair)));
    wchar_t* unit = text.data() + start;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte < 0x80) {
            *unit++ = static_cast<wchar_t>(byte);
            ++at;
            continue;
        }
        const auto [point, length] = decode(bytes, at);
        if (length == 0)
            return at;
        unit = put_utf16(point, unit);
        at += length;
    }
    return std::nullopt;
}

void append_utf8(std::uint32_t point, std::string& bytes)
{
    if (is_surrogate_point(point))
        point = replacement_character;
    const auto tail = [point](int shift) { return static_cast<char>(0x80 | (point >> shift & 0x3F)); };
    if (point < 0x80)
        bytes.push_back(static_cast<char>(point));
    else if (point < 0x800)
        bytes.append({ static_cast<char>(0xC0 | point >> 6), tail(0) });
    else if (point < 0x10000)
        bytes.append({ static_cast<char>(0xE0 | point >> 12), tail(6), tail(0) });
    else
        bytes.append({ static_cast<char>(0xF0 | point >> 18), tail(12), tail(6), tail(0) });
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
