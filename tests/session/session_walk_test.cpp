// Takes the same steps every time by default. PAGEWICK_WALK_STEPS makes the walk longer, PAGEWICK_WALK_SEED
// gives it another seed.
#include "session_walker.hpp"
#include "tests/support/environment.hpp"
#include <gtest/gtest.h>
#include <iostream>

namespace {

using test_support::number_from_environment;

TEST(SessionWalk, AgreesWithTheModelAfterEachStep)
{
    constexpr std::size_t steps_of_a_walk = 2000;
    auto steps = static_cast<std::size_t>(number_from_environment("PAGEWICK_WALK_STEPS", 20000));
    auto seed = static_cast<std::uint32_t>(number_from_environment("PAGEWICK_WALK_SEED", 1));
    std::cout << "PAGEWICK_WALK_SEED=" << seed << std::endl;
    for (; steps > 0; ++seed) {
        const std::size_t count = std::min(steps, steps_of_a_walk);
        const std::string complaint = session_walk::walk(seed, count);
        ASSERT_EQ(complaint, "");
        steps -= count;
    }
}

} // namespace
