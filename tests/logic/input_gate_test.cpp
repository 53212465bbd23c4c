// When the main window accepts page turns.
#include "app/input_gate.hpp"
#include <gtest/gtest.h>
#include <vector>

namespace {

using app::InputGate;

TEST(InputGate, IsOpenAtFirst)
{
    EXPECT_TRUE(InputGate{}.is_open());
}

TEST(InputGate, StaysClosedUntilTheOutermostBoxEnds)
{
    InputGate gate;
    {
        const InputGate::Hold outer{ gate };
        {
            const InputGate::Hold inner{ gate };
            EXPECT_FALSE(gate.is_open());
        }
        EXPECT_FALSE(gate.is_open());
    }
    EXPECT_TRUE(gate.is_open());
}

TEST(InputGate, IsHeldByAnotherWindowWhateverOurBoxesDo)
{
    InputGate gate;
    gate.set_held(true);
    {
        const InputGate::Hold box{ gate };
    }
    EXPECT_FALSE(gate.is_open());
    gate.set_held(false);
    EXPECT_TRUE(gate.is_open());
}

TEST(InputGate, StaysClosedUntilTheOutermostWindowReleasesIt)
{
    InputGate gate;
    gate.set_held(true);
    gate.set_held(true);
    gate.set_held(false);
    EXPECT_FALSE(gate.is_open());
    gate.set_held(false);
    EXPECT_TRUE(gate.is_open());
}

TEST(InputGate, IgnoresAReleaseInAdvance)
{
    InputGate gate;
    gate.set_held(false);
    gate.set_held(true);
    EXPECT_FALSE(gate.is_open());
}

TEST(InputGate, DoesNotOpenUnderABox)
{
    InputGate gate;
    const InputGate::Hold box{ gate };
    gate.set_held(false);
    EXPECT_FALSE(gate.is_open());
}

TEST(InputGate, ReportsWhenItOpensAndCloses)
{
    std::vector<bool> told;
    app::InputGate* self = nullptr;
    app::InputGate gate{ [&] { told.push_back(self->is_open()); } };
    self = &gate;
    {
        const app::InputGate::Hold outer{ gate };
        const app::InputGate::Hold inner{ gate };
        gate.set_held(true);
        gate.set_held(false);
    }
    gate.set_held(true);
    gate.set_held(false);
    gate.set_held(false);
    EXPECT_EQ(told, (std::vector{ false, true, false, true }));
}

} // namespace
