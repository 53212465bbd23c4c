// Byte sources and sinks: readers and writers use these, so tests and fuzzers run them without a disk.
#pragma once
#include "platform/file.hpp"
#include <cstddef>
#include <cstdint>
#include <span>

namespace book {

class ByteSource {
public:
    virtual ~ByteSource() = default;
    // Reads into the start of `target` and returns the number of bytes read; 0 at the end and on failure.
    virtual std::size_t read(std::span<std::byte> target) = 0;
    virtual void restart() = 0;
    // Total size in bytes; 0 if unknown.
    virtual std::uint64_t size() = 0;
};

class ByteSink {
public:
    virtual ~ByteSink() = default;
    // Does not report failure: bytes that cannot be written are missing.
    virtual void write(std::span<const std::byte> bytes) = 0;
};

// Reads an open file, which must outlive the source.
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
