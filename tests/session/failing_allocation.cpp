#include "failing_allocation.hpp"
#include <cstdlib>
#include <new>

namespace {

bool is_counting = false;
bool has_failed = false;
std::size_t counted = 0;
std::size_t first_to_fail = 0;
std::size_t last_to_fail = 0;

void* allocated(std::size_t size)
{
    if (is_counting && ++counted >= first_to_fail && counted <= last_to_fail) {
        has_failed = true;
        return nullptr;
    }
    return std::malloc(size == 0 ? 1 : size);
}

} // namespace

namespace session_walk {

void fail_allocation(std::size_t nth, std::size_t more)
{
    counted = 0;
    first_to_fail = nth;
    last_to_fail = nth + more;
    has_failed = false;
    is_counting = true;
}

void spare_allocations()
{
    is_counting = false;
}

void resume_allocations()
{
    is_counting = true;
}

std::size_t allocations_counted()
{
    return counted;
}

bool has_allocation_failed()
{
    return has_failed;
}

SpareAllocations::SpareAllocations()
    : was_counting_(is_counting)
{
    is_counting = false;
}

SpareAllocations::~SpareAllocations()
{
    is_counting = was_counting_;
}

} // namespace session_walk

void* operator new(std::size_t size)
{
    if (void* const memory = allocated(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocated(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocated(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}
