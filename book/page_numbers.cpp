#include "book/page_numbers.hpp"
#include <array>
#include <charconv>
#include <concepts>
#include <limits>

namespace book {

namespace {

bool is_blank(FileUnit unit)
{
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}

bool is_digit(FileUnit unit)
{
    return unit >= '0' && unit <= '9';
}

// Reads tokens as operator>> of a stream in the classic locale does, for file units. Our own: no standard
// stream reads char16_t, and std::from_chars reads char only, takes no plus sign and rejects a minus before
// an unsigned number.
class TokenReader {
public:
    explicit TokenReader(FileText text)
        : pos_(text.data())
        , end_(text.data() + text.size())
    {
    }

    bool take(std::wstring& text)
    {
        skip_blanks();
        const FileUnit* const start = pos_;
        while (pos_ != end_ && !is_blank(*pos_))
            ++pos_;
        text.clear();
        append_units(text, FileText(start, static_cast<std::size_t>(pos_ - start)));
        return pos_ != start;
    }

    template <std::integral Number> bool take(Number& number)
    {
        skip_blanks();
        const bool is_negative = pos_ != end_ && *pos_ == '-';
        if (is_negative || (pos_ != end_ && *pos_ == '+'))
            ++pos_;
        // Compared by magnitude: a signed number may be one further below zero than above, and a minus before
        // an unsigned one wraps around.
        const auto greatest = static_cast<std::uint64_t>(std::numeric_limits<Number>::max());
        std::uint64_t size = 0;
        if (!take_digits(size) || size > greatest + (is_negative && std::signed_integral<Number> ? 1 : 0))
            return false;
        number = static_cast<Number>(is_negative ? 0 - size : size);
        return true;
    }

private:
    void skip_blanks()
    {
        while (pos_ != end_ && is_blank(*pos_))
            ++pos_;
    }

    // False if there is no digit or the number exceeds 64 bits.
    bool take_digits(std::uint64_t& size)
    {
        constexpr std::uint64_t greatest = std::numeric_limits<std::uint64_t>::max();
        const FileUnit* const start = pos_;
        for (; pos_ != end_ && is_digit(*pos_); ++pos_) {
            const auto digit = static_cast<std::uint64_t>(*pos_ - '0');
            if (size > greatest / 10 || (size == greatest / 10 && digit > greatest % 10))
                return false;
            size = size * 10 + digit;
        }
        return pos_ != start;
    }

    const FileUnit* pos_;
    const FileUnit* end_;
};

template <std::integral Number> void append_number(LineWriter& writer, Number number)
{
    std::array<char, 24> digits{ ' ' };
    const auto result = std::to_chars(digits.data() + 1, digits.data() + digits.size(), number);
    writer.append_ascii({ digits.data(), static_cast<std::size_t>(result.ptr - digits.data()) });
}

} // namespace

bool read_numbers(FileText line, Page& page)
{
    TokenReader tokens(line);
    std::int32_t has_tab = 0;
    std::uint64_t current_file = 0;
    auto& back = page.back_color;
    auto& text = page.text_color;
    const bool is_whole = tokens.take(page.stamp) && tokens.take(page.mark) && tokens.take(has_tab)
        && tokens.take(page.tab_color) && tokens.take(back[0]) && tokens.take(back[1]) && tokens.take(back[2])
        && tokens.take(text[0]) && tokens.take(text[1]) && tokens.take(text[2])
        && tokens.take(page.scroll_first) && tokens.take(page.scroll_third) && tokens.take(current_file);
    if (!is_whole)
        return false;
    page.tab_number = has_tab != 0 ? 1 : 0;
    if (current_file < page.files.size())
        page.current_file = current_file;
    return true;
}

void write_numbers(LineWriter& writer, const Page& page)
{
    writer.append(page.stamp);
    append_number(writer, page.mark);
    append_number(writer, page.tab_number != 0 ? 1 : 0);
    append_number(writer, page.tab_color);
    for (const std::uint32_t color : page.back_color)
        append_number(writer, color);
    for (const std::uint32_t color : page.text_color)
        append_number(writer, color);
    append_number(writer, page.scroll_first);
    append_number(writer, page.scroll_third);
    append_number(writer, page.current_file);
    writer.append_ascii("\r\n");
}

} // namespace book
