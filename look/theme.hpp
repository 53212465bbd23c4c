// The colours of the program: one global palette, overwritten when a theme is chosen and read when windows
// paint.
#pragma once
#include "book/page.hpp"
#include "platform/color.hpp"
#include <cstdint>
#include <functional>

namespace look {

using ovlib::Color;

inline constexpr std::int32_t theme_standard = 6000;
inline constexpr std::int32_t theme_dark = 6002;
inline constexpr std::int32_t theme_blue = 6005;
inline constexpr std::int32_t theme_blue_plain_links = 6006; // loads as theme_blue with another link colour

struct ThemePalette {
    std::int32_t current_theme = 0;
    Color box1_text, box2_text, box3_text, box_back;
    Color list_text, panel_back, slider_back, panel_line, caption;
    Color status_back, status_label, status_value;
    Color slider_groove, accent;
    Color button_face, button_disabled_text, button_text;
    Color check_text, check_text_on, check_back, check_mark, check_fill, check_frame;
    Color bar_back, selected_bar, pasted_bar, editor_label, link_text;
    Color viewer_text, viewer_error, viewer_back, reserved_1, bar_view, reserved_2;
};

// The palette that windows read. Only load_theme writes it, under the drawing lock: threads other than the
// user-interface thread must hold that lock while they read it.
const ThemePalette& palette();

// The colours of a new page under this palette.
book::PageColors page_colors(const ThemePalette& colors);

// The colours of a theme, without loading it. An identifier outside 6000 to 6006 gives the standard theme.
ThemePalette theme_colors(std::int32_t identifier);

// Loads a theme and returns the identifier to store in the Book: 6006 becomes 6005, an unknown one 6000.
std::int32_t load_theme(std::int32_t identifier);

// Sets a DWM attribute of a window's frame by its number; false if the system does not support it.
using SetFrameAttribute = std::function<bool(std::uint32_t attribute, std::uint32_t value)>;

// Gives a title bar this colour, with white text on a dark one and black text on a bright one. A system that
// takes no colours gets its own dark or light title bar, whichever is nearer.
void color_frame(Color caption, const SetFrameAttribute& set);

} // namespace look
