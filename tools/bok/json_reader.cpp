#include "tools/bok/json_reader.hpp"
#include "tools/bok/utf8.hpp"
#include <algorithm>
#include <charconv>

namespace bok {

namespace {

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

JsonReader::JsonReader(std::string_view text)
    : text_(text)
{
    // Some editors write a byte order mark, which JSON does not allow.
    if (text_.starts_with("\xEF\xBB\xBF"))
        at_ = 3;
}

void JsonReader::fail(const std::string& reason, std::size_t place) const
{
    // Lines are counted only here, so that reading itself need not count them.
    const std::string_view before = text_.substr(0, place);
    const auto line = static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1;
    const std::size_t line_start = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
    throw JsonError(line, place - line_start + 1, reason);
}

void JsonReader::skip_white_space()
{
    while (at_ < text_.size()
        && (text_[at_] == ' ' || text_[at_] == '\n' || text_[at_] == '\r' || text_[at_] == '\t'))
        ++at_;
    value_at_ = at_;
}

bool JsonReader::take(char character)
{
    skip_white_space();
    if (at_ == text_.size() || text_[at_] != character)
        return false;
    ++at_;
    return true;
}

void JsonReader::expect(char character)
{
    if (!take(character))
        fail(
            at_ == text_.size() ? "the text ends unexpectedly" : std::string("expected '") + character + "'");
}

JsonReader::Kind JsonReader::peek()
{
    skip_white_space();
    if (at_ == text_.size())
        fail("the text ends unexpectedly");
    switch (text_[at_]) {
    case '{':
        return Kind::object;
    case '[':
        return Kind::array;
    case '"':
        return Kind::string;
    default:
        return text_[at_] == '-' || is_digit(text_[at_]) ? Kind::number : Kind::other;
    }
}

void JsonReader::enter_object()
{
    expect('{');
    has_items_.push_back(false);
}

void JsonReader::enter_array()
{
    expect('[');
    has_items_.push_back(false);
}

bool JsonReader::next_item(char closing)
{
    if (take(closing)) {
        has_items_.pop_back();
        return false;
    }
    if (has_items_.back())
        expect(',');
    has_items_.back() = true;
    return true;
}

bool JsonReader::next_element()
{
    return next_item(']');
}

bool JsonReader::next_member(std::string& name)
{
    if (!next_item('}'))
        return false;
    std::wstring text;
    read(text);
    // place() must be the name, not the colon, in an error about the member.
    const std::size_t name_at = value_at_;
    expect(':');
    name = platform::to_utf8(text);
    value_at_ = name_at;
    return true;
}

void JsonReader::finish()
{
    skip_white_space();
    if (at_ != text_.size())
        fail("unexpected text after the end");
}

// The number of bytes from here on that need no decoding of escapes.
std::size_t JsonReader::plain_run() const
{
    std::size_t end = at_;
    while (end < text_.size() && text_[end] != '"' && text_[end] != '\\'
        && static_cast<unsigned char>(text_[end]) >= 0x20)
        ++end;
    return end - at_;
}

void JsonReader::read(std::wstring& text)
{
    expect('"');
    text.clear();
    for (;;) {
        const std::size_t run = plain_run();
        if (const auto bad = append_utf16(text_.substr(at_, run), text))
            fail("not UTF-8", at_ + *bad);
        at_ += run;
        if (at_ == text_.size())
            fail("unterminated string");
        const char character = text_[at_++];
        if (character == '"')
            return;
        if (character != '\\')
            fail("a control character must be written as an escape", at_ - 1);
        read_escape(text);
    }
}

std::uint32_t JsonReader::hexadecimal_unit()
{
    const std::string_view digits = text_.substr(at_, 4);
    std::uint32_t unit = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), unit, 16);
    if (digits.size() != 4 || error != std::errc{} || end != digits.data() + 4)
        fail("\\u needs four hexadecimal digits", at_);
    at_ += 4;
    return unit;
}

void JsonReader::read_escape(std::wstring& text)
{
    constexpr std::string_view letters = "\"\\/bfnrtu";
    constexpr std::wstring_view meanings = L"\"\\/\b\f\n\r\t";
    const std::size_t which = at_ < text_.size() ? letters.find(text_[at_]) : std::string_view::npos;
    if (which == std::string_view::npos)
        fail("unknown escape", at_ - 1);
    ++at_;
    text.push_back(which < meanings.size() ? meanings[which] : static_cast<wchar_t>(hexadecimal_unit()));
}

void JsonReader::read(bool& truth)
{
    skip_white_space();
    for (const bool candidate : { true, false }) {
        const std::string_view word = candidate ? "true" : "false";
        if (text_.substr(at_, word.size()) == word) {
            at_ += word.size();
            truth = candidate;
            return;
        }
    }
    fail("expected true or false");
}

std::uint64_t JsonReader::whole_number(bool& negative)
{
    negative = take('-');
    const std::size_t start = at_;
    while (at_ < text_.size() && is_digit(text_[at_]))
        ++at_;
    const std::string_view digits = text_.substr(start, at_ - start);
    const bool goes_on = at_ < text_.size() && (text_[at_] == '.' || text_[at_] == 'e' || text_[at_] == 'E');
    // JSON forbids leading zeros.
    if (digits.empty() || goes_on || (digits.size() > 1 && digits.front() == '0'))
        fail("expected a whole number");
    std::uint64_t number = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc{})
        fail("the number is out of range");
    return number;
}

} // namespace bok
