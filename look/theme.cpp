#include "look/theme.hpp"
#include "core/locks.hpp"
#include <array>

namespace look {

namespace {

constexpr std::size_t theme_count = 6;

// One palette colour in every theme, in the order of the identifiers: Standard, Sepia, Dark, Pink, Green,
// Blue. Colours derived from others are set by add_dependent_colors.
struct Row {
    Color ThemePalette::*color;
    std::array<std::uint32_t, theme_count> values; // 0xBBGGRR
};

constexpr Row rows[] = {
    { &ThemePalette::box1_text, { 0x000000, 0x000000, 0xFFFFFF, 0x000000, 0x000000, 0x000000 } },
    { &ThemePalette::box2_text, { 0x000000, 0x000000, 0xFFFFFF, 0x000000, 0x000000, 0x000000 } },
    { &ThemePalette::box3_text, { 0x000000, 0x000000, 0xFFFFFF, 0x000000, 0x000000, 0x000000 } },
    { &ThemePalette::box_back, { 0xFFFFFF, 0xEBFAFF, 0x141414, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF } },
    { &ThemePalette::list_text, { 0x000000, 0x000000, 0xFFFFFF, 0x4020A0, 0x463214, 0x8C2832 } },
    { &ThemePalette::panel_back, { 0xD7D2D2, 0xA0C8E0, 0x464141, 0xDADAFF, 0xEBFAE6, 0xFFE6E6 } },
    { &ThemePalette::caption, { 0x555050, 0x2A3036, 0x3C3030, 0x9BAAFF, 0xC4E6A2, 0xFFC4B7 } },
    { &ThemePalette::status_back, { 0x403C3C, 0x2A3036, 0x3C3030, 0x9BAAFF, 0xC4E6A2, 0xFFC4B7 } },
    { &ThemePalette::status_label, { 0xC2AFA7, 0x669DAE, 0xAFC2A7, 0x664CB2, 0x6A5A42, 0xA2525A } },
    { &ThemePalette::status_value, { 0xFFE6DC, 0x96E6FF, 0xE6FFDC, 0x381C8C, 0x463214, 0x6A1E26 } },
    { &ThemePalette::accent, { 0xFFD7C3, 0x64B4FF, 0x64B4FF, 0xB9FAAA, 0x64C8FF, 0x96E6FF } },
    { &ThemePalette::button_face, { 0xBEB4B4, 0x8CB0D0, 0x9B9191, 0xB4B4F5, 0xC8EBB4, 0xFFBEB4 } },
    { &ThemePalette::button_disabled_text, { 0x817B7B, 0x5F788E, 0x696363, 0x7B7BA7, 0x88A07B, 0xAE817B } },
    { &ThemePalette::button_text, { 0x000000, 0x000000, 0x000000, 0x10104C, 0x103C10, 0x401410 } },
    { &ThemePalette::check_mark, { 0x000000, 0x000000, 0x70BAFF, 0x649600, 0x0040C8, 0x5C00E6 } },
    { &ThemePalette::check_fill, { 0xEBEBEB, 0xC5DDEC, 0x353131, 0xECECFF, 0xF6FCF4, 0xFFFFFF } },
    { &ThemePalette::check_frame, { 0x3F3F3F, 0x4E616D, 0x828282, 0x7C66BE, 0x80725E, 0x9A434C } },
    { &ThemePalette::bar_back, { 0xFFFFFF, 0xEBFAFF, 0x2B2B2B, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF } },
    { &ThemePalette::selected_bar, { 0x0000FF, 0x0000FF, 0x6060FF, 0x463CFF, 0x1E3CFF, 0x5C00FF } },
    { &ThemePalette::pasted_bar, { 0x969696, 0x969696, 0x787878, 0x969696, 0x969696, 0x969696 } },
    { &ThemePalette::editor_label, { 0x008000, 0x008000, 0xA0FF64, 0x648000, 0x8C6446, 0x6E8020 } },
    { &ThemePalette::link_text, { 0xFF0000, 0xFF0000, 0xFFB4AA, 0xFF0040, 0xFF5050, 0xFF4020 } },
    { &ThemePalette::viewer_text, { 0xC8C8C8, 0xC8C8C8, 0xC8C8C8, 0xC8C8C8, 0xC8C8C8, 0xC8C8C8 } },
    { &ThemePalette::viewer_error, { 0x6060FF, 0x6060FF, 0x6060FF, 0x6060FF, 0x6060FF, 0x6060FF } },
    { &ThemePalette::viewer_back, { 0x202020, 0x151B1E, 0x141414, 0x2E2E36, 0x292B28, 0x2C2828 } },
    { &ThemePalette::reserved_1, { 0xFAFAFA, 0xAAE6FF, 0x96BEE6, 0xEEEEFC, 0xF3FAEE, 0xFFF1EE } },
    { &ThemePalette::bar_view, { 0x00FF00, 0x00FF00, 0x00FF00, 0x64FF00, 0x8C8228, 0x40FF00 } },
    { &ThemePalette::reserved_2, { 0xDCDCDC, 0xDBE9EE, 0x5D5959, 0xDADAFF, 0xEBFAE6, 0xFFE6E6 } },
};

constexpr Color plain_link{ 0xFF0000 };
constexpr int line_shade = 60;
constexpr int groove_shade = -180;

ThemePalette loaded;

std::size_t column_of(std::int32_t identifier)
{
    if (identifier == theme_blue_plain_links)
        return static_cast<std::size_t>(theme_blue - theme_standard);
    const bool known = identifier >= theme_standard && identifier <= theme_blue;
    return known ? static_cast<std::size_t>(identifier - theme_standard) : 0;
}

void add_dependent_colors(ThemePalette& colors)
{
    const Color panel = colors.panel_back;
    colors.panel_line = panel.shade(panel.is_bright() ? -line_shade : line_shade);
    colors.slider_groove = panel.shade(groove_shade);
    colors.slider_back = panel;
    colors.check_back = panel;
    colors.check_text = colors.list_text;
    colors.check_text_on = colors.selected_bar;
}

} // namespace

const ThemePalette& palette()
{
    return loaded;
}

book::PageColors page_colors(const ThemePalette& colors)
{
    book::PageColors made{ { colors.box1_text.value, colors.box2_text.value, colors.box3_text.value } };
    made.back.fill(colors.box_back.value);
    return made;
}

ThemePalette theme_colors(std::int32_t identifier)
{
    const std::size_t column = column_of(identifier);
    ThemePalette colors;
    for (const Row& row : rows)
        colors.*row.color = Color{ row.values[column] };
    add_dependent_colors(colors);
    if (identifier == theme_blue_plain_links)
        colors.link_text = plain_link;
    colors.current_theme = theme_standard + static_cast<std::int32_t>(column);
    return colors;
}

void color_frame(Color caption, const SetFrameAttribute& set)
{
    // DWMWA_USE_IMMERSIVE_DARK_MODE, DWMWA_CAPTION_COLOR and DWMWA_TEXT_COLOR. Windows 10 supports only the
    // first.
    constexpr std::uint32_t dark_mode = 20;
    constexpr std::uint32_t caption_color = 35;
    constexpr std::uint32_t text_color = 36;
    constexpr Color black{ 0x000000 };
    constexpr Color white{ 0xFFFFFF };
    const bool is_bright = caption.is_bright();
    if (set(caption_color, caption.value))
        set(text_color, (is_bright ? black : white).value);
    else
        set(dark_mode, is_bright ? 0 : 1);
}

std::int32_t load_theme(std::int32_t identifier)
{
    const ThemePalette colors = theme_colors(identifier);
    const std::scoped_lock hold{ core::drawing_lock() };
    loaded = colors;
    return colors.current_theme;
}

} // namespace look
