// Counts how often a picture is copied to the screen.
#pragma once
#include "tests/support/gui_calls.hpp"
#include <windows.h>

extern "C" void* __imp_SetDIBitsToDevice;

namespace gui {

// One at a time.
class ScreenCopies {
public:
    ScreenCopies()
        : import_(&__imp_SetDIBitsToDevice, &note)
    {
        count_ = 0;
        original_ = import_.original();
    }

    int count() const { return count_; }

private:
    using Copy = decltype(SetDIBitsToDevice);

    static int WINAPI note(HDC dc, int x, int y, DWORD width, DWORD height, int from_x, int from_y,
        UINT start, UINT lines, const void* bits, const BITMAPINFO* info, UINT use)
    {
        ++count_;
        return original_(dc, x, y, width, height, from_x, from_y, start, lines, bits, info, use);
    }

    static inline int count_ = 0;
    static inline Copy* original_ = nullptr;
    ReplacedImport<Copy> import_;
};

} // namespace gui
