// One message on its way to a window's object.
#pragma once
#include <cstdint>
#include <windows.h>

namespace ovlib {

struct WndMessage {
    HWND hwnd = nullptr;
    std::uint32_t message = 0;
    std::uint64_t wparam = 0;
    std::int64_t lparam = 0;
    // What the window procedure returns when a handler reports the message as handled.
    std::int64_t result = 0;
};

} // namespace ovlib
