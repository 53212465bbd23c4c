// JSON text, read member by member as the caller expects it.
#pragma once
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace bok {

// What a JSON text does wrong, and the place: line and column from 1, columns in bytes.
struct JsonError : std::runtime_error {
    JsonError(std::size_t at_line, std::size_t at_column, const std::string& reason)
        : std::runtime_error(reason)
        , line(at_line)
        , column(at_column)
    {
    }
    std::size_t line;
    std::size_t column;
};

// Walks a text that has to outlive it. Every operation throws JsonError when something else stands there. The
// caller leads, so nothing nests deeper than the caller goes. Strings give all that \uXXXX can say, lone
// surrogates included.
class JsonReader {
public:
    enum class Kind { object, array, string, number, other };

    explicit JsonReader(std::string_view text);

    Kind peek();
    void enter_object();
    // The name of the next member, or false behind the last one.
    bool next_member(std::string& name);
    void enter_array();
    bool next_element();

    void read(std::wstring& text);
    void read(bool& truth);
    template <class Number>
    requires std::is_integral_v<Number>
    void read(Number& number);

    // Nothing but white space may follow.
    void finish();
    // Where the value last read or peeked at begins.
    std::size_t place() const { return value_at_; }
    // Throws, for what stands at `place`.
    [[noreturn]] void fail(const std::string& reason, std::size_t place) const;
    [[noreturn]] void fail(const std::string& reason) const { fail(reason, value_at_); }

private:
    void skip_white_space();
    void expect(char character);
    bool take(char character);
    bool next_item(char closing);
    std::uint32_t hexadecimal_unit();
    void read_escape(std::wstring& text);
    std::size_t plain_run() const;
    // The magnitude and the sign of a whole number.
    std::uint64_t whole_number(bool& negative);

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t value_at_ = 0;
    std::vector<bool> has_items_; // one an open bracket
};

template <class Number>
requires std::is_integral_v<Number>
void JsonReader::read(Number& number)
{
    bool negative = false;
    const std::uint64_t magnitude = whole_number(negative);
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<Number>::max());
    if (negative ? (std::is_unsigned_v<Number> ? magnitude > 0 : magnitude > most + 1) : magnitude > most)
        fail("the number is out of range");
    number = static_cast<Number>(negative ? std::uint64_t{ 0 } - magnitude : magnitude);
}

} // namespace bok
