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

// The system's own where it has one. Serves one thread at a time.
class HashProvider {
public:
    HashProvider();

    // False when the system gives none; no digest is made then.
    bool is_ready() const;
    std::optional<Digest> digest(std::span<const std::byte> bytes);

private:
    struct SystemProvider {
        using Handle = void*;
        static Handle invalid() noexcept { return nullptr; }
        static void close(Handle handle) noexcept;
    };

    unique_handle<SystemProvider> provider_; // none where the system has none
};

} // namespace platform
