// Reads JSON member by member, in the form that the caller expects.
//
// Our own and not a library: a Book may hold lone surrogates, which libraries reject or replace; an error is
// reported with its line and column; a Book of 150 MB is read straight into its pages without a tree of all
// values; and bok has no dependencies.
#pragma once
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace bok {

// An error in a JSON text with its position: line and column from 1, columns in bytes.
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

// `text` must outlive the reader. Every operation throws JsonError if the text holds something else. The
// caller drives the reading, so hostile nesting cannot exhaust the stack. Strings may contain anything that
// \uXXXX can express, including lone surrogates.
class JsonReader {
public:
    enum class Kind { object, array, string, number, other };

    explicit JsonReader(std::string_view text);

    Kind peek();
    void enter_object();
    // Reads the name of the next member; false after the last one.
    bool next_member(std::string& name);
    void enter_array();
    bool next_element();

    void read(std::wstring& text);
    void read(bool& truth);
    template <class Number>
    requires std::is_integral_v<Number>
    void read(Number& number);

    // Throws unless only white space follows.
    void finish();
    // The offset of the value last read or peeked at.
    std::size_t place() const { return value_at_; }
    // Throws an error at the offset `place`.
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
    std::vector<bool> has_items_; // one per open bracket: an element was read, so a comma must come next
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
