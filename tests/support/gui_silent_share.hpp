// A share that does not answer.
#pragma once
#include "ovlib/event.hpp"
#include "tests/support/gui_calls.hpp"
#include <optional>
#include <string>
#include <windows.h>

// The import itself, which the linker names after the function.
extern "C" void* __imp_GetFileAttributesW; // NOLINT(bugprone-reserved-identifier)

namespace gui {

// While it lives, whoever asks for a path with "silent" in it waits in the file system for ever, until the
// call is broken off. Only the thread that made it is told at once that there is no such share.
class SilentShare {
public:
    SilentShare()
    {
        CreatePipe(&pipe_end, &other_end_, nullptr, 0);
        asked.reset();
        broken_off.reset();
        maker = GetCurrentThreadId();
        makers_questions = 0;
        // Its name would give a jump through the import, which by then leads here.
        original = reinterpret_cast<decltype(original)>(__imp_GetFileAttributesW);
        replaced_.emplace(&__imp_GetFileAttributesW, &attributes);
    }
    ~SilentShare()
    {
        replaced_.reset();
        CloseHandle(other_end_);
        CloseHandle(pipe_end);
    }
    SilentShare(const SilentShare&) = delete;
    SilentShare& operator=(const SilentShare&) = delete;

    // By another thread; and that such a call came back.
    static inline ovlib::Event asked{ ovlib::Event::Reset::manual };
    static inline ovlib::Event broken_off{ ovlib::Event::Reset::manual };
    static inline int makers_questions = 0;

private:
    static DWORD WINAPI attributes(const wchar_t* path)
    {
        if (std::wstring{ path }.find(L"silent") == std::wstring::npos)
            return original(path);
        if (GetCurrentThreadId() == maker) {
            ++makers_questions;
        } else {
            asked.set();
            char byte = 0;
            DWORD count = 0;
            ReadFile(pipe_end, &byte, 1, &count, nullptr);
            broken_off.set();
        }
        SetLastError(ERROR_BAD_NETPATH);
        return INVALID_FILE_ATTRIBUTES;
    }

    static inline decltype(GetFileAttributesW)* original = nullptr;
    static inline HANDLE pipe_end = nullptr;
    static inline DWORD maker = 0;

    HANDLE other_end_ = nullptr;
    std::optional<ReplacedImport<decltype(GetFileAttributesW)>> replaced_;
};

} // namespace gui
