// The nearest page in display order that a query matches.
#pragma once
#include "book/book.hpp"
#include "book/query_matcher.hpp"
#include <atomic>
#include <cstdint>
#include <optional>

namespace book {

class NearestMatch {
public:
    // Looks at `book` and `matcher` as long as it lives.
    NearestMatch(const Book& book, const QueryMatcher& matcher);

    // Its position; nothing when no page on that side of the current one matches. Direction below or above 0.
    std::optional<std::uint64_t> find(int direction);

private:
    // Pages are counted from the current one: it has the distance 0.
    std::uint64_t position_at(std::uint64_t distance) const;
    bool matches_at(std::uint64_t distance) const;
    std::uint64_t first_match(std::uint64_t from, std::uint64_t to) const;
    void search_with_helpers();
    void search_blocks();
    void prefetch_ahead(std::uint64_t distance) const;

    const Book& book_;
    const QueryMatcher& matcher_;
    int direction_ = 0;
    std::uint64_t last_distance_ = 0;
    std::atomic<std::uint64_t> next_block_{ 0 }; // distance where the next untouched block begins
    std::atomic<std::uint64_t> nearest_{ 0 }; // least distance found so far
};

} // namespace book
