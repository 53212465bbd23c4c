// One owner for every way of giving back what a system lends.
#pragma once
#include <utility>

namespace platform {

// Owns one handle and gives it back once: at its own end, or when another handle takes its place. Traits name
// the type of the handle, the value that means none, and how a handle is given back:
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
    // Moved to itself it keeps its handle.
    unique_handle& operator=(unique_handle&& other) noexcept
    {
        reset(other.release());
        return *this;
    }
    ~unique_handle() { reset(); }

    Handle get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != Traits::invalid(); }

    // The handle is the caller's from here on.
    Handle release() noexcept { return std::exchange(handle_, Traits::invalid()); }
    // The same handle again is kept.
    void reset(Handle handle = Traits::invalid()) noexcept
    {
        const Handle old = std::exchange(handle_, handle);
        if (old != handle && old != Traits::invalid())
            Traits::close(old);
    }
    // For a call that returns a handle through a pointer. What was held is given back first.
    Handle* put() noexcept
    {
        reset();
        return &handle_;
    }

private:
    Handle handle_ = Traits::invalid();
};

// Traits of a handle for which null means none, given back by one function.
template <class Type, auto give_back> struct GivenBackBy {
    using Handle = Type;
    static Handle invalid() noexcept { return nullptr; }
    static void close(Handle handle) noexcept { give_back(handle); }
};

} // namespace platform
