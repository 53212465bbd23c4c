// The program's own error: a text for the user and a code.
#pragma once
#include <cstdint>
#include <string>
#include <utility>

inline constexpr std::uint32_t fatal_code = 1;

// `fatal_code` means that the process cannot continue with its Book; any other code means that the operation
// failed and the program continues. Not derived from std::exception, which is reported to the user in another
// way.
class MyException {
public:
    MyException(std::wstring text, std::uint32_t error_code)
        : message(std::move(text))
        , code(error_code)
    {
    }
    virtual ~MyException() = default;

    bool is_fatal() const { return code == fatal_code; }

    std::wstring message;
    std::uint32_t code;
};
