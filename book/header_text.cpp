#include "book/header_text.hpp"
#include <array>
#include <bit>

namespace book {

namespace {

using HeaderBytes = std::array<std::uint8_t, sizeof(BookHeader)>;

constexpr std::string_view digit_set = "0123456789abcdef";
constexpr unsigned no_digit = 16;

unsigned digit_value(std::uint32_t unit)
{
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    // Setting bit 5 lower-cases an ASCII letter and maps no other unit to one.
    const std::uint32_t lower = unit | 0x20u;
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : no_digit;
}

template <typename Unit> std::optional<BookHeader> parse_header(std::basic_string_view<Unit> digits)
{
    HeaderBytes bytes{};
    // A header of another length counts as damaged as a whole: reading it in part would mix settings and
    // defaults.
    if (digits.size() != 2 * bytes.size())
        return std::nullopt;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned high = digit_value(static_cast<std::uint32_t>(digits[2 * i]));
        const unsigned low = digit_value(static_cast<std::uint32_t>(digits[2 * i + 1]));
        if (high == no_digit || low == no_digit)
            return std::nullopt;
        bytes[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return std::bit_cast<BookHeader>(bytes);
}

} // namespace

std::string header_text(const BookHeader& header)
{
    std::string text;
    text.reserve(2 * sizeof(BookHeader));
    for (const std::uint8_t byte : std::bit_cast<HeaderBytes>(header)) {
        text += digit_set[byte >> 4];
        text += digit_set[byte & 0xFu];
    }
    return text;
}

std::optional<BookHeader> header_from_text(std::wstring_view digits)
{
    return parse_header(digits);
}

std::optional<BookHeader> header_from_text(std::u16string_view digits)
{
    return parse_header(digits);
}

} // namespace book
