#include "ovlib/gui/drag_files.hpp"
#include "controls/drop_data.hpp"
#include "ovlib/handles.hpp"
#include <algorithm>
#include <span>
#include <utility>

namespace ovlib {

namespace {

bool is_dragging_now = false;

// Movable memory with a copy of these bytes; empty without memory.
UniqueGlobalMemory memory_with(std::span<const std::byte> bytes)
{
    UniqueGlobalMemory memory{ GlobalAlloc(GMEM_MOVEABLE, bytes.size()) };
    if (!memory)
        return memory;
    const UniqueGlobalLock lock{ GlobalLock(memory.get()) };
    std::ranges::copy(bytes, static_cast<std::byte*>(lock.get()));
    return memory;
}

HRESULT deliver(std::span<const std::byte> bytes, STGMEDIUM& medium)
{
    UniqueGlobalMemory memory = memory_with(bytes);
    if (!memory)
        return E_OUTOFMEMORY;
    medium.tymed = TYMED_HGLOBAL;
    medium.hGlobal = memory.release();
    medium.pUnkForRelease = nullptr;
    return S_OK;
}

// The shell's enumerator copies the records.
HRESULT shell_enumerator(const std::vector<FORMATETC>& formats, IEnumFORMATETC** enumerator)
{
    using Create = HRESULT(WINAPI*)(UINT, const FORMATETC*, IEnumFORMATETC**);
    constexpr WORD ordinal = 74; // SHCreateStdEnumFmtEtc
    HMODULE const shell = GetModuleHandleW(L"shell32.dll");
    FARPROC const found = shell ? GetProcAddress(shell, MAKEINTRESOURCEA(ordinal)) : nullptr;
    if (!found)
        return E_NOTIMPL;
    const auto create = reinterpret_cast<Create>(reinterpret_cast<void*>(found));
    return create(static_cast<UINT>(formats.size()), formats.data(), enumerator);
}

// OLE calls these objects, and no exception may reach it.
template <class Body> HRESULT guarded(Body body)
try {
    return body();
} catch (...) {
    return E_UNEXPECTED;
}

} // namespace

DragScope::DragScope()
    : is_mine_(!std::exchange(is_dragging_now, true))
{
}

DragScope::~DragScope()
{
    if (is_mine_)
        is_dragging_now = false;
}

bool DragScope::is_dragging()
{
    return is_dragging_now;
}

HRESULT DragFiles::QueryContinueDrag(BOOL escape_pressed, DWORD keys)
{
    if (escape_pressed)
        return DRAGDROP_S_CANCEL;
    return (keys & MK_LBUTTON) ? S_OK : DRAGDROP_S_DROP;
}

HRESULT DragFiles::GiveFeedback(DWORD)
{
    return DRAGDROP_S_USEDEFAULTCURSORS;
}

bool DragDataObject::offers(CLIPFORMAT format) const
{
    return (format == CF_HDROP && !paths.empty()) || (format == CF_UNICODETEXT && !text.empty());
}

// `tymed` is a mask: a target may accept other media too.
HRESULT DragDataObject::QueryGetData(FORMATETC* format)
{
    if (format == nullptr)
        return E_INVALIDARG;
    if (format->dwAspect != DVASPECT_CONTENT || !(format->tymed & TYMED_HGLOBAL))
        return DV_E_TYMED;
    return offers(format->cfFormat) ? S_OK : DV_E_FORMATETC;
}

HRESULT DragDataObject::GetData(FORMATETC* format, STGMEDIUM* medium)
{
    if (medium == nullptr)
        return E_INVALIDARG;
    *medium = {};
    const HRESULT answer = QueryGetData(format);
    if (FAILED(answer))
        return answer;
    if (paths.empty())
        return DV_E_FORMATETC;
    return guarded([&] {
        if (format->cfFormat == CF_HDROP)
            return deliver(drop_block(paths), *medium);
        const std::wstring& path = paths.front();
        return deliver(std::as_bytes(std::span{ path.c_str(), path.size() + 1 }), *medium);
    });
}

HRESULT DragDataObject::GetDataHere(FORMATETC*, STGMEDIUM*)
{
    return E_NOTIMPL;
}

HRESULT DragDataObject::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* canonical)
{
    if (canonical != nullptr)
        canonical->ptd = nullptr;
    return E_NOTIMPL;
}

HRESULT DragDataObject::SetData(FORMATETC*, STGMEDIUM*, BOOL)
{
    return E_NOTIMPL;
}

HRESULT DragDataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats)
{
    if (formats == nullptr)
        return E_INVALIDARG;
    *formats = nullptr;
    if (direction != DATADIR_GET)
        return E_NOTIMPL;
    return guarded([&] {
        std::vector<FORMATETC> offered;
        for (const CLIPFORMAT format : { CLIPFORMAT{ CF_HDROP }, CLIPFORMAT{ CF_UNICODETEXT } }) {
            if (offers(format))
                offered.push_back(memory_format(format));
        }
        return shell_enumerator(offered, formats);
    });
}

HRESULT DragDataObject::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*)
{
    return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT DragDataObject::DUnadvise(DWORD)
{
    return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT DragDataObject::EnumDAdvise(IEnumSTATDATA**)
{
    return OLE_E_ADVISENOTSUPPORTED;
}

} // namespace ovlib
