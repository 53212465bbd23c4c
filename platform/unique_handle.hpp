// One owner template for every kind of system handle.
#pragma once
#include <utility>

namespace platform {

// Owns one handle and releases it once: in the destructor, or when another handle replaces it. Traits name
// the handle's type, the value for no handle, and the function that releases it:
//     struct OpenDescriptor {
//         using Handle = int;
//         static Handle invalid() noexcept { return -1; }
//         static void close(Handle descriptor) noexcept { ::close(descriptor); }
//     };
template <class Traits> class unique_handle {
public:
    using Handle = typename Traits::Handle;

    unique_handle() noexcept = default;
    explicit unique_handle(Handle handle) noexcept
        : handle_(handle)
    {
    }
    unique_handle(unique_handle&& other) noexcept
        : handle_(other.release())
    {
    }
    // Moved to itself, it keeps its handle.
    unique_handle& operator=(unique_handle&& other) noexcept
    {
        reset(other.release());
        return *this;
    }
    ~unique_handle() { reset(); }

    Handle get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != Traits::invalid(); }

    // The caller owns the handle from here on.
    Handle release() noexcept { return std::exchange(handle_, Traits::invalid()); }
    // Setting the same handle again does not release it.
    void reset(Handle handle = Traits::invalid()) noexcept
    {
        const Handle old = std::exchange(handle_, handle);
        if (old != handle && old != Traits::invalid())
            Traits::close(old);
    }
    // For functions that return a handle through a pointer. The current handle is released first.
    Handle* put() noexcept
    {
        reset();
        return &handle_;
    }

private:
    Handle handle_ = Traits::invalid();
};

// Traits of a handle whose invalid value is null and that one function releases.
template <class Type, auto give_back> struct GivenBackBy {
    using Handle = Type;
    static Handle invalid() noexcept { return nullptr; }
    static void close(Handle handle) noexcept { give_back(handle); }
};

} // namespace platform
