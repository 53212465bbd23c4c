#include "platform/hash_provider.hpp"
#include <limits>
#include <windows.h>

#include <bcrypt.h>

namespace platform {

HashProvider::HashProvider()
{
    if (!BCRYPT_SUCCESS(BCryptOpenAlgorithmProvider(&handle_, BCRYPT_SHA256_ALGORITHM, nullptr, 0)))
        handle_ = nullptr;
}

HashProvider::~HashProvider()
{
    if (handle_ != nullptr)
        BCryptCloseAlgorithmProvider(handle_, 0);
}

bool HashProvider::is_ready() const
{
    return handle_ != nullptr;
}

std::optional<Digest> HashProvider::digest(std::span<const std::byte> bytes)
{
    if (!is_ready() || bytes.size() > std::numeric_limits<ULONG>::max())
        return std::nullopt;
    Digest digest{};
    // The call only reads what it is given.
    auto* const input = reinterpret_cast<PUCHAR>(const_cast<std::byte*>(bytes.data()));
    const NTSTATUS told = BCryptHash(handle_, nullptr, 0, input, static_cast<ULONG>(bytes.size()),
        digest.data(), static_cast<ULONG>(digest.size()));
    return BCRYPT_SUCCESS(told) ? std::optional{ digest } : std::nullopt;
}

} // namespace platform
