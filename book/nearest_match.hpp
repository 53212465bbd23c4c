// Finds the nearest page in display order that matches a query.
#pragma once
#include "book/book.hpp"
#include "book/query_matcher.hpp"
#include <atomic>
#include <cstdint>
#include <optional>

namespace book {

class NearestMatch {
public:
    // `book` and `matcher` must outlive this object and stay unchanged during a search.
    NearestMatch(const Book& book, const QueryMatcher& matcher);

    // The position of the nearest match before (direction < 0) or after (direction > 0) the current page;
    // nullopt if no page on that side matches. Searches a long way with several threads.
    std::optional<std::uint64_t> find(int direction);

private:
    // A distance counts pages from the current one in the search direction; the current page has distance 0.
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
    std::atomic<std::uint64_t> next_block_{ 0 }; // distance at which the next free block begins
    std::atomic<std::uint64_t> nearest_{ 0 }; // least distance found so far
};

} // namespace book
