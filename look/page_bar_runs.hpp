// The page bar, a strip that shows all pages of a Book at once: the positions of its parts.
#pragma once
#include "book/page.hpp"
#include "controls/stroke.hpp"
#include "look/theme.hpp"
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace look {

inline constexpr platform::Size page_bar_size{ 370, 16 };

// Adjacent pages with the same selection; at least one pixel wide.
struct PageRun {
    platform::Rect rect;
    book::PageSelection selected = book::PageSelection::selected;

    friend bool operator==(const PageRun&, const PageRun&) = default;
};

// The runs in stored order. Unselected pages belong to no run.
std::vector<PageRun> page_runs(const std::vector<book::Page>& pages);

// The rectangle over the stored indices `first` to `last`, given in either order. Here and below,
// `page_count` must not be 0, and an index past the end counts as the last page.
platform::Rect page_span(std::size_t first, std::size_t last, std::size_t page_count);
// One colour channel of the strip under the translucent span.
std::uint8_t blend_span(std::uint8_t old, std::uint8_t channel);

// The top left corner of an indicator of this width for the page at stored index `current`.
platform::Point indicator_place(std::size_t current, std::size_t page_count, int width);

// The colour of a page's number in the page editor.
Color page_label_color(const ThemePalette& palette, book::PageSelection selected);

// The sunken frame, to be drawn with a pen one pixel wide.
std::array<ovlib::Stroke, 2> page_bar_frame(ovlib::Color panel);

} // namespace look
