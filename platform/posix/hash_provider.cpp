#include "platform/hash_provider.hpp"
#include <algorithm>
#include <bit>

namespace platform {

namespace {

constexpr std::size_t block_size = 64;
constexpr std::size_t length_size = 8;
constexpr std::size_t rounds = 64;
using State = std::array<std::uint32_t, 8>;
using Block = std::array<std::uint8_t, block_size>;

// Our own SHA-256, because only the native build of the logic needs it: Windows programs use the system's. A
// library would be one more package for building and testing.

// The fractional parts of the square roots of the first 8 primes, and of the cube roots of the first 64.
constexpr State start{ 0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a, 0x510e527f, 0x9b05688c, 0x1f83d9ab,
    0x5be0cd19 };
constexpr std::array<std::uint32_t, rounds> constants{ 0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5,
    0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5, 0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3,
    0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174, 0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc,
    0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da, 0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7,
    0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967, 0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13,
    0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85, 0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3,
    0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070, 0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5,
    0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3, 0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208,
    0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2 };

std::array<std::uint32_t, rounds> schedule_of(const Block& block)
{
    std::array<std::uint32_t, rounds> words{};
    for (std::size_t i = 0; i < block_size; ++i)
        words[i / 4] = words[i / 4] << 8 | block[i];
    for (std::size_t i = 16; i < rounds; ++i) {
        const std::uint32_t early = words[i - 15];
        const std::uint32_t late = words[i - 2];
        words[i] = words[i - 16] + words[i - 7] + (std::rotr(early, 7) ^ std::rotr(early, 18) ^ early >> 3)
            + (std::rotr(late, 17) ^ std::rotr(late, 19) ^ late >> 10);
    }
    return words;
}

void mix(State& state, const Block& block)
{
    const std::array<std::uint32_t, rounds> words = schedule_of(block);
    auto [a, b, c, d, e, f, g, h] = state;
    for (std::size_t i = 0; i < rounds; ++i) {
        const std::uint32_t choice = (e & f) ^ (~e & g);
        const std::uint32_t first =
            h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) + choice + constants[i] + words[i];
        const std::uint32_t majority = (a & b) ^ (a & c) ^ (b & c);
        const std::uint32_t second = (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + majority;
        h = g, g = f, f = e, e = d + first;
        d = c, c = b, b = a, a = first + second;
    }
    const State mixed{ a, b, c, d, e, f, g, h };
    for (std::size_t i = 0; i < state.size(); ++i)
        state[i] += mixed[i];
}

void put_length(Block& block, std::uint64_t bits)
{
    for (std::size_t i = 0; i < length_size; ++i)
        block[block_size - 1 - i] = static_cast<std::uint8_t>(bits >> (8 * i));
}

// The last bytes are followed by a set bit and, at the end of their block or of one more, by the length.
void mix_end(State& state, std::span<const std::byte> rest, std::uint64_t bits)
{
    Block block{};
    std::ranges::transform(
        rest, block.begin(), [](std::byte byte) { return std::to_integer<std::uint8_t>(byte); });
    block[rest.size()] = 0x80;
    if (rest.size() >= block_size - length_size) {
        mix(state, block);
        block.fill(0);
    }
    put_length(block, bits);
    mix(state, block);
}

} // namespace

HashProvider::HashProvider() = default;

// Nothing was opened.
void HashProvider::SystemProvider::close(Handle) noexcept { }

bool HashProvider::is_ready() const
{
    return true;
}

std::optional<Digest> HashProvider::digest(std::span<const std::byte> bytes)
{
    const std::uint64_t bits = std::uint64_t{ bytes.size() } * 8;
    State state = start;
    for (; bytes.size() >= block_size; bytes = bytes.subspan(block_size)) {
        Block block{};
        std::ranges::transform(bytes.first(block_size), block.begin(),
            [](std::byte byte) { return std::to_integer<std::uint8_t>(byte); });
        mix(state, block);
    }
    mix_end(state, bytes, bits);
    Digest digest{};
    for (std::size_t i = 0; i < digest.size(); ++i)
        digest[i] = static_cast<std::uint8_t>(state[i / 4] >> (24 - 8 * (i % 4)));
    return digest;
}

} // namespace platform
