// The strip that shows a whole Book at once: where its parts stand.
#pragma once
#include "book/page.hpp"
#include "controls/stroke.hpp"
#include "platform/color.hpp"
#include "platform/geometry.hpp"
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace look {

inline constexpr platform::Size page_bar_size{ 370, 16 };

// Pages side by side with the same selection; never narrower than a pixel.
struct PageRun {
    platform::Rect rect;
    book::PageSelection selected = book::PageSelection::selected;

    friend bool operator==(const PageRun&, const PageRun&) = default;
};

// In stored order; unselected pages have none.
std::vector<PageRun> page_runs(const std::vector<book::Page>& pages);

// Over the stored indices `first` to `last`, in either order. `page_count` must not be 0, here and below; an
// index past the end counts as the last page.
platform::Rect page_span(std::size_t first, std::size_t last, std::size_t page_count);
// A channel of the strip with the translucent colour of the span on it.
std::uint8_t blend_span(std::uint8_t old, std::uint8_t channel);

// The top left corner of a mark of this width for the page at a stored index.
platform::Point indicator_place(std::size_t current, std::size_t page_count, int width);

// Drawn with a pen of one pixel.
std::array<ovlib::Stroke, 2> page_bar_frame(ovlib::Color panel);

} // namespace look
