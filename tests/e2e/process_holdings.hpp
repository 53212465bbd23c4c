// The resources of a program that it could leak.
#pragma once
#include "driver_program.hpp"
#include <string>

namespace e2e {

struct Holdings {
    std::size_t gdi_objects = 0;
    std::size_t windows = 0;
    std::size_t kernel_handles = 0;
    std::size_t private_bytes = 0;
};
Holdings holdings_of(const Program& program);
std::string to_string(const Holdings& holdings);
// Throws DriverError if `to` exceeds `from` by more than normal fluctuation.
void require_no_growth(const Holdings& from, const Holdings& to);

} // namespace e2e
