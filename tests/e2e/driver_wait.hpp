// Waiting for a state with a deadline. Anything that does not happen in time throws DriverError, which
// GoogleTest reports as a failure of the running test.
#pragma once
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

namespace e2e {

using std::chrono::milliseconds;

// Long enough for a loaded machine; a passing test never waits this long.
inline constexpr milliseconds patience{ 20000 };

class DriverError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Returns true as soon as `holds()` is true, false when `limit` has passed.
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

// Returns true if `holds()` stays true until `span` has passed, false as soon as it is not.
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
        throw DriverError("timed out: " + what);
}

} // namespace e2e
