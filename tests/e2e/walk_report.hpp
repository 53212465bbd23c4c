// Failure messages of a walk.
#pragma once
#include "driver_wait.hpp"
#include <string>
#include <type_traits>

namespace walk {

// The text in quotes, with control characters made visible.
std::string quoted(const std::wstring& text);
// The file name of a path.
std::string file_name(const std::wstring& path);

template <class Value> void expect_same(const char* what, const Value& is, const Value& expected)
{
    if (is == expected)
        return;
    if constexpr (std::is_same_v<Value, std::wstring>)
        throw e2e::DriverError(std::string(what) + " is " + quoted(is) + " instead of " + quoted(expected));
    else
        throw e2e::DriverError(
            std::string(what) + " is " + std::to_string(is) + " instead of " + std::to_string(expected));
}

} // namespace walk
