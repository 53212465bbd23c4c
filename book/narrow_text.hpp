// A piece of text, reduced to the low byte of each unit. A term is searched by two of its units ("probes"): a
// place where either low byte differs cannot hold the term, and SSE2 tests sixteen places per instruction.
// The low bytes keep the work equal whatever the size of wchar_t, and several terms share one narrowing of
// the text, which is where most of the time goes. A place that passes both tests is only a candidate: the
// caller compares the whole term there.
#pragma once
#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#if defined(__SSE2__) || defined(_M_X64)
#define PAGEWICK_SSE2
#include <emmintrin.h>
#endif

namespace book {

// A byte test that every occurrence of a term passes: (low byte at start + offset) | mask == value. Other
// units may pass it too. `mask` has the bits in which the letter's upper and lower case differ, so either
// case passes.
struct Probe {
    using Block = std::array<std::uint8_t, 16>;

    std::size_t offset = 0;
    Block mask{}; // the same byte 16 times, ready for SSE2
    Block value{};
};

class NarrowText {
public:
    // A piece covers this many start places. 1 KiB stays in the first-level cache while all terms use it.
    static constexpr std::size_t most_starts = 1024;
    // Probe offsets are below this: so many units after the last start place are narrowed too.
    static constexpr std::size_t reach = 32;

    // Narrows the beginning of `text`, at most `most_starts` + `reach` units.
    explicit NarrowText(std::wstring_view text)
    {
        const std::size_t length = std::min(text.size(), most_starts + reach);
        narrow(text.data(), length);
        // The last group of 64 places reads past the text.
        std::fill_n(bytes_.begin() + static_cast<std::ptrdiff_t>(length), group + reach, std::uint8_t{ 0 });
    }

    // The first place below `starts` that passes both probes and for which `accept` is true; `starts` if
    // none.
    template <typename Accept>
    std::size_t find(const Probe& first, const Probe& second, std::size_t starts, Accept accept) const
    {
        for (std::size_t at = 0; at < starts; at += group)
            for (std::uint64_t shown = shown_in_group(first, second, at); shown != 0; shown &= shown - 1) {
                const std::size_t start = at + static_cast<std::size_t>(std::countr_zero(shown));
                if (start >= starts)
                    break;
                if (accept(start))
                    return start;
            }
        return starts;
    }

private:
    static constexpr std::size_t group = 64;

    void narrow(const wchar_t* units, std::size_t count);
    void narrow_one_by_one(const wchar_t* units, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            bytes_[i] = static_cast<std::uint8_t>(units[i]);
    }
    // Bit i is set if place start + i passes both probes.
    std::uint64_t shown_in_group(const Probe& first, const Probe& second, std::size_t start) const;

    std::array<std::uint8_t, most_starts + reach + group + reach> bytes_;
};

#if defined(PAGEWICK_SSE2)
namespace sse2 {

inline __m128i load(const void* bytes)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

// The low bytes of eight units, each in sixteen bits.
inline __m128i low_bytes_of_eight(const wchar_t* units)
{
    if constexpr (sizeof(wchar_t) == 2)
        return _mm_and_si128(load(units), _mm_set1_epi16(0xFF));
    else
        return _mm_packs_epi32(_mm_and_si128(load(units), _mm_set1_epi32(0xFF)),
            _mm_and_si128(load(units + 4), _mm_set1_epi32(0xFF)));
}

} // namespace sse2

inline void NarrowText::narrow(const wchar_t* units, std::size_t count)
{
    const auto narrow_sixteen = [&](std::size_t i) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes_.data() + i),
            _mm_packus_epi16(sse2::low_bytes_of_eight(units + i), sse2::low_bytes_of_eight(units + i + 8)));
    };
    if (count < 16) {
        narrow_one_by_one(units, count);
        return;
    }
    // The last sixteen units may overlap the ones before, so that no unit past the text is read.
    for (std::size_t i = 0; i + 16 < count; i += 16)
        narrow_sixteen(i);
    narrow_sixteen(count - 16);
}

inline std::uint64_t NarrowText::shown_in_group(
    const Probe& first, const Probe& second, std::size_t start) const
{
    const auto shown = [&](const Probe& probe, std::size_t block) {
        const __m128i bytes = sse2::load(bytes_.data() + start + 16 * block + probe.offset);
        return _mm_cmpeq_epi8(
            _mm_or_si128(bytes, sse2::load(probe.mask.data())), sse2::load(probe.value.data()));
    };
    const auto both = [&](std::size_t block) {
        return _mm_and_si128(shown(first, block), shown(second, block));
    };
    // Most groups hold no candidate at all: one test for all 64 places before any bits are gathered.
    const __m128i blocks[] = { both(0), both(1), both(2), both(3) };
    if (_mm_movemask_epi8(
            _mm_or_si128(_mm_or_si128(blocks[0], blocks[1]), _mm_or_si128(blocks[2], blocks[3])))
        == 0)
        return 0;
    std::uint64_t bits = 0;
    for (std::size_t block = 0; block < 4; ++block)
        bits |= static_cast<std::uint64_t>(_mm_movemask_epi8(blocks[block])) << 16 * block;
    return bits;
}
#else
inline void NarrowText::narrow(const wchar_t* units, std::size_t count)
{
    narrow_one_by_one(units, count);
}

inline std::uint64_t NarrowText::shown_in_group(
    const Probe& first, const Probe& second, std::size_t start) const
{
    const auto shown = [&](const Probe& probe, std::size_t i) {
        return (bytes_[start + i + probe.offset] | probe.mask[0]) == probe.value[0];
    };
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < group; ++i)
        bits |= std::uint64_t{ shown(first, i) && shown(second, i) } << i;
    return bits;
}
#endif

} // namespace book
