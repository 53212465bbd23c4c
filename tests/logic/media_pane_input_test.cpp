// The commands that the mouse sends from the file pane.
#include "core/command_ids.hpp"
#include "media/pane_input.hpp"
#include <gtest/gtest.h>

namespace {

namespace command = core::command;
using media::DoubleClick;
using media::LoaderState;

TEST(WheelCommand, SelectsAFileOrMovesItWithCtrl)
{
    EXPECT_EQ(media::wheel_command(1, false), command::previous_file);
    EXPECT_EQ(media::wheel_command(-1, false), command::next_file);
    EXPECT_EQ(media::wheel_command(1, true), command::move_file_up);
    EXPECT_EQ(media::wheel_command(-1, true), command::move_file_down);
    EXPECT_EQ(media::wheel_command(0, false), std::nullopt);
    EXPECT_EQ(media::wheel_command(0, true), std::nullopt);
}

TEST(DoubleClickOfThePane, DependsOnWhatIsLoaded)
{
    EXPECT_EQ(media::double_click({ LoaderState::animation, L"a.gif" }), DoubleClick::press);
    EXPECT_EQ(media::double_click({ LoaderState::picture, L"a.png" }), DoubleClick::open);
    EXPECT_EQ(media::double_click({ LoaderState::thumbnail, L"a.txt" }), DoubleClick::open);
    EXPECT_EQ(media::double_click({ LoaderState::nothing, L"a.png" }), DoubleClick::search);
    EXPECT_EQ(media::double_click({ LoaderState::nothing, L"" }), DoubleClick::nothing);
}

TEST(DragArm, IsDueBeyondTheDistanceInEitherDirection)
{
    constexpr platform::Size distance{ 4, 6 };
    media::DragArm arm;
    EXPECT_FALSE(arm.is_due({ 500, 500 }, distance)) << "not pressed";
    arm.press({ 100, 100 });
    EXPECT_FALSE(arm.is_due({ 103, 105 }, distance));
    EXPECT_TRUE(arm.is_due({ 104, 100 }, distance));
    EXPECT_TRUE(arm.is_due({ 96, 100 }, distance));
    EXPECT_TRUE(arm.is_due({ 100, 106 }, distance));
    EXPECT_TRUE(arm.is_due({ 100, 94 }, distance));
}

TEST(DragArm, KeepsTheFirstPressUntilItIsDisarmed)
{
    media::DragArm arm;
    arm.press({ 10, 20 });
    arm.press({ 90, 90 });
    EXPECT_EQ(arm.start(), (platform::Point{ 10, 20 }));
    EXPECT_TRUE(arm.is_armed());
    arm.disarm();
    EXPECT_FALSE(arm.is_armed());
    EXPECT_EQ(arm.start(), platform::Point{});
    arm.press({ 90, 90 });
    EXPECT_EQ(arm.start(), (platform::Point{ 90, 90 }));
}

} // namespace
