// The turns of a mouse wheel that make a step.
#include "controls/wheel_steps.hpp"
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

using ovlib::WheelSteps;
using Steps = std::vector<int>;

constexpr std::uint32_t between = 10; // milliseconds from one turn to the next

// The steps for turns in quick succession.
Steps steps_of(const std::vector<int>& deltas)
{
    WheelSteps wheel;
    Steps steps;
    std::uint32_t time = 5000;
    for (const int delta : deltas)
        steps.push_back(wheel.turn(delta, time += between));
    return steps;
}

TEST(WheelSteps, ANotchIsOneStep)
{
    EXPECT_EQ(steps_of({ 120, 120, -120, -120 }), (Steps{ 1, 1, -1, -1 }));
}

TEST(WheelSteps, ALargerTurnIsOneStepToo)
{
    EXPECT_EQ(steps_of({ 240, -240, 121, -32768, 32767 }), (Steps{ 1, -1, 1, -1, 1 }));
}

TEST(WheelSteps, SmallTurnsMakeAStepWhenTheyReachANotch)
{
    EXPECT_EQ(steps_of({ 40, 40, 40 }), (Steps{ 0, 0, 1 }));
    EXPECT_EQ(steps_of({ -119, -1 }), (Steps{ 0, -1 }));
    EXPECT_EQ(steps_of({ 1, 118 }), (Steps{ 0, 0 }));
}

TEST(WheelSteps, EachTurnOfOneIsCounted)
{
    const Steps steps = steps_of(std::vector<int>(360, -1));
    for (std::size_t i = 0; i < steps.size(); ++i)
        EXPECT_EQ(steps[i], (i + 1) % 120 == 0 ? -1 : 0) << i;
}

TEST(WheelSteps, TheRemainderCountsForTheNextStep)
{
    EXPECT_EQ(steps_of({ 100, 100, 39, 1 }), (Steps{ 0, 1, 0, 1 }));
    EXPECT_EQ(steps_of({ -70, -70, -70, -30 }), (Steps{ 0, -1, 0, -1 }));
}

TEST(WheelSteps, AChangeOfDirectionDiscardsTheSum)
{
    EXPECT_EQ(steps_of({ 100, -30, 100, 20 }), (Steps{ 0, 0, 0, 1 }));
    EXPECT_EQ(steps_of({ 100, -100, -20 }), (Steps{ 0, 0, -1 }));
}

TEST(WheelSteps, ANotchEndsTheSum)
{
    EXPECT_EQ(steps_of({ 100, 120, 100, 20 }), (Steps{ 0, 1, 0, 1 }));
    EXPECT_EQ(steps_of({ 100, -120, 20, 100 }), (Steps{ 0, -1, 0, 1 }));
}

TEST(WheelSteps, ATurnOfZeroChangesNothing)
{
    EXPECT_EQ(steps_of({ 0, 60, 0, 60 }), (Steps{ 0, 0, 0, 1 }));
}

TEST(WheelSteps, APauseDiscardsTheSum)
{
    WheelSteps wheel;
    EXPECT_EQ(wheel.turn(60, 1000), 0);
    EXPECT_EQ(wheel.turn(60, 1000 + WheelSteps::pause), 1) << "just in time";
    EXPECT_EQ(wheel.turn(60, 3000), 0);
    EXPECT_EQ(wheel.turn(60, 3001 + WheelSteps::pause), 0) << "too late";
    EXPECT_EQ(wheel.turn(60, 3002 + WheelSteps::pause), 1);
}

TEST(WheelSteps, APauseCountsFromTheLastTurn)
{
    WheelSteps wheel;
    EXPECT_EQ(wheel.turn(40, 0), 0);
    EXPECT_EQ(wheel.turn(40, 900), 0);
    EXPECT_EQ(wheel.turn(40, 1800), 1);
}

TEST(WheelSteps, ContinueWhenTheClockWrapsAround)
{
    WheelSteps wheel;
    EXPECT_EQ(wheel.turn(60, std::numeric_limits<std::uint32_t>::max() - 5), 0);
    EXPECT_EQ(wheel.turn(60, 5), 1);
}

} // namespace
