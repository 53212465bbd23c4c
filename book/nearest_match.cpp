#include "book/nearest_match.hpp"
#include <algorithm>
#include <limits>
#include <system_error>
#include <thread>
#include <vector>
#if defined(__SSE2__) || defined(_M_X64)
#include <xmmintrin.h>
#endif

// Pages are numbered by their distance from the current one, so that "next" and "previous" are the same
// search for the least distance. The first pages are searched on the calling thread. The rest is cut into
// blocks that all threads take from one counter, from near to far. Each block that is begun is searched up to
// its first match, and `nearest_` only ever decreases, so the least match of the searched blocks wins however
// the threads interleave.

namespace book {

namespace {

constexpr std::uint64_t none = std::numeric_limits<std::uint64_t>::max();
// Most searches end within these pages, in less time than a thread takes to start.
constexpr std::uint64_t pages_without_helpers = 2048;
constexpr std::uint64_t block_pages = 512;
// More threads gain nothing: memory bandwidth is the limit.
constexpr unsigned most_threads = 4;

void prefetch(const void* address)
{
#if defined(__SSE2__) || defined(_M_X64)
    _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
#else
    static_cast<void>(address);
#endif
}

void prefetch(const void* begin, std::size_t bytes)
{
    constexpr std::size_t cache_line = 64;
    for (std::size_t i = 0; i < bytes; i += cache_line)
        prefetch(static_cast<const char*>(begin) + i);
}

} // namespace

NearestMatch::NearestMatch(const Book& book, const QueryMatcher& matcher)
    : book_(book)
    , matcher_(matcher)
{
}

std::optional<std::uint64_t> NearestMatch::find(int direction)
{
    direction_ = direction;
    last_distance_ = direction < 0 ? book_.header.position : book_.pages.size() - 1 - book_.header.position;
    const std::uint64_t end_alone = std::min(last_distance_, pages_without_helpers) + 1;
    nearest_ = first_match(1, end_alone);
    if (nearest_ == none && end_alone <= last_distance_) {
        next_block_ = end_alone;
        search_with_helpers();
    }
    if (nearest_ == none)
        return std::nullopt;
    return position_at(nearest_);
}

std::uint64_t NearestMatch::position_at(std::uint64_t distance) const
{
    return direction_ < 0 ? book_.header.position - distance : book_.header.position + distance;
}

bool NearestMatch::matches_at(std::uint64_t distance) const
{
    return matcher_.matches(book_.pages[book_.position_to_index(position_at(distance))]);
}

// The least matching distance in [from, to), or `none`.
std::uint64_t NearestMatch::first_match(std::uint64_t from, std::uint64_t to) const
{
    const bool is_scattered = book_.order.size() == book_.pages.size();
    for (std::uint64_t distance = from; distance < to; ++distance) {
        if (is_scattered)
            prefetch_ahead(distance);
        if (matches_at(distance))
            return distance;
    }
    return none;
}

void NearestMatch::search_with_helpers()
{
    std::vector<std::jthread> helpers;
    const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1u, most_threads);
    try {
        for (unsigned i = 1; i < threads; ++i)
            helpers.emplace_back([this] { search_blocks(); });
    } catch (const std::system_error&) {
        // Without helpers this thread searches all blocks.
    }
    search_blocks();
}

// Takes blocks until one of them lies past the last page or some thread has a match.
void NearestMatch::search_blocks()
{
    for (;;) {
        const std::uint64_t begin = next_block_.fetch_add(block_pages);
        if (begin > last_distance_ || nearest_ != none)
            return;
        const std::uint64_t found = first_match(begin, std::min(begin + block_pages, last_distance_ + 1));
        std::uint64_t nearest = nearest_;
        while (found < nearest && !nearest_.compare_exchange_weak(nearest, found)) { }
    }
}

// In a sorted or shuffled Book the next pages lie anywhere in memory, and waiting for them costs more than
// comparing. A page's record has to arrive before its text can be fetched, so the record is fetched further
// ahead.
void NearestMatch::prefetch_ahead(std::uint64_t distance) const
{
    constexpr std::uint64_t record_ahead = 6;
    constexpr std::uint64_t text_ahead = 2;
    if (distance + record_ahead <= last_distance_) {
        const Page& page = book_.pages[book_.position_to_index(position_at(distance + record_ahead))];
        prefetch(page.text.data(), sizeof page.text);
    }
    if (distance + text_ahead <= last_distance_)
        for (const std::wstring& text :
            book_.pages[book_.position_to_index(position_at(distance + text_ahead))].text)
            prefetch(text.data(), text.size() * sizeof(wchar_t));
}

} // namespace book
