// How the slider that moves through the pages stands, reads and decides.
#pragma once
#include "controls/slider_model.hpp"
#include <cstddef>
#include <cstdint>
#include <string>

namespace look {

// Leaves room for the number beside the track.
platform::Rect page_slider_track(const platform::Rect& track);

std::wstring page_label(std::int32_t value);
ovlib::Color page_label_color(ovlib::Color back, ovlib::Color fill);
// Of a label with this height.
platform::Point page_label_place(const platform::Rect& track, platform::Size client, int height);

// Takes the range and the value from a Book of so many pages that shows the one at `position`.
void set_page_range(ovlib::SliderModel& slider, std::size_t page_count, std::uint64_t position);

enum class PageMove {
    none,
    show_again, // there is no such page: the slider is to take the present one again
    turn, // to the position that `value` names
};

// What a WM_HSCROLL of the slider asks for; `code` is its notification code.
PageMove page_move(int code, std::int32_t value, std::uint64_t position, std::size_t page_count);

} // namespace look
