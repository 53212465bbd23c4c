// UTF-8 where it enters and where it is shown. What enters is taken to the letter or refused.
#pragma once
#include "platform/text.hpp"
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bok {

// Appends the text of `bytes` to `text`. Answers the offset of the first byte that is no UTF-8 (surrogates
// and overlong forms are none), or nothing when all of it was taken.
std::optional<std::size_t> append_utf16(std::string_view bytes, std::wstring& text);

// One code point as two units where it needs them.
void append_utf16(std::uint32_t point, std::wstring& text);

// One code point as UTF-8; a surrogate becomes U+FFFD.
void append_utf8(std::uint32_t point, std::string& bytes);
void append_utf8(std::wstring_view text, std::string& bytes);

// For a line on a terminal: controls, line ends and lone surrogates become U+FFFD, so that no text can break
// the line or command the terminal. At most `length` code points, with "..." after a cut.
std::string printable(std::wstring_view text, std::size_t length = static_cast<std::size_t>(-1));
std::string printable(std::string_view utf8);

inline constexpr std::uint32_t replacement_character = 0xFFFD;

constexpr bool is_surrogate_point(std::uint32_t point)
{
    return point >= 0xD800 && point <= 0xDFFF;
}

// Calls `take` with each code point of `text`; a lone surrogate comes as it is.
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
