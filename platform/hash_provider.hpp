// Digests by SHA-256.
#pragma once
#include "platform/unique_handle.hpp"
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace platform {

using Digest = std::array<std::uint8_t, 32>;

// Uses the system's implementation if there is one. For one thread at a time.
class HashProvider {
public:
    HashProvider();

    // False if the system provides none; digest then returns nullopt.
    bool is_ready() const;
    std::optional<Digest> digest(std::span<const std::byte> bytes);

private:
    struct SystemProvider {
        using Handle = void*;
        static Handle invalid() noexcept { return nullptr; }
        static void close(Handle handle) noexcept;
    };

    unique_handle<SystemProvider> provider_; // invalid on systems without one
};

} // namespace platform
