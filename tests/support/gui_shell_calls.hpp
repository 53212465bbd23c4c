// Records what is passed to the shell to be opened, and opens nothing.
#pragma once
#include "tests/support/gui_calls.hpp"
#include <windows.h>
#include <shellapi.h>
#include <string>
#include <vector>

// The import address, which the linker names after the function.
extern "C" void* __imp_ShellExecuteW; // NOLINT(bugprone-reserved-identifier)

namespace gui {

class ShellCalls {
public:
    // `answer` is the shell's return value; above 32 means success.
    explicit ShellCalls(INT_PTR answer = 42)
    {
        calls.clear();
        shell_answer = answer;
    }

    // Verb, file and parameters of each call, separated by bars.
    static inline std::vector<std::wstring> calls;

private:
    static HINSTANCE WINAPI note(
        HWND, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, INT show)
    {
        std::wstring call = std::wstring{ verb } + L"|" + file + L"|" + (parameters ? parameters : L"");
        if (folder || show != SW_SHOWNORMAL)
            call += L"|unexpected";
        calls.push_back(call);
        return reinterpret_cast<HINSTANCE>(shell_answer);
    }

    static inline INT_PTR shell_answer = 0;

    ReplacedImport<decltype(ShellExecuteW)> replaced_{ &__imp_ShellExecuteW, &note };
};

} // namespace gui
