#include "look/page_bar_runs.hpp"
#include <algorithm>

namespace look {

namespace {

using book::PageSelection;
using ovlib::Stroke;
using platform::Point;

constexpr int run_top = 4;
constexpr int run_bottom = 12;
constexpr int indicator_top = -5;
constexpr int span_weight = 160; // of 256, for the pixels below the span
constexpr int frame_dark = -150;
constexpr int frame_light = 200;

// Pixels per page, as a fraction: 100,000 pages share 370 pixels.
double scale_of(std::size_t page_count)
{
    return static_cast<double>(page_bar_size.width) / static_cast<double>(page_count);
}

int place_of(double pages, double scale)
{
    return static_cast<int>(pages * scale);
}

int at_least_one_wide(int left, int right)
{
    return right == left ? right + 1 : right;
}

} // namespace

// One pass that closes a run where the selection changes. Both edges come from the same place_of, so
// neighbours share an edge and rounding leaves no gap between them.
std::vector<PageRun> page_runs(const std::vector<book::Page>& pages)
{
    std::vector<PageRun> runs;
    if (pages.empty())
        return runs;
    const double scale = scale_of(pages.size());
    PageSelection open = PageSelection::none;
    int start = 0;
    const auto close = [&](int end) {
        if (open != PageSelection::none)
            runs.push_back({ { start, run_top, at_least_one_wide(start, end), run_bottom }, open });
    };
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const PageSelection selected = pages[i].selected;
        if (selected == open)
            continue;
        const int x = place_of(static_cast<double>(i), scale);
        close(x);
        open = selected;
        start = x;
    }
    close(page_bar_size.width);
    return runs;
}

platform::Rect page_span(std::size_t first, std::size_t last, std::size_t page_count)
{
    const auto [low, high] = std::minmax({ std::min(first, page_count - 1), std::min(last, page_count - 1) });
    const double scale = scale_of(page_count);
    const int left = place_of(static_cast<double>(low), scale);
    const int right = place_of(static_cast<double>(high) + 1, scale);
    return { left, 0, at_least_one_wide(left, right), page_bar_size.height };
}

std::uint8_t blend_span(std::uint8_t old, std::uint8_t channel)
{
    return ovlib::blended_channel(old, channel, span_weight);
}

Point indicator_place(std::size_t current, std::size_t page_count, int width)
{
    return { place_of(static_cast<double>(std::min(current, page_count - 1)) + 0.5, scale_of(page_count))
            - width / 2,
        indicator_top };
}

Color page_label_color(const ThemePalette& palette, PageSelection selected)
{
    switch (selected) {
    case PageSelection::selected:
        return palette.selected_bar;
    case PageSelection::pasted:
        return palette.pasted_bar;
    default:
        return palette.editor_label;
    }
}

std::array<Stroke, 2> page_bar_frame(ovlib::Color panel)
{
    const int right = page_bar_size.width - 1;
    const int bottom = page_bar_size.height - 1;
    return { Stroke{ { Point{ 0, page_bar_size.height }, Point{ 0, 0 }, Point{ right, 0 } },
                 panel.shade(frame_dark) },
        Stroke{
            { Point{ right, 0 }, Point{ right, bottom }, Point{ 0, bottom } }, panel.shade(frame_light) } };
}

} // namespace look
