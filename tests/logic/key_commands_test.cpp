// The keys that turn the page from every control.
#include "app/key_commands.hpp"
#include <gtest/gtest.h>

namespace {

using app::command_of_key;

TEST(KeyCommands, F3TurnsThePageAndShiftTurnsItBack)
{
    EXPECT_EQ(command_of_key(0x72, {}), core::command::next_page);
    EXPECT_EQ(command_of_key(0x72, { .shift = true }), core::command::previous_page);
}

TEST(KeyCommands, OtherKeysAndChordsBelongToTheControl)
{
    EXPECT_EQ(command_of_key(0x71, {}), std::nullopt);
    EXPECT_EQ(command_of_key(0x73, { .shift = true }), std::nullopt);
    EXPECT_EQ(command_of_key(0x72, { .control = true }), std::nullopt);
    EXPECT_EQ(command_of_key(0x72, { .alt = true }), std::nullopt);
    EXPECT_EQ(command_of_key(0x72, { .shift = true, .control = true }), std::nullopt);
}

} // namespace
