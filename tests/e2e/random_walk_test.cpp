// Thousands of commands, keys and clicks in random order. A model of what the user may expect takes the same
// steps, and after each step program and model must agree, down to the bytes of every file.
#include "driver_test.hpp"
#include "tests/support/environment.hpp"
#include "walk_walker.hpp"
#include <chrono>
#include <iostream>

using namespace e2e;
using test_support::number_from_environment;

namespace {

using Clock = std::chrono::steady_clock;

class RandomWalk : public EndToEnd {
protected:
    void SetUp() override
    {
        EndToEnd::SetUp();
        walker_ = std::make_unique<walk::Walker>(root(), seed_);
    }
    void TearDown() override
    {
        EndToEnd::TearDown();
        walker_.reset();
    }
    void walk_for(std::chrono::duration<double> time)
    {
        const auto end = Clock::now() + time;
        while (Clock::now() < end) {
            walker_->step();
            walker_->watch_holdings();
        }
        walker_->end();
    }

    const std::uint32_t seed_ = static_cast<std::uint32_t>(number_from_environment("PAGEWICK_WALK_SEED", 7));
    std::unique_ptr<walk::Walker> walker_;
};

} // namespace

TEST_F(RandomWalk, TheProgramAndItsModelAlwaysAgree)
{
    constexpr double usual_minutes = 0.3;
    const double minutes = number_from_environment("PAGEWICK_WALK_MINUTES", usual_minutes);
    const auto began = Clock::now();
    try {
        walk_for(std::chrono::duration<double>(minutes * 60));
    } catch (const std::exception& failure) {
        ADD_FAILURE() << failure.what() << "\nseed " << seed_ << ", step " << walker_->steps()
                      << ", the last actions:\n"
                      << walker_->last_actions();
    }
    const std::chrono::duration<double> taken = Clock::now() - began;
    std::cout << "seed " << seed_ << ": " << walker_->steps() << " steps, " << walker_->saves()
              << " changed files compared, " << static_cast<int>(taken.count()) << " s, "
              << walker_->holdings_text() << std::endl;
}
