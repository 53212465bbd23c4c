// What a fuzzer made, read by blocks of odd sizes.
#pragma once
#include "tests/support/memory_stream.hpp"
#include <cstdint>
#include <span>

namespace fuzz {

// The first byte chooses the sizes of the blocks: zero, as much as is asked for.
inline test_support::MemorySource in_blocks(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return test_support::MemorySource({});
    const auto bytes = std::as_bytes(std::span(data + 1, size - 1));
    const std::size_t chosen = data[0];
    std::vector<std::size_t> sizes;
    if (chosen != 0)
        sizes = { chosen + 1, chosen * 2 };
    return test_support::MemorySource({ bytes.begin(), bytes.end() }, std::move(sizes));
}

} // namespace fuzz
