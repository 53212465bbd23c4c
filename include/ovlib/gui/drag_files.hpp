// Dragging files to another program.
#pragma once
#include "ovlib/gui/com_object.hpp"
#include <oleidl.h>
#include <string>
#include <vector>

namespace ovlib {

// Marks a drag that this process started, for the length of a scope. At most one runs; a further scope is
// false and marks nothing. Used on the user interface thread only.
class DragScope {
public:
    DragScope();
    ~DragScope();
    DragScope(const DragScope&) = delete;
    DragScope& operator=(const DragScope&) = delete;

    explicit operator bool() const { return is_mine_; }
    // A drag of this process runs.
    static bool is_dragging();

private:
    bool is_mine_;
};

// Ends a drag at Escape or when the left button is released. The order of the virtual functions is fixed.
class DragFiles : public ComObject<DragFiles, IDropSource, IID_IDropSource> {
public:
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape_pressed, DWORD keys) override;
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override;
    virtual ~DragFiles() = default;
};

// The dragged files. The order of the virtual functions is fixed.
class DragDataObject : public ComObject<DragDataObject, IDataObject, IID_IDataObject> {
public:
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
    HRESULT STDMETHODCALLTYPE DAdvise(
        FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* connection) override;
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD connection) override;
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** connections) override;
    virtual ~DragDataObject() = default;

    std::vector<std::wstring> paths;
    // If it is not empty, the format for text is offered too. What is delivered then is the first path.
    std::wstring text;

private:
    bool offers(CLIPFORMAT format) const;
};

} // namespace ovlib
