// Reads numbers from untrusted bytes at offsets that the bytes themselves name.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace platform {

enum class ByteOrder { little, big };

// Any offset may be read: bytes past the end are 0.
class ByteView {
public:
    explicit ByteView(std::span<const std::byte> bytes)
        : bytes_(bytes)
    {
    }

    std::span<const std::byte> bytes() const { return bytes_; }
    std::uint64_t size() const { return bytes_.size(); }
    bool has(std::uint64_t at, std::uint64_t count) const { return at <= size() && count <= size() - at; }
    std::uint8_t byte(std::uint64_t at) const
    {
        return at < size() ? std::to_integer<std::uint8_t>(bytes_[static_cast<std::size_t>(at)])
                           : std::uint8_t{ 0 };
    }
    std::uint16_t number16(std::uint64_t at, ByteOrder order) const
    {
        return static_cast<std::uint16_t>(number(at, 2, order));
    }
    std::uint32_t number32(std::uint64_t at, ByteOrder order) const
    {
        return static_cast<std::uint32_t>(number(at, 4, order));
    }
    // A number of up to eight bytes.
    std::uint64_t number(std::uint64_t at, unsigned count, ByteOrder order) const
    {
        std::uint64_t value = 0;
        for (unsigned i = 0; i < count; ++i)
            value = value << 8 | byte(at + (order == ByteOrder::big ? i : count - 1 - i));
        return value;
    }
    bool begins_with(std::string_view signature, std::uint64_t at = 0) const
    {
        if (!has(at, signature.size()))
            return false;
        for (std::size_t i = 0; i < signature.size(); ++i)
            if (byte(at + i) != static_cast<std::uint8_t>(signature[i]))
                return false;
        return true;
    }

private:
    std::span<const std::byte> bytes_;
};

} // namespace platform
