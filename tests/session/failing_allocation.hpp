// An allocation of the program under test that fails.
#pragma once
#include <cstddef>

namespace session_walk {

// Counts allocations from now on; the `nth` from here fails, and so do the `more` that follow it.
void fail_allocation(std::size_t nth, std::size_t more = 0);
// Counts none for now.
void spare_allocations();
void resume_allocations();
std::size_t allocations_counted();
bool has_allocation_failed();

// For what the tests do themselves.
class SpareAllocations {
public:
    SpareAllocations();
    SpareAllocations(const SpareAllocations&) = delete;
    SpareAllocations& operator=(const SpareAllocations&) = delete;
    ~SpareAllocations();

private:
    bool was_counting_;
};

} // namespace session_walk
