// Where bytes come from and go to, so that readers and writers need no disk.
#pragma once
#include "platform/file.hpp"
#include <cstddef>
#include <cstdint>
#include <span>

namespace book {

class ByteSource {
public:
    virtual ~ByteSource() = default;
    // Bytes delivered, from the start of `target`; 0 at the end and on failure.
    virtual std::size_t read(std::span<std::byte> target) = 0;
    virtual void restart() = 0;
    // Bytes in all; 0 when that cannot be told.
    virtual std::uint64_t size() = 0;
};

class ByteSink {
public:
    virtual ~ByteSink() = default;
    // A failure is not told: what could not be written is missing.
    virtual void write(std::span<const std::byte> bytes) = 0;
};

// Over an open file, which must outlive it.
class FileSource final : public ByteSource {
public:
    explicit FileSource(platform::File& file)
        : file_(file)
    {
    }

    std::size_t read(std::span<std::byte> target) override { return file_.read(target); }
    void restart() override { file_.seek_to_start(); }
    std::uint64_t size() override { return file_.size().value_or(0); }

private:
    platform::File& file_;
};

class FileSink final : public ByteSink {
public:
    explicit FileSink(platform::File& file)
        : file_(file)
    {
    }

    void write(std::span<const std::byte> bytes) override { file_.write(bytes); }

private:
    platform::File& file_;
};

} // namespace book
