// An event object of the system.
#pragma once
#include "ovlib/handles.hpp"
#include <windows.h>
#include <cstdint>

namespace ovlib {

class Event {
public:
    enum class Reset { automatic, manual };

    explicit Event(Reset reset = Reset::automatic, bool signalled = false);

    bool set();
    bool reset();
    // True if the event was signalled within the time.
    bool wait(std::uint32_t milliseconds = INFINITE) const;

    // Null if the system could not create one.
    HANDLE handle() const { return handle_.get(); }

private:
    UniqueKernelHandle handle_;
};

} // namespace ovlib
