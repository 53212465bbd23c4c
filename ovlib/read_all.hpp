// Reads until the target is full or the file ends.
#pragma once
#include "platform/file.hpp"
#include <cstddef>
#include <span>

namespace ovlib {

// Returns the number of bytes read. It is smaller than the target if the file has become shorter meanwhile.
inline std::size_t read_all(platform::File& file, std::span<std::byte> target)
{
    std::size_t total = 0;
    while (total < target.size()) {
        const std::size_t got = file.read(target.subspan(total));
        if (got == 0)
            break;
        total += got;
    }
    return total;
}

} // namespace ovlib
