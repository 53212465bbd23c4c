// Digests by SHA-256.
#pragma once
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
    HashProvider(const HashProvider&) = delete;
    HashProvider& operator=(const HashProvider&) = delete;
    // Some systems have nothing to give back.
    ~HashProvider(); // NOLINT(performance-trivially-destructible)

    // False when the system gives none; no digest is made then.
    bool is_ready() const;
    std::optional<Digest> digest(std::span<const std::byte> bytes);

private:
    [[maybe_unused]] void* handle_ = nullptr; // where the system has one
};

} // namespace platform
