#include "ovlib/event.hpp"

namespace ovlib {

Event::Event(Reset reset, bool signalled)
    : handle_(CreateEventW(nullptr, reset == Reset::manual, signalled, nullptr))
{
}

bool Event::set()
{
    return SetEvent(handle_.get()) != FALSE;
}

bool Event::reset()
{
    return ResetEvent(handle_.get()) != FALSE;
}

bool Event::wait(std::uint32_t milliseconds) const
{
    return WaitForSingleObject(handle_.get(), milliseconds) == WAIT_OBJECT_0;
}

} // namespace ovlib
