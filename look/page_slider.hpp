// The page slider: its layout, label and the page moves it asks for.
#pragma once
#include "controls/slider_model.hpp"
#include <cstddef>
#include <cstdint>
#include <string>

namespace look {

// The track without the room for the page number at its right.
platform::Rect page_slider_track(const platform::Rect& track);

std::wstring page_label(std::int32_t value);
ovlib::Color page_label_color(ovlib::Color back, ovlib::Color fill);
// The position of a label of this height.
platform::Point page_label_place(const platform::Rect& track, platform::Size client, int height);

// Sets the slider's range and value for a Book with `page_count` pages that shows the one at `position`.
void set_page_range(ovlib::SliderModel& slider, std::size_t page_count, std::uint64_t position);

enum class PageMove {
    none,
    show_again, // no such page: set the slider back to the current one
    turn, // to position `value`
};

// The page move for a WM_HSCROLL of the slider; `code` is its notification code.
PageMove page_move(int code, std::int32_t value, std::uint64_t position, std::size_t page_count);

} // namespace look
