// JSON text, written member by member.
#pragma once
#include "tools/bok/utf8.hpp"
#include <concepts>
#include <string>
#include <string_view>

namespace bok {

// Appends to a text that the caller owns. Commas are its own business, brackets are the caller's. Text is
// UTF-8 with the escapes that JSON asks for; a lone surrogate, which UTF-8 cannot hold, is written as \udXXX,
// and what some readers take for the end of a line (U+0085, U+2028, U+2029) is escaped too.
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
    // For the reader's eye only.
    void new_line() { pending_line_ = true; }

private:
    void plain(std::string_view text);
    void begin_value();

    std::string& out_;
    bool needs_comma_ = false;
    bool pending_line_ = false;
};

} // namespace bok
