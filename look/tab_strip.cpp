#include "look/tab_strip.hpp"
#include "core/command_ids.hpp"
#include "platform/text.hpp"
#include <algorithm>

namespace look {

namespace {

using platform::Point;
using platform::Rect;
using platform::Size;

struct TabColor {
    Color color;
    std::wstring_view name;
};

constexpr std::array<TabColor, tab_color_count> tab_color_table{ {
    { Color{ 0x535864 }, L"(Default)" },
    { Color{ 0xB3574A }, L"Blue" },
    { Color{ 0x698C20 }, L"Green" },
    { Color{ 0x32A0BE }, L"Yellow" },
    { Color{ 0x1E78BE }, L"Orange" },
    { Color{ 0x403CBE }, L"Red" },
    { Color{ 0xB4468C }, L"Purple" },
} };

constexpr Color white{ 0xFFFFFF };

// The header is not checked when it is read: an unknown number becomes the nearest box.
std::size_t label_box(const book::BookHeader& header)
{
    constexpr std::int32_t last_box =
        book::first_tab_label_box + static_cast<std::int32_t>(book::box_count) - 1;
    const std::int32_t box = std::clamp(header.tab_label_box, book::first_tab_label_box, last_box);
    return static_cast<std::size_t>(box - book::first_tab_label_box);
}

// The high byte of a COLORREF is not part of the colour.
Color plain_color(std::uint32_t colorref)
{
    return Color{ colorref & 0xFFFFFF };
}

} // namespace

TabItems make_tabs(book::Book& book, Size strip)
{
    book.recount();
    const std::vector<Rect> rects = tab_rects(static_cast<std::size_t>(book.tab_count), strip);
    const std::size_t box = label_box(book.header);
    const book::Page* const shown = book.current_page();
    TabItems tabs;
    tabs.items.reserve(rects.size());
    for (const Rect& rect : rects) {
        const std::uint64_t number = tabs.items.size() + 1;
        const book::Page* const page = book.page_of_tab(number);
        tabs.items.push_back({ number, rect, page ? plain_color(page->tab_color) : tab_color(0),
            page ? tab_caption(page->text[box]) : std::wstring() });
        if (page && page == shown)
            tabs.current_tab = number;
    }
    return tabs;
}

// All tabs have the same width and start at equal distances, so that the last one ends at the right margin.
// When narrowest tabs do not fit, the distance becomes smaller than the width and they overlap.
std::vector<Rect> tab_rects(std::size_t count, Size strip)
{
    constexpr int widest = 200;
    constexpr int narrowest = 80;
    constexpr int right_margin = 2;
    std::vector<Rect> rects;
    if (count == 0)
        return rects;
    const int n = static_cast<int>(count);
    const int total = std::min(strip.width - right_margin, n * widest);
    const int each = std::max(total / n, narrowest);
    const double step = n == 1 ? 0.0 : static_cast<double>(total - each) / (n - 1);
    double x = 0.0;
    rects.reserve(count);
    for (int i = 0; i < n; ++i, x += step)
        rects.push_back({ static_cast<int>(x), 0, static_cast<int>(each + x), strip.height });
    return rects;
}

std::wstring tab_caption(std::wstring_view text)
{
    constexpr int longest = 40;
    const std::wstring_view line = text.substr(0, text.find(L"\r\n"));
    std::size_t end = 0;
    for (int characters = 0; characters < longest && end < line.size(); ++characters) {
        const bool is_pair = end + 1 < line.size() && platform::is_high_surrogate(line[end])
            && platform::is_low_surrogate(line[end + 1]);
        end += is_pair ? 2 : 1;
    }
    return std::wstring(line.substr(0, end));
}

std::uint64_t tab_at(std::span<const TabItem> items, Point point)
{
    // Tabs may overlap, and a later one is drawn on top.
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (item->rect.contains(point))
            return item->number;
    }
    return 0;
}

const TabItem* find_tab(std::span<const TabItem> items, std::uint64_t number)
{
    return number == 0 || number > items.size() ? nullptr : &items[static_cast<std::size_t>(number - 1)];
}

Color tab_color(std::size_t index)
{
    return tab_color_table[std::min(index, tab_color_count - 1)].color;
}

bool is_tab_color_command(int id)
{
    return id >= core::command::first_tab_color && id <= core::command::last_tab_color;
}

Color chosen_tab_color(int id)
{
    const int index = std::max(id - core::command::first_tab_color, 0);
    return tab_color(static_cast<std::size_t>(index));
}

bool ChosenTabColor::choose(int id, book::Page& page)
{
    if (!is_tab_color_command(id))
        return false;
    color_ = chosen_tab_color(id);
    page.tab_color = color_.value;
    return true;
}

ovlib::MenuRows tab_menu()
{
    ovlib::MenuRows rows;
    for (std::size_t i = 0; i < named_tab_color_count; ++i) {
        const int id = core::command::first_tab_color + static_cast<int>(i);
        rows.push_back(ovlib::menu_item(id, tab_color_table[i].name));
        if (i == 0)
            rows.push_back(ovlib::menu_separator());
    }
    rows.push_back(ovlib::menu_separator());
    rows.push_back(ovlib::menu_item(core::command::remove_tab, L"タブの削除"));
    return rows;
}

TabOutline tab_outline(const Rect& tab)
{
    constexpr int corner = 4;
    const auto& [left, top, right, bottom] = tab;
    return { { { left + corner, top }, { right - 1 - corner, top }, { right - 1, top + corner },
        { right - 1, bottom }, { left, bottom }, { left, top + corner } } };
}

std::vector<Point> tab_edge(const TabOutline& outline, bool is_hot)
{
    if (!is_hot)
        return { outline[1], outline[2], outline[3] };
    constexpr int below = 2;
    return { { outline[0].x - 1, outline[0].y + below }, { outline[1].x + 1, outline[1].y + below } };
}

Rect tab_caption_rect(const Rect& tab, int text_height)
{
    constexpr int indent = 4;
    constexpr int margins = 6;
    const int left = tab.left + indent;
    const int top = (tab.top + tab.bottom - text_height) / 2;
    return { left, top, left + tab.width() - margins, top + text_height };
}

TabColors tab_colors(Color tab, bool is_hot, const ThemePalette& palette)
{
    if (!is_hot)
        return { tab.shade(150), tab, tab.shade(-150), 1, white };
    const Color text = palette.current_theme == theme_dark ? tab.shade(150) : tab.shade(-150);
    return { tab, palette.panel_back, tab.shade(50), 2, text };
}

StripColors strip_colors(const ThemePalette& palette)
{
    return { palette.panel_back.shade(-80), palette.panel_back.shade(150) };
}

Rect swatch_mark(Size swatch)
{
    constexpr int inset = 4;
    const int right = swatch.width - inset;
    const int bottom = swatch.height - inset;
    return { std::min(right, inset), std::min(bottom, inset), right, bottom };
}

Color swatch_frame(Color color)
{
    return color.shade(-80);
}

} // namespace look
