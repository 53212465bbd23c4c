// Waiting for a state with a deadline. Everything the driver cannot get in time is a DriverError, which
// GoogleTest reports as the failure of the test that runs.
#pragma once
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

namespace e2e {

using std::chrono::milliseconds;

// Long enough for a loaded machine; a test that works never waits it out.
inline constexpr milliseconds patience{ 20000 };

class DriverError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// True as soon as `holds()` does, false when `limit` has passed.
template <class Predicate> bool wait_until(Predicate holds, milliseconds limit = patience)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!holds()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return holds();
        std::this_thread::sleep_for(milliseconds{ 4 });
    }
    return true;
}

// True when `holds()` does at every look until `span` has passed; false at the first look at which it does
// not.
template <class Predicate> bool keeps(Predicate holds, milliseconds span)
{
    const auto end = std::chrono::steady_clock::now() + span;
    while (holds()) {
        if (std::chrono::steady_clock::now() >= end)
            return true;
        std::this_thread::sleep_for(milliseconds{ 4 });
    }
    return false;
}

template <class Predicate>
void require(const std::string& what, Predicate holds, milliseconds limit = patience)
{
    if (!wait_until(holds, limit))
        throw DriverError("waited in vain: " + what);
}

} // namespace e2e
