#include "tools/bok/json_writer.hpp"

namespace bok {

namespace {

void append_escape(std::uint32_t unit, std::string& out)
{
    constexpr std::string_view digits = "0123456789abcdef";
    out += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        out.push_back(digits[unit >> shift & 0xF]);
}

void append_point(std::uint32_t point, std::string& out)
{
    switch (point) {
    case '"':
        out += "\\\"";
        return;
    case '\\':
        out += "\\\\";
        return;
    case '\n':
        out += "\\n";
        return;
    case '\r':
        out += "\\r";
        return;
    case '\t':
        out += "\\t";
        return;
    default:
        break;
    }
    const bool ends_lines = point == 0x85 || point == 0x2028 || point == 0x2029;
    if (point < 0x20 || point == 0xFEFF || ends_lines || is_surrogate_point(point))
        append_escape(point, out);
    else
        append_utf8(point, out);
}

} // namespace

void JsonWriter::begin_value()
{
    if (needs_comma_)
        out_.push_back(',');
    if (pending_line_)
        out_.push_back('\n');
    pending_line_ = false;
}

void JsonWriter::open(char bracket)
{
    begin_value();
    out_.push_back(bracket);
    needs_comma_ = false;
}

void JsonWriter::close(char bracket)
{
    if (pending_line_)
        out_.push_back('\n');
    pending_line_ = false;
    out_.push_back(bracket);
    needs_comma_ = true;
}

void JsonWriter::key(std::string_view name)
{
    value(name);
    out_.push_back(':');
    needs_comma_ = false;
}

void JsonWriter::plain(std::string_view text)
{
    begin_value();
    out_ += text;
    needs_comma_ = true;
}

void JsonWriter::value(bool truth)
{
    plain(truth ? "true" : "false");
}

void JsonWriter::value(std::string_view ascii)
{
    begin_value();
    out_.push_back('"');
    out_ += ascii;
    out_.push_back('"');
    needs_comma_ = true;
}

void JsonWriter::value(std::wstring_view text)
{
    begin_value();
    out_.push_back('"');
    for_each_code_point(text, [&](std::uint32_t point) { append_point(point, out_); });
    out_.push_back('"');
    needs_comma_ = true;
}

} // namespace bok
