#include "look/page_bar_runs.hpp"
#include <gtest/gtest.h>

namespace {

using book::PageSelection;
using look::page_runs;
using look::page_span;
using look::PageRun;
using platform::Point;
using platform::Rect;

constexpr auto none = PageSelection::none;
constexpr auto selected = PageSelection::selected;
constexpr auto pasted = PageSelection::pasted;

std::vector<book::Page> pages_of(std::initializer_list<PageSelection> states)
{
    std::vector<book::Page> pages(states.size());
    std::size_t i = 0;
    for (const PageSelection state : states)
        pages[i++].selected = state;
    return pages;
}

PageRun run(int left, int right, PageSelection state = selected)
{
    return { { left, 4, right, 12 }, state };
}

using Runs = std::vector<PageRun>;

TEST(PageBarRuns, NeighboursOfOneSelectionAreOneRun)
{
    EXPECT_EQ(page_runs(pages_of({ none, selected, selected, none })), (Runs{ run(92, 277) }));
}

TEST(PageBarRuns, AnotherSelectionBeginsAnotherRun)
{
    EXPECT_EQ(page_runs(pages_of({ selected, pasted, none, pasted, selected })),
        (Runs{ run(0, 74), run(74, 148, pasted), run(222, 296, pasted), run(296, 370) }));
}

TEST(PageBarRuns, TheLastRunGoesToTheEdge)
{
    EXPECT_EQ(page_runs(pages_of({ none, none, selected })), (Runs{ run(246, 370) }));
    EXPECT_EQ(page_runs(pages_of({ selected })), (Runs{ run(0, 370) }));
}

TEST(PageBarRuns, AreNeverNarrowerThanAPixel)
{
    std::vector<book::Page> pages(1000);
    pages[1].selected = selected; // 0.37 to 0.74
    pages[500].selected = selected; // 185 to 185.37
    pages[501].selected = pasted; // up to 185.74
    pages[999].selected = selected; // from 369.63 on
    EXPECT_EQ(page_runs(pages), (Runs{ run(0, 1), run(185, 186), run(185, 186, pasted), run(369, 370) }));
}

TEST(PageBarRuns, OfAnUnselectedOrEmptyBookAreNone)
{
    EXPECT_TRUE(page_runs({}).empty());
    EXPECT_TRUE(page_runs(pages_of({ none, none })).empty());
}

TEST(PageBarSpan, RunsFromTheFirstPageToTheEndOfTheLast)
{
    EXPECT_EQ(page_span(1, 2, 4), (Rect{ 92, 0, 277, 16 }));
    EXPECT_EQ(page_span(0, 3, 4), (Rect{ 0, 0, 370, 16 }));
    EXPECT_EQ(page_span(2, 1, 4), page_span(1, 2, 4)) << "dragged backwards";
}

TEST(PageBarSpan, IsNeverNarrowerThanAPixel)
{
    EXPECT_EQ(page_span(1, 1, 1000), (Rect{ 0, 0, 1, 16 }));
    EXPECT_EQ(page_span(99999, 99999, 100000), (Rect{ 369, 0, 370, 16 }));
}

TEST(PageBarSpan, IsLimitedToTheBook)
{
    EXPECT_EQ(page_span(2, static_cast<std::size_t>(-1), 4), (Rect{ 185, 0, 370, 16 }));
    EXPECT_EQ(page_span(7, 9, 4), (Rect{ 277, 0, 370, 16 }));
}

TEST(PageBarSpan, IsTranslucent)
{
    EXPECT_EQ(look::blend_span(255, 0), 159);
    EXPECT_EQ(look::blend_span(0, 255), 95);
    EXPECT_EQ(look::blend_span(255, 255), 255);
    EXPECT_EQ(look::blend_span(0, 0), 0);
    for (int old = 0; old < 256; ++old) {
        for (int channel = 0; channel < 256; ++channel) {
            ASSERT_EQ(look::blend_span(static_cast<std::uint8_t>(old), static_cast<std::uint8_t>(channel)),
                (160 * old + 96 * channel) / 256);
        }
    }
}

TEST(PageBarIndicator, IsCentredOverItsPage)
{
    EXPECT_EQ(look::indicator_place(0, 4, 9), (Point{ 42, -5 })) << "46 less 4";
    EXPECT_EQ(look::indicator_place(3, 4, 9), (Point{ 319, -5 }));
    EXPECT_EQ(look::indicator_place(0, 100000, 9), (Point{ -4, -5 }));
    EXPECT_EQ(look::indicator_place(50, 4, 9), look::indicator_place(3, 4, 9));
}

TEST(PageBarFrame, IsSunken)
{
    // A bright panel and a dark one: after rounding, neighbouring shades of either may be equal.
    for (const ovlib::Color panel : { ovlib::Color{ 0xD7D2D2 }, ovlib::Color{ 0x000000 } }) {
        const auto frame = look::page_bar_frame(panel);
        EXPECT_EQ(frame[0],
            (ovlib::Stroke{ { Point{ 0, 16 }, Point{ 0, 0 }, Point{ 369, 0 } }, panel.shade(-150) }));
        EXPECT_EQ(frame[1],
            (ovlib::Stroke{ { Point{ 369, 0 }, Point{ 369, 15 }, Point{ 0, 15 } }, panel.shade(200) }));
    }
}

TEST(PageBarLabel, HasTheColourOfThePage)
{
    const look::ThemePalette colors = look::theme_colors(look::theme_dark);
    EXPECT_EQ(look::page_label_color(colors, book::PageSelection::selected), colors.selected_bar);
    EXPECT_EQ(look::page_label_color(colors, book::PageSelection::pasted), colors.pasted_bar);
    EXPECT_EQ(look::page_label_color(colors, book::PageSelection::none), colors.editor_label);
}

} // namespace
