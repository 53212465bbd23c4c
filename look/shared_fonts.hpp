// The fonts of the interface. The main window creates them once and every window borrows them.
#pragma once
#include "book/book_header.hpp"
#include <array>
#include <cstddef>

namespace look {

enum class SharedFont : std::size_t {
    arial_8,
    arial_9,
    jp_7_bold,
    jp_8,
    jp_8_bold,
    ui_8,
    ui_8_bold,
    jp_9,
    jp_9_bold,
    ui_9,
    ui_9_bold,
    jp_10,
    jp_10_bold,
    ui_10,
    ui_10_bold,
    ui_11_bold,
    ui_12_bold,
    ui_14_bold,
};
inline constexpr std::size_t shared_font_count = 18;

// The record of a shared font for a screen with this many pixels per inch.
book::LogFont shared_font_record(SharedFont font, int pixels_per_inch);

} // namespace look
