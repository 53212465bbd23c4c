#include "platform/text.hpp"
#include <algorithm>

namespace platform {

namespace {

constexpr char32_t replacement_character = 0xFFFD;
constexpr char32_t first_beyond_plane = 0x10000;

char byte_of(char32_t value)
{
    return static_cast<char>(static_cast<unsigned char>(value));
}

void append_utf8(std::string& bytes, char32_t point)
{
    if (point < 0x80) {
        bytes += byte_of(point);
        return;
    }
    if (point < 0x800) {
        bytes += byte_of(0xC0 | point >> 6);
    } else {
        if (point < first_beyond_plane) {
            bytes += byte_of(0xE0 | point >> 12);
        } else {
            bytes += byte_of(0xF0 | point >> 18);
            bytes += byte_of(0x80 | (point >> 12 & 0x3F));
        }
        bytes += byte_of(0x80 | (point >> 6 & 0x3F));
    }
    bytes += byte_of(0x80 | (point & 0x3F));
}

void append_utf16(std::wstring& text, char32_t point)
{
    if (point < first_beyond_plane) {
        text += static_cast<wchar_t>(point);
        return;
    }
    const char32_t offset = point - first_beyond_plane;
    text += static_cast<wchar_t>(0xD800 | offset >> 10);
    text += static_cast<wchar_t>(0xDC00 | (offset & 0x3FF));
}

// The bytes that may follow a lead byte: how many, and the range of the first of them. Surrogates are let
// through; overlong forms and points beyond U+10FFFF are not.
struct Lead {
    std::size_t following = 0;
    unsigned char lowest = 0x80;
    unsigned char highest = 0xBF;
};

Lead lead_of(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return { .following = 1 };
    if (byte == 0xE0)
        return { .following = 2, .lowest = 0xA0 };
    if (byte >= 0xE1 && byte <= 0xEF)
        return { .following = 2 };
    if (byte == 0xF0)
        return { .following = 3, .lowest = 0x90 };
    if (byte >= 0xF1 && byte <= 0xF3)
        return { .following = 3 };
    if (byte == 0xF4)
        return { .following = 3, .highest = 0x8F };
    return {};
}

// Takes one code point from `pos` on. A broken sequence is passed as far as it was a good beginning.
char32_t take_point(std::string_view bytes, std::size_t& pos)
{
    const auto first = static_cast<unsigned char>(bytes[pos++]);
    if (first < 0x80)
        return first;
    Lead lead = lead_of(first);
    if (lead.following == 0)
        return replacement_character;
    char32_t point = first & (0x3Fu >> lead.following);
    for (std::size_t i = 0; i < lead.following; ++i) {
        const auto next = pos < bytes.size() ? static_cast<unsigned char>(bytes[pos]) : 0u;
        if (next < lead.lowest || next > lead.highest)
            return replacement_character;
        point = point << 6 | (next & 0x3Fu);
        lead.lowest = 0x80;
        lead.highest = 0xBF;
        ++pos;
    }
    return point;
}

} // namespace

bool is_white_space(wchar_t unit)
{
    switch (unit) {
    case 0x20:
    case 0x85:
    case 0xA0:
    case 0x1680:
    case 0x2028:
    case 0x2029:
    case 0x202F:
    case 0x205F:
    case 0x3000:
        return true;
    default:
        return (unit >= 0x9 && unit <= 0xD) || (unit >= 0x2000 && unit <= 0x200A);
    }
}

wchar_t to_lower(wchar_t unit)
{
    return static_cast<wchar_t>(lower_case_table()[static_cast<std::uint16_t>(unit)]);
}

std::string to_utf8(std::wstring_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t point = static_cast<std::uint16_t>(text[i]);
        if (is_high_surrogate(text[i]) && i + 1 < text.size() && is_low_surrogate(text[i + 1])) {
            const auto low = static_cast<char32_t>(text[++i]);
            point = first_beyond_plane + ((point & 0x3FF) << 10 | (low & 0x3FF));
        }
        append_utf8(bytes, point);
    }
    return bytes;
}

std::wstring from_utf8(std::string_view bytes)
{
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t pos = 0; pos < bytes.size();)
        append_utf16(text, take_point(bytes, pos));
    return text;
}

bool same_text_ignoring_case(std::wstring_view left, std::wstring_view right)
{
    return std::ranges::equal(left, right, {}, to_lower, to_lower);
}

std::wstring two_digits(std::uint64_t number)
{
    return (number < 10 ? L"0" : L"") + std::to_wstring(number);
}

} // namespace platform
