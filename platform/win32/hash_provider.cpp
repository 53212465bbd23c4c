#include "platform/hash_provider.hpp"
#include <windows.h>
#include <bcrypt.h>
#include <limits>

namespace platform {

HashProvider::HashProvider()
{
    if (!BCRYPT_SUCCESS(BCryptOpenAlgorithmProvider(provider_.put(), BCRYPT_SHA256_ALGORITHM, nullptr, 0)))
        provider_.release(); // a failed call may leave a value that is no handle
}

void HashProvider::SystemProvider::close(Handle handle) noexcept
{
    BCryptCloseAlgorithmProvider(handle, 0);
}

bool HashProvider::is_ready() const
{
    return static_cast<bool>(provider_);
}

std::optional<Digest> HashProvider::digest(std::span<const std::byte> bytes)
{
    if (!is_ready() || bytes.size() > std::numeric_limits<ULONG>::max())
        return std::nullopt;
    Digest digest{};
    // The function only reads its input.
    auto* const input = reinterpret_cast<PUCHAR>(const_cast<std::byte*>(bytes.data()));
    const NTSTATUS told = BCryptHash(provider_.get(), nullptr, 0, input, static_cast<ULONG>(bytes.size()),
        digest.data(), static_cast<ULONG>(digest.size()));
    return BCRYPT_SUCCESS(told) ? std::optional{ digest } : std::nullopt;
}

} // namespace platform
