// Parts shared by the COM objects of the library.
#pragma once
#include <windows.h>
#include <atomic>
#include <cstddef>
#include <objidl.h>
#include <span>
#include <utility>
#include <wrl/client.h>

namespace ovlib {

// Reference count and identity of an object with one interface besides IUnknown. It lives on the heap, starts
// with one reference, which belongs to its creator, and deletes itself with the last one.
template <class Derived, class Interface, const IID& interface_id> class ComObject : public Interface {
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        const bool is_known = id == interface_id || id == IID_IUnknown;
        *object = is_known ? static_cast<Interface*>(this) : nullptr;
        if (!is_known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --references_;
        if (left == 0) {
#ifndef __clang_analyzer__ // it does not follow the count
            delete static_cast<Derived*>(this);
#endif
        }
        return left;
    }

protected:
    ComObject() = default;
    ~ComObject() = default;

private:
    std::atomic<ULONG> references_ = 1;
};

// A new object; the result holds its first reference. ComPtr::Attach adds one in some versions of its header.
template <class Object, class... Arguments> Microsoft::WRL::ComPtr<Object> make_com(Arguments&&... arguments)
{
    Microsoft::WRL::ComPtr<Object> made;
    *made.ReleaseAndGetAddressOf() = new Object{ std::forward<Arguments>(arguments)... };
    return made;
}

// Data in global memory, as OLE passes it. `index` names one of several contents.
FORMATETC memory_format(CLIPFORMAT format, LONG index = -1);

// The data that another object returned; released with everything in it.
class StorageMedium {
public:
    StorageMedium() = default;
    ~StorageMedium() { ReleaseStgMedium(&medium_); }
    StorageMedium(const StorageMedium&) = delete;
    StorageMedium& operator=(const StorageMedium&) = delete;

    // To be called once.
    bool get(IDataObject& source, FORMATETC format);
    // Null unless the data is in global memory.
    HGLOBAL memory() const { return medium_.tymed == TYMED_HGLOBAL ? medium_.hGlobal : nullptr; }

private:
    STGMEDIUM medium_{};
};

// The bytes of a block of global memory, locked during its lifetime; none if it cannot be locked.
class GlobalBlock {
public:
    explicit GlobalBlock(HGLOBAL memory);
    ~GlobalBlock();
    GlobalBlock(const GlobalBlock&) = delete;
    GlobalBlock& operator=(const GlobalBlock&) = delete;

    std::span<const std::byte> bytes() const { return bytes_; }

private:
    HGLOBAL memory_;
    void* start_;
    std::span<const std::byte> bytes_;
};

} // namespace ovlib
