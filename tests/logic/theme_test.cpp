// The colours of every theme, the computed ones included.
#include "look/theme.hpp"
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <map>

namespace {

using look::Color;
using look::ThemePalette;

struct Row {
    const char* name;
    Color ThemePalette::*color;
    std::array<std::uint32_t, 6> values; // Standard, Sepia, Dark, Pink, Green, Blue
};

const Row rows[] = {
    { "box1_text", &ThemePalette::box1_text, { 0x000000, 0x000000, 0xFFFFFF, 0x000000, 0x000000, 0x000000 } },
    { "box2_text", &ThemePalette::box2_text, { 0x000000, 0x000000, 0xFFFFFF, 0x000000, 0x000000, 0x000000 } },
    { "box3_text", &ThemePalette::box3_text, { 0x000000, 0x000000, 0xFFFFFF, 0x000000, 0x000000, 0x000000 } },
    { "box_back", &ThemePalette::box_back, { 0xFFFFFF, 0xEBFAFF, 0x141414, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF } },
    { "list_text", &ThemePalette::list_text, { 0x000000, 0x000000, 0xFFFFFF, 0x4020A0, 0x463214, 0x8C2832 } },
    { "panel_back", &ThemePalette::panel_back,
        { 0xD7D2D2, 0xA0C8E0, 0x464141, 0xDADAFF, 0xEBFAE6, 0xFFE6E6 } },
    { "slider_back", &ThemePalette::slider_back,
        { 0xD7D2D2, 0xA0C8E0, 0x464141, 0xDADAFF, 0xEBFAE6, 0xFFE6E6 } },
    { "panel_line", &ThemePalette::panel_line,
        { 0xA39F9F, 0x7998AA, 0x726E6E, 0xA6A6C2, 0xB3BEAF, 0xC2AFAF } },
    { "caption", &ThemePalette::caption, { 0x555050, 0x2A3036, 0x3C3030, 0x9BAAFF, 0xC4E6A2, 0xFFC4B7 } },
    { "status_back", &ThemePalette::status_back,
        { 0x403C3C, 0x2A3036, 0x3C3030, 0x9BAAFF, 0xC4E6A2, 0xFFC4B7 } },
    { "status_label", &ThemePalette::status_label,
        { 0xC2AFA7, 0x669DAE, 0xAFC2A7, 0x664CB2, 0x6A5A42, 0xA2525A } },
    { "status_value", &ThemePalette::status_value,
        { 0xFFE6DC, 0x96E6FF, 0xE6FFDC, 0x381C8C, 0x463214, 0x6A1E26 } },
    { "slider_groove", &ThemePalette::slider_groove,
        { 0x3E3D3D, 0x2E3A41, 0x141313, 0x3F3F4A, 0x444943, 0x4A4343 } },
    { "accent", &ThemePalette::accent, { 0xFFD7C3, 0x64B4FF, 0x64B4FF, 0xB9FAAA, 0x64C8FF, 0x96E6FF } },
    { "button_face", &ThemePalette::button_face,
        { 0xBEB4B4, 0x8CB0D0, 0x9B9191, 0xB4B4F5, 0xC8EBB4, 0xFFBEB4 } },
    { "button_disabled_text", &ThemePalette::button_disabled_text,
        { 0x817B7B, 0x5F788E, 0x696363, 0x7B7BA7, 0x88A07B, 0xAE817B } },
    { "button_text", &ThemePalette::button_text,
        { 0x000000, 0x000000, 0x000000, 0x10104C, 0x103C10, 0x401410 } },
    { "check_text", &ThemePalette::check_text,
        { 0x000000, 0x000000, 0xFFFFFF, 0x4020A0, 0x463214, 0x8C2832 } },
    { "check_text_on", &ThemePalette::check_text_on,
        { 0x0000FF, 0x0000FF, 0x6060FF, 0x463CFF, 0x1E3CFF, 0x5C00FF } },
    { "check_back", &ThemePalette::check_back,
        { 0xD7D2D2, 0xA0C8E0, 0x464141, 0xDADAFF, 0xEBFAE6, 0xFFE6E6 } },
    { "check_mark", &ThemePalette::check_mark,
        { 0x000000, 0x000000, 0x70BAFF, 0x649600, 0x0040C8, 0x5C00E6 } },
    { "check_fill", &ThemePalette::check_fill,
        { 0xEBEBEB, 0xC5DDEC, 0x353131, 0xECECFF, 0xF6FCF4, 0xFFFFFF } },
    { "check_frame", &ThemePalette::check_frame,
        { 0x3F3F3F, 0x4E616D, 0x828282, 0x7C66BE, 0x80725E, 0x9A434C } },
    { "bar_back", &ThemePalette::bar_back, { 0xFFFFFF, 0xEBFAFF, 0x2B2B2B, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF } },
    { "selected_bar", &ThemePalette::selected_bar,
        { 0x0000FF, 0x0000FF, 0x6060FF, 0x463CFF, 0x1E3CFF, 0x5C00FF } },
    { "pasted_bar", &ThemePalette::pasted_bar,
        { 0x969696, 0x969696, 0x787878, 0x969696, 0x969696, 0x969696 } },
    { "editor_label", &ThemePalette::editor_label,
        { 0x008000, 0x008000, 0xA0FF64, 0x648000, 0x8C6446, 0x6E8020 } },
    { "link_text", &ThemePalette::link_text, { 0xFF0000, 0xFF0000, 0xFFB4AA, 0xFF0040, 0xFF5050, 0xFF4020 } },
    { "viewer_text", &ThemePalette::viewer_text,
        { 0xC8C8C8, 0xC8C8C8, 0xC8C8C8, 0xC8C8C8, 0xC8C8C8, 0xC8C8C8 } },
    { "viewer_error", &ThemePalette::viewer_error,
        { 0x6060FF, 0x6060FF, 0x6060FF, 0x6060FF, 0x6060FF, 0x6060FF } },
    { "viewer_back", &ThemePalette::viewer_back,
        { 0x202020, 0x151B1E, 0x141414, 0x2E2E36, 0x292B28, 0x2C2828 } },
    { "reserved_1", &ThemePalette::reserved_1,
        { 0xFAFAFA, 0xAAE6FF, 0x96BEE6, 0xEEEEFC, 0xF3FAEE, 0xFFF1EE } },
    { "bar_view", &ThemePalette::bar_view, { 0x00FF00, 0x00FF00, 0x00FF00, 0x64FF00, 0x8C8228, 0x40FF00 } },
    { "reserved_2", &ThemePalette::reserved_2,
        { 0xDCDCDC, 0xDBE9EE, 0x5D5959, 0xDADAFF, 0xEBFAE6, 0xFFE6E6 } },
};

TEST(Theme, GivesEveryColourOfEveryTable)
{
    for (const Row& row : rows) {
        for (std::size_t theme = 0; theme < row.values.size(); ++theme) {
            const ThemePalette colors = look::theme_colors(6000 + static_cast<std::int32_t>(theme));
            EXPECT_EQ((colors.*row.color).value, row.values[theme]) << row.name << " of " << 6000 + theme;
        }
    }
}

TEST(Theme, HasNoColourOutsideTheTable)
{
    EXPECT_EQ(sizeof(ThemePalette), sizeof(std::int32_t) + std::size(rows) * sizeof(Color));
}

TEST(Theme, ReportsItsIdentifier)
{
    for (std::int32_t identifier = 6000; identifier <= 6005; ++identifier) {
        EXPECT_EQ(look::theme_colors(identifier).current_theme, identifier);
        EXPECT_EQ(look::load_theme(identifier), identifier);
        EXPECT_EQ(look::palette().current_theme, identifier);
    }
}

TEST(Theme, HasABlueOneWithPlainLinksThatIsStoredAsBlue)
{
    const ThemePalette blue = look::theme_colors(6005);
    const ThemePalette plain = look::theme_colors(6006);
    EXPECT_EQ(look::load_theme(6006), 6005);
    EXPECT_EQ(look::palette().current_theme, 6005);
    EXPECT_EQ(look::palette().link_text.value, 0xFF0000u);
    EXPECT_EQ(plain.current_theme, 6005);
    for (const Row& row : rows) {
        if (std::string_view(row.name) != "link_text") {
            EXPECT_EQ(plain.*row.color, blue.*row.color) << row.name;
        }
    }
}

TEST(Theme, IsStandardForEveryUnknownIdentifier)
{
    for (const std::int32_t identifier : { 0, 1, -1, -6001, 5999, 6007, 7000,
             std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max() }) {
        look::load_theme(look::theme_dark);
        EXPECT_EQ(look::load_theme(identifier), 6000) << identifier;
        EXPECT_EQ(look::palette().current_theme, 6000);
        for (const Row& row : rows)
            EXPECT_EQ((look::palette().*row.color).value, row.values[0]) << row.name << " for " << identifier;
    }
}

TEST(Theme, DrawsLinesLighterInDarkAndDarkerElsewhere)
{
    for (std::int32_t identifier = 6000; identifier <= 6005; ++identifier) {
        const ThemePalette colors = look::theme_colors(identifier);
        if (identifier == look::theme_dark)
            EXPECT_GT(colors.panel_line.luminance(), colors.panel_back.luminance());
        else
            EXPECT_LT(colors.panel_line.luminance(), colors.panel_back.luminance());
    }
}

// Each attribute number with the value it was set to.
using Attributes = std::map<std::uint32_t, std::uint32_t>;

Attributes frame_of(Color caption, bool system_takes_colors)
{
    Attributes set;
    look::color_frame(caption, [&](std::uint32_t attribute, std::uint32_t value) {
        EXPECT_FALSE(set.contains(attribute)) << attribute << " twice";
        set[attribute] = value;
        return system_takes_colors || attribute < 35;
    });
    return set;
}

TEST(Frame, HasATextReadableOnItsColour)
{
    EXPECT_EQ(frame_of(Color{ 0x555050 }, true), (Attributes{ { 35, 0x555050 }, { 36, 0xFFFFFF } }));
    EXPECT_EQ(frame_of(Color{ 0xC4E6A2 }, true), (Attributes{ { 35, 0xC4E6A2 }, { 36, 0x000000 } }));
}

TEST(Frame, IsTheDarkOneOfASystemThatTakesNoColourWhenItsColourIsDark)
{
    EXPECT_EQ(frame_of(Color{ 0x3C3030 }, false), (Attributes{ { 35, 0x3C3030 }, { 20, 1 } }));
    EXPECT_EQ(frame_of(Color{ 0xFFC4B7 }, false), (Attributes{ { 35, 0xFFC4B7 }, { 20, 0 } }));
}

TEST(Frame, IsReadableInEveryTheme)
{
    for (std::int32_t identifier = 6000; identifier <= 6005; ++identifier) {
        const Color caption = look::theme_colors(identifier).caption;
        const Color text{ frame_of(caption, true).at(36) };
        EXPECT_GE(std::abs(text.luminance() - caption.luminance()), 128) << identifier;
    }
}

TEST(Theme, KeepsThePaletteWhenColoursAreOnlyQueried)
{
    look::load_theme(6001);
    look::theme_colors(6003);
    EXPECT_EQ(look::palette().current_theme, 6001);
    EXPECT_EQ(look::palette().box_back.value, 0xEBFAFFu);
    look::load_theme(6000);
}

} // namespace
