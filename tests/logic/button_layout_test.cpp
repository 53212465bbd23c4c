// The layout of drawn buttons and check boxes.
#include "controls/button_layout.hpp"
#include "controls/check_box_layout.hpp"
#include <gtest/gtest.h>

namespace {

using namespace ovlib;
using platform::Point;
using platform::Rect;
using platform::Size;

constexpr Rect item{ 0, 0, 80, 20 };
constexpr ButtonState normal{};
constexpr ButtonState pressed{ .pressed = true };
constexpr ButtonState disabled{ .disabled = true };

TEST(ButtonText, IsCentredInTheItem)
{
    EXPECT_EQ(button_text_places(item, normal), (ButtonTextPlaces{ item, false, {} }));
}

TEST(ButtonText, MovesByOnePixelWhilePressed)
{
    EXPECT_EQ(button_text_places(item, pressed), (ButtonTextPlaces{ { 1, 1, 81, 21 }, false, {} }));
}

TEST(ButtonText, HasAShadowOnePixelAwayWhenDisabled)
{
    EXPECT_EQ(button_text_places(item, disabled), (ButtonTextPlaces{ item, true, { 1, 1, 81, 21 } }));
}

TEST(ButtonText, DoesNotMoveWhenDisabledWhilePressed)
{
    EXPECT_EQ(
        button_text_places(item, { .pressed = true, .disabled = true }), button_text_places(item, disabled));
}

TEST(ButtonFocus, IsThreePixelsInside)
{
    EXPECT_EQ(button_focus_rect(item), (Rect{ 3, 3, 77, 17 }));
}

TEST(CheckBoxLayout, BoxIsASquareAtTheLeftEdgeInTheMiddle)
{
    EXPECT_EQ(check_box_rect(item), (Rect{ 0, 3, 14, 17 }));
    EXPECT_EQ(check_box_rect({ 0, 0, 80, 18 }), (Rect{ 0, 2, 14, 16 }));
    EXPECT_EQ(check_box_rect({ 0, 0, 80, 19 }), (Rect{ 0, 2, 14, 16 }));
    EXPECT_EQ(check_box_rect({ 0, 0, 80, 13 }), (Rect{ 0, -1, 14, 13 }));
    EXPECT_EQ(check_box_rect({}), (Rect{ 0, -7, 14, 7 }));
}

TEST(CheckBoxLayout, TickBeginsOnePixelInAndThreeAbove)
{
    EXPECT_EQ(check_tick_place({ 0, 3, 14, 17 }), (Point{ 1, 0 }));
}

TEST(CheckBoxLayout, TextIsCentredOnePixelHigherThanTheMiddle)
{
    EXPECT_EQ(check_text_rect(item, { 40, 12 }), (Rect{ 18, 3, 58, 15 }));
    EXPECT_EQ(check_text_rect(item, { 40, 13 }), (Rect{ 18, 3, 58, 16 }));
    EXPECT_EQ(check_text_rect({ 0, 0, 80, 19 }, { 40, 13 }), (Rect{ 18, 2, 58, 15 }));
}

TEST(CheckBoxLayout, TextMayBeWiderThanTheItem)
{
    EXPECT_EQ(check_text_rect(item, { 100, 12 }), (Rect{ 18, 3, 118, 15 }));
}

TEST(CheckBoxLayout, FocusSurroundsTheTextAtFullHeight)
{
    EXPECT_EQ(check_focus_rect(item, { 18, 3, 58, 15 }), (Rect{ 17, 0, 59, 20 }));
}

TEST(CheckBoxLayout, FocusEndsAtTheRightEdge)
{
    EXPECT_EQ(check_focus_rect(item, { 18, 3, 79, 15 }), (Rect{ 17, 0, 80, 20 }));
    EXPECT_EQ(check_focus_rect(item, { 18, 3, 118, 15 }), (Rect{ 17, 0, 80, 20 }));
}

TEST(CheckBoxLayout, FitsTextWithEighteenPixelsForTheBox)
{
    EXPECT_EQ(check_fit_width(82), 100);
    EXPECT_EQ(check_fit_width(0), 18);
}

constexpr Color dark{ 0x7F7F7F }; // luminance 127
constexpr Color light{ 0x808080 }; // luminance 128
constexpr Color ink{ 0x204060 };

TEST(DisabledCheckBox, FadesTheTickByTheFillBehindIt)
{
    const CheckBoxColors on_light{ ink, dark, ink, light, ink };
    EXPECT_EQ(disabled_check_colors(on_light).mark, ink.shade(130));
    const CheckBoxColors on_dark{ ink, light, ink, dark, ink };
    EXPECT_EQ(disabled_check_colors(on_dark).mark, ink.shade(-130));
}

TEST(DisabledCheckBox, FadesTheTextByTheBackground)
{
    const CheckBoxColors on_light{ ink, light, ink, dark, ink };
    EXPECT_EQ(disabled_check_colors(on_light).text, ink.shade(130));
    const CheckBoxColors on_dark{ ink, dark, ink, light, ink };
    EXPECT_EQ(disabled_check_colors(on_dark).text, ink.shade(-130));
}

TEST(DisabledCheckBox, KeepsBoxAndBackground)
{
    const CheckBoxColors colors{ ink, light, ink, dark, ink };
    const CheckBoxColors shown = disabled_check_colors(colors);
    EXPECT_EQ(shown.back, colors.back);
    EXPECT_EQ(shown.fill, colors.fill);
    EXPECT_EQ(shown.frame, colors.frame);
}

} // namespace
