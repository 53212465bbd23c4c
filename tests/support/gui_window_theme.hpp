// Notes the windows whose visual style was taken away.
#pragma once
#include "tests/support/gui_calls.hpp"
#include <windows.h>
#include <algorithm>
#include <string>
#include <uxtheme.h>
#include <vector>

// The address of the import, which the linker names after the function.
extern "C" void* __imp_SetWindowTheme; // NOLINT(bugprone-reserved-identifier)

namespace gui {

class UnstyledWindows {
public:
    UnstyledWindows() { windows_.clear(); }

    bool contains(HWND hwnd) const
    {
        return std::find(windows_.begin(), windows_.end(), hwnd) != windows_.end();
    }

private:
    static HRESULT WINAPI note(HWND hwnd, LPCWSTR application, LPCWSTR parts)
    {
        if (application && parts && std::wstring(application).empty() && std::wstring(parts).empty())
            windows_.push_back(hwnd);
        return S_OK;
    }
    static inline std::vector<HWND> windows_;
    ReplacedImport<decltype(SetWindowTheme)> import_{ &__imp_SetWindowTheme, &note };
};

} // namespace gui
