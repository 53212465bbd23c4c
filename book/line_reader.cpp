#include "book/line_reader.hpp"
#include <bit>
#include <cstdint>
#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define PAGEWICK_SSE2
#endif

// Lines are handed out as views into the block, so nothing is copied except a line that crosses a block
// border. A line end is found by its LF, which SSE2 searches eight units at a time, and confirmed by the CR
// before it; that CR may be the last unit of the previous block, hence `after_cr`.
//
// Boxes 1 and 3 are most of a Book. `append_lines` does not search for their line ends at all: it searches
// for the separator, which is rare, and checks that a line starts there. All text up to it is appended in one
// call per block.

namespace book {

namespace {

constexpr FileUnit carriage_return = 0xD;
constexpr FileUnit line_feed = 0xA;

#if defined(PAGEWICK_SSE2)
constexpr std::ptrdiff_t lanes = sizeof(__m128i) / sizeof(FileUnit);

unsigned equal_lanes(const FileUnit* units, __m128i wanted)
{
    const __m128i found = _mm_cmpeq_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(units)), wanted);
    return static_cast<unsigned>(_mm_movemask_epi8(found));
}
#endif

// The first `unit` in [first, last), or `last`.
const FileUnit* find_unit(const FileUnit* first, const FileUnit* last, FileUnit unit)
{
#if defined(PAGEWICK_SSE2)
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
    for (; last - first >= lanes; first += lanes) {
        if (const unsigned mask = equal_lanes(first, wanted))
            return first + std::countr_zero(mask) / static_cast<int>(sizeof(FileUnit));
    }
#endif
    while (first != last && *first != unit)
        ++first;
    return first;
}

} // namespace

void append_units(std::wstring& text, FileText units)
{
    // Where units are widened, append() copies through a temporary string; constructing takes one pass.
    if constexpr (sizeof(FileUnit) != sizeof(wchar_t)) {
        if (text.empty()) {
            text = std::wstring(units.begin(), units.end());
            return;
        }
    }
    text.append(units.begin(), units.end());
}

LineReader::LineReader(ByteSource& source)
    : source_(source)
{
}

FileText LineReader::read_line()
{
    if (!has_units() && refill() != Delivery::even)
        return {};
    const std::size_t end = end_of_line(false);
    return end ? take_to(end) : read_line_over_blocks();
}

bool LineReader::append_lines(FileUnit stop, std::wstring& text)
{
    bool at_line_start = true;
    bool after_cr = false;
    while (true) {
        if (!has_units()) {
            // A block of an odd number of bytes ends the line in hand, so it starts a new line.
            const Delivery delivery = refill();
            if (delivery == Delivery::none || (delivery == Delivery::odd && at_line_start))
                return false;
            at_line_start = at_line_start || delivery == Delivery::odd;
            after_cr = after_cr && !at_line_start;
        }
        if (at_line_start && block_[pos_] == stop)
            return true;
        const std::size_t end = start_of_line_with(stop, after_cr);
        at_line_start = line_ends_at(end, after_cr);
        after_cr = block_[end - 1] == carriage_return;
        append_units(text, take_to(end));
    }
}

void LineReader::restart()
{
    source_.restart();
    // An odd block takes the high byte of its last unit from here, and it is zero in the first block.
    block_.fill(0);
    pos_ = 0;
    count_ = 0;
    delivered_bytes_ = 0;
    has_ended_ = false;
}

LineReader::Delivery LineReader::refill()
{
    pos_ = 0;
    count_ = 0;
    const std::size_t bytes = has_ended_ ? 0 : source_.read(std::as_writable_bytes(std::span(block_)));
    if (bytes == 0) {
        has_ended_ = true;
        return Delivery::none;
    }
    delivered_bytes_ += bytes;
    count_ = (bytes + 1) / sizeof(FileUnit);
    return bytes % sizeof(FileUnit) == 0 ? Delivery::even : Delivery::odd;
}

// Whether the current line, which begins at pos_ or in an earlier block, ends just before `place`.
// `after_cr`: the unit before pos_ belongs to this line and is a CR.
bool LineReader::line_ends_at(std::size_t place, bool after_cr) const
{
    const std::size_t length = place - pos_;
    if (length == 0 || block_[place - 1] != line_feed)
        return false;
    return length == 1 ? after_cr : block_[place - 2] == carriage_return;
}

// The index after the line's CR LF, or 0 if the line does not end in this block.
std::size_t LineReader::end_of_line(bool after_cr) const
{
    const FileUnit* const last = block_.data() + count_;
    for (const FileUnit* unit = block_.data() + pos_; unit != last; ++unit) {
        unit = find_unit(unit, last, line_feed);
        if (unit == last)
            break;
        const auto place = static_cast<std::size_t>(unit - block_.data()) + 1;
        if (line_ends_at(place, after_cr))
            return place;
    }
    return 0;
}

// The index of the next line that begins with `stop`, or the end of the block. Starts one past pos_: the
// caller has checked the unit at pos_ itself.
std::size_t LineReader::start_of_line_with(FileUnit stop, bool after_cr) const
{
    const FileUnit* const last = block_.data() + count_;
    for (const FileUnit* unit = block_.data() + pos_ + 1; unit != last; ++unit) {
        unit = find_unit(unit, last, stop);
        const auto place = static_cast<std::size_t>(unit - block_.data());
        if (unit == last || line_ends_at(place, after_cr))
            return place;
    }
    return count_;
}

FileText LineReader::take_to(std::size_t place)
{
    const FileText units(block_.data() + pos_, place - pos_);
    pos_ = place;
    return units;
}

FileText LineReader::read_line_over_blocks()
{
    // A block that is empty or odd ends the line without a CR LF.
    long_line_.assign(take_to(count_));
    while (refill() == Delivery::even) {
        const std::size_t end = end_of_line(long_line_.back() == carriage_return);
        long_line_.append(take_to(end ? end : count_));
        if (end)
            break;
    }
    return long_line_;
}

} // namespace book
