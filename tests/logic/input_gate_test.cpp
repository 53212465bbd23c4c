// When the main window takes page turns.
#include "app/input_gate.hpp"
#include <gtest/gtest.h>

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

TEST(InputGate, DoesNotOpenUnderABox)
{
    InputGate gate;
    const InputGate::Hold box{ gate };
    gate.set_held(false);
    EXPECT_FALSE(gate.is_open());
}

} // namespace
