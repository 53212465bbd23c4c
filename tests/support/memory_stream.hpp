// Byte sources and sinks in memory.
#pragma once
#include "book/byte_stream.hpp"
#include <algorithm>
#include <cstring>
#include <vector>

namespace test_support {

// Delivers `bytes` in pieces of the given sizes, repeating the last one; without sizes, as many as requested.
class MemorySource final : public book::ByteSource {
public:
    explicit MemorySource(std::vector<std::byte> bytes, std::vector<std::size_t> sizes = {})
        : bytes_(std::move(bytes))
        , sizes_(std::move(sizes))
    {
    }

    std::size_t read(std::span<std::byte> target) override
    {
        ++reads;
        std::size_t count = std::min(target.size(), bytes_.size() - pos_);
        if (!sizes_.empty())
            count = std::min(count, sizes_[std::min(next_size_++, sizes_.size() - 1)]);
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(pos_), count, target.begin());
        pos_ += count;
        return count;
    }
    // Does not restart the sizes.
    void restart() override { pos_ = 0; }
    std::uint64_t size() override { return bytes_.size(); }

    int reads = 0;

private:
    std::vector<std::byte> bytes_;
    std::vector<std::size_t> sizes_;
    std::size_t pos_ = 0;
    std::size_t next_size_ = 0;
};

class MemorySink final : public book::ByteSink {
public:
    void write(std::span<const std::byte> written) override
    {
        bytes.insert(bytes.end(), written.begin(), written.end());
        ++writes;
    }

    std::vector<std::byte> bytes;
    int writes = 0;
};

} // namespace test_support
