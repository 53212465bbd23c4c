// UTF-8 of input and output. Input is accepted exactly or rejected; platform/text.hpp would replace malformed
// bytes.
#pragma once
#include "platform/text.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bok {

// Appends the text of `bytes` to `text`. Returns the offset of the first malformed byte (surrogates and
// overlong forms are malformed), or nullopt if all bytes were converted.
std::optional<std::size_t> append_utf16(std::string_view bytes, std::wstring& text);

// Appends one code point, as a surrogate pair if it needs one.
void append_utf16(std::uint32_t point, std::wstring& text);

// Appends one code point as UTF-8; a surrogate becomes U+FFFD.
void append_utf8(std::uint32_t point, std::string& bytes);
void append_utf8(std::wstring_view text, std::string& bytes);

// The text for a line on a terminal: control characters, line ends and lone surrogates become U+FFFD, so that
// no text can break the line or send commands to the terminal. At most `length` code points, with "..." after
// a cut.
std::string printable(std::wstring_view text, std::size_t length = static_cast<std::size_t>(-1));
std::string printable(std::string_view utf8);

inline constexpr std::uint32_t replacement_character = 0xFFFD;

constexpr bool is_surrogate_point(std::uint32_t point)
{
    return point >= 0xD800 && point <= 0xDFFF;
}

// Calls `take` with each code point of `text`; a lone surrogate is passed as a code point.
template <class Take> void for_each_code_point(std::wstring_view text, Take&& take)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::uint32_t point = static_cast<std::uint32_t>(text[i]) & 0xFFFFu;
        if (platform::is_high_surrogate(text[i]) && i + 1 < text.size()
            && platform::is_low_surrogate(text[i + 1])) {
            ++i;
            point = 0x10000u + ((point & 0x3FFu) << 10) + (static_cast<std::uint32_t>(text[i]) & 0x3FFu);
        }
        take(point);
    }
}

} // namespace bok
