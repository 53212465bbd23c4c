#include "ovlib/event.hpp"

namespace ovlib {

Event::Event(Reset reset, bool signalled)
    : handle_(CreateEventW(nullptr, reset == Reset::manual, signalled, nullptr))
{
}

Event::~Event()
{
    if (handle_ != nullptr)
        CloseHandle(handle_);
}

bool Event::set()
{
    return SetEvent(handle_) != FALSE;
}

bool Event::reset()
{
    return ResetEvent(handle_) != FALSE;
}

bool Event::wait(std::uint32_t milliseconds) const
{
    return WaitForSingleObject(handle_, milliseconds) == WAIT_OBJECT_0;
}

} // namespace ovlib
