#include "media/entry_text.hpp"
#include "platform/text.hpp"

namespace media {

namespace {

constexpr wchar_t replacement = 0xFFFD;

// Replaces lone surrogates, which UTF-8 cannot encode, as the system does. platform::to_utf8 would keep them,
// which is no valid UTF-8.
std::wstring well_formed(std::wstring_view text)
{
    std::wstring result{ text };
    for (std::size_t i = 0; i < result.size(); ++i) {
        if (platform::is_high_surrogate(result[i]) && i + 1 < result.size()
            && platform::is_low_surrogate(result[i + 1]))
            ++i;
        else if (platform::is_surrogate(result[i]))
            result[i] = replacement;
    }
    return result;
}

bool passes(char byte)
{
    const bool is_letter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    const bool is_digit = byte >= '0' && byte <= '9';
    return is_letter || is_digit || byte == '-' || byte == '.' || byte == '_' || byte == '~';
}

} // namespace

bool is_url(std::wstring_view entry)
{
    return entry.starts_with(L"https://") || entry.starts_with(L"http://");
}

std::string percent_encode(std::wstring_view text)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string encoded;
    for (const char byte : platform::to_utf8(well_formed(text))) {
        if (passes(byte)) {
            encoded += byte;
            continue;
        }
        const auto value = static_cast<unsigned char>(byte);
        encoded += '%';
        encoded += digits[value >> 4];
        encoded += digits[value & 0xF];
    }
    return encoded;
}

std::wstring show_in_folder_parameters(const std::wstring& path)
{
    return L" /select, \"" + path + L"\"";
}

} // namespace media
