// Counts how often windows copy a picture to the screen.
#pragma once
#include "tests/support/gui_calls.hpp"
#include <windows.h>
#include <map>

extern "C" void* __imp_SetDIBitsToDevice;

namespace gui {

// Only one object may exist at a time.
class ScreenCopies {
public:
    ScreenCopies()
        : import_(&__imp_SetDIBitsToDevice, &note)
    {
        counts_.clear();
        original_ = import_.original();
    }

    int count() const
    {
        int sum = 0;
        for (const auto& [target, count] : counts_)
            sum += count;
        return sum;
    }
    int of(HWND hwnd) const
    {
        const auto found = counts_.find(hwnd);
        return found == counts_.end() ? 0 : found->second;
    }

private:
    using Copy = decltype(SetDIBitsToDevice);

    static int WINAPI note(HDC dc, int x, int y, DWORD width, DWORD height, int from_x, int from_y,
        UINT start, UINT lines, const void* bits, const BITMAPINFO* info, UINT use)
    {
        ++counts_[WindowFromDC(dc)];
        return original_(dc, x, y, width, height, from_x, from_y, start, lines, bits, info, use);
    }

    static inline std::map<HWND, int> counts_; // null: copies to no window
    static inline Copy* original_ = nullptr;
    ReplacedImport<Copy> import_;
};

} // namespace gui
