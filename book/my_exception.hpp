// The program's own error: a text for the user and a code.
#pragma once
#include <cstdint>
#include <string>
#include <utility>

inline constexpr std::uint32_t fatal_code = 1;

// Code `fatal_code` means that the process cannot go on with its Book; any other, that the operation failed
// and the program goes on. Not a std::exception: the two are told to the user in different ways.
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
