// One message for a window's object.
#pragma once
#include <windows.h>
#include <cstdint>

namespace ovlib {

struct WndMessage {
    HWND hwnd = nullptr;
    std::uint32_t message = 0;
    std::uint64_t wparam = 0;
    std::int64_t lparam = 0;
    // The result of the window procedure if a handler returns true.
    std::int64_t result = 0;
};

} // namespace ovlib
