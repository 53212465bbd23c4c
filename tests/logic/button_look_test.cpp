// Colours of buttons and check boxes in every theme and state, and the position of a picture.
#include "look/button_look.hpp"
#include <gtest/gtest.h>

namespace {

using namespace look;
using ovlib::ButtonState;
using platform::Rect;
using platform::Size;

constexpr ButtonState normal{};
constexpr ButtonState pressed{ .pressed = true };
constexpr ButtonState focused{ .focused = true };
constexpr ButtonState disabled{ .disabled = true };

class ButtonLook : public testing::TestWithParam<std::int32_t> {
protected:
    ThemePalette colors = theme_colors(GetParam());
};

TEST_P(ButtonLook, FillsAnImageButtonWithTheFace)
{
    const ImageButtonColors shown = image_button_colors(colors, false, normal);
    EXPECT_EQ(shown.back, colors.panel_back);
    EXPECT_EQ(shown.fill, colors.button_face);
    EXPECT_EQ(shown.border, colors.button_face.shade(-130));
    EXPECT_EQ(shown.text, colors.button_text);
}

TEST_P(ButtonLook, FillsAHighlightedOneWithTheAccentButKeepsItsBorder)
{
    const ImageButtonColors shown = image_button_colors(colors, true, normal);
    EXPECT_EQ(shown.fill, colors.accent);
    EXPECT_EQ(shown.border, colors.button_face.shade(-130));
    EXPECT_EQ(shown.text, colors.button_text);
}

TEST_P(ButtonLook, LightensAPressedFill)
{
    EXPECT_EQ(image_button_colors(colors, false, pressed).fill, colors.button_face.shade(80));
    EXPECT_EQ(image_button_colors(colors, true, pressed).fill, colors.accent.shade(80));
    EXPECT_EQ(image_button_colors(colors, false, pressed).text, colors.button_text);
}

TEST_P(ButtonLook, GivesADisabledTextItsColourAndAShadow)
{
    const ImageButtonColors shown = image_button_colors(colors, false, disabled);
    EXPECT_EQ(shown.fill, colors.button_face);
    EXPECT_EQ(shown.text, colors.button_disabled_text);
    EXPECT_EQ(shown.text_shadow, colors.button_face.shade(150));
}

TEST_P(ButtonLook, HasNoColourOfItsOwnForTheFocus)
{
    EXPECT_EQ(image_button_colors(colors, false, focused), image_button_colors(colors, false, normal));
}

TEST_P(ButtonLook, TakesTheCheckBoxFromTheTheme)
{
    const ovlib::CheckBoxColors off = check_box_colors(colors, false);
    EXPECT_EQ(off.text, colors.check_text);
    EXPECT_EQ(off.back, colors.check_back);
    EXPECT_EQ(off.mark, colors.check_mark);
    EXPECT_EQ(off.fill, colors.check_fill);
    EXPECT_EQ(off.frame, colors.check_frame);
}

TEST_P(ButtonLook, ChangesOnlyTheTextOfACheckBoxThatIsOn)
{
    ovlib::CheckBoxColors expected = check_box_colors(colors, false);
    expected.text = colors.check_text_on;
    EXPECT_EQ(check_box_colors(colors, true), expected);
}

INSTANTIATE_TEST_SUITE_P(Themes, ButtonLook, testing::Range(theme_standard, theme_blue + 1));

constexpr Rect item{ 0, 0, 24, 20 };
constexpr Size sheet{ 32, 16 }; // two of 16 x 16

TEST(SheetPlace, CentresTheLeftHalf)
{
    EXPECT_EQ(
        sheet_place(item, sheet, SheetAlign::center, normal), (SheetPlace{ { 4, 2 }, { 0, 0, 16, 16 } }));
}

TEST(SheetPlace, TakesTheRightHalfWhenDisabled)
{
    EXPECT_EQ(
        sheet_place(item, sheet, SheetAlign::center, disabled), (SheetPlace{ { 4, 2 }, { 16, 0, 32, 16 } }));
}

TEST(SheetPlace, MovesByOnePixelWhilePressed)
{
    EXPECT_EQ(
        sheet_place(item, sheet, SheetAlign::center, pressed), (SheetPlace{ { 5, 3 }, { 0, 0, 16, 16 } }));
    EXPECT_EQ(
        sheet_place(item, sheet, SheetAlign::left, pressed), (SheetPlace{ { 7, 3 }, { 0, 0, 16, 16 } }));
}

TEST(SheetPlace, IsSixPixelsFromTheLeftWhenAligned)
{
    EXPECT_EQ(sheet_place({ 0, 0, 266, 45 }, { 48, 24 }, SheetAlign::left, normal),
        (SheetPlace{ { 6, 10 }, { 0, 0, 24, 24 } }));
}

TEST(SheetPlace, KeepsTheNaturalSizeOfAPictureLargerThanTheButton)
{
    EXPECT_EQ(sheet_place(item, { 64, 32 }, SheetAlign::center, normal),
        (SheetPlace{ { -4, -6 }, { 0, 0, 32, 32 } }));
}

TEST(SheetPlace, DropsTheOddColumnOfASheet)
{
    EXPECT_EQ(sheet_place(item, { 33, 16 }, SheetAlign::center, disabled).source, (Rect{ 16, 0, 32, 16 }));
}

} // namespace
