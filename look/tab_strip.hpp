// The tabs of the main window's strip: their list, layout and look.
#pragma once
#include "book/book.hpp"
#include "controls/menu_rows.hpp"
#include "look/theme.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace look {

// A tab as it was when the strip was last built. A copy, so the strip can be painted after the Book has
// changed.
struct TabItem {
    std::uint64_t number = 0; // from 1
    platform::Rect rect;
    Color color;
    std::wstring caption;

    friend bool operator==(const TabItem&, const TabItem&) = default;
};

struct TabItems {
    std::vector<TabItem> items;
    std::uint64_t current_tab = 0; // of the page at the Book's position; 0 if it has no tab
};

// Renumbers the tabs of the Book and lays them out in a strip of this size.
TabItems make_tabs(book::Book& book, platform::Size strip);

// The tabs' rectangles from left to right. Tabs that do not fit side by side overlap the one before.
std::vector<platform::Rect> tab_rects(std::size_t count, platform::Size strip);

// The first line of a text, at most 40 characters. A surrogate pair counts as one character.
std::wstring tab_caption(std::wstring_view text);

// The number of the topmost tab at this point; 0 for none.
std::uint64_t tab_at(std::span<const TabItem> items, platform::Point point);

// Null if no item has this number.
const TabItem* find_tab(std::span<const TabItem> items, std::uint64_t number);

// The colours of tabs, the same in every theme. Only the first `named_tab_color_count` have a name and a menu
// item.
inline constexpr std::size_t tab_color_count = 16;
inline constexpr std::size_t named_tab_color_count = 7;
Color tab_color(std::size_t index);
bool is_tab_color_command(int id);
// The colour that the command chooses.
Color chosen_tab_color(int id);

// The colour of the next tab: the one that the user chose last for any tab.
class ChosenTabColor {
public:
    Color color() const { return color_; }
    // Gives the page's tab the colour of a menu command. False, without effect, for other commands.
    bool choose(int id, book::Page& page);

private:
    Color color_ = tab_color(0);
};

// The context menu of a tab.
ovlib::MenuRows tab_menu();

// The shape of a tab, clockwise from the left end of its top edge.
using TabOutline = std::array<platform::Point, 6>;
TabOutline tab_outline(const platform::Rect& tab);

// A line inside the outline: along the top of a hot tab, along the right side of any other. Polyline does not
// draw the last point.
std::vector<platform::Point> tab_edge(const TabOutline& outline, bool is_hot);

// The rectangle of a caption of this height.
platform::Rect tab_caption_rect(const platform::Rect& tab, int text_height);

// A tab is hot while it is under the mouse or its page is shown.
struct TabColors {
    Color outline;
    Color fill;
    Color edge;
    int edge_width = 1;
    Color text;

    friend bool operator==(const TabColors&, const TabColors&) = default;
};
TabColors tab_colors(Color tab, bool is_hot, const ThemePalette& palette);

struct StripColors {
    Color back;
    Color edge; // along the bottom and the right

    friend bool operator==(const StripColors&, const StripColors&) = default;
};
StripColors strip_colors(const ThemePalette& palette);

// The frame that marks the chosen colour in its swatch.
platform::Rect swatch_mark(platform::Size swatch);
Color swatch_frame(Color color);

} // namespace look
