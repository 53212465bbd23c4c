// A share that does not answer.
#pragma once
#include "ovlib/event.hpp"
#include "tests/support/gui_calls.hpp"
#include <windows.h>
#include <atomic>
#include <optional>
#include <shellapi.h>
#include <shobjidl.h>
#include <string>

// The import addresses, which the linker names after the functions.
extern "C" void* __imp_CreateFileW; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp_GetFileAttributesW; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp_SHCreateItemFromParsingName; // NOLINT(bugprone-reserved-identifier)
extern "C" void* __imp_SHGetFileInfoW; // NOLINT(bugprone-reserved-identifier)

namespace gui {

// During its lifetime, a thread that queries a path with "silent" in it blocks in the file system until the
// call is cancelled. Only the thread that made this object gets an error at once.
class SilentShare {
public:
    SilentShare()
    {
        CreatePipe(&pipe_end, &other_end_, nullptr, 0);
        asked.reset();
        broken_off.reset();
        maker = GetCurrentThreadId();
        makers_questions = 0;
        // The functions' names would be jumps through the imports, which are redirected to this class.
        original = reinterpret_cast<decltype(original)>(__imp_GetFileAttributesW);
        original_open = reinterpret_cast<decltype(original_open)>(__imp_CreateFileW);
        original_item = reinterpret_cast<decltype(original_item)>(__imp_SHCreateItemFromParsingName);
        original_icon = reinterpret_cast<decltype(original_icon)>(__imp_SHGetFileInfoW);
        replaced_.emplace(&__imp_GetFileAttributesW, &attributes);
        replaced_open_.emplace(&__imp_CreateFileW, &open);
        replaced_item_.emplace(&__imp_SHCreateItemFromParsingName, &item);
        replaced_icon_.emplace(&__imp_SHGetFileInfoW, &icon);
    }
    ~SilentShare()
    {
        replaced_icon_.reset();
        replaced_item_.reset();
        replaced_open_.reset();
        replaced_.reset();
        CloseHandle(other_end_);
        CloseHandle(pipe_end);
    }
    SilentShare(const SilentShare&) = delete;
    SilentShare& operator=(const SilentShare&) = delete;

    // Set when another thread queries the share, and when such a call returns.
    static inline ovlib::Event asked{ ovlib::Event::Reset::manual };
    static inline ovlib::Event broken_off{ ovlib::Event::Reset::manual };
    // Queries of the constructing thread: attributes, the file itself, the shell item and its icon.
    static inline int makers_questions = 0;

protected:
    static inline std::atomic<bool> is_stuck = false;
    static inline ovlib::Event released{ ovlib::Event::Reset::manual };

private:
    static bool is_silent(const wchar_t* path)
    {
        return std::wstring{ path }.find(L"silent") != std::wstring::npos;
    }
    static HANDLE WINAPI open(const wchar_t* path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
        DWORD disposition, DWORD flags, HANDLE model)
    {
        if (!is_silent(path))
            return original_open(path, access, share, security, disposition, flags, model);
        ++makers_questions;
        SetLastError(ERROR_BAD_NETPATH);
        return INVALID_HANDLE_VALUE;
    }
    static HRESULT WINAPI item(const wchar_t* path, IBindCtx* context, REFIID id, void** made)
    {
        if (!is_silent(path))
            return original_item(path, context, id, made);
        ++makers_questions;
        *made = nullptr;
        return HRESULT_FROM_WIN32(ERROR_BAD_NETPATH);
    }
    static DWORD_PTR WINAPI icon(
        const wchar_t* path, DWORD attributes, SHFILEINFOW* facts, UINT size, UINT wanted)
    {
        if (!is_silent(path))
            return original_icon(path, attributes, facts, size, wanted);
        ++makers_questions;
        return 0;
    }
    static DWORD WINAPI attributes(const wchar_t* path)
    {
        if (!is_silent(path))
            return original(path);
        if (GetCurrentThreadId() == maker) {
            ++makers_questions;
        } else {
            asked.set();
            char byte = 0;
            DWORD count = 0;
            if (is_stuck)
                released.wait(INFINITE);
            else
                ReadFile(pipe_end, &byte, 1, &count, nullptr);
            broken_off.set();
        }
        SetLastError(ERROR_BAD_NETPATH);
        return INVALID_FILE_ATTRIBUTES;
    }

    static inline decltype(GetFileAttributesW)* original = nullptr;
    static inline decltype(CreateFileW)* original_open = nullptr;
    static inline decltype(SHCreateItemFromParsingName)* original_item = nullptr;
    static inline decltype(SHGetFileInfoW)* original_icon = nullptr;
    static inline HANDLE pipe_end = nullptr;
    static inline DWORD maker = 0;

    HANDLE other_end_ = nullptr;
    std::optional<ReplacedImport<decltype(GetFileAttributesW)>> replaced_;
    std::optional<ReplacedImport<decltype(CreateFileW)>> replaced_open_;
    std::optional<ReplacedImport<decltype(SHCreateItemFromParsingName)>> replaced_item_;
    std::optional<ReplacedImport<decltype(SHGetFileInfoW)>> replaced_icon_;
};

// A share whose waits cannot be cancelled either. They end with this object.
class StuckShare : public SilentShare {
public:
    StuckShare()
    {
        released.reset();
        is_stuck = true;
    }
    ~StuckShare()
    {
        is_stuck = false;
        released.set();
    }
};

} // namespace gui
