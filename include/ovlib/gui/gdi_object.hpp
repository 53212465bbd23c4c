// Handles of GDI objects with their ownership.
#pragma once
#include <cstdint>
#include <string>
#include <windows.h>

#include "ovlib/handles.hpp"
#include "platform/color.hpp"

namespace ovlib::GDI {

enum class Ownership : std::uint32_t { none = 0, owned = 1, borrowed = 2 };

// Whoever selects the object into a device context selects it out again before the object ends.
class Object {
public:
    Object() = default;
    Object(Object&&) = default;
    Object& operator=(Object&&) = default;
    virtual ~Object();

    // Refused, with false, while an object is owned. An owned handle belongs to this call from its start: one
    // that is refused is deleted, so that nothing is lost.
    bool attach(HGDIOBJ object, Ownership ownership);
    // Lets go of what is held, then attaches.
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

// Begins with the system's stock font, borrowed.
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
    // 24 bits, bottom-up. Does nothing while a bitmap is owned.
    void create(int width, int height);
    HBITMAP handle() const { return static_cast<HBITMAP>(Object::handle()); }
};

// Each call makes a new object for the caller to own.
HPEN solid_pen(int width, Color color);
HBRUSH solid_brush(Color color);
// From a bitmap file, with readable pixels; null when it cannot be read.
HBITMAP load_bitmap(const std::wstring& path);

} // namespace ovlib::GDI
