// Writes JSON member by member. Our own and not a library, like the reader: lone surrogates must survive.
#pragma once
#include "tools/bok/utf8.hpp"
#include <concepts>
#include <string>
#include <string_view>

namespace bok {

// Appends to a string that the caller owns. Writes the commas; the caller opens and closes brackets. Text is
// UTF-8 with the escapes that JSON requires. A lone surrogate, which UTF-8 cannot encode, is written as
// \udXXX, and characters that some readers take for a line end (U+0085, U+2028, U+2029) are escaped too.
class JsonWriter {
public:
    explicit JsonWriter(std::string& out)
        : out_(out)
    {
    }

    void open(char bracket);
    void close(char bracket);
    void key(std::string_view name);
    void value(std::wstring_view text);
    void value(std::string_view ascii);
    void value(bool truth);
    template <std::integral Number> void value(Number number) { plain(std::to_string(number)); }
    // A line break before the next value, for readability only.
    void new_line() { pending_line_ = true; }

private:
    void plain(std::string_view text);
    void begin_value();

    std::string& out_;
    bool needs_comma_ = false;
    bool pending_line_ = false;
};

} // namespace bok
