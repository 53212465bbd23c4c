// Device contexts and selections into them, each released by its scope.
#pragma once
#include "ovlib/gui/gdi_object.hpp"
#include "ovlib/handles.hpp"
#include <windows.h>

namespace ovlib {

class Wnd;

// A device context that another owner releases.
class DC {
public:
    explicit DC(HDC hdc = nullptr)
        : hdc_(hdc)
    {
    }
    virtual ~DC() = default;
    // In pixels.
    virtual SIZE size() const;

    HDC handle() const { return hdc_; }
    explicit operator bool() const { return hdc_ != nullptr; }

protected:
    HDC hdc_;
};

// The device context of one WM_PAINT.
class PaintDC : public DC {
public:
    explicit PaintDC(const Wnd& wnd);
    PaintDC(const PaintDC&) = delete;
    PaintDC& operator=(const PaintDC&) = delete;
    ~PaintDC() override;
    const RECT& update_rect() const { return paint_.rcPaint; }

private:
    const Wnd& wnd_;
    PAINTSTRUCT paint_{};
};

class ClientDC : public DC {
public:
    explicit ClientDC(const Wnd& wnd);
    ClientDC(const ClientDC&) = delete;
    ClientDC& operator=(const ClientDC&) = delete;

private:
    UniqueLentDC owned_;
};

class MemDC : public DC {
public:
    // Compatible with `like`, or with the screen if null.
    explicit MemDC(HDC like = nullptr);
    MemDC(const MemDC&) = delete;
    MemDC& operator=(const MemDC&) = delete;
    // The size of the selected bitmap; 0 by 0 without one.
    SIZE size() const override;

private:
    UniqueMemoryDC owned_;
};

// Selects an object for the length of a scope. Declare the object's owner before it.
class ObjectSelection {
public:
    ObjectSelection(const DC& dc, HGDIOBJ object);
    ObjectSelection(const DC& dc, const GDI::Object& object)
        : ObjectSelection(dc, object.handle())
    {
    }
    ObjectSelection(const ObjectSelection&) = delete;
    ObjectSelection& operator=(const ObjectSelection&) = delete;
    virtual ~ObjectSelection() { release(); }
    // Selects the previous object again, once.
    void release();
    // False if the system refused the object, and after release.
    explicit operator bool() const { return previous_ != nullptr; }

private:
    const DC* dc_;
    HGDIOBJ previous_;
};

} // namespace ovlib
