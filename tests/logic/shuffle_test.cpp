// The random order of a seed, the same on every system.
#include "book/book.hpp"
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

using Order = std::vector<std::uint64_t>;

Order shuffled(std::size_t count, std::uint32_t seed)
{
    book::Book book;
    book.pages.resize(count);
    book.header.order_mode = static_cast<std::int32_t>(book::OrderMode::random);
    book.header.seed = seed;
    book.rebuild_order();
    return book.order;
}

TEST(Shuffle, GivesTheKnownOrdersOfTenPages)
{
    EXPECT_EQ(shuffled(10, 1), (Order{ 3, 5, 2, 7, 0, 8, 6, 4, 1, 9 }));
    EXPECT_EQ(shuffled(10, 42), (Order{ 9, 0, 2, 6, 7, 8, 1, 4, 3, 5 }));
    EXPECT_EQ(shuffled(10, 5489), (Order{ 4, 0, 3, 1, 5, 7, 6, 2, 9, 8 }));
}

TEST(Shuffle, DependsOnTheSeedAndTheNumberOfPagesOnly)
{
    EXPECT_EQ(shuffled(1000, 7), shuffled(1000, 7));
    EXPECT_NE(shuffled(1000, 7), shuffled(1000, 8));
}

TEST(Shuffle, OfNoPageOrOneDrawsNothing)
{
    EXPECT_EQ(shuffled(0, 1), Order{});
    EXPECT_EQ(shuffled(1, 1), Order{ 0 });
}

// The rule, implemented as literally as possible.
Order shuffled_by_the_rule(std::size_t count, std::uint32_t seed)
{
    Order order(count);
    for (std::size_t i = 0; i < count; ++i)
        order[i] = i;
    std::mt19937 generator(seed);
    for (std::uint64_t k = 1; k < count; ++k) {
        const std::uint64_t n = k + 1;
        std::uint64_t ret = 0;
        std::uint64_t mask = 0;
        do {
            ret = mask = 0;
            while (mask < n - 1) {
                ret <<= 32;
                mask <<= 32;
                ret |= generator();
                mask |= 0xFFFFFFFF;
            }
        } while (!(ret / n < mask / n || mask % n == n - 1));
        if (ret % n != k)
            std::swap(order[k], order[ret % n]);
    }
    return order;
}

TEST(Shuffle, FollowsTheRuleForManySeeds)
{
    for (std::uint32_t seed = 0; seed < 50; ++seed)
        EXPECT_EQ(shuffled(3000, seed * 0x9E3779B9u), shuffled_by_the_rule(3000, seed * 0x9E3779B9u));
}

// In a full Book some draws are rejected.
TEST(Shuffle, FollowsTheRuleWhereDrawsAreRejected)
{
    for (std::uint32_t seed = 0xFFFFFFF8; seed != 0; ++seed)
        EXPECT_EQ(shuffled(book::page_limit, seed), shuffled_by_the_rule(book::page_limit, seed));
}

// If n divides the range of a draw, even its largest numbers are accepted. This seed draws one of them.
TEST(Shuffle, RejectsNoDrawWhereTheRangeIsDividedEvenly)
{
    EXPECT_EQ(shuffled(32768, 6585), shuffled_by_the_rule(32768, 6585));
}

TEST(Shuffle, IsAPermutation)
{
    Order order = shuffled(5000, 3);
    std::sort(order.begin(), order.end());
    for (std::size_t i = 0; i < order.size(); ++i)
        ASSERT_EQ(order[i], i);
}

} // namespace
