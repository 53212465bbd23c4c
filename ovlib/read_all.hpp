// Reads until the target is full or the file gives no more.
#pragma once
#include <cstddef>
#include <span>

#include "platform/file.hpp"

namespace ovlib {

// Bytes delivered: less than asked for when the file has shrunk meanwhile.
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
