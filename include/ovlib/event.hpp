// An event of the system, for waiting.
#pragma once
#include <cstdint>
#include <windows.h>

#include "ovlib/handles.hpp"

namespace ovlib {

class Event {
public:
    enum class Reset { automatic, manual };

    explicit Event(Reset reset = Reset::automatic, bool signalled = false);

    bool set();
    bool reset();
    // True when it was signalled within the time.
    bool wait(std::uint32_t milliseconds = INFINITE) const;

    // Null when the system had none to give.
    HANDLE handle() const { return handle_.get(); }

private:
    UniqueKernelHandle handle_;
};

} // namespace ovlib
