// An event of the system, for waiting.
#pragma once
#include <cstdint>
#include <windows.h>

namespace ovlib {

class Event {
public:
    enum class Reset { automatic, manual };

    explicit Event(Reset reset = Reset::automatic, bool signalled = false);
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event();

    bool set();
    bool reset();
    // True when it was signalled within the time.
    bool wait(std::uint32_t milliseconds = INFINITE) const;

    // Null when the system had none to give.
    HANDLE handle() const { return handle_; }

private:
    HANDLE handle_;
};

} // namespace ovlib
