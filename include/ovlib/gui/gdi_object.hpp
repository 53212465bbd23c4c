// Handles of GDI objects and their ownership.
#pragma once
#include "ovlib/handles.hpp"
#include "platform/color.hpp"
#include <windows.h>
#include <cstdint>
#include <string>

namespace ovlib::GDI {

enum class Ownership : std::uint32_t { none = 0, owned = 1, borrowed = 2 };

// An object that is selected into a device context must be deselected before it is destroyed.
class Object {
public:
    Object() = default;
    Object(Object&&) = default;
    Object& operator=(Object&&) = default;
    virtual ~Object();

    // False if an object is owned already. An owned `object` belongs to this call from the start: if it is
    // refused, it is deleted, so that it does not leak.
    bool attach(HGDIOBJ object, Ownership ownership);
    // Releases the current object, then attaches the new one.
    void renew(HGDIOBJ object, Ownership ownership = Ownership::owned);
    // Deletes an owned object, forgets a borrowed one.
    void reset();

    HGDIOBJ handle() const { return held_.get().object; }
    Ownership ownership() const { return held_.get().ownership; }
    explicit operator bool() const { return static_cast<bool>(held_); }

private:
    struct OwnedOrBorrowed {
        struct Handle {
            HGDIOBJ object = nullptr;
            Ownership ownership = Ownership::none;
            bool operator==(const Handle&) const = default;
        };
        static Handle invalid() noexcept { return {}; }
        static void close(Handle held) noexcept;
    };

    unique_handle<OwnedOrBorrowed> held_;
};

class Pen : public Object {
public:
    Pen() = default;
    explicit Pen(HPEN owned) { attach(owned, Ownership::owned); }
    HPEN handle() const { return static_cast<HPEN>(Object::handle()); }
};

class Brush : public Object {
public:
    Brush() = default;
    explicit Brush(HBRUSH owned) { attach(owned, Ownership::owned); }
    HBRUSH handle() const { return static_cast<HBRUSH>(Object::handle()); }
};

// Initially the system's stock font, borrowed.
class Font : public Object {
public:
    Font();
    explicit Font(HFONT owned) { attach(owned, Ownership::owned); }
    HFONT handle() const { return static_cast<HFONT>(Object::handle()); }
};

class Bitmap : public Object {
public:
    Bitmap() = default;
    explicit Bitmap(HBITMAP owned) { attach(owned, Ownership::owned); }
    // 24 bits, bottom-up. Does nothing if a bitmap is owned.
    void create(int width, int height);
    HBITMAP handle() const { return static_cast<HBITMAP>(Object::handle()); }
};

// Each call creates a new object that the caller owns.
HPEN solid_pen(int width, Color color);
HBRUSH solid_brush(Color color);
// Loads a bitmap file as a bitmap with accessible pixels; null if it cannot be read.
HBITMAP load_bitmap(const std::wstring& path);

} // namespace ovlib::GDI
