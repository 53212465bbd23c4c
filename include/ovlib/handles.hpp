// One owner type for each way of releasing a handle. Those for GDI+ are with its header. GDI::Object owns or
// borrows pens, brushes, fonts and bitmaps.
#pragma once
#include "platform/unique_handle.hpp"
#include <windows.h>
#include <commctrl.h>
#include <objbase.h>

namespace ovlib {

using platform::GivenBackBy;
using platform::unique_handle;

using UniqueGlobalLock = unique_handle<GivenBackBy<HGLOBAL, &GlobalUnlock>>;
using UniqueGlobalMemory = unique_handle<GivenBackBy<HGLOBAL, &GlobalFree>>;
using UniqueIcon = unique_handle<GivenBackBy<HICON, &DestroyIcon>>;
using UniqueImageList = unique_handle<GivenBackBy<HIMAGELIST, &ImageList_Destroy>>;
using UniqueKernelHandle = unique_handle<GivenBackBy<HANDLE, &CloseHandle>>;
using UniqueLibrary = unique_handle<GivenBackBy<HMODULE, &FreeLibrary>>;
using UniqueMemoryDC = unique_handle<GivenBackBy<HDC, &DeleteDC>>;
using UniqueMenu = unique_handle<GivenBackBy<HMENU, &DestroyMenu>>;
using UniqueRegion = unique_handle<GivenBackBy<HRGN, &DeleteObject>>;
template <class Pointer> using UniqueLocalMemory = unique_handle<GivenBackBy<Pointer, &LocalFree>>;
template <class Pointer> using UniqueTaskMemory = unique_handle<GivenBackBy<Pointer, &CoTaskMemFree>>;

// A device context from GetDC, which ReleaseDC needs together with the window's handle.
struct LentDC {
    struct Handle {
        HWND hwnd = nullptr;
        HDC hdc = nullptr;
        bool operator==(const Handle&) const = default;
    };
    static Handle invalid() noexcept { return {}; }
    static void close(Handle lent) noexcept { ReleaseDC(lent.hwnd, lent.hdc); }
};
using UniqueLentDC = unique_handle<LentDC>;

} // namespace ovlib
